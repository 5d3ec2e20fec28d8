#include "model/clsCorvane.h"

#include <algorithm>
#include <array>

#include "model/CorvaneError.h"

namespace corvane {

namespace {

// Error number of a call through an object link that was never made.
constexpr int kObjectNotSet = 91;

[[noreturn]] void ThrowSubscript() {
    throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
}

template <class V> std::size_t CheckedIndex(const V& v, int i) {
    if (i < 0 || static_cast<std::size_t>(i) >= v.size()) {
        ThrowSubscript();
    }
    return static_cast<std::size_t>(i);
}

template <std::size_t N> std::string Word(const std::array<const char*, N>& words, int index) {
    return index >= 0 && index < static_cast<int>(N) ? words[static_cast<std::size_t>(index)] : "";
}

constexpr std::array<const char*, 2> kRotation = {"Right", "Left"};
constexpr std::array<const char*, 2> kSectionPitchSource = {"Manual", "Auto"};
constexpr std::array<const char*, 4> kReferenceSourceTags = {"None", "InternalScan", "ExternalFile",
                                                             "ExternalFilePitch"};
constexpr std::array<const char*, 4> kReferenceSourceLabels = {"None", "Scan", "File", "File (pitch only)"};
constexpr std::array<const char*, 2> kSectionPitchTags = {"SectionPitchConstant", "SectionPitchVariable"};
constexpr std::array<const char*, 2> kSectionPitchLabels = {"Constant", "Variable"};
constexpr std::array<const char*, 2> kLocalPitchTags = {"LocalPitchFlatFace", "LocalPitchCamberedFace"};
constexpr std::array<const char*, 2> kLocalPitchLabels = {"Flat-face/constant", "Cambered-face/progressive"};
constexpr std::array<const char*, 2> kInternalScanSource = {"Active", "Locked"};

std::shared_ptr<clsPropeller> CopyOrNew(const std::shared_ptr<clsPropeller>& scan) {
    return scan ? scan->CopyClass() : std::make_shared<clsPropeller>();
}

} // namespace

clsCorvane::clsCorvane()
    : referenceScan_(std::make_shared<clsPropeller>()), referenceSource_(std::make_shared<clsPropeller>()) {
    variablePitch_.resize(static_cast<std::size_t>(referenceVariablePitchCount_));
    referenceScanBladesEnabled_.resize(static_cast<std::size_t>(bladeCount_), 0);
}

// --- units ---

const clsUnits& clsCorvane::RequireUnits() const {
    if (!units_) {
        throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
    }
    return *units_;
}

double clsCorvane::ToUnit(double stored, int unit) const {
    return unit == -1 ? stored : RequireUnits().ConvertUnitPropLength(stored, unit, -1);
}

double clsCorvane::FromUnit(double value, int unit) const {
    return unit == -1 ? value : RequireUnits().ConvertUnitPropLength(value, -1, unit);
}

double clsCorvane::ReferenceConstantPitch(int unit) const {
    return unit == -1 ? referenceConstantPitch_ : ToUnit(referenceDiameter_, unit);
}

// --- blades ---

void clsCorvane::SetBladeCount(std::int16_t n) {
    bladeCount_ = n;
    ScanSet& set = Selected();
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::max<int>(set.count, 0)); ++i) {
        if (set.scans[i]) {
            set.scans[i]->SetBladeCount(n);
        }
    }
    referenceScanBladesEnabled_.resize(n > 0 ? static_cast<std::size_t>(n) : 1, 0);
}

std::int32_t clsCorvane::ReferenceScanBladesEnabled(int i) const {
    return referenceScanBladesEnabled_[CheckedIndex(referenceScanBladesEnabled_, i)];
}

void clsCorvane::SetReferenceScanBladesEnabled(int i, std::int32_t v) {
    referenceScanBladesEnabled_[CheckedIndex(referenceScanBladesEnabled_, i)] = v;
}

// --- scan sets ---

std::shared_ptr<clsPropeller>& clsCorvane::Slot(ScanSet& set, int i) {
    return set.scans[CheckedIndex(set.scans, i)];
}

const std::shared_ptr<clsPropeller>& clsCorvane::Slot(const ScanSet& set, int i) {
    return set.scans[CheckedIndex(set.scans, i)];
}

void clsCorvane::SetPropellerScanCount(std::int16_t n) {
    if (n <= 0) {
        return;
    }
    ScanSet& set = Selected();
    const auto kept = static_cast<std::size_t>(std::max(0, std::min<int>(set.count, n)));
    std::vector<std::shared_ptr<clsPropeller>> resized(static_cast<std::size_t>(n));
    for (std::size_t i = 0; i < resized.size(); ++i) {
        resized[i] = i < kept ? CopyOrNew(set.scans[i]) : std::make_shared<clsPropeller>();
    }
    set.scans = std::move(resized);
    set.count = n;
    for (const auto& scan : set.scans) {
        scan->SetBladeCount(bladeCount_);
    }
}

void clsCorvane::SetNamedScanCount(std::int16_t rotation, std::int16_t n) {
    const std::int16_t saved = rotationIndex_;
    rotationIndex_ = rotation;
    try {
        SetPropellerScanCount(n);
    } catch (...) {
        rotationIndex_ = saved;
        throw;
    }
    rotationIndex_ = saved;
}

std::int16_t clsCorvane::RemovePropellerScan(int index) {
    ScanSet& set = Selected();
    if (set.count <= 0) {
        return 0;
    }
    if (index < 0 || index >= set.count) {
        ThrowSubscript();
    }
    // With one scan the count cannot drop below 1, and the scan stays where it is, as it does
    // for the Delete command.
    if (set.count == 1) {
        return 0;
    }
    std::vector<std::shared_ptr<clsPropeller>> survivors;
    survivors.reserve(static_cast<std::size_t>(set.count - 1));
    for (int i = 0; i < set.count; ++i) {
        if (i != index) {
            survivors.push_back(CopyOrNew(set.scans[static_cast<std::size_t>(i)]));
        }
    }
    SetPropellerScanCount(static_cast<std::int16_t>(set.count - 1));
    // The survivors replace the resized set as they were, each with its own blade count.
    set.scans = std::move(survivors);
    return 0;
}

std::int16_t clsCorvane::ClearPropellerScanData(int index) {
    const ScanSet& set = Selected();
    if (index > set.count - 1) {
        return 0;
    }
    const std::shared_ptr<clsPropeller>& scan = Slot(set, index);
    if (scan) {
        for (int b = 0; b < scan->BladeCount(); ++b) {
            scan->SetBlades(b, std::make_shared<clsBlades>());
        }
    }
    return 1;
}

// --- labels and file tags; -1 means the stored index ---

std::string clsCorvane::RotationFileTag(int index) const {
    return Word(kRotation, index == -1 ? rotationIndex_ : index);
}

std::string clsCorvane::RotationLabel(int index) const {
    return RotationFileTag(index);
}

std::string clsCorvane::ReferenceSectionPitchSourceFileTag(int index) const {
    return Word(kSectionPitchSource, index == -1 ? referenceSectionPitchSourceIndex_ : index);
}

std::string clsCorvane::ReferenceSectionPitchSourceLabel(int index) const {
    return ReferenceSectionPitchSourceFileTag(index);
}

std::string clsCorvane::ReferenceSourceFileTag(int index) const {
    return Word(kReferenceSourceTags, index == -1 ? referenceSourceIndex_ : index);
}

std::string clsCorvane::ReferenceSourceLabel(int index) const {
    return Word(kReferenceSourceLabels, index == -1 ? referenceSourceIndex_ : index);
}

std::string clsCorvane::ReferenceSectionPitchFileTag(int index) const {
    return Word(kSectionPitchTags, index == -1 ? referenceSectionPitchIndex_ : index);
}

std::string clsCorvane::ReferenceSectionPitchLabel(int index) const {
    // -1 reads ReferenceSourceIndex: a long-standing wrinkle, kept; callers pass an index.
    return Word(kSectionPitchLabels, index == -1 ? referenceSourceIndex_ : index);
}

std::string clsCorvane::ReferenceLocalPitchFileTag(int index) const {
    return Word(kLocalPitchTags, index == -1 ? referenceLocalPitchIndex_ : index);
}

std::string clsCorvane::ReferenceLocalPitchLabel(int index) const {
    // Same wrinkle as ReferenceSectionPitchLabel.
    return Word(kLocalPitchLabels, index == -1 ? referenceSourceIndex_ : index);
}

std::string clsCorvane::InternalScanSourceLabel(int index) const {
    return Word(kInternalScanSource, index == -1 ? internalScanSourceIndex_ : index);
}

std::string clsCorvane::InternalScanSourceFileTag(int index) const {
    return InternalScanSourceLabel(index);
}

std::int16_t clsCorvane::InternalScanIndex() const {
    return internalScanSourceIndex_ == 0 ? ActiveScanIndex() : internalScanIndex_;
}

// --- variable pitch table ---

clsCorvane::VariablePitchRow& clsCorvane::Row(int i) {
    return variablePitch_[CheckedIndex(variablePitch_, i)];
}

const clsCorvane::VariablePitchRow& clsCorvane::Row(int i) const {
    return variablePitch_[CheckedIndex(variablePitch_, i)];
}

void clsCorvane::SetReferenceVariablePitchCount(std::int16_t n) {
    if (n <= 0) {
        variablePitch_.clear();
        referenceVariablePitchCount_ = 1;
        return;
    }
    variablePitch_.resize(static_cast<std::size_t>(n));
    referenceVariablePitchCount_ = n;
}

// One element per counted row, a single default element below one row. After the table was
// erased the count reads 1 with no row behind it; that row reads as 0.
template <class T, class Get> std::vector<T> clsCorvane::TableColumn(Get get) const {
    const auto count = static_cast<std::size_t>(std::max<int>(referenceVariablePitchCount_, 1));
    std::vector<T> out(count, T{});
    for (std::size_t i = 0; i < count && i < variablePitch_.size(); ++i) {
        out[i] = get(variablePitch_[i]);
    }
    return out;
}

std::vector<bool> clsCorvane::ReferenceVariablePitchArrayEnabled() const {
    return TableColumn<bool>([](const VariablePitchRow& r) { return r.enabled; });
}

std::vector<double> clsCorvane::ReferenceVariablePitchArray(int unit) const {
    return TableColumn<double>([&](const VariablePitchRow& r) { return ToUnit(r.pitch, unit); });
}

std::vector<double> clsCorvane::ReferenceVariablePitchRadialPosArray() const {
    return TableColumn<double>([](const VariablePitchRow& r) { return r.radialPos; });
}

// The array setters size the table to the array, like the section arrays do.
void clsCorvane::SetReferenceVariablePitchArrayEnabled(const std::vector<bool>& a) {
    SetReferenceVariablePitchCount(CheckedInt16(static_cast<long long>(a.size())));
    for (std::size_t i = 0; i < a.size(); ++i) {
        variablePitch_[i].enabled = a[i];
    }
}

void clsCorvane::SetReferenceVariablePitchArray(const std::vector<double>& a, int unit) {
    SetReferenceVariablePitchCount(CheckedInt16(static_cast<long long>(a.size())));
    for (std::size_t i = 0; i < a.size(); ++i) {
        variablePitch_[i].pitch = FromUnit(a[i], unit);
    }
}

void clsCorvane::SetReferenceVariablePitchRadialPosArray(const std::vector<double>& a) {
    SetReferenceVariablePitchCount(CheckedInt16(static_cast<long long>(a.size())));
    for (std::size_t i = 0; i < a.size(); ++i) {
        variablePitch_[i].radialPos = a[i];
    }
}

} // namespace corvane
