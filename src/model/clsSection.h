#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "model/CorvaneError.h"

namespace corvane {

// One radial section of one blade: the raw sweep as the arm measured it, the points kept for
// the fitted segment and the local pitch panels, plus the edge and centre-line points that the
// geometry writes back. Lengths in the project unit, angles in degrees; nothing converts here.
//
// Each group of per-point values is one contiguous vector of plain records, so that copying
// a group is one block copy and appending a point reuses the vector's spare capacity. Copies
// share a group's buffer until one of them writes to it (see Records).
class clsSection {
public:
    struct RawOffsetRecord {
        double Radius = 0;     // arm radius
        double ThetaDeg = 0;   // arm angle
        double AxialDropX = 0; // axial drop
        double RawOffsetX = 0; // the same point unrolled in the section's plane
        double RawOffsetY = 0;
    };
    struct SegmentOffsetRecord {
        double Radius = 0;
        double ThetaDeg = 0;
        double AxialDropX = 0;
        double X = 0;
        double Y = 0;
    };
    // Deviation of a segment point from the reference; sized with the segment points but
    // never copied with them.
    struct DeviationRecord {
        double Sum = 0;
        double Diff = 0;
    };
    struct SegmentPanelRecord {
        double Pitch = 0;
        double CenterX = 0;
        double CenterY = 0;
    };

    // Deep copy. The deviations and ISOLEArcLengthPerSection are recalculated on a copy and
    // read 0 in it.
    std::shared_ptr<clsSection> CopyClass() const;

    // Counts are held in 32 bits and read in 16: a count above 32767 reads as an overflow.
    // A setter stores its argument as given and resizes the records to that many slots, or to
    // the single slot 0 when it is 0 or less, keeping the values that stay.
    std::int16_t RawOffsetCount() const { return CheckedInt16(rawCount_); }
    void SetRawOffsetCount(std::int32_t n);
    std::int16_t SegmentOffsetCount() const { return CheckedInt16(segmentCount_); }
    void SetSegmentOffsetCount(std::int32_t n); // points and deviations together
    std::int16_t SegmentPanelCount() const { return CheckedInt16(panelCount_); }
    void SetSegmentPanelCount(std::int32_t n);

    // Per-point members. Element access is bounded by the slots held, not by the count, so
    // slot 0 stays addressable at a count of 0. An array getter returns count elements, or a
    // single 0 when the count is below 1; an array setter sets the count to the array's size.
    double Radius(int i) const { return At(raw_, i).Radius; }
    void SetRadius(int i, double v) { At(raw_, i).Radius = v; }
    std::vector<double> RadiusArray() const { return Column(raw_, rawCount_, &RawOffsetRecord::Radius); }
    void SetRadiusArray(const std::vector<double>& a) {
        SetRawOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(raw_, a, &RawOffsetRecord::Radius);
    }
    double ThetaDeg(int i) const { return At(raw_, i).ThetaDeg; }
    void SetThetaDeg(int i, double v) { At(raw_, i).ThetaDeg = v; }
    std::vector<double> ThetaDegArray() const { return Column(raw_, rawCount_, &RawOffsetRecord::ThetaDeg); }
    void SetThetaDegArray(const std::vector<double>& a) {
        SetRawOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(raw_, a, &RawOffsetRecord::ThetaDeg);
    }
    double AxialDropX(int i) const { return At(raw_, i).AxialDropX; }
    void SetAxialDropX(int i, double v) { At(raw_, i).AxialDropX = v; }
    std::vector<double> AxialDropXArray() const {
        return Column(raw_, rawCount_, &RawOffsetRecord::AxialDropX);
    }
    void SetAxialDropXArray(const std::vector<double>& a) {
        SetRawOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(raw_, a, &RawOffsetRecord::AxialDropX);
    }
    double RawOffsetX(int i) const { return At(raw_, i).RawOffsetX; }
    void SetRawOffsetX(int i, double v) { At(raw_, i).RawOffsetX = v; }
    std::vector<double> RawOffsetXArray() const {
        return Column(raw_, rawCount_, &RawOffsetRecord::RawOffsetX);
    }
    void SetRawOffsetXArray(const std::vector<double>& a) {
        SetRawOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(raw_, a, &RawOffsetRecord::RawOffsetX);
    }
    double RawOffsetY(int i) const { return At(raw_, i).RawOffsetY; }
    void SetRawOffsetY(int i, double v) { At(raw_, i).RawOffsetY = v; }
    std::vector<double> RawOffsetYArray() const {
        return Column(raw_, rawCount_, &RawOffsetRecord::RawOffsetY);
    }
    void SetRawOffsetYArray(const std::vector<double>& a) {
        SetRawOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(raw_, a, &RawOffsetRecord::RawOffsetY);
    }

    double SegmentOffsetRadius(int i) const { return At(segment_, i).Radius; }
    void SetSegmentOffsetRadius(int i, double v) { At(segment_, i).Radius = v; }
    std::vector<double> SegmentOffsetRadiusArray() const {
        return Column(segment_, segmentCount_, &SegmentOffsetRecord::Radius);
    }
    void SetSegmentOffsetRadiusArray(const std::vector<double>& a) {
        SetSegmentOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(segment_, a, &SegmentOffsetRecord::Radius);
    }
    double SegmentOffsetThetaDeg(int i) const { return At(segment_, i).ThetaDeg; }
    void SetSegmentOffsetThetaDeg(int i, double v) { At(segment_, i).ThetaDeg = v; }
    std::vector<double> SegmentOffsetThetaDegArray() const {
        return Column(segment_, segmentCount_, &SegmentOffsetRecord::ThetaDeg);
    }
    void SetSegmentOffsetThetaDegArray(const std::vector<double>& a) {
        SetSegmentOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(segment_, a, &SegmentOffsetRecord::ThetaDeg);
    }
    double SegmentOffsetAxialDropX(int i) const { return At(segment_, i).AxialDropX; }
    void SetSegmentOffsetAxialDropX(int i, double v) { At(segment_, i).AxialDropX = v; }
    std::vector<double> SegmentOffsetAxialDropXArray() const {
        return Column(segment_, segmentCount_, &SegmentOffsetRecord::AxialDropX);
    }
    void SetSegmentOffsetAxialDropXArray(const std::vector<double>& a) {
        SetSegmentOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(segment_, a, &SegmentOffsetRecord::AxialDropX);
    }
    double SegmentOffsetX(int i) const { return At(segment_, i).X; }
    void SetSegmentOffsetX(int i, double v) { At(segment_, i).X = v; }
    std::vector<double> SegmentOffsetXArray() const {
        return Column(segment_, segmentCount_, &SegmentOffsetRecord::X);
    }
    void SetSegmentOffsetXArray(const std::vector<double>& a) {
        SetSegmentOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(segment_, a, &SegmentOffsetRecord::X);
    }
    double SegmentOffsetY(int i) const { return At(segment_, i).Y; }
    void SetSegmentOffsetY(int i, double v) { At(segment_, i).Y = v; }
    std::vector<double> SegmentOffsetYArray() const {
        return Column(segment_, segmentCount_, &SegmentOffsetRecord::Y);
    }
    void SetSegmentOffsetYArray(const std::vector<double>& a) {
        SetSegmentOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(segment_, a, &SegmentOffsetRecord::Y);
    }

    double SegmentOffsetDeviationSum(int i) const { return At(deviation_, i).Sum; }
    void SetSegmentOffsetDeviationSum(int i, double v) { At(deviation_, i).Sum = v; }
    std::vector<double> SegmentOffsetDeviationSumArray() const {
        return Column(deviation_, segmentCount_, &DeviationRecord::Sum);
    }
    void SetSegmentOffsetDeviationSumArray(const std::vector<double>& a) {
        SetSegmentOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(deviation_, a, &DeviationRecord::Sum);
    }
    double SegmentOffsetDeviationDiff(int i) const { return At(deviation_, i).Diff; }
    void SetSegmentOffsetDeviationDiff(int i, double v) { At(deviation_, i).Diff = v; }
    std::vector<double> SegmentOffsetDeviationDiffArray() const {
        return Column(deviation_, segmentCount_, &DeviationRecord::Diff);
    }
    void SetSegmentOffsetDeviationDiffArray(const std::vector<double>& a) {
        SetSegmentOffsetCount(static_cast<std::int32_t>(a.size()));
        FillColumn(deviation_, a, &DeviationRecord::Diff);
    }

    double SegmentPanelPitch(int i) const { return At(panel_, i).Pitch; }
    void SetSegmentPanelPitch(int i, double v) { At(panel_, i).Pitch = v; }
    std::vector<double> SegmentPanelPitchArray() const {
        return Column(panel_, panelCount_, &SegmentPanelRecord::Pitch);
    }
    void SetSegmentPanelPitchArray(const std::vector<double>& a) {
        SetSegmentPanelCount(static_cast<std::int32_t>(a.size()));
        FillColumn(panel_, a, &SegmentPanelRecord::Pitch);
    }
    double SegmentPanelCenterX(int i) const { return At(panel_, i).CenterX; }
    void SetSegmentPanelCenterX(int i, double v) { At(panel_, i).CenterX = v; }
    std::vector<double> SegmentPanelCenterXArray() const {
        return Column(panel_, panelCount_, &SegmentPanelRecord::CenterX);
    }
    void SetSegmentPanelCenterXArray(const std::vector<double>& a) {
        SetSegmentPanelCount(static_cast<std::int32_t>(a.size()));
        FillColumn(panel_, a, &SegmentPanelRecord::CenterX);
    }
    double SegmentPanelCenterY(int i) const { return At(panel_, i).CenterY; }
    void SetSegmentPanelCenterY(int i, double v) { At(panel_, i).CenterY = v; }
    std::vector<double> SegmentPanelCenterYArray() const {
        return Column(panel_, panelCount_, &SegmentPanelRecord::CenterY);
    }
    void SetSegmentPanelCenterYArray(const std::vector<double>& a) {
        SetSegmentPanelCount(static_cast<std::int32_t>(a.size()));
        FillColumn(panel_, a, &SegmentPanelRecord::CenterY);
    }

    // Arc length at the leading edge, for ISO 484.
    double ISOLEArcLengthPerSection() const { return isoLEArcLengthPerSection_; }
    void SetISOLEArcLengthPerSection(double v) { isoLEArcLengthPerSection_ = v; }
    // Leading edge, trailing edge and blade centre line of the trimmed segment (Segment...)
    // and of the untrimmed sweep (Raw...).
    double SegmentThetaLE() const { return segmentThetaLE_; }
    void SetSegmentThetaLE(double v) { segmentThetaLE_ = v; }
    double SegmentAxialXLE() const { return segmentAxialXLE_; }
    void SetSegmentAxialXLE(double v) { segmentAxialXLE_ = v; }
    double SegmentThetaTE() const { return segmentThetaTE_; }
    void SetSegmentThetaTE(double v) { segmentThetaTE_ = v; }
    double SegmentAxialXTE() const { return segmentAxialXTE_; }
    void SetSegmentAxialXTE(double v) { segmentAxialXTE_ = v; }
    double SegmentThetaBCL() const { return segmentThetaBCL_; }
    void SetSegmentThetaBCL(double v) { segmentThetaBCL_ = v; }
    double SegmentAxialXBCL() const { return segmentAxialXBCL_; }
    void SetSegmentAxialXBCL(double v) { segmentAxialXBCL_ = v; }
    double SegmentChord() const { return segmentChord_; }
    void SetSegmentChord(double v) { segmentChord_ = v; }
    double RawThetaLE() const { return rawThetaLE_; }
    void SetRawThetaLE(double v) { rawThetaLE_ = v; }
    double RawAxialXLE() const { return rawAxialXLE_; }
    void SetRawAxialXLE(double v) { rawAxialXLE_ = v; }
    double RawThetaTE() const { return rawThetaTE_; }
    void SetRawThetaTE(double v) { rawThetaTE_ = v; }
    double RawAxialXTE() const { return rawAxialXTE_; }
    void SetRawAxialXTE(double v) { rawAxialXTE_ = v; }
    double RawThetaBCL() const { return rawThetaBCL_; }
    void SetRawThetaBCL(double v) { rawThetaBCL_ = v; }
    double RawAxialXBCL() const { return rawAxialXBCL_; }
    void SetRawAxialXBCL(double v) { rawAxialXBCL_ = v; }

private:
    // Records of one group, implicitly shared: a copy of a section shares the buffer with its
    // original until either side writes, and the writer then takes a private copy (one block
    // copy) before changing it. A copy therefore costs no page of new memory until it is
    // written, and a scan set that is rebuilt and whose old scans are dropped never copies a
    // point at all. Sharing is counted without locks: sections, like the whole model, belong
    // to the one user-interface thread.
    template <class Record> class Records {
    public:
        const std::vector<Record>& Read() const { return *data_; }
        std::vector<Record>& Write() {
            if (data_.use_count() > 1) {
                data_ = std::make_shared<std::vector<Record>>(*data_);
            }
            return *data_;
        }

    private:
        std::shared_ptr<std::vector<Record>> data_ = std::make_shared<std::vector<Record>>(1);
    };

    static std::size_t CheckIndex(int i, std::size_t held) {
        if (i < 0 || static_cast<std::size_t>(i) >= held) {
            throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
        }
        return static_cast<std::size_t>(i);
    }
    template <class Record> static Record& At(Records<Record>& r, int i) {
        const std::size_t k = CheckIndex(i, r.Read().size());
        return r.Write()[k];
    }
    template <class Record> static const Record& At(const Records<Record>& r, int i) {
        return r.Read()[CheckIndex(i, r.Read().size())];
    }
    template <class Record>
    static std::vector<double> Column(const Records<Record>& r, std::int32_t count, double Record::*field) {
        if (count < 1) {
            return {0.0};
        }
        const std::vector<Record>& v = r.Read();
        std::vector<double> out(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < out.size(); ++i) {
            out[i] = v[i].*field;
        }
        return out;
    }
    template <class Record>
    static void FillColumn(Records<Record>& r, const std::vector<double>& a, double Record::*field) {
        if (a.empty()) {
            return;
        }
        std::vector<Record>& v = r.Write();
        for (std::size_t i = 0; i < a.size(); ++i) {
            v[i].*field = a[i];
        }
    }
    template <class Record> static void Resize(Records<Record>& r, std::int32_t n) {
        r.Write().resize(n > 0 ? static_cast<std::size_t>(n) : 1);
    }
    // What a copy holds of a group: the counted records, shared; a single zero slot when the
    // count is below 1, whatever the original keeps in its slot 0.
    template <class Record> static Records<Record> Counted(const Records<Record>& r, std::int32_t count) {
        if (count < 1) {
            return {};
        }
        return r;
    }

    std::int32_t rawCount_ = 0;
    std::int32_t segmentCount_ = 0;
    std::int32_t panelCount_ = 0;
    // Each group holds count slots, or the single slot 0 when its count is 0 or less.
    Records<RawOffsetRecord> raw_;
    Records<SegmentOffsetRecord> segment_;
    Records<DeviationRecord> deviation_;
    Records<SegmentPanelRecord> panel_;

    double isoLEArcLengthPerSection_ = 0;
    double segmentThetaLE_ = 0;
    double segmentAxialXLE_ = 0;
    double segmentThetaTE_ = 0;
    double segmentAxialXTE_ = 0;
    double segmentThetaBCL_ = 0;
    double segmentAxialXBCL_ = 0;
    double segmentChord_ = 0;
    double rawThetaLE_ = 0;
    double rawAxialXLE_ = 0;
    double rawThetaTE_ = 0;
    double rawAxialXTE_ = 0;
    double rawThetaBCL_ = 0;
    double rawAxialXBCL_ = 0;
};

} // namespace corvane
