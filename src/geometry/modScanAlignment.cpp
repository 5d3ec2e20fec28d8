#include "geometry/modScanAlignment.h"

#include "geometry/modEffectiveBladeAngle.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modBladeCoverage.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

namespace {

constexpr std::int16_t kRightHand = 0;
constexpr int kObjectNotSet = 91;
// Rows of the standard radial table; a reviewed scan always has this many per blade.
constexpr std::int16_t kStandardSectionRows = 8;

std::shared_ptr<clsPropeller> Scan(clsCorvane& project, int scanIndex) {
    auto scan = project.PropellerScan(scanIndex);
    if (!scan) {
        throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
    }
    return scan;
}

// Section k of a blade when it holds offsets, else null. Rows beyond the blade's sections
// hold none.
std::shared_ptr<clsSection> MeasuredSection(clsBlades& blade, int k) {
    if (k < 0 || k >= blade.SectionCount()) {
        return nullptr;
    }
    auto section = blade.Section(k);
    return section->RawOffsetCount() > 0 ? section : nullptr;
}

// The window of half a blade spacing around the angle a blade slot follows. The ends are
// wrapped but the tested angle is not: a trailing edge stored outside [0, 360] never belongs.
bool InWindow(double a, double halfWindow, double t) {
    const double lo = Wrap360(a - halfWindow);
    const double hi = Wrap360(a + halfWindow);
    if (a - halfWindow >= 0.0 && a + halfWindow <= 360.0) {
        return t >= lo && t <= hi;
    }
    return (t >= lo && t <= 360.0) || (t >= 0.0 && t <= hi);
}

// Follows blade slot b from its outermost measured section inwards and places the sweeps it
// claims into the emptied copy. Returns true when a sweep came from another blade.
bool FollowBlade(clsPropeller& scan, clsPropeller& copy, int b, double halfWindow) {
    auto own = scan.Blades(b);
    int start = -1;
    for (int k = own->SectionCount() - 1; k >= 0; --k) {
        if (MeasuredSection(*own, k)) {
            start = k;
            break;
        }
    }
    if (start < 0) {
        return false; // the slot stays empty
    }
    auto first = own->Section(start);
    double a = Wrap360(first->ThetaDeg(0));
    copy.Blades(b)->SetSection(start, first);

    bool changed = false;
    for (int k = start; k >= 0; --k) {
        for (int c = 0; c < scan.BladeCount(); ++c) {
            auto candidate = MeasuredSection(*scan.Blades(c), k);
            if (!candidate) {
                continue;
            }
            const double t = candidate->ThetaDeg(0);
            if (!InWindow(a, halfWindow, t)) {
                continue;
            }
            a = Wrap360(t);
            copy.Blades(b)->SetSection(k, candidate);
            changed = changed || c != b;
            break;
        }
    }
    return changed;
}

// Bubble sort of the positions, carrying the blade order along; equal values keep their order.
void SortPositions(std::vector<double>& p, std::vector<int>& order, bool descending) {
    bool swapped = true;
    while (swapped) {
        swapped = false;
        for (std::size_t j = 0; j + 1 < p.size(); ++j) {
            const bool outOfOrder = descending ? p[j] < p[j + 1] : p[j] > p[j + 1];
            if (outOfOrder) {
                std::swap(p[j], p[j + 1]);
                std::swap(order[j], order[j + 1]);
                swapped = true;
            }
        }
    }
}

// The order of the blades when every blade stands where it was measured: positions relative to
// blade 0, sorted against the direction of rotation. Blades behind blade 0 in [0, 360) are
// carried past 360 rather than wrapped, which keeps blade 0 first in either order.
std::vector<int> OrderByPosition(const std::vector<double>& effective, bool rightHand) {
    std::vector<double> p(effective.size());
    std::vector<int> order(effective.size());
    for (std::size_t i = 0; i < p.size(); ++i) {
        p[i] = Wrap360(effective[i]);
        order[i] = static_cast<int>(i);
    }
    const double p0 = Wrap360(effective[0]);
    const double lowest = *std::min_element(p.begin(), p.end());
    for (std::size_t i = 1; i < p.size(); ++i) {
        p[i] = lowest == p0 ? p[i] - p0 : p[i] + 360.0 - p0;
    }
    p[0] = 0.0;
    if (rightHand) {
        p[0] = 360.0;
        SortPositions(p, order, true);
    } else {
        SortPositions(p, order, false);
    }
    return order;
}

// Slots of the blades when some hold no sweep. The swept blades keep the order the positions
// give (blade 0 first, then against the direction of rotation), and each takes the slot nearest
// where it stands, never before the slot of the one ahead of it and leaving room for those
// behind; the unswept blades, which stand nowhere, fill the slots left over in their own order.
// With every blade swept this is the order itself, one blade per slot.
std::vector<int> SlotsAroundGaps(const std::vector<double>& effective, const std::vector<bool>& swept,
                                 bool rightHand) {
    const int count = static_cast<int>(effective.size());
    const double spacing = 360.0 / count;
    std::vector<double> sweptAngles;
    std::vector<int> sweptBlades;
    for (int b = 0; b < count; ++b) {
        if (b == 0 || swept[static_cast<std::size_t>(b)]) {
            sweptAngles.push_back(effective[static_cast<std::size_t>(b)]);
            sweptBlades.push_back(b);
        }
    }
    const std::vector<int> order = OrderByPosition(sweptAngles, rightHand);
    std::vector<int> slots(static_cast<std::size_t>(count), -1);
    slots[0] = 0;
    const int placed = static_cast<int>(order.size());
    int previous = 0;
    for (int t = 1; t < placed; ++t) {
        const int blade = sweptBlades[static_cast<std::size_t>(order[static_cast<std::size_t>(t)])];
        const double turn = Wrap360(effective[static_cast<std::size_t>(blade)] - effective[0]);
        const double behind = rightHand ? Wrap360(-turn) : turn;
        const int nearest = static_cast<int>(std::lround(behind / spacing));
        const int slot = std::clamp(nearest, previous + 1, count - (placed - t));
        slots[static_cast<std::size_t>(slot)] = blade;
        previous = slot;
    }
    int free = 1;
    for (int b = 1; b < count; ++b) {
        if (swept[static_cast<std::size_t>(b)]) {
            continue;
        }
        while (slots[static_cast<std::size_t>(free)] >= 0) {
            ++free;
        }
        slots[static_cast<std::size_t>(free)] = b;
    }
    return slots;
}

} // namespace

std::int32_t ReviewScanSweepAssignments(clsCorvane& project, int scanIndex) {
    ErrorTail tail("reviewing scan sweep assignments");
    std::shared_ptr<clsPropeller> copy;
    bool changed = false;
    bool empty = false;
    const bool built = tail.Step([&] {
        auto scan = Scan(project, scanIndex);
        changed = false;
        empty = scan->BladeCount() <= 0;
        if (empty) {
            return;
        }
        copy = scan->CopyClass();
        for (int b = 0; b < copy->BladeCount(); ++b) {
            // Through 0 first, so that no section survives the resize.
            copy->Blades(b)->SetSectionCount(0);
            copy->Blades(b)->SetSectionCount(kStandardSectionRows);
        }
        const double halfWindow = 360.0 / scan->BladeCount() * 0.5;
        for (int b = 0; b < scan->BladeCount(); ++b) {
            if (FollowBlade(*scan, *copy, b, halfWindow)) {
                changed = true;
            }
        }
    });
    if (!built) {
        return 0;
    }
    if (empty || !changed) {
        return 1;
    }
    // A slot may share a section object with another slot or with the old scan; the deep copy
    // gives every slot its own.
    return tail.Step([&] { project.SetPropellerScan(scanIndex, copy->CopyClass()); }) ? 1 : 0;
}

std::int32_t ShiftScanDataToGL(clsCorvane& project, int scanIndex, ILiveArm* liveArm) {
    ErrorTail tail("shifting scan data to appropriate GL");
    std::shared_ptr<clsPropeller> scan;
    if (!tail.Step([&] { scan = Scan(project, scanIndex); })) {
        return 0;
    }
    if (scan->BladeCount() <= 0) {
        return 1;
    }
    double turn = 0.0;
    if (CalcISOEffectiveBladeAngle(turn, *scan, 0) == 0) {
        return 0;
    }
    for (int b = 0; b < scan->BladeCount(); ++b) {
        const bool shifted = tail.Step([&] {
            auto blade = scan->Blades(b);
            for (int k = 0; k < blade->SectionCount(); ++k) {
                auto section = blade->Section(k);
                if (section->RawOffsetCount() <= 0) {
                    continue;
                }
                // Turned into a local array and written back whole, so that a retried step
                // never turns a point twice.
                std::vector<double> theta = section->ThetaDegArray();
                for (double& t : theta) {
                    t = Wrap360(t - turn);
                }
                section->SetThetaDegArray(theta);
            }
        });
        if (!shifted) {
            return 0;
        }
    }
    if (liveArm && !tail.Step([&] { liveArm->TurnFrame(turn); })) {
        return 0;
    }
    return AssignScanDataToGL(project, scanIndex);
}

std::int32_t AssignScanDataToGL(clsCorvane& project, int scanIndex) {
    ErrorTail tail("assigning the scan data to the proper GL");
    std::shared_ptr<clsPropeller> scan;
    std::int16_t rotation = kRightHand;
    if (!tail.Step([&] {
            scan = Scan(project, scanIndex);
            rotation = project.RotationIndex();
        })) {
        return 0;
    }
    const int count = scan->BladeCount();
    if (count <= 0) {
        return 1;
    }
    const double spacing = 360.0 / count;
    const bool set = tail.Step([&] {
        if (rotation == kRightHand) {
            for (int i = 0; i < count; ++i) {
                scan->Blades(i)->SetGLPositionThetaDeg(Wrap360(-spacing * i));
            }
        } else {
            // Blade 0 keeps the angle it holds.
            for (int i = 1; i < count; ++i) {
                scan->Blades(i)->SetGLPositionThetaDeg(spacing * i);
            }
        }
    });
    if (!set) {
        return 0;
    }

    std::vector<double> effective(static_cast<std::size_t>(count));
    std::vector<double> gl(static_cast<std::size_t>(count));
    std::vector<bool> swept(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        if (CalcISOEffectiveBladeAngle(effective[static_cast<std::size_t>(i)], *scan, i) == 0) {
            return 0;
        }
        if (!tail.Step([&] {
                gl[static_cast<std::size_t>(i)] = scan->Blades(i)->GLPositionThetaDeg();
                swept[static_cast<std::size_t>(i)] = HasEffectiveBladeAngle(*scan, i);
            })) {
            return 0;
        }
    }
    // A blade without an effective angle stands nowhere: the angle it was given is only the GL of
    // the slot it was stored in, which may be where a measured blade stands.
    const bool gaps = std::find(swept.begin() + 1, swept.end(), false) != swept.end();
    const std::vector<int> order = gaps ? SlotsAroundGaps(effective, swept, rotation == kRightHand)
                                        : OrderByPosition(effective, rotation == kRightHand);

    return tail.Step([&] {
        auto copy = scan->CopyClass();
        for (int i = 0; i < count; ++i) {
            auto blade = scan->Blades(order[static_cast<std::size_t>(i)])->CopyClass();
            blade->SetGLPositionThetaDeg(gl[static_cast<std::size_t>(i)]);
            copy->SetBlades(i, blade);
        }
        project.SetPropellerScan(scanIndex, copy);
    })
               ? 1
               : 0;
}

} // namespace corvane
