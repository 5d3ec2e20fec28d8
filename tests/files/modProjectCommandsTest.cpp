#include "ProjectFileTestSupport.h"

#include "files/modLockFile.h"
#include "files/modProjectCommands.h"
#include "files/modProjectFile.h"
#include "model/Globals.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

// Records what the save commands asked of the window, and plays the Project ID dialog.
class RecordingHost : public ProjectCommandHost {
public:
    std::optional<std::string> newID; // typed into the dialog; nullopt: Cancel
    int projectPageShown = 0;
    int dialogShown = 0;
    bool diameterMarked = false, customerMarked = false;
    std::vector<bool> cursor;

    void MarkSaveAsFields(bool diameterMissing, bool customerMissing) override {
        diameterMarked = diameterMissing;
        customerMarked = customerMissing;
    }
    void ShowProjectPage() override { ++projectPageShown; }
    void AskNewProjectID() override {
        ++dialogShown;
        if (newID)
            gProject->SetProjectID(*newID);
    }
    void SetWaitCursor(bool wait) override { cursor.push_back(wait); }
};

class modProjectCommandsTest : public test::ProjectFileTest {
protected:
    void SetUp() override {
        ProjectFileTest::SetUp();
        library = temp->Folder() + "library";
        fs::create_directories(library);
        settings.SetValue("Software\\Corvane\\DefaultOptions", "RootDirectory", library);
        settings.SetValue("Software\\Corvane\\DefaultOptions", "ArchiveDirectory",
                          temp->Folder() + "archive");
        settings.SetValue("Software\\Corvane\\DefaultOptions", "RepairShopName", "Harbour Props");
        settings.SetValue("Software\\Corvane\\DefaultOptions", "RepairShopInspector", "J. Smith");
        settings.SetValue("Software\\Corvane\\DefaultOptions", "PropLengthIndex", "mm");
        ASSERT_EQ(CreateNewProject(), 1);
    }
    void FillRequired() {
        gProject->SetCustomer("Atlantic Tug");
        gProject->SetProjectID("TUG-2026-0417-A");
        gProject->SetMarkedDiameter(1850);
        gProject->SetMarkedPitch("1400");
    }
    std::string InLibrary(const std::string& name) const { return (fs::path(library) / name).string(); }

    std::string library;
    RecordingHost host;
};

TEST_F(modProjectCommandsTest, NewProjectTakesTheStationDefaultsAndDropsTheOldLock) {
    EXPECT_EQ(gProject->RepairShop(), "Harbour Props");
    EXPECT_EQ(gProject->Inspector(), "J. Smith");
    EXPECT_EQ(gUnits->PropLengthIndex(), 3);
    EXPECT_EQ(gProject->ReferenceSectionPitchSourceIndex(), 1);

    gProjectFileName = "old.cvpj";
    WriteLockFile(InLibrary("old.cvpj"));
    gProjectDirty = true;
    gScanOrderMode = 1;
    gRadialPositions[7] = 0.25;
    ASSERT_EQ(CreateNewProject(), 1);
    EXPECT_FALSE(fs::exists(InLibrary("old.cvpj.lck")));
    EXPECT_FALSE(gProjectDirty);
    EXPECT_EQ(gScanOrderMode, 0);
    EXPECT_DOUBLE_EQ(gRadialPositions[7], 0.3);
}

TEST_F(modProjectCommandsTest, SaveRefusesWithoutLibraryFieldsOrWritableName) {
    gRootDirectory.clear();
    prompts.Expect(Answer::OK, "You must define the Project Directory before saving.");
    EXPECT_EQ(SaveProject(host), 0);
    EXPECT_EQ(prompts.History().back().title, "Directory Error");

    gRootDirectory = library;
    prompts.Expect(Answer::OK, "The project requires a valid Customer, Project ID, Diameter, and Pitch.");
    EXPECT_EQ(SaveProject(host), 0);
    EXPECT_EQ(host.projectPageShown, 1);

    FillRequired();
    gProjectFileName = "~untitled.cvpj";
    prompts.Expect(Answer::OK);
    EXPECT_EQ(SaveProject(host), 0);
    EXPECT_EQ(prompts.History().back().text,
              "The file is currently open in Read-Only mode.\r\n\r\nYou must use "
              "\"Save As\"and enter a new Project ID to save changes.");
    EXPECT_TRUE(fs::is_empty(library));
}

TEST_F(modProjectCommandsTest, FirstSaveNamesTheFileAndLaterSavesKeepTheName) {
    FillRequired();
    gProjectDirty = true;
    ASSERT_EQ(SaveProject(host), 1);
    const std::string name = "TUG-2026-0_20261122_090507.cvpj";
    EXPECT_EQ(gProjectFileName, name);
    EXPECT_TRUE(fs::exists(InLibrary(name + ".lck")));
    EXPECT_EQ(host.cursor, (std::vector<bool>{true, false}));

    clock.Set(DateTime{2026, 11, 22, 9, 30, 7});
    gProject->SetVessel("Second save");
    ASSERT_EQ(SaveProject(host), 1);
    EXPECT_EQ(gProjectFileName, name);
    EXPECT_EQ(std::distance(fs::directory_iterator(library), fs::directory_iterator()), 2);
}

TEST_F(modProjectCommandsTest, NewNamesTakeTheFirstTenCharactersOfTheId) {
    // Accented letters take two bytes and the euro sign three: none is ever cut in half.
    const std::pair<std::string, std::string> cases[] = {
        {"TUG-2026-0417-A", "TUG-2026-0"},
        {"Müller-Überseeschiff", "Müller-Übe"},
        {"ÅÄÖåäöüßéèX", "ÅÄÖåäöüßéè"},
        {"€€€€€€€€€€€", "€€€€€€€€€€"},
    };
    for (const auto& [id, start] : cases) {
        gProject->SetProjectID(id);
        EXPECT_EQ(NewProjectFileName(), start + "_20261122_090507.cvpj") << id;
    }
}

TEST_F(modProjectCommandsTest, SaveAsRefusalsPutTheIdAndNameBack) {
    FillRequired();
    gProjectFileName = "TUG_old.cvpj";
    struct Case {
        std::optional<std::string> typed;
        std::string message;
    };
    // The file a new ID would get is locked by another station.
    WriteFileAtomically(InLibrary("LOCKED_20261122_090507.cvpj.lck"), "UserName=ann\r\nComputerName=B2\r\n");
    const Case cases[] = {
        {std::nullopt, "The project ID must be unique, the file will not be saved."},
        {std::string(), "The project ID must be defined, the file will not be saved."},
        {"LOCKED", "The selected file is already open on another computer. The file will not be saved."},
    };
    for (const auto& c : cases) {
        host.newID = c.typed;
        prompts.Expect(Answer::OK, c.message);
        EXPECT_EQ(SaveProjectAs(host), 0);
        EXPECT_EQ(prompts.History().back().title, "Save As Error");
        EXPECT_EQ(gProject->ProjectID(), "TUG-2026-0417-A");
        EXPECT_EQ(gProjectFileName, "TUG_old.cvpj");
    }
    // Same first ten characters in the same second: the same name as the file already open.
    gProjectFileName = "TUG-2026-0_20261122_090507.cvpj";
    host.newID = "TUG-2026-0417-B";
    prompts.Expect(Answer::OK, "The file already exists. Try saving again with a different Project ID.");
    EXPECT_EQ(SaveProjectAs(host), 0);
    EXPECT_EQ(gProject->ProjectID(), "TUG-2026-0417-A");
}

TEST_F(modProjectCommandsTest, SaveAsNeedsDiameterAndCustomerThenWritesANewFile) {
    prompts.Expect(Answer::OK, "The required data must be entered before saving your file.");
    EXPECT_EQ(SaveProjectAs(host), 0);
    EXPECT_TRUE(host.diameterMarked && host.customerMarked);
    EXPECT_EQ(host.dialogShown, 0);

    FillRequired();
    ASSERT_EQ(SaveProject(host), 1);
    const std::string first = gProjectFileName;
    host.newID = "Re:pair/7";
    clock.Set(DateTime{2026, 11, 22, 9, 5, 9});
    ASSERT_EQ(SaveProjectAs(host), 1);
    EXPECT_FALSE(host.diameterMarked);
    EXPECT_EQ(gProjectFileName, "Re_pair_7_20261122_090509.cvpj");
    // The first file keeps its lock until a new project or the end of the program removes it.
    EXPECT_TRUE(fs::exists(InLibrary(first + ".lck")));
}

TEST_F(modProjectCommandsTest, OpeningALockedProjectIsReadOnlyAndSaveRefuses) {
    FillRequired();
    ProjectCommandHost plain; // a host of no window, as a second program's
    ASSERT_EQ(SaveProject(plain), 1);
    const std::string path = InLibrary(gProjectFileName);
    const std::string name = gProjectFileName;
    const std::string saved = test::FileBytes(path);

    // Another station, with its own new project, opens it while this one holds the lock.
    gProjectFileName = "untitled.cvpj";
    environment.userName = "ann";
    environment.computerName = "BENCH2";
    prompts.Expect(Answer::OK);
    ASSERT_EQ(OpenProjectFile(path), 1);
    EXPECT_EQ(prompts.History().back().title, "File in Use");
    EXPECT_EQ(prompts.History().back().text,
              "\"" + name +
                  "\"\r\n\r\nFile is currently in use by user \"tech\" on computer \"STATION1\".\r\n\r\n"
                  "You will need to use \"Save As\"and enter a new Project ID to save changes.");
    EXPECT_EQ(gProjectFileName, "~untitled.cvpj");
    prompts.Expect(Answer::OK, "The file is currently open in Read-Only mode.");
    EXPECT_EQ(SaveProject(host), 0);
    EXPECT_EQ(test::FileBytes(path), saved);

    // Once the lock is gone the project opens for writing and takes this station's lock.
    RemoveLockFile(path);
    ASSERT_EQ(OpenProjectFile(path), 1);
    EXPECT_EQ(gProjectFileName, name);
    std::string user, computer;
    ASSERT_TRUE(IsFileLocked(path, user, computer));
    EXPECT_EQ(user, "ann");
}

TEST_F(modProjectCommandsTest, AFileThatCannotBeReadLeavesANewProject) {
    const std::string path = InLibrary("broken.cvpj");
    WriteFileAtomically(path, "not a project");
    gProject->SetCustomer("Left behind");
    prompts.SetAnswerFreely(true); // the reader's own notice may come first
    EXPECT_EQ(OpenProjectFile(path), 0);
    EXPECT_EQ(prompts.History().back().title, "File read error");
    EXPECT_EQ(gProject->Customer(), "");
    EXPECT_FALSE(fs::exists(path + ".lck"));
}

} // namespace
} // namespace corvane
