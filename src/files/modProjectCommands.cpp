#include "files/modProjectCommands.h"

#include "files/TextEncoding.h"
#include "files/modLockFile.h"
#include "files/modProjectFile.h"
#include "files/modSettings.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"
#include "model/modReferenceSource.h"
#include "support/ErrorTail.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <algorithm>
#include <memory>

namespace corvane {

namespace {

const char* const kCRLF = "\r\n";

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos)
        return {};
    const auto last = text.find_last_not_of(" \t\r\n");
    return text.substr(first, last - first + 1);
}

std::string Digits(int value, int width) {
    std::string text = std::to_string(value);
    while (static_cast<int>(text.size()) < width)
        text.insert(text.begin(), '0');
    return text;
}

bool RootDirectoryDefined() {
    if (!Trimmed(gRootDirectory).empty())
        return true;
    Prompts().MessageBox(
        "You must define the Project Directory before saving. Review your Directory settings "
        "and try again.",
        MsgBox::Critical, "Directory Error");
    return false;
}

// Clears the dirty flag, locks and writes; the wait cursor shows meanwhile.
int WriteProjectUnderLock(ProjectCommandHost& host) {
    host.SetWaitCursor(true);
    gProjectDirty = false;
    const std::string path = CurrentProjectPath();
    WriteLockFile(path);
    const int result = WriteProjectFile(path);
    host.SetWaitCursor(false);
    return result;
}

} // namespace

ProjectFieldCheck CheckProjectFields(const clsCorvane& project, const clsISO484& iso) {
    ProjectFieldCheck check;
    check.customer = !Trimmed(project.Customer()).empty();
    check.projectID = !Trimmed(project.ProjectID()).empty();
    check.diameter = project.MarkedDiameter() > 0;
    check.pitch = !project.MarkedPitch().empty();
    if (iso.ISOIncludeInnerRadiusIndex() == 1)
        check.innerRadius = iso.ISOInnerRadius() >= 1.0 && iso.ISOInnerRadius() < 40.0;
    return check;
}

std::string CurrentProjectPath() {
    return AddFolderSeparator(gRootDirectory) + gProjectFileName;
}

std::string NewProjectFileName() {
    // Ten characters, not bytes: an ID with accented letters keeps its length and never ends
    // in half a character.
    std::string id = gProject ? std::string(FirstCharacters(gProject->ProjectID(), 10)) : std::string();
    for (char& c : id) {
        if (static_cast<unsigned char>(c) < 32 ||
            std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos)
            c = '_';
    }
    const DateTime now = Clock().Now();
    return id + "_" + Digits(now.year, 4) + Digits(now.month, 2) + Digits(now.day, 2) + "_" +
           Digits(now.hour, 2) + Digits(now.minute, 2) + Digits(now.second, 2) + ".cvpj";
}

int CreateNewProject() {
    ErrorTail tail("creating new project");
    tail.Step([] { RemoveLockFile(CurrentProjectPath()); });
    tail.Step([] {
        gUnits = std::make_shared<clsUnits>();
        gProject = std::make_shared<clsCorvane>();
        gISO484 = std::make_shared<clsISO484>();
    });
    tail.Step([] {
        gProject->SetActiveScanIndex(0);
        ActiveBlade = 0;
        ActiveRadius = 0;
        CompareScanIndex = -1;
        gRadialPositions = kStandardRadialPositions;
    });
    tail.Step([] { ReadDefaultOptions(); });
    tail.Step([] {
        gProject->SetLinkedClasses(gUnits);
        gISO484->SetLinkedClasses(gUnits);
        gProjectFileName = kUntitledFileName;
        gUnits->SetPropLengthIndex(gDefaultPropLengthIndex);
        gProject->SetRepairShop(gRepairShopName);
        gProject->SetInspector(gDefaultInspector);
        gProject->SetManufacturer(gDefaultManufacturer);
        gProject->SetBladeCount(4);
        gProject->SetPropellerScanCount(0);
        gProject->SetProjectScanCount(0);
        gProject->SetReferenceSourceIndex(kReferenceNone);
        gProject->SetReferenceScanBladesEnabled(0, 1);
    });
    tail.Step([] {
        // The switches derived from the options were set when the options were read.
        ZoomActive = false;
        gPitchIgnoreTrack = true;
        gScanOrderMode = 0;
        gProjectDirty = false;
        gShowRadiusFlags.fill(false);
        gISORadiusFlags.fill(false);
        gShowBladeFlags.fill(false);
    });
    tail.Step([] {
        gProject->SetReferenceSectionPitchSourceIndex(1);
        gProject->SetReferenceConstantPitch(0);
        for (int row = 0; row < 8; ++row) {
            gProject->SetReferenceVariablePitch(row, 0);
            gProject->SetReferenceVariablePitchRadialPos(row, 0);
        }
        gProject->SetInternalScanSourceIndex(0);
    });
    return tail.Failed() ? 0 : 1;
}

int OpenProjectFile(const std::string& path) {
    CreateNewProject();
    const FileReadResult read = ReadProjectFile(path);
    ShowNotices(read.notices);
    if (!read.Usable()) {
        Prompts().MessageBox("An error occurred reading the file. Please check the file data and try again.",
                             MsgBox::Critical, "File read error");
        CreateNewProject();
        return 0;
    }
    gProjectFileName = FileNameOf(path);
    std::string user, computer;
    if (IsFileLocked(path, user, computer)) {
        Prompts().MessageBox(
            "\"" + gProjectFileName + "\"" + kCRLF + kCRLF + "File is currently in use by user \"" + user +
                "\" on computer \"" + computer + "\"." + kCRLF + kCRLF +
                "You will need to use \"Save As\"and enter a new Project ID to save changes.",
            MsgBox::Exclamation, "File in Use");
        gProjectFileName = kReadOnlyUntitledFileName;
    } else {
        WriteLockFile(path);
    }
    return 1;
}

int SaveProject(ProjectCommandHost& host) {
    if (!RootDirectoryDefined())
        return 0;
    if (!gProject || !gISO484 || !CheckProjectFields(*gProject, *gISO484).AllHold()) {
        Prompts().MessageBox(
            "The project requires a valid Customer, Project ID, Diameter, and Pitch. Please review "
            "these fields before saving the file.",
            MsgBox::Critical, "File save error");
        host.ShowProjectPage();
        return 0;
    }
    if (gProjectFileName == kReadOnlyUntitledFileName) {
        Prompts().MessageBox(std::string("The file is currently open in Read-Only mode.") + kCRLF + kCRLF +
                                 "You must use \"Save As\"and enter a new Project ID to save changes.",
                             MsgBox::Exclamation, "Read-Only File");
        return 0;
    }
    if (gProjectFileName == kUntitledFileName)
        gProjectFileName = NewProjectFileName();
    if (gProjectFileName.empty() || gProjectFileName == "untitled.tbsc")
        return SaveProjectAs(host);
    return WriteProjectUnderLock(host);
}

int SaveProjectAs(ProjectCommandHost& host) {
    if (!RootDirectoryDefined())
        return 0;
    const bool diameterMissing = !(gProject->MarkedDiameter() > 0);
    const bool customerMissing = Trimmed(gProject->Customer()).empty();
    host.MarkSaveAsFields(diameterMissing, customerMissing);
    if (diameterMissing || customerMissing) {
        host.ShowProjectPage();
        Prompts().MessageBox("The required data must be entered before saving your file.", MsgBox::Critical,
                             "Save As...");
        return 0;
    }
    const std::string oldID = gProject->ProjectID();
    const std::string oldName = gProjectFileName;
    host.AskNewProjectID();
    const std::string newName = NewProjectFileName();

    std::string refusal;
    std::string user, computer;
    if (gProject->ProjectID() == oldID)
        refusal = "The project ID must be unique, the file will not be saved.";
    else if (gProject->ProjectID().empty())
        refusal = "The project ID must be defined, the file will not be saved.";
    else if (newName == oldName)
        refusal = "The file already exists. Try saving again with a different Project ID. The file will not "
                  "be saved.";
    else if (IsFileLocked(AddFolderSeparator(gRootDirectory) + newName, user, computer))
        refusal = "The selected file is already open on another computer. The file will not be saved.";
    if (!refusal.empty()) {
        gProject->SetProjectID(oldID);
        gProjectFileName = oldName;
        Prompts().MessageBox(refusal, MsgBox::Critical, "Save As Error");
        return 0;
    }
    gProjectFileName = newName;
    return WriteProjectUnderLock(host);
}

} // namespace corvane
