#pragma once

// Changes to the scans of a project that every front end makes the same way. Adding and
// overwriting hand over to the scan workflow afterwards, which sets the scan button going.

#include "files/FileReadResult.h"
#include "model/DateTime.h"

#include <cstdint>
#include <string>

namespace corvane {

class clsCorvane;
class clsPropeller;

// The most scans ADD takes a project to: a project may reach 51, the test refusing only above 50.
inline constexpr int kScanLimit = 50;
class clsISO484;

// Deletes the active scan of the selected set after asking, with the messages of the Delete
// command: none to delete, an active index out of range, and the question naming the scan's
// letter. The scans after it move down one place; the last scan of a set is never removed (the
// count and its data stay). The active index stays in range. True when a scan was removed.
bool DeleteActiveScan(clsCorvane& project);

// Adds an empty scan to the selected set and makes it the active one: the project's blade count
// with eight sections each, the next ScanID, the date of `now`, the measuring device and the
// drop encoder type of the station. Refuses with "The project only supports up to 50 scans!"
// above the limit. True when the scan was added.
bool AddScan(clsCorvane& project, const std::string& scanSource, std::int16_t scanDrop, const DateTime& now);

// Asks "Re-scan and overwrite all data from Scan <letter>?" and on Yes empties every blade of
// the active scan (its header stays) with eight sections each. True when the scan was emptied.
bool OverwriteActiveScan(clsCorvane& project);

// The blades on their generator lines as HOME puts them: right hand at -(360 / count) x i in
// [0, 360), left hand at (360 / count) x i from blade 1 on, blade 0 keeping its own; the axial
// positions at 0.
void PlaceBladesOnGL(clsPropeller& scan, std::int16_t rotationIndex);

// "dd-MMM-yyyy HH:mm", the date a new scan is stamped with ("22-Nov-2026 09:05").
std::string ScanDateText(const DateTime& now);

struct [[nodiscard]] ScanImport {
    bool added = false;
    FileReadResult read; // what the reader said: its warnings, and the reason when it failed
    // Where the file's propeller differs from the project's (unit, diameter, blade count, hand),
    // one line each; shown before the scan goes in all the same. Empty when they agree.
    std::string differences;
};

// "Import..." of the Scan menu: reads a Hale MRI file into a project of its own in the project's
// unit (which may move the inner radius of `iso`, as a file import does), compares it with the
// project, and appends its scan to the project's selected set as the active one, with the next
// ScanID, the project's blade count and eight sections on every blade. A file that cannot be
// read whole adds nothing.
ScanImport ImportHaleScan(clsCorvane& project, clsISO484& iso, const std::string& path);

} // namespace corvane
