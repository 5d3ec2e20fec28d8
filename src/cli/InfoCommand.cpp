#include "cli/InfoCommand.h"

#include "cli/JsonOutput.h"
#include "cli/ProjectLoader.h"
#include "files/modProjectFile.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"

#include <ostream>

namespace corvane::cli {
namespace {

struct Header {
    std::string projectID, lastModified, customer, markedPitch;
    double markedDiameter = 0;
    std::int16_t bladeCount = 0, classIndex = 0, propLengthIndex = 0;
};

Json ScansJson() {
    Json scans = Json::array();
    for (int hand = 0; hand < 2; ++hand) {
        const int count = hand == 0 ? gProject->RightScanCount() : gProject->LeftScanCount();
        for (int i = 0; i < count; ++i) {
            const auto scan = hand == 0 ? gProject->RightScan(i) : gProject->LeftScan(i);
            Json blades = Json::array();
            for (int b = 0; b < scan->BladeCount(); ++b) {
                const auto blade = scan->Blades(b);
                Json points = Json::array();
                for (int k = 0; k < blade->SectionCount(); ++k)
                    points.push_back(blade->Section(k)->RawOffsetCount());
                blades.push_back({{"SectionCount", blade->SectionCount()}, {"RawOffsetCount", points}});
            }
            scans.push_back({{"Hand", hand == 0 ? "Right" : "Left"},
                             {"Index", i},
                             {"ScanID", scan->ScanID()},
                             {"Blades", blades}});
        }
    }
    return scans;
}

void WriteScansText(std::ostream& out) {
    for (int hand = 0; hand < 2; ++hand) {
        const int count = hand == 0 ? gProject->RightScanCount() : gProject->LeftScanCount();
        for (int i = 0; i < count; ++i) {
            const auto scan = hand == 0 ? gProject->RightScan(i) : gProject->LeftScan(i);
            out << (hand == 0 ? "Right" : "Left") << " scan " << i << " (ScanID " << scan->ScanID()
                << "): " << scan->BladeCount() << " blades\n";
            for (int b = 0; b < scan->BladeCount(); ++b) {
                const auto blade = scan->Blades(b);
                out << "  blade " << b + 1 << ": " << blade->SectionCount() << " sections, points";
                for (int k = 0; k < blade->SectionCount(); ++k)
                    out << ' ' << blade->Section(k)->RawOffsetCount();
                out << '\n';
            }
        }
    }
}

} // namespace

int RunInfo(const std::string& path, bool asJson, std::ostream& out, std::ostream& err) {
    // The reader's notices are not printed: they are part of the answer.
    FileReadResult read;
    if (!ReadProject("info", path, err, read))
        return 2;
    std::string notice;
    for (const Notice& shown : read.notices)
        notice += (notice.empty() ? "" : "\r\n") + shown.text;

    // The header as the library lists it; an older file without a Project block has its values
    // in other blocks, which the full read has found.
    Header header;
    if (!ReadProjectHeader(path, header.projectID, header.lastModified, header.customer,
                           header.markedDiameter, header.markedPitch, header.bladeCount, header.classIndex,
                           header.propLengthIndex)) {
        header.projectID = gProject->ProjectID();
        header.customer = gProject->Customer();
        header.markedDiameter = gProject->MarkedDiameter();
        header.markedPitch = gProject->MarkedPitch();
        header.bladeCount = gProject->BladeCount();
        header.classIndex = gISO484->ISOClassIndex();
        header.propLengthIndex = gUnits->PropLengthIndex();
    }

    const std::string classTag = gISO484->ISOClassFileTag(header.classIndex);
    const std::string unitTag = gUnits->PropLengthFileTag(header.propLengthIndex);
    if (asJson) {
        WriteJson(out, {{"ProjectID", header.projectID},
                        {"LastModified", header.lastModified},
                        {"Customer", header.customer},
                        {"MarkedDiameter", header.markedDiameter},
                        {"MarkedPitch", header.markedPitch},
                        {"BladeCount", header.bladeCount},
                        {"ClassIndex", classTag},
                        {"PropLength", unitTag},
                        {"Notice", notice},
                        {"Scans", ScansJson()}});
        return 0;
    }
    out << "ProjectID:      " << header.projectID << "\n"
        << "LastModified:   " << header.lastModified << "\n"
        << "Customer:       " << header.customer << "\n"
        << "MarkedDiameter: " << header.markedDiameter << " " << unitTag << "\n"
        << "MarkedPitch:    " << header.markedPitch << "\n"
        << "BladeCount:     " << header.bladeCount << "\n"
        << "Class:          " << classTag << "\n";
    if (!notice.empty())
        out << "Notice:         " << notice << "\n";
    WriteScansText(out);
    return 0;
}

} // namespace corvane::cli
