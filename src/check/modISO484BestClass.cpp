#include "check/modISO484BestClass.h"

#include "check/modISO484Data.h"
#include "geometry/clsSplineFitCache.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/CorvaneError.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "support/ErrorTail.h"

#include <array>
#include <cstddef>
#include <memory>

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;
constexpr std::int16_t kClassIa = 2;
constexpr std::int16_t kClassI = 1;
constexpr std::int16_t kSingleChannelDrop = 2;
constexpr std::int16_t kPartial = 3;
constexpr std::int16_t kWorstClass = 4;
// The classes tried, worst first, so that the best one passed is the last written.
constexpr std::array<std::int16_t, 4> kClassesTried = {4, 3, 1, 0};

} // namespace

std::int16_t GetBestISOClass(clsCorvane& project, clsISO484& projectISO, int scanIndex,
                             const ISOSelection& selection, bool belowLimit, ISOClassCodes& codes,
                             std::int16_t& propellerCode, ISODataStep dataStep) {
    ErrorTail tail("finding the best ISO class");
    std::int16_t result = 0;
    const auto savedStatus = gISOStatus;
    tail.Step([&] {
        auto scan = project.PropellerScan(scanIndex);
        if (!scan) {
            throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
        }
        const auto count = static_cast<std::size_t>(scan->BladeCount() > 0 ? scan->BladeCount() : 0);
        for (auto& row : codes) {
            row.assign(count, kWorstClass);
        }
        propellerCode = kWorstClass;
        std::int16_t coverage = kISOCodeMissing;
        GetCoverageClass(project, projectISO, selection, codes[kISORowCoverage], coverage, belowLimit);
        codes[kISORowCoverage].resize(count, kISOCodeMissing);

        // The search runs on its own instance with the project's settings, so that the
        // project's class, tolerances and results stay as they are.
        clsISO484 trial;
        trial.SetLinkedClasses(projectISO.Units());
        trial.SetISOCriteriaIndex(projectISO.ISOCriteriaIndex());
        trial.SetISOIncludeInnerRadiusIndex(projectISO.ISOIncludeInnerRadiusIndex());
        trial.SetISOInnerRadius(projectISO.ISOInnerRadius());
        trial.SetISOTaskIndex(projectISO.ISOTaskIndex());
        const std::int16_t asked = projectISO.ISOClassIndex();
        std::int16_t verdict = 0;
        // Only the windows change from one class to the next: the panels are counted by the
        // project's own class in every run, so every trial class is judged on the same grid, and
        // every raw curve of the scan and of its reference is fitted in the first run only.
        const std::shared_ptr<void> fits = HoldSplineFits();
        for (const std::int16_t classIndex : kClassesTried) {
            trial.SetISOClassIndex(classIndex);
            ClearISOCriteriaStatus();
            SetISOStandardAndTolerances(trial, project);
            std::int16_t useRawEnds = 0;
            if (dataStep(project, useRawEnds) != 1) {
                verdict = 0; // the data could not be brought up to date: nothing to judge
                break;
            }
            EvaluateISOCriteria(project, trial);
            const std::int16_t status = EvaluateClassStatus(project, trial);
            ISOClassFlags flags{};
            bool propellerOK = false;
            EvaluateClassPerBlade(project, trial, scanIndex, selection, flags, propellerOK);
            if (classIndex == asked || (classIndex == kClassI && asked == kClassIa)) {
                verdict = status;
            }
            for (int row = kISORowOverall; row < kISOClassRows; ++row) {
                const auto& passed = flags[static_cast<std::size_t>(row)];
                auto& target = codes[static_cast<std::size_t>(row)];
                for (std::size_t b = 0; b < passed.size() && b < target.size(); ++b) {
                    if (passed[b]) {
                        target[b] = classIndex;
                    }
                }
            }
            if (propellerOK) {
                propellerCode = classIndex;
            }
        }
        result = asked < coverage && verdict == 1 ? kPartial : verdict;
        if (scan->ScanDrop() == kSingleChannelDrop) {
            // One drop channel gives no trustworthy rake.
            for (const int row : {kISORowRakePosition, kISORowRakeBetweenBlades, kISORowDeltaRake}) {
                codes[static_cast<std::size_t>(row)].assign(count, kISOCodeNotApplicable);
            }
        }
        ISOResults& results = projectISO.Results();
        results.ClassCodesFound = true;
        results.ClassCodes = codes;
        results.PropellerCode = propellerCode;
        results.CoverageCode = coverage;
        results.BestClassResult = result;
    });
    gISOStatus = savedStatus;
    return result;
}

} // namespace corvane
