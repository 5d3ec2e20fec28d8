#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "iso484/ISOResults.h"
#include "model/clsUnits.h"

namespace corvane {

// The ISO 484 settings of a project (standard, class, task, criteria, inner radius) and the
// tolerances that go with them. One instance lives for the program (gISO484); the best-class
// search builds short-lived ones of its own.
//
// A ...Percent field is a plain fraction (0.015 is 1.5 %). A ...Tol field is a length held in
// the project unit; its `unit` argument of -1 means as stored, any other value is a unit index
// that the getter converts to and the setter converts from, through the linked Units.
//
// Index members answer labels and file tags from fixed tables: an index of -1 means the current
// value, an index outside the table gives "".
class clsISO484 {
public:
    // Shared with gUnits and the project; never owned or copied here.
    std::shared_ptr<clsUnits> Units() const { return units_; }
    void SetUnits(std::shared_ptr<clsUnits> units) { units_ = std::move(units); }
    void SetLinkedClasses(std::shared_ptr<clsUnits> units) { units_ = std::move(units); }

    // Re-expresses the stored tolerances when the project unit changes: from the unit of
    // sourceUnits to that of targetUnits, times factor, stored as they come. AngDeviationTol is
    // in degrees but goes through the same conversion, as it always has.
    void ConvertAllData(const clsUnits& targetUnits, const clsUnits& sourceUnits, double factor);

    // Inner section radius in per cent of R (the options pass r/R * 100).
    double ISOInnerRadius() const { return isoInnerRadius_; }
    void SetISOInnerRadius(double value) { isoInnerRadius_ = value; }

    // 0 "Off", 1 "On". The file tag with -1 resolves through ISOStandardIndex, not through
    // this index; old files were written that way and are read back that way.
    std::int16_t ISOIncludeInnerRadiusIndex() const { return isoIncludeInnerRadiusIndex_; }
    void SetISOIncludeInnerRadiusIndex(std::int16_t value) { isoIncludeInnerRadiusIndex_ = value; }
    std::string ISOIncludeInnerRadiusLabel(int index = -1) const;
    std::string ISOIncludeInnerRadiusFileTag(int index = -1) const;

    // 0 ISO 484-1 (large propellers), 1 ISO 484-2 (small ones).
    std::int16_t ISOStandardIndex() const { return isoStandardIndex_; }
    void SetISOStandardIndex(std::int16_t value) { isoStandardIndex_ = value; }
    std::string ISOStandardLabel(int index = -1) const;
    std::string ISOStandardFileTag(int index = -1) const;

    // 0 by class, 1 node on CL, 2 segment on CL; 3 and 4 have a file tag but no label: they
    // only come from old files.
    std::int16_t ISOTaskIndex() const { return isoTaskIndex_; }
    void SetISOTaskIndex(std::int16_t value) { isoTaskIndex_ = value; }
    std::string ISOTaskLabel(int index = -1) const;
    std::string ISOTaskFileTag(int index = -1) const;

    // 0 primary criteria, 1 primary and secondary.
    std::int16_t ISOCriteriaIndex() const { return isoCriteriaIndex_; }
    void SetISOCriteriaIndex(std::int16_t value) { isoCriteriaIndex_ = value; }
    std::string ISOCriteriaLabel(int index = -1) const;
    std::string ISOCriteriaFileTag(int index = -1) const;

    // 0 S, 1 I, 2 Ia, 3 II, 4 III, 5 custom (tolerances as the user left them).
    std::int16_t ISOClassIndex() const { return isoClassIndex_; }
    void SetISOClassIndex(std::int16_t value) { isoClassIndex_ = value; }
    std::string ISOClassLabel(int index = -1) const;
    std::string ISOClassFileTag(int index = -1) const;

    // Radial positions (r/R) the class requires. The count is held as a double; setting it
    // resizes the rows, keeping those that stay. A count that is negative, not finite or beyond
    // the 16-bit range is an error.
    double RequiredRadialPosCount() const { return requiredRadialPosCount_; }
    void SetRequiredRadialPosCount(double count);
    // 0.0 for a row beyond count - 1, where a set is ignored; a negative row is an error.
    double RequiredRadialPos(int i) const;
    void SetRequiredRadialPos(int i, double value);

    double LocalPitchTol(int unit = -1) const { return ToUnit(localPitchTol_, unit); }
    void SetLocalPitchTol(double value, int unit = -1) { localPitchTol_ = FromUnit(value, unit); }
    double LocalPitchPercent() const { return localPitchPercent_; }
    void SetLocalPitchPercent(double value) { localPitchPercent_ = value; }

    double DZRatioTol(int unit = -1) const { return ToUnit(dzRatioTol_, unit); }
    void SetDZRatioTol(double value, int unit = -1) { dzRatioTol_ = FromUnit(value, unit); }
    double DZRatioPercent() const { return dzRatioPercent_; }
    void SetDZRatioPercent(double value) { dzRatioPercent_ = value; }

    double MeanPitchOfPropTol(int unit = -1) const { return ToUnit(meanPitchOfPropTol_, unit); }
    void SetMeanPitchOfPropTol(double value, int unit = -1) { meanPitchOfPropTol_ = FromUnit(value, unit); }
    double MeanPitchOfPropPercent() const { return meanPitchOfPropPercent_; }
    void SetMeanPitchOfPropPercent(double value) { meanPitchOfPropPercent_ = value; }

    double MeanPitchPerRadPercent() const { return meanPitchPerRadPercent_; }
    void SetMeanPitchPerRadPercent(double value) { meanPitchPerRadPercent_ = value; }
    // Read with a unit other than -1 this converts MeanPitchOfPropTol, not its own field. The
    // evaluation reads it as stored; the asymmetry is kept so that nothing comes to rely on a fix.
    double MeanPitchPerRadTol(int unit = -1) const;
    void SetMeanPitchPerRadTol(double value, int unit = -1) { meanPitchPerRadTol_ = FromUnit(value, unit); }

    double MeanPitchPerBladePercent() const { return meanPitchPerBladePercent_; }
    void SetMeanPitchPerBladePercent(double value) { meanPitchPerBladePercent_ = value; }
    double MeanPitchPerBladeTol(int unit = -1) const { return ToUnit(meanPitchPerBladeTol_, unit); }
    void SetMeanPitchPerBladeTol(double value, int unit = -1) {
        meanPitchPerBladeTol_ = FromUnit(value, unit);
    }

    double ScrewRadiusPercent() const { return screwRadiusPercent_; }
    void SetScrewRadiusPercent(double value) { screwRadiusPercent_ = value; }
    double ScrewRadiusTol(int unit = -1) const { return ToUnit(screwRadiusTol_, unit); }
    void SetScrewRadiusTol(double value, int unit = -1) { screwRadiusTol_ = FromUnit(value, unit); }

    double RakePercent() const { return rakePercent_; }
    void SetRakePercent(double value) { rakePercent_ = value; }

    // Blade spacing tolerance in degrees; no unit argument.
    double AngDeviationTol() const { return angDeviationTol_; }
    void SetAngDeviationTol(double value) { angDeviationTol_ = value; }

    // The windows and class codes of the last evaluation run with this instance
    // (EvaluateISOCriteria, GetBestISOClass). A short-lived instance takes its results with it.
    const ISOResults& Results() const { return results_; }
    ISOResults& Results() { return results_; }

private:
    const clsUnits& RequireUnits() const;
    double ToUnit(double stored, int unit) const;
    double FromUnit(double value, int unit) const;

    std::shared_ptr<clsUnits> units_;
    double isoInnerRadius_ = 30.0;
    std::int16_t isoIncludeInnerRadiusIndex_ = 0;
    std::int16_t isoStandardIndex_ = 0;
    std::int16_t isoTaskIndex_ = 0;
    std::int16_t isoCriteriaIndex_ = 0;
    std::int16_t isoClassIndex_ = 0;
    double requiredRadialPosCount_ = 0;
    std::vector<double> requiredRadialPos_;
    double localPitchTol_ = 0;
    double localPitchPercent_ = 0;
    double dzRatioTol_ = 0;
    double dzRatioPercent_ = 0;
    double meanPitchOfPropTol_ = 0;
    double meanPitchOfPropPercent_ = 0;
    double meanPitchPerRadPercent_ = 0;
    double meanPitchPerRadTol_ = 0;
    double meanPitchPerBladePercent_ = 0;
    double meanPitchPerBladeTol_ = 0;
    double screwRadiusPercent_ = 0;
    double screwRadiusTol_ = 0;
    double rakePercent_ = 0;
    double angDeviationTol_ = 0; // degrees
    ISOResults results_;
};

} // namespace corvane
