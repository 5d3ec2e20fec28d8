#include "cli/InfoCommand.h"

#include "cli/JsonOutput.h"
#include "files/modProjectCommands.h"
#include "files/modProjectFile.h"
#include "files/modTesselbyFile.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"
#include "support/ScriptedPrompts.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <filesystem>
#include <ostream>

namespace corvane::cli {
namespace {

struct Header {
    std::string projectID, lastModified, customer, markedPitch;
    double markedDiameter = 0;
    std::int16_t bladeCount = 0, classIndex = 0, propLengthIndex = 0;
};

std::string Lower(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// The notices the reader showed, as one text: each message on its own line.
std::string CollectedNotice(const ScriptedPrompts& prompts) {
    std::string text;
    for (const auto& shown : prompts.History()) {
        if (!text.empty())
            text += "\r\n";
        text += shown.text;
    }
    return text;
}

// The last line that says something: a reader stops at the item it could not do without, which
// it notes last.
std::string LastLine(const std::string& text) {
    const auto end = text.find_last_not_of(" \r\n");
    if (end == std::string::npos)
        return {};
    const auto start = text.find_last_of("\r\n", end);
    return text.substr(start == std::string::npos ? 0 : start + 1,
                       end + 1 - (start == std::string::npos ? 0 : start + 1));
}

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
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        err << "corvane-cli info: cannot read " << path << ": no such file\n";
        return 2;
    }

    // The reader's notices are collected, not printed: they are part of the answer.
    ScriptedPrompts notices;
    notices.SetAnswerFreely(true);
    Services services = InstalledServices();
    services.prompts = &notices;
    ServiceScope scope(services);
    CreateNewProject();
    notices.Clear();
    const bool tesselby = Lower(FileExtensionOf(path)) == "tbsc";
    const int result = tesselby ? ReadTesselbyFile(path, true) : ReadProjectFile(path, true);
    const std::string notice = CollectedNotice(notices);
    if (!HoldsProjectBlocks(path)) {
        err << "corvane-cli info: cannot read " << path << ": not a Corvane project file\n";
        return 2;
    }
    if (result != 1) {
        err << "corvane-cli info: cannot read " << path << ": "
            << (notice.empty() ? "the file is damaged" : LastLine(notice)) << "\n";
        return 2;
    }

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
