#include "model/clsUnits.h"

#include "model/CorvaneError.h"
#include "model/modUtilities.h"

namespace corvane {

namespace {

struct UnitRow {
    const char* label;
    double factor; // units in one foot
    const char* format;
};

// The metre factor is the international foot; the millimetre one is derived from it so that
// the two stay exactly in step.
constexpr double kMetresPerFoot = 0.3048;
constexpr std::array<UnitRow, 4> kFixedUnits = {{
    {"ft", 1.0, "0.0000"},
    {"m", kMetresPerFoot, "0.0000"},
    {"in", 12.0, "0.000"},
    {"mm", 1000.0 * kMetresPerFoot, "0.00"},
}};
constexpr const char* kCustomFormat = "0.000";

[[noreturn]] void ThrowSubscript() {
    throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
}

} // namespace

void clsUnits::ClearAllData() {
    sigDigits_ = -1;
    propLengthIndex_ = 0;
}

std::shared_ptr<clsUnits> clsUnits::CopyClass() const {
    auto copy = std::make_shared<clsUnits>();
    copy->propLengthIndex_ = propLengthIndex_;
    return copy;
}

std::string clsUnits::PropLengthFormat() const {
    const int index = ResolveIndex(-1);
    return index == kCustomIndex ? kCustomFormat : kFixedUnits[static_cast<std::size_t>(index)].format;
}

int clsUnits::ResolveIndex(int index) const {
    if (index == -1) {
        index = propLengthIndex_;
    }
    if (index < 0 || index >= kUnitCount) {
        ThrowSubscript();
    }
    return index;
}

double clsUnits::Factor(int index) const {
    index = ResolveIndex(index);
    return index == kCustomIndex ? customFactor_ : kFixedUnits[static_cast<std::size_t>(index)].factor;
}

double clsUnits::Convert(double value, int toIndex, int fromIndex, int power) const {
    double to = 1.0;
    double from = 1.0;
    for (int p = 0; p < power; ++p) {
        to *= Factor(toIndex);
        from *= Factor(fromIndex);
    }
    // Only an undefined custom unit has a zero factor; dividing by it is a caller's error,
    // reported as such rather than spreading an infinity through the project.
    if (from == 0.0) {
        throw CorvaneError(ErrorNumber::DivisionByZero, "Division by zero");
    }
    const double result = value * to / from;
    return sigDigits_ == -1 ? result : RoundSignificant(result, sigDigits_);
}

double clsUnits::ConvertUnitPropLength(double value, int toIndex, int fromIndex) const {
    return Convert(value, toIndex, fromIndex, 1);
}

double clsUnits::ConvertUnitPropLength2(double value, int toIndex, int fromIndex) const {
    return Convert(value, toIndex, fromIndex, 2);
}

double clsUnits::ConvertUnitPropLength3(double value, int toIndex, int fromIndex) const {
    return Convert(value, toIndex, fromIndex, 3);
}

std::string clsUnits::GetUnitPropLengthLabel(int index) const {
    index = ResolveIndex(index);
    return index == kCustomIndex ? customLabel_ : kFixedUnits[static_cast<std::size_t>(index)].label;
}

void clsUnits::SetUnitPropLengthCustomData(const std::string& label, double factor) {
    customLabel_ = label;
    customFactor_ = factor;
}

const std::array<std::string, 4>& clsUnits::PropLengthFileTags() {
    static const std::array<std::string, 4> tags = {"ft", "m", "in", "mm"};
    return tags;
}

std::string clsUnits::PropLengthFileTag(int index) const {
    if (index < 0 || index >= static_cast<int>(PropLengthFileTags().size())) {
        ThrowSubscript();
    }
    return PropLengthFileTags()[static_cast<std::size_t>(index)];
}

} // namespace corvane
