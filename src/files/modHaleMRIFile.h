#pragma once

// The text file of a Hale MRI measuring machine: a propeller measured on another machine, read
// into a project as one new scan.
//
// The file is a stream of comma-delimited fields (DelimitedFields). Fields 0 to 23 are the
// header (customer, model, diameter, pitch, hand, job, date, serial, inspector, manufacturer,
// project, material). A section list follows in one of two layouts, told apart by its second
// field B:
//   plain,   when B is above 15 and holds no ".": the blade count, then records of
//            (r/R percent, first point number, last point number), blade after blade, a new
//            blade starting where r/R stops falling; the run ends at a record whose point
//            numbers hold a "." (that is already point data);
//   counted, otherwise: the section count of each blade up to the first field above 15 or
//            holding a ".", which is the first record's r/R; then the records, blade by blade.
// Then the points of each record in list order, two fields each (angle in degrees, drop); a
// field "102" (quoted or not, compared as text) ends a section's points wherever it stands.
// Lengths are inches in the file and the project unit in the model.

#include "files/FileReadResult.h"

#include <string>

namespace corvane {

class clsCorvane;
class clsISO484;

// Blades kept from a file: indices 0 to 6. A file with more is read with a warning.
inline constexpr int kHaleMaxBlades = 7;

// Reads the file into `project`, whose unit it converts to, as one new scan of the set its hand
// selects: the header into the job data (MarkedDiameter and ReferenceDiameter from the file's
// diameter), the scan appended and made the active one with ScanID = ProjectScanCount and the
// file's date. Each record is matched to a row of the standard radial table (within 1 % of
// r/R); a record between 9.5 % and 39.5 % that matches no row becomes the blade's inner radius
// (row 7), which switches the inner radius of `iso` on and moves row 7 of gRadialPositions to
// it. Unmatched records and blades beyond the seventh are read and dropped. Of the points of a
// section the first is kept and each later one whose angle passes the last kept one (or jumps
// by more than 180 degrees); a left-hand file's angles are mirrored (360 minus the angle). The
// blades' generator lines go to their nominal places. Ends by setting ISOInnerRadius of `iso`
// to row 7 of gRadialPositions (in percent).
//
// Status 1 when the whole file was read; the warnings (too many blades or sections) are in the
// notices. Status 0 with the reason collected when the file cannot be read, its header or list
// is cut short, it has no blade, or its points end before the list does: the project then holds
// what was read (nothing of the scan when the list itself is broken). An error that escapes goes
// to the error handler under "importing the Hale MRI file".
FileReadResult ImportHaleMRIFile(const std::string& path, clsCorvane& project, clsISO484& iso);

} // namespace corvane
