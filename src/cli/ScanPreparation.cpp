#include "cli/ScanPreparation.h"

#include "cli/EvaluationSummary.h"
#include "geometry/modCheckScanData.h"
#include "geometry/modISOPitch.h"
#include "geometry/modPropellerProperties.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"

#include <charconv>
#include <ostream>

namespace corvane::cli {
namespace {

std::string Upper(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

} // namespace

bool SelectScan(const std::string& command, std::optional<std::int16_t> rotationIndex,
                const std::string& scan, std::ostream& err, int& scanIndex) {
    const std::string prefix = "corvane-cli " + command + ": ";
    if (rotationIndex)
        gProject->SetRotationIndex(*rotationIndex);
    const int count = gProject->PropellerScanCount();
    const std::string hand = gProject->RotationIndex() == 0 ? "right-hand" : "left-hand";
    if (count <= 0) {
        err << prefix << "the project has no " << hand << " scan\n";
        return false;
    }
    if (scan.empty()) {
        scanIndex = gProject->ActiveScanIndex();
    } else {
        int number = -1;
        const auto result = std::from_chars(scan.data(), scan.data() + scan.size(), number);
        if (result.ec == std::errc() && result.ptr == scan.data() + scan.size()) {
            scanIndex = number;
        } else {
            scanIndex = -1;
            for (int i = 0; i < count && scanIndex < 0; ++i)
                if (ScanLetterLabel(gProject->PropellerScan(i)->ScanID()) == Upper(scan))
                    scanIndex = i;
        }
    }
    if (scanIndex < 0 || scanIndex >= count) {
        err << prefix << "no " << hand << " scan '" << (scan.empty() ? std::to_string(scanIndex) : scan)
            << "'; the project has " << count << " (0 to " << count - 1 << ")\n";
        return false;
    }
    gProject->SetActiveScanIndex(static_cast<std::int16_t>(scanIndex));
    return true;
}

bool CalculateScanGeometry(const std::string& command, int scanIndex, std::ostream& err) {
    const std::string prefix = "corvane-cli " + command + ": ";
    if (CheckScanData(scanIndex) != 1) {
        err << prefix << "the scan cannot be used\n";
        return false;
    }
    // CheckScanData puts a new scan object in the slot: look it up again.
    const auto scan = gProject->PropellerScan(scanIndex);
    if (CalculatePropellerProperties(*scan, false, true) != 1) {
        err << prefix << "the properties of the scan could not be calculated\n";
        return false;
    }
    if (CalcIntegratedPropellerPitch(*scan) != 1) {
        err << prefix << "the mean pitch of the scan could not be calculated\n";
        return false;
    }
    return true;
}

} // namespace corvane::cli
