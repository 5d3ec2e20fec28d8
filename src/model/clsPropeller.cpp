#include "model/clsPropeller.h"

#include <algorithm>
#include <array>

#include "model/CorvaneError.h"

namespace corvane {

namespace {

// File tag and screen label are the same words.
constexpr std::array<const char*, 3> kRepairStatus = {"Initial", "Intermediate", "Final"};

std::shared_ptr<clsBlades> CopyOrNew(const std::shared_ptr<clsBlades>& blade) {
    return blade ? blade->CopyClass() : std::make_shared<clsBlades>();
}

// The first `count` blades of `source` as copies, new empty blades where the source has none.
std::vector<std::shared_ptr<clsBlades>> CopyBlades(const std::vector<std::shared_ptr<clsBlades>>& source,
                                                   std::size_t kept, std::size_t count) {
    std::vector<std::shared_ptr<clsBlades>> out(count);
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = i < kept && i < source.size() ? CopyOrNew(source[i]) : std::make_shared<clsBlades>();
    }
    return out;
}

} // namespace

clsPropeller::clsPropeller() : units_(std::make_shared<clsUnits>()) {
    blades_ = CopyBlades({}, 0, static_cast<std::size_t>(bladeCount_));
}

std::shared_ptr<clsPropeller> clsPropeller::CopyClass() const {
    auto copy = std::make_shared<clsPropeller>();
    copy->units_ = units_ ? units_->CopyClass() : std::make_shared<clsUnits>();
    copy->description_ = description_;
    copy->bladeCount_ = bladeCount_;
    copy->diameter_ = diameter_;
    copy->pitchMean_ = pitchMean_;
    copy->pitchOfRecord_ = pitchOfRecord_;
    copy->isoPropellerPitch_ = isoPropellerPitch_;
    copy->radialPresetIndex_ = radialPresetIndex_;
    copy->repairStatusIndex_ = repairStatusIndex_;
    copy->scanDate_ = scanDate_;
    copy->scanID_ = scanID_;
    copy->scanSource_ = scanSource_;
    copy->scanDrop_ = scanDrop_;
    copy->materialDescription_ = materialDescription_;
    // The copy holds exactly BladeCount blades, whatever the original keeps beyond them.
    const auto count = static_cast<std::size_t>(bladeCount_);
    copy->blades_ = CopyBlades(blades_, count, count);
    return copy;
}

std::size_t clsPropeller::CheckIndex(int i) const {
    if (i < 0 || static_cast<std::size_t>(i) >= blades_.size()) {
        throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    return static_cast<std::size_t>(i);
}

std::shared_ptr<clsBlades> clsPropeller::Blades(int i) const {
    return blades_[CheckIndex(i)];
}

void clsPropeller::SetBlades(int i, std::shared_ptr<clsBlades> blade) {
    blades_[CheckIndex(i)] = std::move(blade);
}

void clsPropeller::SetBladeCount(std::int16_t n) {
    if (n <= 0) {
        // A propeller has at least two blades; the blades held stay untouched.
        bladeCount_ = 2;
        return;
    }
    const auto kept = static_cast<std::size_t>(std::min<int>(bladeCount_, n));
    blades_ = CopyBlades(blades_, kept, static_cast<std::size_t>(n));
    bladeCount_ = n;
}

std::string clsPropeller::RepairStatusFileTag(int index) const {
    if (index == -1) {
        index = repairStatusIndex_;
    }
    return index >= 0 && index < static_cast<int>(kRepairStatus.size())
               ? kRepairStatus[static_cast<std::size_t>(index)]
               : "";
}

std::string clsPropeller::RepairStatusLabel(int index) const {
    return RepairStatusFileTag(index);
}

std::string ScanLabel(int scanID) {
    if (scanID >= 0 && scanID <= 25) {
        return std::string(1, static_cast<char>('A' + scanID));
    }
    if (scanID >= 26 && scanID <= 701) {
        return {static_cast<char>('A' + scanID / 26 - 1), static_cast<char>('A' + scanID % 26)};
    }
    return std::to_string(scanID);
}

} // namespace corvane
