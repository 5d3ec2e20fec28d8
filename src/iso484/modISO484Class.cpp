#include "iso484/modISO484Class.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <memory>

#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "iso484/modISO484Criteria.h"
#include "iso484/modISO484Evaluate.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;
constexpr int kMetres = 1;
constexpr double kSizeLimitM = 0.8;
constexpr double kSizeLimitTolerance = 0.00001;
constexpr std::int16_t kSecondaryCriteria = 1;
constexpr std::int16_t kClassIII = 4;
constexpr std::int16_t kStandardLarge = 0;
constexpr std::int16_t kStandardSmall = 1;
constexpr int kInnerPairRow = 6;

constexpr std::array<const char*, 2> kStandardTexts = {"ISO 484-1  ", "ISO 484-2 "};
constexpr std::array<const char*, 2> kCriteriaTexts = {"Primary", "Primary and Secondary"};
constexpr std::array<const char*, 6> kClassParts = {"Class S.", "Class 1.", "Class 1a.",
                                                    "Class 2.", "Class 3.", "Class Custom."};

template <std::size_t N> std::string Word(const std::array<const char*, N>& words, int index) {
    return index >= 0 && index < static_cast<int>(N) ? words[static_cast<std::size_t>(index)] : "";
}

std::shared_ptr<clsPropeller> ScanOf(const clsCorvane& project, int scanIndex) {
    auto scan = project.PropellerScan(scanIndex);
    if (!scan) {
        throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
    }
    return scan;
}

bool Measured(clsBlades& blade, int section) {
    return section >= 0 && section < blade.SectionCount() && blade.Section(section)->RawOffsetCount() > 1;
}

bool Masked(const ISOSectionMask& mask, int section) {
    return section >= 0 && section < kISOSectionRows && mask[static_cast<std::size_t>(section)];
}

bool Selected(const ISOSelection& selection, clsPropeller& scan, int blade) {
    const bool shown = blade >= static_cast<int>(selection.blades.size()) ||
                       selection.blades[static_cast<std::size_t>(blade)];
    return shown && scan.Blades(blade)->BladeEnabled();
}

// The sections a class requires, and beside the inner radius the 0.4 section when the user shows
// it: the mask of the per-blade walk, for the class of `iso` rather than that of gISO484.
ISOSectionMask ClassSections(const clsISO484& iso, const ISOSelection& selection) {
    ISOSectionMask mask{};
    GetSectionMask(iso, mask);
    if (!mask[kInnerPairRow] && iso.ISOIncludeInnerRadiusIndex() == 1) {
        mask[kInnerPairRow] = selection.radii[kInnerPairRow];
    }
    return mask;
}

// One criterion at one place, judged: the evaluator succeeded and the value is in its window.
// Called as Passes(Evaluate...(..., l, u, v), l, u, v): the bounds are taken by reference so
// that they are read in the body, after the evaluator has written them. Copies would be made in
// an unspecified order relative to the evaluator's call.
bool Passes(std::int32_t status, const double& lower, const double& upper, const double& value) {
    return status == 1 && InsideWindow(lower, upper, value);
}

// Rake of this blade less that of the other, within half this blade's rake window around 0.
// The blade's spacing to the blades measured beside it; a blade that stands nowhere has none to
// judge and passes.
bool SpacingPasses(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade) {
    if (!TakesPartInSpacing(project, scanIndex, blade)) {
        return true;
    }
    double l = 0, u = 0, toPrev = 0, toNext = 0;
    const std::int32_t status = EvaluateBladeSpacing(iso, project, scanIndex, blade, l, u, toPrev, toNext);
    return Passes(status, l, u, (toPrev - toNext) / 2.0);
}

bool RakeBetweenPasses(const clsCorvane& project, double lower, double upper, double rake, double otherRake) {
    const double value = rake - otherRake;
    if (project.ReferenceSourceIndex() == kReferenceNone) {
        return true;
    }
    const double half = (upper - lower) / 2.0;
    return InsideWindow(-half, half, value);
}

int NextMeasured(clsBlades& blade, int section) {
    for (int k = section + 1; k < blade.SectionCount(); ++k) {
        if (Measured(blade, k)) {
            return k;
        }
    }
    return -1;
}

// The per-blade walk of one section. Returns false when a deciding criterion failed.
bool SectionPerBlade(const clsISO484& iso, const clsCorvane& project, int scanIndex, clsPropeller& scan,
                     const ISOSelection& selection, int b, int k, ISOClassFlags& flags) {
    const auto bi = static_cast<std::size_t>(b);
    auto blade = scan.Blades(b);
    bool ok = true;
    auto fail = [&](ISOClassRow row, bool deciding) {
        flags[row][bi] = false;
        ok = ok && !deciding;
    };
    double l = 0, u = 0, v = 0, lLen = 0, uLen = 0, vLen = 0;
    if (!Passes(EvaluateNoseTailPitch(iso, project, scanIndex, b, k, l, u, v), l, u, v)) {
        fail(kISORowNoseTailPitch, true);
    }
    if (!Passes(EvaluateChordLength(iso, project, scanIndex, b, k, l, u, v), l, u, v)) {
        fail(kISORowChordLength, true);
    }
    if (!Passes(EvaluateLEPosition(iso, project, scanIndex, b, k, l, u, v, lLen, uLen, vLen), l, u, v)) {
        fail(kISORowLEPosition, true);
    }
    const std::int32_t rakeStatus = EvaluateRakePosition(iso, project, scanIndex, b, k, l, u, v);
    if (!Passes(rakeStatus, l, u, v)) {
        fail(kISORowRakePosition, true);
    }
    if (iso.ISOCriteriaIndex() == kSecondaryCriteria) {
        const int next = (b + 1) % scan.BladeCount();
        auto nextBlade = scan.Blades(next);
        if (!Selected(selection, scan, next)) {
            fail(kISORowRakeBetweenBlades, false);
        } else if (Measured(*nextBlade, k) &&
                   !RakeBetweenPasses(project, l, u, v, nextBlade->ISOTotalAxialRakeToBCL(k))) {
            fail(kISORowRakeBetweenBlades, false);
        }
        const int later = NextMeasured(*blade, k);
        double position = 0;
        if (later >= 0 &&
            !Passes(EvaluateDeltaRake(iso, project, scanIndex, b, k, later, l, u, v, position), l, u, v)) {
            fail(kISORowDeltaRake, false);
        }
    }
    auto section = blade->Section(k);
    if (iso.ISOClassIndex() != kClassIII && section->SegmentOffsetCount() > 0) {
        for (int j = 0; j < section->SegmentPanelCount(); ++j) {
            if (!Passes(EvaluateLocalPitch(iso, project, scanIndex, b, k, j, l, u, v), l, u, v)) {
                fail(kISORowLocalPitch, true);
            }
        }
        if (iso.ISOCriteriaIndex() == kSecondaryCriteria) {
            for (int st = 0; st < section->SegmentOffsetCount(); ++st) {
                bool both = false, sumOK = false, diffOK = false;
                const bool done =
                    EvaluatePitchContinuity(iso, project, scanIndex, b, k, st, both, sumOK, diffOK) == 1;
                if (!done || !sumOK) {
                    fail(kISORowPitchContinuitySum, true);
                }
                if (!done || !diffOK) {
                    fail(kISORowPitchContinuityDiff, true);
                }
            }
        }
    }
    return ok;
}

// The verdict walk of one section: true while everything deciding passes.
bool SectionStatus(const clsISO484& iso, const clsCorvane& project, int scanIndex, clsBlades& blade, int b,
                   int k) {
    double l = 0, u = 0, v = 0, lLen = 0, uLen = 0, vLen = 0;
    if (!Passes(EvaluateNoseTailPitch(iso, project, scanIndex, b, k, l, u, v), l, u, v) ||
        !Passes(EvaluateChordLength(iso, project, scanIndex, b, k, l, u, v), l, u, v) ||
        !Passes(EvaluateLEPosition(iso, project, scanIndex, b, k, l, u, v, lLen, uLen, vLen), l, u, v) ||
        !Passes(EvaluateRakePosition(iso, project, scanIndex, b, k, l, u, v), l, u, v)) {
        return false;
    }
    if (iso.ISOCriteriaIndex() == kSecondaryCriteria) {
        // Rake progression is looked at for the report only; it never decides.
        const int later = NextMeasured(blade, k);
        double position = 0;
        if (later >= 0) {
            EvaluateDeltaRake(iso, project, scanIndex, b, k, later, l, u, v, position);
        }
    }
    if (iso.ISOClassIndex() == kClassIII) {
        return true;
    }
    auto section = blade.Section(k);
    for (int j = 0; j < section->SegmentPanelCount(); ++j) {
        if (!Passes(EvaluateLocalPitch(iso, project, scanIndex, b, k, j, l, u, v), l, u, v)) {
            return false;
        }
    }
    if (iso.ISOCriteriaIndex() == kSecondaryCriteria) {
        for (int st = 0; st < section->SegmentOffsetCount(); ++st) {
            bool both = false, sumOK = false, diffOK = false;
            if (EvaluatePitchContinuity(iso, project, scanIndex, b, k, st, both, sumOK, diffOK) != 1 ||
                !sumOK || !diffOK) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

std::int16_t EvaluateClassStatus(const clsCorvane& project, const clsISO484& iso) {
    ErrorTail tail("evaluating the ISO class status");
    std::int16_t code = 0;
    tail.Step([&] {
        if (project.ReferenceSourceIndex() == kReferenceNone) {
            code = 0;
            return;
        }
        code = 2;
        ISOSectionMask mask{};
        GetSectionMask(iso, mask);
        const int scanIndex = project.ActiveScanIndex();
        auto scan = ScanOf(project, scanIndex);
        double l = 0, u = 0, v = 0;
        if (!Passes(EvaluatePropellerMeanPitch(iso, project, scanIndex, l, u, v), l, u, v)) {
            return;
        }
        for (int b = 0; b < scan->BladeCount(); ++b) {
            auto blade = scan->Blades(b);
            if (!blade->BladeEnabled()) {
                continue;
            }
            EvaluateMaxDiameter(iso, project, scanIndex, b, l, u, v); // shown, never decides
            l = u = v = 0;
            const std::int32_t pitchStatus = EvaluateBladeMeanPitch(iso, project, scanIndex, b, l, u, v);
            if (v > 0.0 && !Passes(pitchStatus, l, u, v)) {
                return;
            }
            if (!SpacingPasses(iso, project, scanIndex, b)) {
                return;
            }
            for (int k = 0; k < blade->SectionCount(); ++k) {
                if (Measured(*blade, k) && Masked(mask, k) &&
                    !SectionStatus(iso, project, scanIndex, *blade, b, k)) {
                    return;
                }
            }
        }
        code = 1;
    });
    return code;
}

std::int16_t EvaluateClassPerBlade(const clsCorvane& project, const clsISO484& iso, int scanIndex,
                                   const ISOSelection& selection, ISOClassFlags& flags, bool& propellerOK) {
    ErrorTail tail("evaluating the ISO class per blade");
    std::int16_t code = 0;
    tail.Step([&] {
        auto scan = ScanOf(project, scanIndex);
        const auto count = static_cast<std::size_t>(scan->BladeCount() > 0 ? scan->BladeCount() : 0);
        flags[kISORowCoverage].resize(count);
        for (int row = kISORowOverall; row < kISOClassRows; ++row) {
            flags[static_cast<std::size_t>(row)].assign(count, true);
        }
        propellerOK = true;
        bool failed = false;
        const ISOSectionMask mask = ClassSections(iso, selection);
        double l = 0, u = 0, v = 0;
        if (!Passes(EvaluatePropellerMeanPitch(iso, project, scanIndex, l, u, v), l, u, v)) {
            propellerOK = false;
            failed = true;
        }
        for (int b = 0; b < scan->BladeCount(); ++b) {
            if (!Selected(selection, *scan, b)) {
                continue;
            }
            const auto bi = static_cast<std::size_t>(b);
            auto blade = scan->Blades(b);
            if (!Passes(EvaluateMaxDiameter(iso, project, scanIndex, b, l, u, v), l, u, v)) {
                flags[kISORowMaxDiameter][bi] = false;
            }
            l = u = v = 0;
            const std::int32_t pitchStatus = EvaluateBladeMeanPitch(iso, project, scanIndex, b, l, u, v);
            if (v > 0.0 && !Passes(pitchStatus, l, u, v)) {
                flags[kISORowBladeMeanPitch][bi] = false;
                failed = true;
            }
            if (!SpacingPasses(iso, project, scanIndex, b)) {
                flags[kISORowBladeSpacing][bi] = false;
                failed = true;
            }
            for (int k = 0; k < blade->SectionCount(); ++k) {
                if (Measured(*blade, k) && Masked(mask, k) &&
                    !SectionPerBlade(iso, project, scanIndex, *scan, selection, b, k, flags)) {
                    failed = true;
                }
            }
        }
        code = project.ReferenceSourceIndex() == kReferenceNone ? 0 : (failed ? 2 : 1);
    });
    return code;
}

void GetCoverageClass(const clsCorvane& project, const clsISO484& iso, const ISOSelection& selection,
                      std::vector<std::int16_t>& bladeCodes, std::int16_t& overall, bool belowLimit) {
    ErrorTail tail("finding the ISO class coverage");
    tail.Step([&] {
        const ISOSectionMask mask = ClassSections(iso, selection);
        auto scan = ScanOf(project, project.ActiveScanIndex());
        const int count = scan->BladeCount() > 0 ? scan->BladeCount() : 0;
        overall = kISOCodeMissing;
        bladeCodes.assign(static_cast<std::size_t>(count), kISOCodeMissing);
        for (int b = 0; b < count; ++b) {
            auto blade = scan->Blades(b);
            auto rows = [&](std::initializer_list<int> list) {
                return std::all_of(list.begin(), list.end(),
                                   [&](int k) { return Masked(mask, k) && Measured(*blade, k); });
            };
            std::int16_t code = kISOCodeMissing;
            if (Selected(selection, *scan, b) && rows({1, 3, 5})) {
                code = belowLimit ? 2 : (iso.ISOStandardIndex() == kStandardSmall ? 3 : 4);
                if (rows({2, 4})) {
                    code = iso.ISOStandardIndex() == kStandardLarge ? 3 : 1;
                    if (rows({0})) {
                        code = 0;
                    }
                }
            }
            bladeCodes[static_cast<std::size_t>(b)] = code;
            overall = b == 0 ? code : std::min(overall, code);
        }
    });
}

bool ISOBelowSizeLimit(const clsCorvane& project) {
    return CompareDouble(project.MarkedDiameter(kMetres), kCompareLess, kSizeLimitM, kSizeLimitTolerance);
}

void GetEvaluationSentence(const clsISO484& iso, std::string& standardText, std::string& sentence, int code) {
    standardText =
        Word(kStandardTexts, iso.ISOStandardIndex()) + Word(kCriteriaTexts, iso.ISOCriteriaIndex());
    const std::string classPart = Word(kClassParts, iso.ISOClassIndex());
    switch (code) {
    case 0:
        sentence = "Scan not evaluated.";
        break;
    case 1:
        sentence = "Meets or exceeds " + classPart;
        std::transform(sentence.begin(), sentence.end(), sentence.begin(),
                       [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        break;
    case 2:
        sentence = "Fails to meet " + classPart;
        break;
    case 3:
        sentence = "Partial scan meets " + classPart;
        break;
    default:
        sentence.clear();
        break;
    }
}

} // namespace corvane
