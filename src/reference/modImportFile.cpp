#include "reference/modImportFile.h"

#include "files/FileAccess.h"
#include "files/TextEncoding.h"
#include "files/modPPPFile.h"
#include "iso484/clsISO484.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/NumberText.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace corvane {

namespace {

const char* const kContext = "importing the PPP file while ";
const char* const kReadTitle = "Error reading PPP";

// The active scan's diameter against the file's: they must agree within twice the ISO
// tolerance on the radius. A project without an active scan has nothing to compare.
bool DiameterFits(const clsPropeller& propeller) {
    if (!gProject || gProject->PropellerScanCount() < 1) {
        return true;
    }
    const int active = gProject->ActiveScanIndex();
    if (active < 0 || active >= gProject->PropellerScanCount() || !gProject->PropellerScan(active)) {
        return true;
    }
    // A scan saved before its first check has no diameter yet; the check gives it the marked one.
    const double filed = gProject->PropellerScan(active)->Diameter();
    const double scanDiameter = filed > 0.0 ? filed : gProject->MarkedDiameter();
    const double tolerance = gISO484 ? 2.0 * gISO484->ScrewRadiusTol() : 0.0;
    if (CompareDouble(propeller.Diameter(), kCompareEqual, scanDiameter, tolerance)) {
        return true;
    }
    const std::shared_ptr<clsUnits> units = gProject->Units() ? gProject->Units() : gUnits;
    const std::string format = units ? units->PropLengthFormat() : std::string("0.0###");
    const std::string label = units ? units->GetUnitPropLengthLabel(-1) : std::string();
    Prompts().MessageBox("The reference file cannot be applied.\r\nThe diameter of the reference file (" +
                             FormatPoint(propeller.Diameter(), format) + " " + label +
                             ") does not match the diameter of the propeller (" +
                             FormatPoint(scanDiameter, format) + " " + label + ")).",
                         MsgBox::OKOnly | MsgBox::Exclamation, "Data Error");
    return false;
}

} // namespace

std::int32_t ImportPPPFile(const std::string& path, clsPropeller& propeller, std::int16_t bladeCount) {
    const PPPRead read = ReadPPPFile(path, propeller, bladeCount);
    if (read.status == PPPReadStatus::Refused) {
        Prompts().MessageBox(read.refusal, MsgBox::OKOnly | MsgBox::Exclamation, kReadTitle);
    }
    if (!read.Usable()) {
        return 0;
    }

    ErrorTail tail(std::string(kContext) + "closing the file");
    bool usable = true;
    if (!tail.Step([&] {
            if (read.status == PPPReadStatus::Incomplete &&
                Prompts().MessageBox(
                    "The file was incomplete. The existing data has been processed, however errors "
                    "may occur. Do you wish to continue?",
                    MsgBox::YesNo | MsgBox::Question, "Missing Data") == Answer::No) {
                usable = false;
                return;
            }
            usable = DiameterFits(propeller);
        }) ||
        !usable) {
        return 0;
    }
    return BuildPPPOffsets(propeller, true) == 1 ? 1 : 0;
}

} // namespace corvane
