#pragma once

// "From scan" of the reference editor: its tables made from the reference the project's active
// scan is compared with.

namespace corvane {

class clsCorvane;
class clsISO484;
class clsReferenceTables;

// Checks, in order, the project fields, the active scan (with its alignment), that a reference
// is chosen and that its settings are usable; then calculates the scan and the reference with
// the raw section ends and evaluates the criteria, and fills the tables from blade 0 of the
// reference: the description "<ProjectID> - Scan <ScanID>", the reference diameter, and per
// section with offsets r/R, chord, rake, skew, pitch and the panel pitches (on the grid of the
// largest panel count; with the constant local pitch on, every segment at its section's pitch).
// The first check that fails is told under "Reference Editor" with a stop icon and gives 0, the
// tables as they were; so does a reference of fewer than 3 sections. The user's reference choice
// is kept even when the calculation could not make the reference.
int ReferenceTablesFromScan(clsCorvane& project, clsISO484& iso, clsReferenceTables& tables);

} // namespace corvane
