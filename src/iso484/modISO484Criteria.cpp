#include "iso484/modISO484Criteria.h"

#include <cstddef>
#include <memory>

#include "iso484/clsISO484.h"
#include "iso484/modISO484Evaluate.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modReferenceSource.h"
#include "support/ErrorTail.h"

namespace corvane {

std::array<std::int16_t, kISOStatusCells> gISOStatus = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};

namespace {

constexpr int kObjectNotSet = 91;

std::int16_t& Cell(ISOStatusCell cell) {
    return gISOStatus[static_cast<std::size_t>(cell)];
}

// The window an evaluator handed back, judged; a failure of either kind fails the cell.
ISOWindow Judge(std::int32_t status, double lower, double upper, double value, ISOStatusCell cell) {
    ISOWindow w{lower, upper, value, status == 1 && InsideWindow(lower, upper, value)};
    if (!w.Pass) {
        Cell(cell) = kISOCellFailed;
    }
    return w;
}

bool Measured(clsBlades& blade, int section) {
    return section < blade.SectionCount() && blade.Section(section)->RawOffsetCount() > 1;
}

class CriteriaWalk {
public:
    CriteriaWalk(clsISO484& iso, const clsCorvane& project, int scanIndex, clsPropeller& scan)
        : iso_(iso), project_(project), scanIndex_(scanIndex), scan_(scan),
          noReference_(project.ReferenceSourceIndex() == kReferenceNone) {}

    void Run(ISOResults& results) {
        double l = 0, u = 0, v = 0;
        std::int32_t s = EvaluatePropellerMeanPitch(iso_, project_, scanIndex_, l, u, v);
        results.PropellerMeanPitch = Judge(s, l, u, v, kISOStatusPropellerMeanPitch);
        results.Blades.resize(static_cast<std::size_t>(scan_.BladeCount() > 0 ? scan_.BladeCount() : 0));
        for (int b = 0; b < scan_.BladeCount(); ++b) {
            auto blade = scan_.Blades(b);
            if (blade->BladeEnabled()) {
                Blade(b, *blade, results.Blades[static_cast<std::size_t>(b)]);
            }
        }
    }

private:
    void Blade(int b, clsBlades& blade, ISOBladeResults& out) {
        out.Evaluated = true;
        double l = 0, u = 0, v = 0;
        std::int32_t s = EvaluateMaxDiameter(iso_, project_, scanIndex_, b, l, u, v);
        out.MaxDiameter = {l, u, v, s == 1 && InsideWindow(l, u, v)};
        s = EvaluateBladeMeanPitch(iso_, project_, scanIndex_, b, l, u, v);
        out.BladeMeanPitch = Judge(s, l, u, v, kISOStatusBladeMeanPitch);
        if (TakesPartInSpacing(project_, scanIndex_, b)) {
            double toPrev = 0, toNext = 0;
            s = EvaluateBladeSpacing(iso_, project_, scanIndex_, b, l, u, toPrev, toNext);
            out.BladeSpacing = Judge(s, l, u, (toPrev - toNext) / 2.0, kISOStatusSpacing);
            out.SpacingToPrev = toPrev;
            out.SpacingToNext = toNext;
        }

        out.Sections.resize(static_cast<std::size_t>(blade.SectionCount() > 0 ? blade.SectionCount() : 0));
        for (int k = 0; k < blade.SectionCount(); ++k) {
            if (Measured(blade, k)) {
                Section(b, blade, k, out.Sections[static_cast<std::size_t>(k)]);
            }
        }
    }

    void Section(int b, clsBlades& blade, int k, ISOSectionResults& out) {
        out.Measured = true;
        auto section = blade.Section(k);
        double l = 0, u = 0, v = 0;
        std::int32_t s = EvaluateNoseTailPitch(iso_, project_, scanIndex_, b, k, l, u, v);
        out.NoseTailPitch = Judge(s, l, u, v, kISOStatusNoseTailPitch);
        for (int j = 0; j < section->SegmentPanelCount(); ++j) {
            s = EvaluateLocalPitch(iso_, project_, scanIndex_, b, k, j, l, u, v);
            out.LocalPitch.push_back(Judge(s, l, u, v, kISOStatusLocalPitch));
        }
        Continuity(b, k, *section, out);
        s = EvaluateChordLength(iso_, project_, scanIndex_, b, k, l, u, v);
        out.ChordLength = Judge(s, l, u, v, kISOStatusChord);
        double lLen = 0, uLen = 0, vLen = 0;
        s = EvaluateLEPosition(iso_, project_, scanIndex_, b, k, l, u, v, lLen, uLen, vLen);
        out.LEPosition = Judge(s, l, u, v, kISOStatusLeadingEdge);
        out.LEPositionHelix = {lLen, uLen, vLen, out.LEPosition.Pass};
        s = EvaluateRakePosition(iso_, project_, scanIndex_, b, k, l, u, v);
        out.RakePosition = Judge(s, l, u, v, kISOStatusRakePosition);
        for (int later = k + 1; later < blade.SectionCount(); ++later) {
            if (!Measured(blade, later)) {
                continue;
            }
            double position = 0;
            s = EvaluateDeltaRake(iso_, project_, scanIndex_, b, k, later, l, u, v, position);
            out.DeltaRake.push_back({later, position, Judge(s, l, u, v, kISOStatusRakeProgression)});
        }
        const int count = scan_.BladeCount();
        out.RakeToPrevBlade = RakeBetween(k, out.RakePosition, (b - 1 + count) % count);
        out.RakeToNextBlade = RakeBetween(k, out.RakePosition, (b + 1) % count);
    }

    void Continuity(int b, int k, clsSection& section, ISOSectionResults& out) {
        const double limit = iso_.LocalPitchPercent();
        for (int st = 0; st < section.SegmentOffsetCount(); ++st) {
            bool both = false, sumOK = false, diffOK = false;
            const std::int32_t s =
                EvaluatePitchContinuity(iso_, project_, scanIndex_, b, k, st, both, sumOK, diffOK);
            const double sum = section.SegmentOffsetDeviationSum(st);
            const double diff = section.SegmentOffsetDeviationDiff(st);
            out.PitchContinuitySum.push_back(Bounds(sum, limit, s == 1 && sumOK));
            out.PitchContinuityDiff.push_back(Bounds(diff, limit, s == 1 && diffOK));
            if (s != 1 || !both) {
                Cell(kISOStatusPitchContinuity) = kISOCellFailed;
            }
        }
    }

    ISOWindow Bounds(double value, double limit, bool pass) const {
        return noReference_ ? ISOWindow{value, value, value, pass} : ISOWindow{-limit, limit, value, pass};
    }

    // This blade's rake less the other's, within half the width of this blade's rake window
    // around 0.
    std::optional<ISOWindow> RakeBetween(int k, const ISOWindow& own, int other) {
        auto otherBlade = scan_.Blades(other);
        if (!Measured(*otherBlade, k)) {
            if (Cell(kISOStatusRakeBetweenBlades) != kISOCellFailed) {
                Cell(kISOStatusRakeBetweenBlades) = kISOCellNotApplicable;
            }
            return std::nullopt;
        }
        const double value = own.Value - otherBlade->ISOTotalAxialRakeToBCL(k);
        const double half = noReference_ ? 0.0 : (own.Upper - own.Lower) / 2.0;
        const double lower = noReference_ ? value : -half;
        const double upper = noReference_ ? value : half;
        return Judge(1, lower, upper, value, kISOStatusRakeBetweenBlades);
    }

    clsISO484& iso_;
    const clsCorvane& project_;
    int scanIndex_;
    clsPropeller& scan_;
    bool noReference_;
};

} // namespace

void ClearISOCriteriaStatus() {
    gISOStatus.fill(kISOCellClear);
}

std::int32_t EvaluateISOCriteria(const clsCorvane& project, clsISO484& iso) {
    ErrorTail tail("evaluating the ISO criteria");
    const bool done = tail.Step([&] {
        const int scanIndex = project.ActiveScanIndex();
        auto scan = project.PropellerScan(scanIndex);
        if (!scan) {
            throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
        }
        ISOResults& results = iso.Results();
        // Class codes found earlier belong to the data they were found on; they go with it.
        results = ISOResults{};
        results.ReferenceSourceIndex = project.ReferenceSourceIndex();
        Cell(kISOStatusGeneral) = kISOCellNotApplicable;
        CriteriaWalk(iso, project, scanIndex, *scan).Run(results);
    });
    return done ? 1 : 0;
}

} // namespace corvane
