#include "cli/ScanPreparation.h"

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

std::string MissingFields(const ProjectFieldCheck& fields) {
    std::string list;
    const auto add = [&list](bool holds, const char* name) {
        if (!holds)
            list += (list.empty() ? "" : ", ") + std::string(name);
    };
    add(fields.customer, "customer");
    add(fields.projectID, "project ID");
    add(fields.diameter, "diameter");
    add(fields.pitch, "pitch");
    add(fields.innerRadius, "inner radius (1 to 39 % of R)");
    return list;
}

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
                if (ScanLabel(gProject->PropellerScan(i)->ScanID()) == Upper(scan))
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

bool CheckPassed(const std::string& command, const CheckOutcome& outcome, std::ostream& err) {
    const std::string prefix = "corvane-cli " + command + ": ";
    switch (outcome.stop) {
    case CheckStop::ProjectData:
        err << prefix << "the project has no valid " << MissingFields(outcome.fields) << "\n";
        return false;
    case CheckStop::ScanData:
        err << prefix << "the scan cannot be used\n";
        return false;
    case CheckStop::Calculation:
        err << prefix << "the ISO 484 data could not be calculated\n";
        return false;
    case CheckStop::None:
        break;
    }
    return true;
}

} // namespace corvane::cli
