#include "iso484/clsISO484.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "model/CorvaneError.h"

namespace corvane {

namespace {

// Error number of a call through an object link that was never made.
constexpr int kObjectNotSet = 91;
constexpr int kFeet = 0;

[[noreturn]] void ThrowSubscript() {
    throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
}

template <std::size_t N> std::string Word(const std::array<const char*, N>& words, int index) {
    return index >= 0 && index < static_cast<int>(N) ? words[static_cast<std::size_t>(index)] : "";
}

// File tags are the words of project files; labels are what the screen and the reports show.
constexpr std::array<const char*, 2> kInnerRadiusWords = {"Off", "On"};
constexpr std::array<const char*, 2> kStandardLabels = {"ISO484-1", "ISO484-2"};
constexpr std::array<const char*, 2> kStandardTags = {"ISO4841Large", "ISO4842Small"};
constexpr std::array<const char*, 3> kTaskLabels = {"Class Spec", "Node on CL", "Seg on CL"};
constexpr std::array<const char*, 5> kTaskTags = {"ClassSpec", "NodeOnCL", "SegOnCL", "Inspect", "Repair"};
constexpr std::array<const char*, 2> kCriteriaLabels = {"Primary", "Primary & Secondary"};
constexpr std::array<const char*, 2> kCriteriaTags = {"Primary", "Secondary"};
constexpr std::array<const char*, 6> kClassLabels = {"Class S", "Class 1", "Class 1a",
                                                     "Class 2", "Class 3", "Custom"};
constexpr std::array<const char*, 6> kClassTags = {"ClassS",  "ClassI",   "ClassIa",
                                                   "ClassII", "ClassIII", "Custom"};

int Resolve(int index, std::int16_t current) {
    return index == -1 ? current : index;
}

} // namespace

// --- units ---

const clsUnits& clsISO484::RequireUnits() const {
    if (!units_) {
        throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
    }
    return *units_;
}

double clsISO484::ToUnit(double stored, int unit) const {
    return unit == -1 ? stored : RequireUnits().ConvertUnitPropLength(stored, unit, -1);
}

double clsISO484::FromUnit(double value, int unit) const {
    return unit == -1 ? value : RequireUnits().ConvertUnitPropLength(value, -1, unit);
}

void clsISO484::ConvertAllData(const clsUnits& targetUnits, const clsUnits& sourceUnits, double factor) {
    // Through feet, each side with its own table, so that a custom unit on either side converts
    // with the factor its own object defines.
    const auto convert = [&](double& field) {
        const double feet = sourceUnits.ConvertUnitPropLength(field, kFeet, -1);
        field = targetUnits.ConvertUnitPropLength(feet, -1, kFeet) * factor;
    };
    convert(localPitchTol_);
    convert(meanPitchPerRadTol_);
    convert(meanPitchPerBladeTol_);
    convert(meanPitchOfPropTol_);
    convert(screwRadiusTol_);
    convert(dzRatioTol_);
    convert(angDeviationTol_);
}

// --- index tables ---

std::string clsISO484::ISOIncludeInnerRadiusLabel(int index) const {
    return Word(kInnerRadiusWords, Resolve(index, isoIncludeInnerRadiusIndex_));
}

std::string clsISO484::ISOIncludeInnerRadiusFileTag(int index) const {
    // Resolves through the standard: kept as files have always been written.
    return Word(kInnerRadiusWords, Resolve(index, isoStandardIndex_));
}

std::string clsISO484::ISOStandardLabel(int index) const {
    return Word(kStandardLabels, Resolve(index, isoStandardIndex_));
}

std::string clsISO484::ISOStandardFileTag(int index) const {
    return Word(kStandardTags, Resolve(index, isoStandardIndex_));
}

std::string clsISO484::ISOTaskLabel(int index) const {
    return Word(kTaskLabels, Resolve(index, isoTaskIndex_));
}

std::string clsISO484::ISOTaskFileTag(int index) const {
    return Word(kTaskTags, Resolve(index, isoTaskIndex_));
}

std::string clsISO484::ISOCriteriaLabel(int index) const {
    return Word(kCriteriaLabels, Resolve(index, isoCriteriaIndex_));
}

std::string clsISO484::ISOCriteriaFileTag(int index) const {
    return Word(kCriteriaTags, Resolve(index, isoCriteriaIndex_));
}

std::string clsISO484::ISOClassLabel(int index) const {
    return Word(kClassLabels, Resolve(index, isoClassIndex_));
}

std::string clsISO484::ISOClassFileTag(int index) const {
    return Word(kClassTags, Resolve(index, isoClassIndex_));
}

// --- required radial positions ---

void clsISO484::SetRequiredRadialPosCount(double count) {
    if (!std::isfinite(count) || count < 0) {
        ThrowSubscript();
    }
    if (count > INT16_MAX) {
        throw CorvaneError(ErrorNumber::Overflow, "Overflow");
    }
    // A fractional count sizes the rows to the nearest whole number, halves to even.
    requiredRadialPos_.resize(static_cast<std::size_t>(std::nearbyint(count)), 0.0);
    requiredRadialPosCount_ = count;
}

double clsISO484::RequiredRadialPos(int i) const {
    if (i < 0) {
        ThrowSubscript();
    }
    if (i > requiredRadialPosCount_ - 1 || static_cast<std::size_t>(i) >= requiredRadialPos_.size()) {
        return 0.0;
    }
    return requiredRadialPos_[static_cast<std::size_t>(i)];
}

void clsISO484::SetRequiredRadialPos(int i, double value) {
    if (i < 0) {
        ThrowSubscript();
    }
    if (i > requiredRadialPosCount_ - 1 || static_cast<std::size_t>(i) >= requiredRadialPos_.size()) {
        return;
    }
    requiredRadialPos_[static_cast<std::size_t>(i)] = value;
}

// --- tolerances ---

double clsISO484::MeanPitchPerRadTol(int unit) const {
    return unit == -1 ? meanPitchPerRadTol_ : ToUnit(meanPitchOfPropTol_, unit);
}

} // namespace corvane
