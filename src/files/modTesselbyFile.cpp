#include "files/modTesselbyFile.h"

#include "files/modProjectBlockReader.h"
#include "files/modProjectFileSupport.h"
#include "files/modReferenceFile.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/NumberText.h"
#include "model/clsCorvane.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <algorithm>

namespace corvane {

using namespace projectfile;

namespace {

const ScanBlockRules& TesselbyScanRules() {
    static const ScanBlockRules rules{"Propeller", MissingScanBlock::Fail, 1, false, false, true};
    return rules;
}

std::string StemOf(const std::string& path) {
    const std::string name = BareFileName(path);
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string::npos ? name : name.substr(0, dot);
}

void ReadJobTags(BlockReader& reader) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    clsCorvane& project = *gProject;
    gUnits->SetPropLengthIndex(file.GetIndexFromBlockTag("PropLength", PropLengthWords(), flag, text));
    project.SetProjectID(file.GetStringFromBlockTag("ProjectID", flag, text));
    project.SetRepairShop(file.GetStringFromBlockTag("RepairShop", flag, text));
    project.SetInspector(file.GetStringFromBlockTag("Inspector", flag, text));
    project.SetNotes(file.GetStringFromBlockTag("Notes", flag, text)); // filed before "|" stood for breaks
    project.SetCustomer(file.GetStringFromBlockTag("Customer", flag, text));
    project.SetVessel(file.GetStringFromBlockTag("Vessel", flag, text));
    project.SetJobNumber(file.GetStringFromBlockTag("JobNumber", flag, text));
}

// One set of scans, the one RotationIndex selects.
void ReadScanCount(BlockReader& reader) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    clsCorvane& project = *gProject;
    SetScanCountFromFile(reader, project, -1, file.GetFloatFromBlockTag("PropellerScanCount", flag, text),
                         "PropellerScanCount");
    project.SetProjectScanCount(CountFromFloat(file.GetFloatFromBlockTag("ProjectScanCount", flag, text)));
    project.SetActiveScanIndex(file.GetIntegerFromBlockTag("ActiveScanIndex", flag, text));
}

// Rows are taken in the order filed, with no matching to the standard stations.
void ReadReferenceSettings(BlockReader& reader) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    clsCorvane& project = *gProject;
    project.SetReferenceSourceIndex(
        file.GetIndexFromBlockTag("ReferenceSource", ReferenceSourceWords(), flag, text));
    project.SetReferenceSourceFilePath(file.GetStringFromBlockTag("ReferenceSourceFilePath", flag, text));
    project.SetReferenceSectionPitchIndex(
        file.GetIndexFromBlockTag("ReferenceSectionPitch", ReferenceSectionPitchWords(), flag, text));
    project.SetReferenceLocalPitchIndex(
        file.GetIndexFromBlockTag("ReferenceLocalPitch", ReferenceLocalPitchWords(), flag, text));
    project.SetReferenceDiameter(file.GetFloatFromBlockTag("ReferenceDiameter", flag, text));
    project.SetReferenceConstantPitch(file.GetFloatFromBlockTag("ReferenceConstantPitch", flag, text));
    const int rows = project.ReferenceVariablePitchCount();
    if (rows <= 0) {
        return;
    }
    std::vector<double> positions;
    std::vector<double> pitches;
    file.GetFloatArrayFromBlockTag("ReferenceVariablePitchRadialPos", positions, flag, text);
    file.GetFloatArrayFromBlockTag("ReferenceVariablePitch", pitches, flag, text);
    for (int row = 0; row < rows; ++row) {
        const auto r = static_cast<std::size_t>(row);
        if (r < positions.size()) {
            project.SetReferenceVariablePitchRadialPos(row, positions[r]);
        }
        if (r < pitches.size()) {
            project.SetReferenceVariablePitch(row, pitches[r]);
        }
    }
}

ReadOutcome ReadTesselbyBlocks(BlockReader& reader) {
    clsFileINI& file = reader.file;
    ErrorTail& tail = reader.tail;
    double schema = 0;
    bool found = false;
    if (!tail.Step([&] {
            RequireProjectGlobals();
            if (file.ReadBlock("Project", reader.path) == 1) {
                schema = ParseLeadingNumber(
                    file.GetStringFromBlockTag("SchemaVersion", reader.errorFlag, reader.errorText));
                if (schema >= 1) {
                    ReadJobTags(reader);
                }
            }
        })) {
        return ReadOutcome::Abandoned;
    }
    if (schema < 1 && ReadLegacyProjectBlocks(file, reader.path, 0, reader.errorFlag, reader.errorText,
                                              reader.notices) == 0) {
        return ReadOutcome::Abandoned; // the legacy reader has shown its notice
    }
    if (!tail.Step([&] {
            found = file.ReadBlock("PropellerInfo", reader.path) == 1;
            if (found) {
                ReadPropellerInfoTags(reader, *gProject, *gISO484, true);
                ReadScanCount(reader);
            }
        })) {
        return ReadOutcome::Abandoned;
    }
    if (!found) {
        return ReadOutcome::FailureExit;
    }
    clsCorvane& project = *gProject;
    if (!tail.Step([&] {
            // The oldest files count their scans in the first scan block.
            if (project.PropellerScanCount() == 0 && file.ReadBlock("Propeller1", reader.path) == 1) {
                SetScanCountFromFile(
                    reader, project, -1,
                    file.GetFloatFromBlockTag("PropellerScanCount", reader.errorFlag, reader.errorText),
                    "PropellerScanCount");
            }
            project.SetProjectScanCount(std::max(project.ProjectScanCount(), project.PropellerScanCount()));
        })) {
        return ReadOutcome::Abandoned;
    }
    for (int i = 1; i <= project.PropellerScanCount(); ++i) {
        std::shared_ptr<clsPropeller> scan;
        if (!tail.Step([&] { scan = project.PropellerScan(i - 1); })) {
            return ReadOutcome::Abandoned;
        }
        const ReadOutcome outcome = ReadScanBlocks(reader, TesselbyScanRules(), i, *scan);
        if (outcome != ReadOutcome::Continue) {
            return outcome;
        }
    }
    if (!tail.Step([&] {
            RepairInnerRadius(project, *gISO484);
            ApplyInnerRadiusRow(*gISO484);
            found = file.ReadBlock("ReferencePropellerInfo", reader.path) == 1;
            if (found) {
                ReadReferenceSettings(reader);
            }
        })) {
        return ReadOutcome::Abandoned;
    }
    if (!found) {
        AddMissingBlock(reader.errorFlag, reader.errorText, "ReferencePropellerInfo");
        return ReadOutcome::FailureExit;
    }
    const int read = schema >= 2 ? ReadReferenceBlocks(reader.path, *project.ReferenceSource(),
                                                       reader.errorFlag, reader.errorText)
                                 : ReadLegacyReferenceBlocks(reader.path, reader.errorFlag, reader.errorText);
    if (read == 0) {
        return ReadOutcome::FailureExit;
    }
    // The sibling product's reference paths mean nothing to this one.
    project.SetReferenceSourceFilePath("");
    return ReadOutcome::Continue;
}

} // namespace

FileReadResult ReadTesselbyFile(const std::string& path) {
    return RunFileRead(path, "reading the TBSC file from disk",
                       [&](BlockReader& reader) { return ReadTesselbyBlocks(reader); });
}

int ReadLegacyProjectBlocks(clsFileINI& file, const std::string& path, int /*schemaVersion*/, bool& errorFlag,
                            std::string& errorText, std::vector<Notice>& notices) {
    ErrorTail tail("reading the legacy project blocks");
    const auto missing = [&](const std::string& block) {
        AddMissingBlock(errorFlag, errorText, block);
        notices.push_back({"Legacy file read notice", errorText, MsgBox::OKOnly | MsgBox::Critical});
        return 0;
    };
    bool found = false;
    if (!tail.Step([&] {
            RequireProjectGlobals();
            found = file.ReadBlock("Units", path) == 1;
            if (found) {
                gUnits->SetPropLengthIndex(
                    file.GetIndexFromBlockTag("PropLength", PropLengthWords(), errorFlag, errorText));
                gUnits->SetPropLengthFormat(
                    file.GetStringFromBlockTag("PropLengthFormat", errorFlag, errorText));
            }
        })) {
        return 0;
    }
    if (!found) {
        return missing("Units");
    }
    clsCorvane& project = *gProject;
    if (!tail.Step([&] {
            found = file.ReadBlock("RepairShopInfo", path) == 1;
            if (found) {
                std::string id = file.GetStringFromBlockTag("ProjectID", errorFlag, errorText);
                project.SetProjectID(id.empty() ? StemOf(path) : id);
                project.SetRepairShop(file.GetStringFromBlockTag("RepairShop", errorFlag, errorText));
                project.SetInspector(file.GetStringFromBlockTag("Inspector", errorFlag, errorText));
                project.SetNotes(file.GetStringFromBlockTag("Notes", errorFlag, errorText));
            }
        })) {
        return 0;
    }
    if (!found) {
        return missing("RepairShopInfo");
    }
    if (!tail.Step([&] {
            found = file.ReadBlock("ClientInfo", path) == 1;
            if (found) {
                project.SetCustomer(file.GetStringFromBlockTag("Customer", errorFlag, errorText));
                project.SetVessel(file.GetStringFromBlockTag("Vessel", errorFlag, errorText));
                project.SetJobNumber(file.GetStringFromBlockTag("JobNumber", errorFlag, errorText));
            }
        })) {
        return 0;
    }
    if (!found) {
        return missing("ClientInfo");
    }
    return 1;
}

} // namespace corvane
