#pragma once

// Manual entry of one section's offsets, typed or pasted into a two-column table (ANGLE, DROP in
// the project unit) for the active blade and radius. The table holds the data until OK; nothing
// reaches the section before. The dialog is the front end's; these are its rules and messages.

#include <string>
#include <vector>

namespace corvane {

class clsSection;

struct ManualEntryRow {
    std::string angle;
    std::string drop;
    bool operator==(const ManualEntryRow&) const = default;
};

enum class ManualEntryResult {
    Stored,   // two points or more went into the section; the entry closes
    Cleared,  // no complete row: the section is empty now; the entry closes
    KeepOpen, // one complete row only: "A valid section requires at least 2 data points."
};

// "Radius = 0.7R - Blade 2": caption and header of the entry. blade is 0-based.
std::string ManualEntryCaption(double fraction, int blade);

// The section's points as rows (angle, drop); one blank row when it holds fewer than two.
std::vector<ManualEntryRow> ManualEntryRows(const clsSection& section);

// OK: rows with both cells filled count, in order; others are dropped without a word. When the
// angles run from the leading to the trailing edge (for the hand of rotationIndex) the order is
// reversed after saying so, so the points start at the trailing edge. Every point takes the
// nominal radius.
ManualEntryResult ApplyManualEntry(clsSection& section, const std::vector<ManualEntryRow>& rows,
                                   int rotationIndex, double nominalRadius);

// Pasted text as cells: lines (a bare line feed ends one as well as CR LF) of tab-separated
// values, each written as its number (text that is not one as 0).
std::vector<std::vector<std::string>> PastedCells(const std::string& text);

// A cell's text as the table keeps it: a number stays as typed, anything else becomes "0".
std::string CellText(const std::string& text);

// The question before a row is deleted: "Delete data point 12.5, 0.25?"
std::string DeleteRowQuestion(const ManualEntryRow& row);

} // namespace corvane
