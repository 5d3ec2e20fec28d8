#include "geometry/modCheckScanData.h"

#include "geometry/modScanAlignment.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

namespace {

constexpr std::int16_t kRightHand = 0;
constexpr const char* kErrorTitle = "Scan Data Error";
constexpr const char* kWarningTitle = "Scan Data Warning...";

// Puts each blade's GL on its nominal angle before the alignment measures the blades against
// them: right hand 0, -S, -2S, ... wrapped; left hand S, 2S, ... from blade 1, blade 0 kept.
void SetNominalGLPositions(clsPropeller& scan, std::int16_t rotation) {
    const int count = scan.BladeCount();
    const double spacing = 360.0 / count;
    if (rotation == kRightHand) {
        for (int b = 0; b < count; ++b) {
            scan.Blades(b)->SetGLPositionThetaDeg(Wrap360(-spacing * b));
        }
    } else {
        for (int b = 1; b < count; ++b) {
            scan.Blades(b)->SetGLPositionThetaDeg(spacing * b);
        }
    }
}

// True when some raw point of the scan has an arm radius at or below 0 (or no number at all).
bool HasBadRadius(clsPropeller& scan) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        auto blade = scan.Blades(b);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            auto section = blade->Section(k);
            for (int i = 0; i < section->RawOffsetCount(); ++i) {
                if (!(section->Radius(i) > 0.0)) {
                    return true;
                }
            }
        }
    }
    return false;
}

// A point moves forward when its angle goes on in the hand's sweep direction from the last
// point kept. A step of more than half a turn is read as a crossing of 0/360.
bool MovesForward(double angle, double last, bool rightHand) {
    double d = angle - last;
    if (std::fabs(d) > 180.0) {
        d = rightHand ? 360.0 - d : d - 360.0;
    }
    return rightHand ? d > 0.0 : d < 0.0;
}

// Drops the points of a section that do not move forward. Only the angles close up: the
// later angles move down over the dropped one and the count shrinks, so Radius and
// AxialDropX keep their places and lose their last values.
void RemoveBackwardPoints(clsSection& section, bool rightHand) {
    int count = section.RawOffsetCount();
    if (count < 2) {
        return;
    }
    std::vector<double> theta = section.ThetaDegArray();
    double last = theta[0];
    int i = 1;
    while (i < count) {
        if (MovesForward(theta[static_cast<std::size_t>(i)], last, rightHand)) {
            last = theta[static_cast<std::size_t>(i)];
            ++i;
            continue;
        }
        for (int j = i; j < count - 1; ++j) {
            theta[static_cast<std::size_t>(j)] = theta[static_cast<std::size_t>(j) + 1];
        }
        --count;
    }
    if (count == section.RawOffsetCount()) {
        return;
    }
    for (int j = 0; j < count; ++j) {
        section.SetThetaDeg(j, theta[static_cast<std::size_t>(j)]);
    }
    section.SetRawOffsetCount(count);
}

bool HasMeasuredSection(clsBlades& blade) {
    for (int k = 0; k < blade.SectionCount(); ++k) {
        if (blade.Section(k)->RawOffsetCount() > 0) {
            return true;
        }
    }
    return false;
}

// "Blade 2 has no sections. ..." or "Blades [2, 4] have no sections. ...", blades numbered
// from 1.
std::string NoSectionsQuestion(const std::vector<int>& blades) {
    if (blades.size() == 1) {
        return "Blade " + std::to_string(blades.front() + 1) + " has no sections. Do you wish to proceed?";
    }
    std::string list;
    for (std::size_t i = 0; i < blades.size(); ++i) {
        list += (i == 0 ? "" : ", ") + std::to_string(blades[i] + 1);
    }
    return "Blades [" + list + "] have no sections. Do you wish to proceed?";
}

void ShowScanDataError(const std::string& text) {
    Prompts().MessageBox(text, MsgBox::OKOnly | MsgBox::Exclamation, kErrorTitle);
}

} // namespace

std::int32_t CheckScanData(clsCorvane& project, int scanIndex, ILiveArm* liveArm) {
    ErrorTail tail("checking the scan data");
    std::int16_t rotation = kRightHand;
    bool usable = false;
    if (!tail.Step([&] {
            usable = project.PropellerScanCount() > 0 && scanIndex >= 0 &&
                     scanIndex < project.PropellerScanCount() && project.BladeCount() > 0 &&
                     project.PropellerScan(scanIndex) && project.PropellerScan(scanIndex)->BladeCount() > 0;
            if (usable) {
                rotation = project.RotationIndex();
                SetNominalGLPositions(*project.PropellerScan(scanIndex), rotation);
            }
        }) ||
        !usable) {
        return 0;
    }

    if (ReviewScanSweepAssignments(project, scanIndex) == 0 ||
        ShiftScanDataToGL(project, scanIndex, liveArm) == 0) {
        return 0;
    }

    // The alignment replaced the scan object; everything below works on the new one.
    std::shared_ptr<clsPropeller> scan;
    bool badRadius = false;
    if (!tail.Step([&] {
            scan = project.PropellerScan(scanIndex);
            badRadius = HasBadRadius(*scan);
        })) {
        return 0;
    }
    if (badRadius) {
        ShowScanDataError(
            "An error in the arm radius values was found. Arm radius values cannot be negative, the "
            "scan data cannot be processed.");
        return 0;
    }

    const bool rightHand = rotation == kRightHand;
    std::vector<int> withoutSections;
    if (!tail.Step([&] {
            withoutSections.clear();
            for (int b = 0; b < scan->BladeCount(); ++b) {
                auto blade = scan->Blades(b);
                for (int k = 0; k < blade->SectionCount(); ++k) {
                    RemoveBackwardPoints(*blade->Section(k), rightHand);
                }
                if (!HasMeasuredSection(*blade)) {
                    withoutSections.push_back(b);
                }
            }
        })) {
        return 0;
    }

    if (!withoutSections.empty()) {
        const int answer = Prompts().MessageBox(NoSectionsQuestion(withoutSections),
                                                MsgBox::YesNo | MsgBox::Exclamation, kWarningTitle);
        if (answer == Answer::No) {
            ShowScanDataError(
                "An error in the blade data was found. The blade has no sections, and the procedure "
                "was aborted by the user.");
            return 0;
        }
    }
    if (static_cast<int>(withoutSections.size()) == scan->BladeCount()) {
        ShowScanDataError(
            "An error in the scan data was found. The scan has no data and is unable to proceed.");
        return 0;
    }
    return 1;
}

} // namespace corvane
