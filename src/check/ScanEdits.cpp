#include "check/ScanEdits.h"

#include "model/clsCorvane.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <array>
#include <string>

namespace corvane {

namespace {

constexpr const char* kDeleteTitle = "Delete scan...";
constexpr std::int16_t kScanSections = 8;

std::string Pad2(int value) {
    return value < 10 ? "0" + std::to_string(value) : std::to_string(value);
}

void GiveEightSections(clsPropeller& scan) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        scan.Blades(b)->SetSectionCount(kScanSections);
    }
}

} // namespace

bool DeleteActiveScan(clsCorvane& project) {
    const int count = project.PropellerScanCount();
    if (count <= 0) {
        Prompts().MessageBox("There is no scan data to remove!", MsgBox::Critical, kDeleteTitle);
        return false;
    }
    const int active = project.ActiveScanIndex();
    if (active < 0 || active > count - 1) {
        Prompts().MessageBox(
            "An error occurred. The selected scan does not exist. Please select a scan and try again.",
            MsgBox::Critical, kDeleteTitle);
        return false;
    }
    const std::string label = ScanLabel(project.PropellerScan(active)->ScanID());
    if (Prompts().MessageBox("Are you sure you want to delete Scan " + label + "?",
                             MsgBox::YesNo | MsgBox::Question, kDeleteTitle) != Answer::Yes) {
        return false;
    }
    ErrorTail tail("deleting scan");
    tail.Step([&] {
        project.RemovePropellerScan(active);
        if (project.ActiveScanIndex() >= project.PropellerScanCount()) {
            project.SetActiveScanIndex(static_cast<std::int16_t>(project.PropellerScanCount() - 1));
        }
    });
    return project.PropellerScanCount() != count;
}

bool AddScan(clsCorvane& project, const std::string& scanSource, std::int16_t scanDrop, const DateTime& now) {
    if (project.PropellerScanCount() > kScanLimit) {
        Prompts().MessageBox("The project only supports up to 50 scans!", MsgBox::OKOnly, "Scan limit");
        return false;
    }
    ErrorTail tail("adding a scan");
    return tail.Step([&] {
        const auto last = static_cast<std::int16_t>(project.PropellerScanCount());
        project.SetPropellerScanCount(static_cast<std::int16_t>(last + 1));
        project.SetActiveScanIndex(last);
        clsPropeller& scan = *project.PropellerScan(last);
        scan.SetBladeCount(project.BladeCount());
        GiveEightSections(scan);
        scan.SetScanID(project.ProjectScanCount());
        scan.SetScanDate(ScanDateText(now));
        scan.SetScanSource(scanSource);
        scan.SetScanDrop(scanDrop);
        project.SetProjectScanCount(static_cast<std::int16_t>(project.ProjectScanCount() + 1));
    });
}

bool OverwriteActiveScan(clsCorvane& project) {
    const int active = project.ActiveScanIndex();
    if (active < 0 || active >= project.PropellerScanCount()) {
        return false;
    }
    auto scan = project.PropellerScan(active);
    if (Prompts().MessageBox("Re-scan and overwrite all data from Scan " + ScanLabel(scan->ScanID()) + "?",
                             MsgBox::YesNo | MsgBox::Exclamation, "Overwrite scan...") != Answer::Yes) {
        return false;
    }
    ErrorTail tail("overwriting a scan");
    return tail.Step([&] {
        project.ClearPropellerScanData(active);
        scan->SetBladeCount(project.BladeCount());
        GiveEightSections(*scan);
    });
}

void PlaceBladesOnGL(clsPropeller& scan, std::int16_t rotationIndex) {
    const int count = scan.BladeCount();
    if (count <= 0) {
        return;
    }
    const double spacing = 360.0 / count;
    for (int i = 0; i < count; ++i) {
        auto blade = scan.Blades(i);
        if (rotationIndex == 0) {
            blade->SetGLPositionThetaDeg(Wrap360(-spacing * i));
        } else if (i > 0) {
            blade->SetGLPositionThetaDeg(spacing * i);
        }
        blade->SetGLPositionAxialX(0);
    }
}

std::string ScanDateText(const DateTime& now) {
    static constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const int month = now.month >= 1 && now.month <= 12 ? now.month : 1;
    return Pad2(now.day) + "-" + kMonths[static_cast<std::size_t>(month - 1)] + "-" +
           std::to_string(now.year) + " " + Pad2(now.hour) + ":" + Pad2(now.minute);
}

} // namespace corvane
