#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "model/clsSection.h"

namespace corvane {

// One blade of a scan or of a reference propeller: its sections and the blade-level results of
// the geometry. Lengths in the project unit, angles in degrees. Section index k is radial
// station k of the standard table (row 0 outermost).
class clsBlades {
public:
    // Per-section values of the blade, one record for each section.
    struct SectionRecord {
        double RadialPos = 0; // fraction of the radius
        double Chord = 0;
        double Pitch = 0;
        double RakeAft = 0;
        double SkewHelix = 0;
        std::shared_ptr<clsSection> Section;
        double ISOTotalAxialRakeToBCL = 0;
        double ISOTotalThetaDegToBCL = 0;
    };

    std::shared_ptr<clsBlades> CopyClass() const;

    // 0 or less sets the count to 0 and keeps the records, which stay reachable. A positive
    // count reallocates: sections within both counts survive as copies, new ones are empty,
    // and every per-section number of every record goes back to 0; callers recalculate them.
    std::int16_t SectionCount() const { return sectionCount_; }
    void SetSectionCount(std::int16_t n);

    // The owned section, created on first use when its slot is empty.
    std::shared_ptr<clsSection> Section(int i);
    void SetSection(int i, std::shared_ptr<clsSection> section);

    bool BladeEnabled() const { return bladeEnabled_; }
    void SetBladeEnabled(bool v) { bladeEnabled_ = v; }
    double BladeDiameter() const { return bladeDiameter_; }
    void SetBladeDiameter(double v) { bladeDiameter_ = v; }
    double GLPositionAxialX() const { return glPositionAxialX_; }
    void SetGLPositionAxialX(double v) { glPositionAxialX_ = v; }
    double GLPositionThetaDeg() const { return glPositionThetaDeg_; }
    void SetGLPositionThetaDeg(double v) { glPositionThetaDeg_ = v; }
    double ISOBladePitch() const { return isoBladePitch_; }
    void SetISOBladePitch(double v) { isoBladePitch_ = v; }
    double ISOEffectiveBladeAngleDeg() const { return isoEffectiveBladeAngleDeg_; }
    void SetISOEffectiveBladeAngleDeg(double v) { isoEffectiveBladeAngleDeg_ = v; }
    double ISOEffectiveBladeAxialPosition() const { return isoEffectiveBladeAxialPosition_; }
    void SetISOEffectiveBladeAxialPosition(double v) { isoEffectiveBladeAxialPosition_ = v; }
    double EffectivePitch() const { return effectivePitch_; }
    void SetEffectivePitch(double v) { effectivePitch_ = v; }

    // Per-section numbers. Element access is bounded by the records held. An array getter
    // returns SectionCount elements, or a single 0 when the count is below 1. An array setter
    // sets SectionCount to the array's upper bound (its size - 1), so the top element is not
    // taken, and, going through SetSectionCount, clears the other per-section numbers.
    double RadialPos(int i) const { return At(i).RadialPos; }
    void SetRadialPos(int i, double v) { At(i).RadialPos = v; }
    std::vector<double> RadialPosArray() const { return Column(&SectionRecord::RadialPos); }
    void SetRadialPosArray(const std::vector<double>& a) { SetColumn(a, &SectionRecord::RadialPos); }
    double Chord(int i) const { return At(i).Chord; }
    void SetChord(int i, double v) { At(i).Chord = v; }
    std::vector<double> ChordArray() const { return Column(&SectionRecord::Chord); }
    void SetChordArray(const std::vector<double>& a) { SetColumn(a, &SectionRecord::Chord); }
    double Pitch(int i) const { return At(i).Pitch; }
    void SetPitch(int i, double v) { At(i).Pitch = v; }
    std::vector<double> PitchArray() const { return Column(&SectionRecord::Pitch); }
    void SetPitchArray(const std::vector<double>& a) { SetColumn(a, &SectionRecord::Pitch); }
    double RakeAft(int i) const { return At(i).RakeAft; }
    void SetRakeAft(int i, double v) { At(i).RakeAft = v; }
    std::vector<double> RakeAftArray() const { return Column(&SectionRecord::RakeAft); }
    void SetRakeAftArray(const std::vector<double>& a) { SetColumn(a, &SectionRecord::RakeAft); }
    double SkewHelix(int i) const { return At(i).SkewHelix; }
    void SetSkewHelix(int i, double v) { At(i).SkewHelix = v; }
    std::vector<double> SkewHelixArray() const { return Column(&SectionRecord::SkewHelix); }
    void SetSkewHelixArray(const std::vector<double>& a) { SetColumn(a, &SectionRecord::SkewHelix); }
    double ISOTotalAxialRakeToBCL(int i) const { return At(i).ISOTotalAxialRakeToBCL; }
    void SetISOTotalAxialRakeToBCL(int i, double v) { At(i).ISOTotalAxialRakeToBCL = v; }
    std::vector<double> ISOTotalAxialRakeToBCLArray() const {
        return Column(&SectionRecord::ISOTotalAxialRakeToBCL);
    }
    void SetISOTotalAxialRakeToBCLArray(const std::vector<double>& a) {
        SetColumn(a, &SectionRecord::ISOTotalAxialRakeToBCL);
    }
    double ISOTotalThetaDegToBCL(int i) const { return At(i).ISOTotalThetaDegToBCL; }
    void SetISOTotalThetaDegToBCL(int i, double v) { At(i).ISOTotalThetaDegToBCL = v; }
    std::vector<double> ISOTotalThetaDegToBCLArray() const {
        return Column(&SectionRecord::ISOTotalThetaDegToBCL);
    }
    void SetISOTotalThetaDegToBCLArray(const std::vector<double>& a) {
        SetColumn(a, &SectionRecord::ISOTotalThetaDegToBCL);
    }

private:
    std::size_t CheckIndex(int i) const;
    SectionRecord& At(int i);
    const SectionRecord& At(int i) const;
    std::vector<double> Column(double SectionRecord::*field) const;
    void SetColumn(const std::vector<double>& a, double SectionRecord::*field);

    std::int16_t sectionCount_ = 0;
    std::vector<SectionRecord> records_;
    bool bladeEnabled_ = false;
    double bladeDiameter_ = 0;
    double glPositionAxialX_ = 0;
    double glPositionThetaDeg_ = 0;
    double isoBladePitch_ = 0;
    double isoEffectiveBladeAngleDeg_ = 0;
    double isoEffectiveBladeAxialPosition_ = 0;
    double effectivePitch_ = 0;
};

} // namespace corvane
