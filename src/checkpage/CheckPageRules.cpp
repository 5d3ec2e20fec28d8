#include "checkpage/CheckPageRules.h"

#include "check/CalculationChain.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484Class.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "support/Services.h"

namespace corvane {

namespace {

bool Measured(const clsPropeller& scan, int blade, int row) {
    const auto b = scan.Blades(blade);
    return b && row < b->SectionCount() && b->Section(row)->RawOffsetCount() > 0;
}

// Classes S, I, Ia, II, III; 5 (custom) is the user's own tolerances and has no place in a walk.
constexpr int kLowestClass = 4;

} // namespace

std::optional<int> CheckViewByName(const std::string& name) {
    static const std::pair<const char*, int> names[] = {{"top", kViewTop},     {"blade", kViewBlade},
                                                        {"pitch", kViewPitch}, {"radius", kViewRadius},
                                                        {"path", kViewPath},   {"outline", kViewOutline}};
    for (const auto& [word, view] : names) {
        if (name == word) {
            return view;
        }
    }
    return std::nullopt;
}

bool IsCheckView(int view) {
    return view >= kViewTop && view <= kViewOutline && view != 3;
}

std::vector<int> BladesWithSections(const clsPropeller& scan) {
    std::vector<int> blades;
    for (int b = 0; b < scan.BladeCount(); ++b) {
        if (FirstMeasuredRow(scan, b) >= 0) {
            blades.push_back(b);
        }
    }
    return blades;
}

int FirstMeasuredRow(const clsPropeller& scan, int blade) {
    if (blade < 0 || blade >= scan.BladeCount()) {
        return -1;
    }
    for (int k = 0; k < scan.Blades(blade)->SectionCount(); ++k) {
        if (Measured(scan, blade, k)) {
            return k;
        }
    }
    return -1;
}

CheckViewLayout LayoutOfView(int view, bool referenceOpen, const clsPropeller& scan) {
    CheckViewLayout layout;
    switch (view) {
    case kViewTop:
        // With the reference panel open the pitch bars stand beside the top view.
        layout.sectionGraphs = referenceOpen;
        layout.elements = referenceOpen ? 2 : 1;
        break;
    case kViewPitch:
        layout.sectionGraphs = true;
        break;
    case kViewRadius:
        layout.sectionGraphs = true;
        layout.elements = static_cast<int>(BladesWithSections(scan).size());
        break;
    case kViewOutline:
        // A single-channel drop counter gives no absolute drop: the outline stays zoomed.
        if (scan.ScanDrop() == 2) {
            layout.zoomEnabled = false;
            layout.zoomForced = true;
        }
        break;
    case kViewPath:
        layout.zoomEnabled = false;
        break;
    case kViewBlade:
        break;
    default:
        layout.elements = 0;
        layout.zoomEnabled = false;
        break;
    }
    return layout;
}

bool EffectiveZoom(const CheckViewLayout& layout, bool zoomActive) {
    return layout.zoomForced || (layout.zoomEnabled && zoomActive);
}

bool NeedsRedraw(const std::optional<CheckDrawState>& drawn, const CheckDrawState& now, bool graphsStale) {
    return graphsStale || !drawn || !(*drawn == now);
}

std::string QuickClassText(const clsISO484& iso, bool referenceInForce, std::int16_t verdict) {
    if (!referenceInForce) {
        return " N/A";
    }
    const int cls = iso.ISOClassIndex();
    const bool passes = verdict == 1;
    if (cls == 0 && passes) {
        return " " + iso.ISOClassLabel(0);
    }
    if (cls == kLowestClass && !passes) {
        return " FAILS ALL";
    }
    return " CLICK";
}

ClassSearchResult SearchBestClass(clsCorvane& project, clsISO484& iso, const std::function<void()>& step) {
    ClassSearchResult result;
    const std::int16_t userClass = iso.ISOClassIndex();
    const bool large = !ISOBelowSizeLimit(project);
    std::int16_t verdict = 0;
    const auto evaluate = [&](int cls) {
        iso.SetISOClassIndex(static_cast<std::int16_t>(cls));
        verdict = 0;
        const bool calculated = RunISOEvaluationChain(project, iso, verdict) == 1;
        ++result.classesTried;
        if (step) {
            step();
        }
        Events().DoEvents();
        return calculated ? verdict : std::int16_t{0};
    };
    if (userClass < 0 || userClass > kLowestClass) {
        result.text = " N/A";
        return result;
    }
    const std::int16_t present = evaluate(userClass);
    if (present == 1) {
        result.classIndex = userClass;
        for (int cls = userClass - 1; cls >= 0; --cls) {
            if (cls == 2 && large) {
                continue;
            }
            const std::int16_t v = evaluate(cls);
            if (v == 1) {
                result.classIndex = cls;
            } else if (v == 2) {
                break;
            }
        }
    } else if (userClass != kLowestClass) {
        for (int cls = userClass + 1; cls <= kLowestClass; ++cls) {
            if (cls == 2 && large) {
                continue;
            }
            if (evaluate(cls) == 1) {
                result.classIndex = cls;
                break;
            }
        }
    }
    // The user's class and its results come back as they were before the search.
    iso.SetISOClassIndex(userClass);
    std::int16_t restored = 0;
    (void)RunISOEvaluationChain(project, iso, restored);
    result.failsAll = result.classIndex < 0;
    result.text = result.failsAll ? " FAILS ALL" : " " + iso.ISOClassLabel(result.classIndex);
    return result;
}

bool ScanHasData(const clsPropeller& scan) {
    return !BladesWithSections(scan).empty();
}

std::vector<std::string> ScanCompareTexts(const clsCorvane& project) {
    std::vector<std::string> rows{" None"};
    for (int i = 0; i < project.PropellerScanCount(); ++i) {
        const auto scan = project.PropellerScan(i);
        std::string row = scan->Description() + " [" + ScanLabel(scan->ScanID());
        if (i == project.ActiveScanIndex()) {
            row += "] Active";
        } else if (!ScanHasData(*scan)) {
            row += "] Empty";
        } else {
            row += "] ";
        }
        rows.push_back(row);
    }
    return rows;
}

std::array<bool, 8> RadiusButtonsEnabled(const clsCorvane& project) {
    std::array<bool, 8> enabled{};
    const int active = project.ActiveScanIndex();
    if (project.PropellerScanCount() <= 0 || active < 0 || active >= project.PropellerScanCount()) {
        return enabled;
    }
    const auto scan = project.PropellerScan(active);
    for (int k = 0; k < 8; ++k) {
        for (int b = 0; b < scan->BladeCount() && !enabled[static_cast<std::size_t>(k)]; ++b) {
            enabled[static_cast<std::size_t>(k)] = scan->Blades(b)->BladeEnabled() && Measured(*scan, b, k);
        }
    }
    return enabled;
}

} // namespace corvane
