#pragma once

// Michigan Wheel pitch progression files (ppp): an ideal propeller told by the pitch of each
// panel of each section, read into a clsPropeller, turned into surfaces, resplined onto the
// standard radii and written back out.
//
// The text itself is read by ReadPPPFile (files/modPPPFile.h); lengths are in the project unit.
// Only blade 0 of a propeller holds what the file says; BuildPPPOffsets makes the other blades
// copies of it, turned to their generator lines.

#include "files/modPPPFile.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// Reads the file into `propeller` for a project of bladeCount blades: description, blade 0's
// sections (RadialPos, Pitch, Chord, RakeAft, SkewHelix, the panel pitches), ISOBladePitch of
// blade 0 and Diameter; then checks the diameter against the active scan of gProject (when it
// has one) and builds the offsets of every blade with BuildPPPOffsets. Missing blocks are asked
// about once at the end. 1 on success, 0 when the file cannot be used or the user stops; every
// reason has been told by then.
std::int32_t ImportPPPFile(const std::string& path, clsPropeller& propeller, std::int16_t bladeCount);

// Makes each section of blade 0 a surface from its panel pitches: the panels, of equal width
// along the chord from the trailing edge, rise over the chord line by the difference of their
// pitch angle and the section's; the flat offsets are wrapped round the cylinder of the
// section's radius (MarkedDiameter / 2 * RadialPos; the propeller's Diameter when the project
// has none) with its pitch, chord, rake and skew. With checkPitch, a section whose panels do not
// close on the chord line (within a thousandth of the chord) is reported, once; the offsets are
// built all the same. A section without panels is taken as one panel at the section pitch, and
// a section at a radius of 0 or less gets no offsets. The other blades become copies of blade
// 0 on generator lines at i / BladeCount * 360 degrees. 1 on success, 0 after an error.
std::int32_t BuildPPPOffsets(clsPropeller& propeller, bool checkPitch);

// Resamples the sections of blade 0 onto the standard radii (gRadialPositions): pitch, chord,
// rake, skew and each panel's pitch are splined over r/R, the sections are replaced by eight
// new ones and their offsets rebuilt and measured. 1 on success, 0 after an error.
std::int32_t ResplineSectionsToISORadii(clsPropeller& propeller);

// Prepares gProject's reference (CalculateReferenceProperties, with raw ends) and writes it with
// WritePPPFile. 1 when written.
std::int32_t ExportPPPFile(const std::string& path);

// Writes blade 0 of the propeller as a ppp file, hub first and only the sections that have
// offsets; at least three are needed. The file is replaced in one go. 1 when written.
std::int32_t WritePPPFile(const std::string& path, const clsPropeller& propeller);

// The text WritePPPFile writes: every cell a left-justified field of 14 characters, lines
// ending in CR LF, numbers with "." whatever the locale. The propeller pitch is blade 0's
// ISOBladePitch, or the mean section pitch when that is 0. Sections with differing panel counts
// are written on the grid of the largest count.
std::string FormatPPPText(const clsPropeller& propeller);

// The section's panel pitches on a grid of `panels` equal panels (TE first): as they stand when
// the counts agree, the pitch of the panel under each new panel's centre when they differ, and
// sectionPitch everywhere when the section has no panels.
std::vector<double> PanelPitchesOnGrid(const clsSection& section, double sectionPitch, int panels);

} // namespace corvane
