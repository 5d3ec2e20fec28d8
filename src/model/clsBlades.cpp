#include "model/clsBlades.h"

#include <algorithm>

#include "model/CorvaneError.h"

namespace corvane {

namespace {

std::shared_ptr<clsSection> CopyOrNew(const std::shared_ptr<clsSection>& section) {
    return section ? section->CopyClass() : std::make_shared<clsSection>();
}

} // namespace

std::shared_ptr<clsBlades> clsBlades::CopyClass() const {
    auto copy = std::make_shared<clsBlades>();
    if (sectionCount_ > 0) {
        copy->sectionCount_ = sectionCount_;
        copy->records_.reserve(static_cast<std::size_t>(sectionCount_));
        for (std::size_t i = 0; i < static_cast<std::size_t>(sectionCount_); ++i) {
            SectionRecord record = records_[i];
            record.Section = CopyOrNew(records_[i].Section);
            copy->records_.push_back(std::move(record));
        }
    }
    // A count of 0 or less leaves the copy at 0 with no records, as its setter would.
    copy->glPositionAxialX_ = glPositionAxialX_;
    copy->glPositionThetaDeg_ = glPositionThetaDeg_;
    copy->isoBladePitch_ = isoBladePitch_;
    copy->effectivePitch_ = effectivePitch_;
    copy->isoEffectiveBladeAngleDeg_ = isoEffectiveBladeAngleDeg_;
    copy->isoEffectiveBladeAxialPosition_ = isoEffectiveBladeAxialPosition_;
    copy->bladeEnabled_ = bladeEnabled_;
    copy->bladeDiameter_ = bladeDiameter_;
    return copy;
}

void clsBlades::SetSectionCount(std::int16_t n) {
    if (n <= 0) {
        sectionCount_ = 0;
        return;
    }
    const auto kept = static_cast<std::size_t>(std::max<int>(0, std::min<int>(sectionCount_, n)));
    std::vector<SectionRecord> resized(static_cast<std::size_t>(n));
    for (std::size_t i = 0; i < resized.size(); ++i) {
        resized[i].Section = i < kept ? CopyOrNew(records_[i].Section) : std::make_shared<clsSection>();
    }
    records_ = std::move(resized);
    sectionCount_ = n;
}

std::shared_ptr<clsSection> clsBlades::Section(int i) {
    SectionRecord& record = At(i);
    if (!record.Section) {
        record.Section = std::make_shared<clsSection>();
    }
    return record.Section;
}

void clsBlades::SetSection(int i, std::shared_ptr<clsSection> section) {
    At(i).Section = std::move(section);
}

std::size_t clsBlades::CheckIndex(int i) const {
    if (i < 0 || static_cast<std::size_t>(i) >= records_.size()) {
        throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    return static_cast<std::size_t>(i);
}

clsBlades::SectionRecord& clsBlades::At(int i) {
    return records_[CheckIndex(i)];
}

const clsBlades::SectionRecord& clsBlades::At(int i) const {
    return records_[CheckIndex(i)];
}

std::vector<double> clsBlades::Column(double SectionRecord::*field) const {
    if (sectionCount_ < 1) {
        return {0.0};
    }
    std::vector<double> out(static_cast<std::size_t>(sectionCount_));
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = records_[i].*field;
    }
    return out;
}

void clsBlades::SetColumn(const std::vector<double>& a, double SectionRecord::*field) {
    // The count is the upper bound of the array, not its size: the last element is dropped.
    SetSectionCount(CheckedInt16(static_cast<long long>(a.size()) - 1));
    for (std::size_t i = 0; i < static_cast<std::size_t>(sectionCount_); ++i) {
        records_[i].*field = a[i];
    }
}

} // namespace corvane
