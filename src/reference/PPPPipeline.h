#pragma once

// The steps of the propeller pipeline that the ppp routines hand their propeller to: the
// properties driver, the ISO pitch routines and the reference calculation. They live with the
// geometry, which is wired in here rather than linked, so that reading and writing ppp files
// works in any build; a step that is not installed is passed over.
//
// Each step returns 1 for success and 0 for failure, as the geometry routines do.

#include "model/clsPropeller.h"

#include <cstdint>
#include <functional>

namespace corvane {

struct PPPPipeline {
    // (propeller, panelMode, setSegmentLimits)
    std::function<std::int32_t(clsPropeller&, bool, bool)> CalculatePropellerProperties;
    // Panel count of a section of blade 0 for a resplined reference: (propeller, section).
    std::function<std::int16_t(clsPropeller&, int)> GetExportPanelCount;
    // (rotation, propeller, blade, section, panels, useRawEnds)
    std::function<std::int32_t(std::int16_t, clsPropeller&, int, int, int, bool)> CalcLocalPitchByNormal;
    // (propeller, blade)
    std::function<std::int32_t(clsPropeller&, int)> CalcISOBladePitch;
    std::function<std::int32_t(clsPropeller&, int)> CalcIntegratedBladePitch;
    std::function<std::int32_t(clsPropeller&)> CalcISOPropellerPitch;
    // Builds gProject's ReferenceScan: (useRawEnds).
    std::function<std::int32_t(bool)> CalculateReferenceProperties;
};

// Installs the steps and returns those installed before.
PPPPipeline SetPPPPipeline(PPPPipeline pipeline);
const PPPPipeline& InstalledPPPPipeline();

} // namespace corvane
