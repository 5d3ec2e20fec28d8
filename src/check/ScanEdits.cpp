#include "check/ScanEdits.h"

#include "files/modHaleMRIFile.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <array>
#include <memory>
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

// The lines of the comparison of an imported file with the project, each ending a line.
std::string Differences(const clsCorvane& project, const clsCorvane& file) {
    std::string text;
    const auto line = [&text](const std::string& l) { text += (text.empty() ? "" : "\r\n") + l; };
    if (file.Units()->PropLengthIndex() != project.Units()->PropLengthIndex()) {
        line(" Files have different units a unit conversion will be needed");
    }
    if (CompareDouble(file.MarkedDiameter(), kCompareNotEqual, project.MarkedDiameter(), 0)) {
        line(" File has propeller diameter of " + FormatPoint(file.MarkedDiameter(), "") +
             " But a diameter of " + FormatPoint(project.MarkedDiameter(), "") + " is required ");
    }
    if (file.BladeCount() != project.BladeCount()) {
        line(" File has propeller Blade count Of " + std::to_string(file.BladeCount()) + " But " +
             std::to_string(project.BladeCount()) + " blades are required ");
    }
    if (file.RotationIndex() != project.RotationIndex()) {
        line(" File has propeller with " + file.RotationLabel() + " hand rotation, But a propeller with " +
             project.RotationLabel() + " hand rotation is required ");
    }
    return text;
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

ScanImport ImportHaleScan(clsCorvane& project, clsISO484& iso, const std::string& path) {
    ScanImport result;
    if (!project.Units()) {
        return result;
    }
    ErrorTail tail("Importing scan from external file ");
    tail.Step([&] {
        auto units = std::make_shared<clsUnits>();
        units->SetPropLengthIndex(project.Units()->PropLengthIndex());
        clsCorvane file;
        file.SetLinkedClasses(units);
        result.read = ImportHaleMRIFile(path, file, iso);
        if (!result.read.Usable()) {
            return;
        }
        result.differences = Differences(project, file);
        const std::shared_ptr<clsPropeller> scan = file.PropellerScan(file.ActiveScanIndex())->CopyClass();
        scan->SetScanID(project.ProjectScanCount());
        // The project's blades: a file of other blades keeps those within the count.
        if (scan->BladeCount() != project.BladeCount()) {
            scan->SetBladeCount(project.BladeCount());
        }
        for (int b = 0; b < scan->BladeCount(); ++b) {
            if (scan->Blades(b)->SectionCount() != kScanSections) {
                scan->Blades(b)->SetSectionCount(kScanSections);
            }
        }
        const auto index = project.PropellerScanCount();
        project.SetPropellerScanCount(static_cast<std::int16_t>(index + 1));
        project.SetPropellerScan(index, scan);
        project.SetProjectScanCount(static_cast<std::int16_t>(project.ProjectScanCount() + 1));
        project.SetActiveScanIndex(index);
        result.added = true;
    });
    return result;
}

} // namespace corvane
