#pragma once

// Changes to the scans of a project that every front end makes the same way.

#include "files/FileReadResult.h"

#include <string>

namespace corvane {

class clsCorvane;
class clsISO484;

// Deletes the active scan of the selected set after asking, with the messages of the Delete
// command: none to delete, an active index out of range, and the question naming the scan's
// letter. The scans after it move down one place; the last scan of a set is never removed (the
// count and its data stay). The active index stays in range. True when a scan was removed.
bool DeleteActiveScan(clsCorvane& project);

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
