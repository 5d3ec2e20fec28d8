#include "files/modProjectFile.h"

#include "files/clsFileINI.h"
#include "files/modPPPFile.h"
#include "files/modProjectBlockReader.h"
#include "files/modProjectFileSupport.h"
#include "files/modReferenceFile.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/NumberText.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"

#include <algorithm>
#include <filesystem>

namespace corvane {

using namespace projectfile;

namespace {

const ScanBlockRules& RightScanRules() {
    static const ScanBlockRules rules{
        "RightPropeller", MissingScanBlock::NoticeAndGoOn, 2, true, true, false};
    return rules;
}

const ScanBlockRules& LeftScanRules() {
    static const ScanBlockRules rules{
        "LeftPropeller", MissingScanBlock::NoticeAndFail, 1, false, true, false};
    return rules;
}

// The schema of a file: the leading number of the SchemaVersion tag, 0 when there is none.
double SchemaOf(BlockReader& reader) {
    return ParseLeadingNumber(
        reader.file.GetStringFromBlockTag("SchemaVersion", reader.errorFlag, reader.errorText));
}

void ReadProjectTags(BlockReader& reader) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    clsCorvane& project = *gProject;
    gUnits->SetPropLengthIndex(file.GetIndexFromBlockTag("PropLength", PropLengthWords(), flag, text));
    project.SetProjectID(file.GetStringFromBlockTag("ProjectID", flag, text));
    project.SetRepairShop(file.GetStringFromBlockTag("RepairShop", flag, text));
    project.SetInspector(file.GetStringFromBlockTag("Inspector", flag, text));
    project.SetNotes(PipesToLineBreaks(file.GetStringFromBlockTag("Notes", flag, text)));
    project.SetJobNotes(PipesToLineBreaks(file.GetStringFromBlockTag("JobNotes", flag, text)));
    project.SetCustomer(file.GetStringFromBlockTag("Customer", flag, text));
    project.SetVessel(file.GetStringFromBlockTag("Vessel", flag, text));
    project.SetJobNumber(file.GetStringFromBlockTag("JobNumber", flag, text));
}

void ReadScanCounts(BlockReader& reader) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    clsCorvane& project = *gProject;
    // Filed as floats and set through the setters: a count of 0 leaves the new project's 0.
    SetScanCountFromFile(reader, project, 0, file.GetFloatFromBlockTag("RightScanCount", flag, text),
                         "RightScanCount");
    SetScanCountFromFile(reader, project, 1, file.GetFloatFromBlockTag("LeftScanCount", flag, text),
                         "LeftScanCount");
    project.SetProjectScanCount(CountFromFloat(file.GetFloatFromBlockTag("ProjectScanCount", flag, text)));
    project.SetActiveRightScanIndex(file.GetIntegerFromBlockTag("ActiveRightScanIndex", flag, text));
    project.SetActiveLeftScanIndex(file.GetIntegerFromBlockTag("ActiveLeftScanIndex", flag, text));
}

ReadOutcome ReadScanSet(BlockReader& reader, int rotation) {
    const ScanBlockRules& rules = rotation == 0 ? RightScanRules() : LeftScanRules();
    clsCorvane& project = *gProject;
    const int count = rotation == 0 ? project.RightScanCount() : project.LeftScanCount();
    for (int i = 1; i <= count; ++i) {
        std::shared_ptr<clsPropeller> scan;
        if (!reader.tail.Step(
                [&] { scan = rotation == 0 ? project.RightScan(i - 1) : project.LeftScan(i - 1); })) {
            return ReadOutcome::Abandoned;
        }
        const ReadOutcome outcome = ReadScanBlocks(reader, rules, i, *scan);
        if (outcome != ReadOutcome::Continue) {
            return outcome;
        }
    }
    return ReadOutcome::Continue;
}

// The variable pitch table is matched to the standard stations by value: a filed position
// within 0.001 of a station gives that row its pitch; other positions are dropped.
void ReadVariablePitchTable(BlockReader& reader) {
    clsCorvane& project = *gProject;
    std::vector<double> positions;
    std::vector<double> pitches;
    reader.file.GetFloatArrayFromBlockTag("ReferenceVariablePitchRadialPos", positions, reader.errorFlag,
                                          reader.errorText);
    reader.file.GetFloatArrayFromBlockTag("ReferenceVariablePitch", pitches, reader.errorFlag,
                                          reader.errorText);
    const int rows =
        std::min<int>(project.ReferenceVariablePitchCount(), static_cast<int>(gRadialPositions.size()));
    for (int row = 0; row < rows; ++row) {
        const double station = gRadialPositions[static_cast<std::size_t>(row)];
        project.SetReferenceVariablePitchRadialPos(row, station);
        project.SetReferenceVariablePitch(row, 0.0);
        project.SetReferenceVariablePitchEnabled(row, false);
        if (positions.size() != pitches.size()) {
            continue;
        }
        for (std::size_t e = 0; e < positions.size(); ++e) {
            if (CompareDouble(positions[e], kCompareEqual, station, 0.001)) {
                project.SetReferenceVariablePitch(row, pitches[e]);
                project.SetReferenceVariablePitchEnabled(row, true);
            }
        }
    }
}

void ReadReferenceSettings(BlockReader& reader, double schema) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    clsCorvane& project = *gProject;
    project.SetReferenceSourceIndex(
        file.GetIndexFromBlockTag("ReferenceSource", ReferenceSourceWords(), flag, text));
    project.SetReferenceSourceFilePath(file.GetStringFromBlockTag("ReferenceSourceFilePath", flag, text));
    if (schema >= 1) {
        project.SetInternalScanSourceIndex(
            file.GetIndexFromBlockTag("InternalScanSourceIndex", InternalScanSourceWords(), flag, text));
        project.SetInternalScanIndex(file.GetIntegerFromBlockTag("InternalScanIndex", flag, text));
    } else {
        project.SetInternalScanSourceIndex(0);
        project.SetInternalScanIndex(project.ActiveScanIndex());
    }
    // Older files name fewer blades: read apart, so that they draw no notice.
    bool ownFlag = false;
    std::string ownText;
    bool anyEnabled = false;
    const int blades = std::min<int>(project.BladeCount(), 7);
    for (int n = 1; n <= blades; ++n) {
        const std::int16_t on = file.GetIndexFromBlockTag("ReferenceIncludeBlade" + std::to_string(n),
                                                          OffOnWords(), ownFlag, ownText);
        project.SetReferenceScanBladesEnabled(n - 1, on);
        anyEnabled = anyEnabled || on == 1;
    }
    if (!anyEnabled) {
        project.SetReferenceScanBladesEnabled(0, 1);
    }
    project.SetReferenceSectionPitchIndex(
        file.GetIndexFromBlockTag("ReferenceSectionPitch", ReferenceSectionPitchWords(), flag, text));
    project.SetReferenceLocalPitchIndex(
        file.GetIndexFromBlockTag("ReferenceLocalPitch", ReferenceLocalPitchWords(), flag, text));
    if (schema >= 2) {
        project.SetReferenceSectionPitchSourceIndex(file.GetIndexFromBlockTag(
            "ReferenceSectionPitchSource", ReferenceSectionPitchSourceWords(), flag, text));
    } else {
        project.SetReferenceSectionPitchSourceIndex(0);
    }
    project.SetReferenceDiameter(file.GetFloatFromBlockTag("ReferenceDiameter", flag, text));
    project.SetReferenceConstantPitch(file.GetFloatFromBlockTag("ReferenceConstantPitch", flag, text));
    // ReferenceVariablePitchCount is not read: the table keeps its own count of rows.
    ReadVariablePitchTable(reader);
}

// An external reference overrides the copy in the project whenever it can be read; the read
// goes to a copy, so that a failed one leaves the embedded reference whole.
void RefreshExternalReference(BlockReader& reader) {
    clsCorvane& project = *gProject;
    const std::string referencePath = project.ReferenceSourceFilePath();
    std::error_code ec;
    bool refreshed = false;
    if (!referencePath.empty() && std::filesystem::is_regular_file(referencePath, ec)) {
        const std::string extension = LowerExtension(referencePath);
        if (extension == "cvrf" || extension == "ppp") {
            // A ppp file is taken only whole; its surfaces are built when the reference is.
            const std::shared_ptr<clsPropeller> copy = project.ReferenceSource()->CopyClass();
            refreshed =
                extension == "cvrf"
                    ? ReadReferenceBlocks(referencePath, *copy, reader.errorFlag, reader.errorText) == 1
                    : ReadPPPFile(referencePath, *copy, project.BladeCount()).status == PPPReadStatus::Read;
            if (refreshed) {
                project.SetReferenceSource(copy);
            }
        }
    }
    if (!refreshed) {
        project.SetReferenceSourceFilePath(BareFileName(referencePath));
    }
}

ReadOutcome ReadProjectBlocks(BlockReader& reader) {
    clsFileINI& file = reader.file;
    ErrorTail& tail = reader.tail;
    double schema = 0;
    bool found = false;
    // A file without the Project block reads as schema 0 with empty job data.
    if (!tail.Step([&] {
            RequireProjectGlobals();
            file.ReadBlock("Project", reader.path);
            schema = SchemaOf(reader);
            ReadProjectTags(reader);
        })) {
        return ReadOutcome::Abandoned;
    }
    if (!tail.Step([&] {
            found = file.ReadBlock("PropellerInfo", reader.path) == 1;
            if (found) {
                ReadPropellerInfoTags(reader, *gProject, *gISO484, false);
                ReadScanCounts(reader);
            }
        })) {
        return ReadOutcome::Abandoned;
    }
    if (!found) {
        return ReadOutcome::FailureExit;
    }
    for (const int rotation : {0, 1}) {
        const ReadOutcome outcome = ReadScanSet(reader, rotation);
        if (outcome != ReadOutcome::Continue) {
            return outcome;
        }
    }
    if (!tail.Step([&] {
            RepairInnerRadius(*gProject, *gISO484);
            ApplyInnerRadiusRow(*gISO484);
            found = file.ReadBlock("ReferencePropellerInfo", reader.path) == 1;
            if (found) {
                ReadReferenceSettings(reader, schema);
            }
        })) {
        return ReadOutcome::Abandoned;
    }
    if (!found) {
        AddMissingBlock(reader.errorFlag, reader.errorText, "ReferencePropellerInfo");
        return ReadOutcome::FailureExit;
    }
    // The reference blocks of this same file, in the present form or else the legacy one.
    if (ReadReferenceBlocks(reader.path, *gProject->ReferenceSource(), reader.errorFlag, reader.errorText) ==
            0 &&
        ReadLegacyReferenceBlocks(reader.path, reader.errorFlag, reader.errorText) == 0) {
        return ReadOutcome::FailureExit;
    }
    if (!tail.Step([&] { RefreshExternalReference(reader); })) {
        return ReadOutcome::Abandoned;
    }
    return ReadOutcome::Continue;
}

} // namespace

FileReadResult ReadProjectFile(const std::string& path) {
    return RunFileRead(path, "reading the cvpj file from disk",
                       [&](BlockReader& reader) { return ReadProjectBlocks(reader); });
}

int ReadProjectHeader(const std::string& path, std::string& projectID, std::string& lastModified,
                      std::string& customer, double& markedDiameter, std::string& markedPitch,
                      std::int16_t& bladeCount, std::int16_t& classIndex, std::int16_t& propLengthIndex) {
    // The library lists many files: a broken one is skipped without a word.
    try {
        clsFileINI file;
        bool flag = false;
        std::string text;
        if (file.ReadBlock("Project", path) == 0) {
            return 0;
        }
        lastModified = file.GetStringFromBlockTag("LastModified", flag, text);
        propLengthIndex = file.GetIndexFromBlockTag("PropLength", PropLengthWords(), flag, text);
        projectID = file.GetStringFromBlockTag("ProjectID", flag, text);
        customer = file.GetStringFromBlockTag("Customer", flag, text);
        if (file.ReadBlock("PropellerInfo", path) == 0) {
            return 0;
        }
        markedDiameter = file.GetFloatFromBlockTag("MarkedDiameter", flag, text);
        markedPitch = file.GetStringFromBlockTag("MarkedPitch", flag, text);
        bladeCount = file.GetIntegerFromBlockTag("BladeCount", flag, text);
        classIndex = file.GetIndexFromBlockTag("ClassIndex", ISOClassWords(), flag, text);
        return 1;
    } catch (...) {
        return 0;
    }
}

bool HoldsProjectBlocks(const std::string& path) {
    try {
        clsFileINI file;
        return file.ReadBlock("Project", path) != 0 || file.ReadBlock("PropellerInfo", path) != 0;
    } catch (...) {
        return false;
    }
}

} // namespace corvane
