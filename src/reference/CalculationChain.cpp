#include "reference/CalculationChain.h"

#include "geometry/clsSplineFitCache.h"
#include "geometry/modISOPitch.h"
#include "geometry/modLocalPitch.h"
#include "geometry/modPanelCount.h"
#include "geometry/modPropellerProperties.h"
#include "geometry/modScanDataUtilities.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "reference/PPPPipeline.h"
#include "reference/modImportFile.h"
#include "reference/modReferenceProperties.h"

#include <memory>

namespace corvane {

namespace {

void InstallISOSteps() {
    ISOGeometrySteps steps;
    steps.CalculatePropellerProperties = [](clsPropeller& propeller, bool panelMode, bool setSegmentLimits) {
        return CalculatePropellerProperties(propeller, panelMode, setSegmentLimits);
    };
    steps.CalculateReferenceProperties = [](std::int16_t& useRawEnds) {
        return CalculateReferenceProperties(useRawEnds);
    };
    steps.CalcLocalPitchDeviations = [](clsPropeller& scan, int blade, int section, clsPropeller& reference) {
        return CalcLocalPitchDeviations(scan, blade, section, reference);
    };
    steps.CalcSectionAxialDrop = [](clsPropeller& propeller, int blade, int section, double theta,
                                    double& result) {
        return CalcSectionAxialDrop(propeller, blade, section, theta, result);
    };
    steps.HoldFits = [] { return HoldSplineFits(); };
    SetISOGeometrySteps(std::move(steps));
}

void InstallPPPSteps() {
    PPPPipeline pipeline;
    pipeline.CalculatePropellerProperties = [](clsPropeller& propeller, bool panelMode,
                                               bool setSegmentLimits) {
        return CalculatePropellerProperties(propeller, panelMode, setSegmentLimits);
    };
    pipeline.GetExportPanelCount = [](clsPropeller& propeller, int section) {
        return static_cast<std::int16_t>(GetExportPanelCount(propeller, section));
    };
    pipeline.CalcLocalPitchByNormal = [](std::int16_t rotation, clsPropeller& propeller, int blade,
                                         int section, int panels, bool useRawEnds) {
        return CalcLocalPitchByNormal(rotation, propeller, blade, section, panels, useRawEnds);
    };
    pipeline.CalcISOBladePitch = [](clsPropeller& propeller, int blade) {
        return CalcISOBladePitch(propeller, blade);
    };
    pipeline.CalcIntegratedBladePitch = [](clsPropeller& propeller, int blade) {
        return CalcIntegratedBladePitch(propeller, blade);
    };
    pipeline.CalcISOPropellerPitch = [](clsPropeller& propeller) { return CalcISOPropellerPitch(propeller); };
    pipeline.CalculateReferenceProperties = [](bool useRawEnds) {
        std::int16_t flag = useRawEnds ? 1 : 0;
        return CalculateReferenceProperties(flag);
    };
    SetPPPPipeline(std::move(pipeline));
}

// Whether the chosen reference has anything to be built from: the internal scan and a pitch
// above 0 (no variable pitch below 0) for a scan reference, a read file (a section of blade 0
// with a pitch) for a file reference.
bool ReferenceAvailable(const clsCorvane& project) {
    switch (project.ReferenceSourceIndex()) {
    case 0:
        return true;
    case 1: {
        const int index = project.InternalScanIndex();
        if (index < 0 || index >= project.PropellerScanCount() || !project.PropellerScan(index)) {
            return false;
        }
        // The pitch the ideal propeller is built at, as the reference settings check asks it.
        if (project.ReferenceSectionPitchIndex() == 0) {
            return project.ReferenceConstantPitch() > 0.0;
        }
        for (int row = 0; row < project.ReferenceVariablePitchCount(); ++row) {
            if (project.ReferenceVariablePitch(row) < 0.0) {
                return false;
            }
        }
        return true;
    }
    case 2:
    case 3: {
        const std::shared_ptr<clsPropeller> source = project.ReferenceSource();
        if (!source || source->BladeCount() < 1) {
            return false;
        }
        const std::shared_ptr<clsBlades> blade = source->Blades(0);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (blade->RadialPos(k) > 0.0 && blade->Pitch(k) > 0.0) {
                return true;
            }
        }
        return false;
    }
    default:
        return false;
    }
}

} // namespace

void InstallCalculationSteps() {
    InstallISOSteps();
    InstallPPPSteps();
    InstallPPPReferenceReader();
}

std::int32_t RunISOEvaluationChain(std::int16_t& verdict) {
    verdict = 0;
    if (!GetISOGeometrySteps().CalculatePropellerProperties) {
        InstallCalculationSteps();
    }
    if (!gProject || !gISO484) {
        return 0;
    }
    if (!ReferenceAvailable(*gProject)) {
        gProject->SetReferenceSourceIndex(0);
    }
    ClearISOCriteriaStatus();
    SetISOStandardAndTolerances(*gISO484, *gProject);
    std::int16_t useRawEnds = 0;
    if (CalculateAllISOData(useRawEnds) != 1) {
        return 0;
    }
    EvaluateISOCriteria(*gISO484);
    verdict = EvaluateClassStatus(*gISO484);
    return 1;
}

std::int32_t RunISOEvaluationChain() {
    std::int16_t verdict = 0;
    return RunISOEvaluationChain(verdict);
}

} // namespace corvane
