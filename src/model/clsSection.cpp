#include "model/clsSection.h"

namespace corvane {

std::shared_ptr<clsSection> clsSection::CopyClass() const {
    auto copy = std::make_shared<clsSection>();
    copy->rawCount_ = rawCount_;
    copy->raw_ = Counted(raw_, rawCount_);
    copy->segmentCount_ = segmentCount_;
    copy->segment_ = Counted(segment_, segmentCount_);
    copy->deviation_.Write().resize(copy->segment_.Read().size()); // zeros, sized with the points
    copy->panelCount_ = panelCount_;
    copy->panel_ = Counted(panel_, panelCount_);

    copy->segmentThetaLE_ = segmentThetaLE_;
    copy->segmentAxialXLE_ = segmentAxialXLE_;
    copy->segmentThetaTE_ = segmentThetaTE_;
    copy->segmentAxialXTE_ = segmentAxialXTE_;
    copy->segmentThetaBCL_ = segmentThetaBCL_;
    copy->segmentAxialXBCL_ = segmentAxialXBCL_;
    copy->segmentChord_ = segmentChord_;
    copy->rawThetaLE_ = rawThetaLE_;
    copy->rawAxialXLE_ = rawAxialXLE_;
    copy->rawThetaTE_ = rawThetaTE_;
    copy->rawAxialXTE_ = rawAxialXTE_;
    copy->rawThetaBCL_ = rawThetaBCL_;
    copy->rawAxialXBCL_ = rawAxialXBCL_;
    return copy;
}

void clsSection::SetRawOffsetCount(std::int32_t n) {
    rawCount_ = n;
    Resize(raw_, n);
}

void clsSection::SetSegmentOffsetCount(std::int32_t n) {
    segmentCount_ = n;
    Resize(segment_, n);
    Resize(deviation_, n);
}

void clsSection::SetSegmentPanelCount(std::int32_t n) {
    panelCount_ = n;
    Resize(panel_, n);
}

} // namespace corvane
