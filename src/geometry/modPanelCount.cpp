#include "geometry/modPanelCount.h"

#include "iso484/clsISO484.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;
constexpr int kMillimetreIndex = 3;

// ISO 484-1 and -2; classes S, I, Ia, II, III; tasks by class, node on CL, segment on CL.
constexpr int kStandard484Part1 = 0;
constexpr int kStandard484Part2 = 1;
constexpr int kClassS = 0;
constexpr int kClassI = 1;
constexpr int kClassIa = 2;
constexpr int kClassII = 3;
constexpr int kClassIII = 4;
constexpr int kTaskNodeOnCL = 1;
constexpr int kTaskSegmentOnCL = 2;

// Panel widths, millimetres: ISO 484-1 keeps a panel between 100 and 400, ISO 484-2 at least an
// inch wide.
constexpr double kWidestPanel = 400.0;
constexpr double kNarrowestPanel = 100.0;
constexpr double kNarrowestSmallPanel = 25.4;

// Stations (panels + 1) are counted in 16 bits.
constexpr int kMostPanels = 32766;
constexpr int kPanelModeCount = 48;

[[noreturn]] void ThrowObjectNotSet() {
    throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
}

const clsISO484& IsoSettings() {
    if (!gISO484) {
        ThrowObjectNotSet();
    }
    return *gISO484;
}

double ToMillimetres(double length) {
    if (!gProject || !gProject->Units()) {
        ThrowObjectNotSet();
    }
    const double mm = gProject->Units()->ConvertUnitPropLength(length, kMillimetreIndex, -1);
    if (!std::isfinite(mm)) {
        throw CorvaneError(ErrorNumber::Overflow, "Overflow");
    }
    return mm;
}

// Nearest whole number, a half going to the even neighbour; kept within the panel range.
int RoundHalfEven(double v) {
    const double clamped = std::clamp(v, 0.0, static_cast<double>(kMostPanels));
    const double whole = std::floor(clamped);
    const double fraction = clamped - whole;
    double rounded = whole;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2.0) != 0.0)) {
        rounded = whole + 1.0;
    }
    return static_cast<int>(rounded);
}

// The count the standard and class ask for a chord of chordMM millimetres.
int CountByClass(const clsISO484& iso, double chordMM) {
    const int cls = iso.ISOClassIndex();
    if (iso.ISOStandardIndex() == kStandard484Part1) {
        // Class Ia is left out on purpose: it is judged on the whole section.
        if (cls == kClassS || cls == kClassI || cls == kClassII) {
            return std::max(4, RoundHalfEven(chordMM / kWidestPanel + 1.0));
        }
        return 1;
    }
    if (iso.ISOStandardIndex() == kStandard484Part2) {
        switch (cls) {
        case kClassS:
            return 4;
        case kClassI:
        case kClassIa:
            return 3;
        case kClassII:
            return 2;
        case kClassIII:
        default:
            return 1;
        }
    }
    return 1;
}

// Widens or narrows the panels to the widths the standard allows.
int FitPanelWidth(const clsISO484& iso, int n, double chordMM) {
    if (n <= 1) {
        return n;
    }
    double width = chordMM / n;
    if (iso.ISOStandardIndex() == kStandard484Part1) {
        while (width > kWidestPanel && n < kMostPanels) {
            ++n;
            width = chordMM / n;
        }
        while (width < kNarrowestPanel && n > 1) {
            --n;
            width = chordMM / n;
            if (n >= 4) {
                break;
            }
        }
    } else if (iso.ISOStandardIndex() == kStandard484Part2) {
        while (width < kNarrowestSmallPanel && n > 1) {
            --n;
            width = chordMM / n;
        }
    }
    return n;
}

// Node on CL wants an even count, segment on CL an odd one.
int FitTask(const clsISO484& iso, int n) {
    if (n <= 1) {
        return n;
    }
    if (iso.ISOTaskIndex() == kTaskNodeOnCL && n % 2 == 1) {
        return n + 1;
    }
    if (iso.ISOTaskIndex() == kTaskSegmentOnCL && n % 2 == 0) {
        return n + 1;
    }
    return n;
}

} // namespace

int GetSectionPanelCount(clsPropeller& propeller, int /*blade*/, int section, bool panelMode) {
    const clsISO484& iso = IsoSettings();
    double chord = 0.0;
    for (int b = 0; b < propeller.BladeCount(); ++b) {
        const std::shared_ptr<clsBlades> blade = propeller.Blades(b);
        if (section >= 0 && section < blade->SectionCount()) {
            chord = std::max(chord, blade->Section(section)->SegmentChord());
        }
    }
    const double chordMM = ToMillimetres(chord);
    int n = CountByClass(iso, chordMM);
    n = FitPanelWidth(iso, n, chordMM);
    n = FitTask(iso, n);
    return panelMode ? kPanelModeCount : n;
}

int GetExportPanelCount(clsPropeller& propeller, int section) {
    const clsISO484& iso = IsoSettings();
    const double chordMM = ToMillimetres(propeller.Blades(0)->Chord(section));
    return FitTask(iso, CountByClass(iso, chordMM));
}

} // namespace corvane
