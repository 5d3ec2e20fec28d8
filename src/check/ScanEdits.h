#pragma once

// Changes to the scans of a project that every front end makes the same way.

namespace corvane {

class clsCorvane;

// Deletes the active scan of the selected set after asking, with the messages of the Delete
// command: none to delete, an active index out of range, and the question naming the scan's
// letter. The scans after it move down one place; the last scan of a set is never removed (the
// count and its data stay). The active index stays in range. True when a scan was removed.
bool DeleteActiveScan(clsCorvane& project);

} // namespace corvane
