#include "shell/modProjectPageRules.h"

#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsUnits.h"
#include "model/modUtilities.h"

#include <QLineEdit>

namespace corvane {
namespace {

constexpr double kLargePropellerMetres = 2.5;
constexpr double kMinimumInnerRadius = 1.0;
constexpr double kInnerRadiusLimit = 40.0;
const QString kRefusedLowInnerRadius = QStringLiteral("10");
const QString kRefusedHighInnerRadius = QStringLiteral("39");
const char* const kCrLf = "\r\n";

// Which of the station's offsets an item puts in force, with its sign.
enum class Offset { None, Standard, DogLeg, MinusDogLeg };

struct ScanArmOffsetRow {
    std::int16_t storedIndex;
    Offset side;
    Offset radial;
};

constexpr std::array<ScanArmOffsetRow, kScanArmOffsetItemCount> kScanArmOffsetRows = {{
    {0, Offset::Standard, Offset::None},
    {1, Offset::MinusDogLeg, Offset::None},
    {2, Offset::DogLeg, Offset::None},
    {3, Offset::Standard, Offset::MinusDogLeg},
    {3, Offset::Standard, Offset::DogLeg},
}};

double OffsetValue(Offset offset) {
    switch (offset) {
    case Offset::Standard:
        return gStandardOffset;
    case Offset::DogLeg:
        return gDogLegOffset;
    case Offset::MinusDogLeg:
        return -gDogLegOffset;
    case Offset::None:
        break;
    }
    return 0.0;
}

// True when the text could still become a number by typing on: a sign, digits, one decimal
// character with digits after it, and an exponent.
bool IsNumberInProgress(const QString& text, QChar decimal) {
    int i = 0;
    const int n = static_cast<int>(text.size());
    if (i < n && text.at(i) == QLatin1Char('-')) {
        ++i;
    }
    bool digits = false;
    while (i < n && text.at(i).isDigit()) {
        ++i;
        digits = true;
    }
    if (i < n && text.at(i) == decimal) {
        ++i;
        while (i < n && text.at(i).isDigit()) {
            ++i;
            digits = true;
        }
    }
    if (i < n && text.at(i) == QLatin1Char('e')) {
        if (!digits) {
            return false;
        }
        ++i;
        if (i < n && (text.at(i) == QLatin1Char('-') || text.at(i) == QLatin1Char('+'))) {
            ++i;
        }
        while (i < n && text.at(i).isDigit()) {
            ++i;
        }
    }
    return i == n;
}

} // namespace

const std::array<const char*, kScanArmOffsetItemCount> kScanArmOffsetItems = {
    "No dog leg", "Left-hand overlap [CCW]", "Right-hand overlap [CW]", "Towards hub [Inner]",
    "Towards tip [Outer]"};

std::int16_t ScanArmOffsetStoredIndex(int item) {
    if (item < 0 || item >= kScanArmOffsetItemCount) {
        return 0;
    }
    return kScanArmOffsetRows[static_cast<std::size_t>(item)].storedIndex;
}

int ScanArmOffsetItemOfIndex(int storedIndex) {
    for (int item = 0; item < kScanArmOffsetItemCount; ++item) {
        if (kScanArmOffsetRows[static_cast<std::size_t>(item)].storedIndex == storedIndex) {
            return item;
        }
    }
    return 0;
}

void ApplyScanArmOffsetItem(int item) {
    if (item < 0 || item >= kScanArmOffsetItemCount) {
        item = 0;
    }
    const ScanArmOffsetRow& row = kScanArmOffsetRows[static_cast<std::size_t>(item)];
    gScanArmOffsetIndex = row.storedIndex;
    ActiveProbeOffsetSide = OffsetValue(row.side);
    ActiveProbeOffsetRadial = OffsetValue(row.radial);
}

std::int16_t ISOStandardForDiameter(double diameterMetres) {
    return diameterMetres > kLargePropellerMetres ? 0 : 1;
}

InnerRadiusEdit CheckInnerRadiusText(const QString& text) {
    InnerRadiusEdit edit;
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        edit.empty = true;
        edit.value = kDefaultInnerRadius;
        return edit;
    }
    double value = StringToDouble(trimmed.toStdString());
    if (value < kMinimumInnerRadius) {
        edit.message = "The minimum inner radius is 1.";
        edit.replacement = kRefusedLowInnerRadius;
    } else if (value >= kInnerRadiusLimit) {
        edit.message = "The maximum inner radius is 39.";
        edit.replacement = kRefusedHighInnerRadius;
    }
    if (!edit.replacement.isNull()) {
        value = StringToDouble(edit.replacement.toStdString());
    }
    edit.value = value;
    return edit;
}

int FilterNumberKey(const QLineEdit& edit, int key, bool allowDecimal, char decimalChar) {
    if (key == 8) {
        return key;
    }
    if (key == '$' || key == ' ') {
        return 0;
    }
    if (key == 'E') {
        key = 'e';
    }
    if (key == '.' || key == ',') {
        if (!allowDecimal || key != decimalChar) {
            return 0;
        }
    }
    QString after = edit.text();
    if (edit.hasSelectedText()) {
        after.remove(edit.selectionStart(), static_cast<int>(edit.selectedText().size()));
        after.insert(edit.selectionStart(), QChar(key));
    } else {
        after.insert(edit.cursorPosition(), QChar(key));
    }
    return IsNumberInProgress(after, QLatin1Char(decimalChar)) ? key : 0;
}

QString FormatProjectLength(double value) {
    const std::string format = gUnits ? gUnits->PropLengthFormat() : std::string("0.0000");
    QString text = QString::fromStdString(FormatNumber(value, format));
    if (gDecimalChar != '.') {
        text.replace(QLatin1Char('.'), QChar(gDecimalChar));
    }
    return text;
}

QString RadiusCaption(double percent) {
    // The general form keeps 15 digits, so 0.7 x 100 reads "70", not "70.00000000000001".
    return QStringLiteral("R") + QString::fromStdString(FormatNumber(percent, ""));
}

std::string DiameterChangeWarning(const QString& diameter) {
    return std::string("Warning!") + kCrLf + "Propeller scans have already been created with a diameter of " +
           diameter.toStdString() + "." + kCrLf + kCrLf +
           "Changing the diameter will invalidate your measurements on prior scans." + kCrLf + kCrLf +
           "Do you want to change the propeller diameter for this project?";
}

} // namespace corvane
