#include "check/ScanEdits.h"

#include "model/clsCorvane.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <string>

namespace corvane {

namespace {

constexpr const char* kDeleteTitle = "Delete scan...";

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

} // namespace corvane
