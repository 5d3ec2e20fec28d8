#pragma once

// The reference editor's files: its tables to and from a Michigan Wheel ppp file and a cvrf
// reference file. Each tells its own refusals and questions through Prompts() and the error
// handler; 1 when done, 0 otherwise (the tables are then as they were).

#include <string>

namespace corvane {

class clsPropeller;
class clsReferenceTables;

// The ppp file into the tables (sections, panels as segments, description and diameter). Two
// radii or fewer: "The PPP file requires a minimum of 3 sections..." under "Error reading PPP".
// A file with blocks missing asks whether to go on with what was there. The constant local
// pitch comes on when every segment has its section's pitch.
int ReadMichWheelReferenceFile(const std::string& path, clsReferenceTables& tables);

// The tables as a ppp file, every number in the form "0.0000", sections hub first; the file is
// replaced in one go.
int WriteMichiganReferenceWheelFile(const std::string& path, const clsReferenceTables& tables);

// The tables as a cvrf reference file: the offsets are built (BuildReferenceOffsets), the
// description goes to the Notes of the Project block, and the reference blocks follow; the file
// is written once, whole.
int SaveCvrfFile(const std::string& path, const clsReferenceTables& tables);

// A cvrf file into the tables, its Notes as the description. A file that cannot be used says why
// under "File read notice"; items it lacked are listed there too. The constant local pitch comes
// on when every segment has its section's pitch.
int ReadCvrfReferenceFile(const std::string& path, clsReferenceTables& tables);

// Flat offsets of every section of blade 0 from its panel pitches, as the ppp references are
// built: n + 1 offsets from (0, 0) at the trailing edge, X(j) = j / n x chord, each panel rising
// over the chord line by w x tan(panel angle - chord angle) with w = chord / n, the angles those
// of the helices of the panel's and the section's pitch on the cylinder of r = Diameter / 2 x
// RadialPos. A chord of 0 is taken as 1; a section at a radius of 0 or less gets no offsets.
int BuildReferenceOffsets(clsPropeller& propeller);

} // namespace corvane
