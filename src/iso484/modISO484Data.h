#pragma once

// Bringing the active scan and the reference up to date before anything is evaluated. Every
// screen and report that shows evaluation results runs the same chain, in this order:
//   ClearISOCriteriaStatus, SetISOStandardAndTolerances, CalculateAllISOData,
//   EvaluateISOCriteria, and EvaluateClassStatus where a verdict is wanted.

#include <cstdint>
#include <functional>
#include <memory>

namespace corvane {

class clsPropeller;

// The geometry routines the ISO data calculation drives. The geometry library sits above this
// one (its panel counts read the ISO class), so it is not called by name from here: the program
// installs its routines once at start, and tests install stand-ins that leave hand-built
// results alone. Each returns 1 for success and 0 for failure, as the geometry does.
struct ISOGeometrySteps {
    std::function<std::int32_t(clsPropeller& propeller, bool panelMode, bool setSegmentLimits)>
        CalculatePropellerProperties;
    // Works on gProject; useRawEnds is handed on as the caller gave it.
    std::function<std::int32_t(std::int16_t& useRawEnds)> CalculateReferenceProperties;
    std::function<std::int32_t(clsPropeller& scan, int blade, int section, clsPropeller& reference)>
        CalcLocalPitchDeviations;
    // Axial drop of a section at an absolute angle in degrees.
    std::function<std::int32_t(clsPropeller& propeller, int blade, int section, double theta, double& result)>
        CalcSectionAxialDrop;
    // Optional: keeps the curves fitted while the handle it returns lives, so that runs of the
    // chain over unchanged data fit each raw curve once. The results are the same either way.
    std::function<std::shared_ptr<void>()> HoldFits;
};

// The handle of HoldFits when one is installed, else null.
std::shared_ptr<void> HoldISOGeometryFits();

void SetISOGeometrySteps(ISOGeometrySteps steps);
const ISOGeometrySteps& GetISOGeometrySteps();

// Installs a set of steps for the life of the scope and puts the previous set back after.
class ISOGeometryScope {
public:
    explicit ISOGeometryScope(ISOGeometrySteps steps);
    ~ISOGeometryScope();
    ISOGeometryScope(const ISOGeometryScope&) = delete;
    ISOGeometryScope& operator=(const ISOGeometryScope&) = delete;

private:
    ISOGeometrySteps previous_;
};

// Recalculates the active scan of gProject and its reference:
// 1. every blade with a measured section (more than one raw offset) is switched on; blades are
//    never switched off here;
// 2. the scan's geometry; a failure ends with 0, its own message having been shown;
// 3. the reference; a reference that cannot be calculated (or is missing) silently falls back
//    to ReferenceSourceIndex 0 and the calculation goes on without it;
// 4. with a reference, the local pitch deviations and the scan's rake at the reference's BCL
//    angle for every section measured on both; without one, each measured section's BCL angle
//    is the mid-angle of its raw ends about the GL, and its rake is taken there.
// A failure in step 4 is told under "Scan Data Error" and ends with 0; the data is then partly
// updated. useRawEnds is handed on to the reference calculation; callers pass 0.
std::int32_t CalculateAllISOData(std::int16_t& useRawEnds);

} // namespace corvane
