#pragma once

// The rules behind the fields of the Project page that are more than a plain copy into the
// model: the scan arm probe choices, the ISO standard that follows the diameter, the limits of
// the inner radius, the number filter of the numeric fields and the texts the page shows.

#include <QString>

#include <array>
#include <cstdint>
#include <string>

class QLineEdit;

namespace corvane {

// The probe choices of the scan arm offset list, in list order. Each one stores a selection
// index in gScanArmOffsetIndex and puts its offsets in force (ActiveProbeOffsetSide,
// ActiveProbeOffsetRadial), taken from the station's StandardOffset and DogLegOffset.
// "Towards tip [Outer]" stores 3 like "Towards hub [Inner]": a project that chose it shows the
// hub choice again once reopened. Stations have always worked that way.
inline constexpr int kScanArmOffsetItemCount = 5;
extern const std::array<const char*, kScanArmOffsetItemCount> kScanArmOffsetItems;

// The selection index an item stores; 0 for an item outside the list.
std::int16_t ScanArmOffsetStoredIndex(int item);
// The first item that stores the index; 0 for an index no item stores.
int ScanArmOffsetItemOfIndex(int storedIndex);
// Stores the item's selection index and puts its offsets in force.
void ApplyScanArmOffsetItem(int item);

// ISO 484-1 (0) for a propeller above 2.5 m, ISO 484-2 (1) up to and at 2.5 m.
std::int16_t ISOStandardForDiameter(double diameterMetres);

// What a change of the inner radius text leads to. An empty text stands for the default 30 %
// and changes nothing else. A value below 1 % is refused and replaced by 10 (not 1: the station
// puts a usable inner section back, not the bare minimum), one of 40 % or more by 39.
struct InnerRadiusEdit {
    bool empty = false;
    double value = 30.0; // per cent of R
    QString replacement; // text the field takes instead of the typed one, or null
    std::string message; // to show before the replacement, or empty
};
InnerRadiusEdit CheckInnerRadiusText(const QString& text);
inline constexpr double kDefaultInnerRadius = 30.0;

// The key a numeric field lets through, after the station's number filter: "$" and blanks are
// swallowed, "E" becomes "e", the decimal character that is not the user's is swallowed (both
// when decimals are not allowed), and a key that would leave something other than the start of
// a number in the field is swallowed. 0 swallows; backspace passes. Enter is the caller's.
int FilterNumberKey(const QLineEdit& edit, int key, bool allowDecimal, char decimalChar);

// A length of the project in the display format of its unit, with the user's decimal character.
QString FormatProjectLength(double value);
// "R" and the percentage of the radius, as the radius buttons are captioned.
QString RadiusCaption(double percent);

// The question asked before the diameter of a project with scans changes; `diameter` is the
// present value as the field shows it.
std::string DiameterChangeWarning(const QString& diameter);
inline constexpr const char* kDiameterChangeTitle = "Warning! Propeller diameter change";
inline constexpr const char* kNewDiameterPrompt = "Enter the new diameter:";
inline constexpr const char* kNewDiameterTitle = "Propeller diameter change";
inline constexpr const char* kBladeCountQuestion =
    "Existing data for some blades may be lost.\r\nDo you wish to change blade count?";
inline constexpr const char* kBladeCountTitle = "Blade Count";

} // namespace corvane
