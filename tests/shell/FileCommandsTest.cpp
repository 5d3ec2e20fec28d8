#include "WindowTestSupport.h"
#include "common/ReadShown.h"

#include "acquisition/DemoProject.h"
#include "check/CheckRun.h"
#include "files/modLockFile.h"
#include "iso484/clsISO484.h"
#include "library/LibraryTestProjects.h"
#include "model/clsCorvane.h"
#include "shell/FileCommands.h"

#include <QStatusBar>

namespace corvane {
namespace {

namespace fs = std::filesystem;

// The name the first save gives: ID, date and time of the fixed clock.
constexpr const char* kSavedName = "TUG-0417_20261122_090507.cvpj";

class FileCommandsTest : public test::WindowTest {
protected:
    std::vector<std::string> FilterCaptions(std::size_t request) const {
        std::vector<std::string> captions;
        for (const FileFilter& filter : dialogs.requests.at(request).filters) {
            captions.push_back(filter.description);
        }
        return captions;
    }

    // A project file somewhere outside the library, written by the program itself.
    std::string WriteSample(const std::string& name, const std::string& customer) {
        FillRequiredFields("SAMPLE-1", customer);
        const std::string path = temp->File(name);
        EXPECT_EQ(WriteProjectFile(path), 1);
        EXPECT_EQ(CreateNewProject(), 1);
        return path;
    }
};

TEST_F(FileCommandsTest, NewSaveAndSaveAsRoundTripThroughTheLibrary) {
    window->mnuFileNew_Click();
    EXPECT_TRUE(prompts.History().empty()); // nothing to save yet
    FillRequiredFields();
    gProjectDirty = true;

    EXPECT_EQ(window->mnuFileSave_Click(), 1);
    EXPECT_FALSE(gProjectDirty);
    EXPECT_EQ(Title(), "Corvane [Shop] - TUG-0417 - Atlantic Tug");

    nextProjectID = "TUG-0418";
    EXPECT_EQ(window->Files().mnuFileSaveAs_Click(), 1);
    EXPECT_EQ(gProjectFileName, "TUG-0418_20261122_090507.cvpj");
    EXPECT_EQ(Title(), "Corvane [Shop] - TUG-0418 - Atlantic Tug");
    EXPECT_TRUE(fs::exists(InLibrary(kSavedName))); // the first file stays
}

TEST_F(FileCommandsTest, QuerySaveAnswers) {
    FillRequiredFields();
    gProjectDirty = true;

    // Cancel: the new project is not made.
    prompts.Expect(Answer::Cancel, "Would you like to save the changes to the Project?");
    window->mnuFileNew_Click();
    EXPECT_EQ(prompts.History().back().title, "Save Project?");
    EXPECT_EQ(prompts.History().back().style & MsgBox::ButtonsMask, MsgBox::YesNoCancel);
    EXPECT_EQ(gProject->ProjectID(), "TUG-0417");
    EXPECT_TRUE(gProjectDirty);

    // Yes: saved, then replaced.
    prompts.Expect(Answer::Yes, "Would you like to save");
    window->mnuFileNew_Click();
    EXPECT_TRUE(fs::exists(InLibrary(kSavedName)));
    EXPECT_EQ(gProject->ProjectID(), "");
    EXPECT_EQ(gProjectFileName, kUntitledFileName);
    EXPECT_FALSE(gProjectDirty);

    // No: replaced without a save.
    FillRequiredFields("TUG-0500");
    gProjectDirty = true;
    prompts.Expect(Answer::No, "Would you like to save");
    window->mnuFileNew_Click();
    EXPECT_EQ(gProject->ProjectID(), "");
    EXPECT_EQ(std::distance(fs::directory_iterator(library), fs::directory_iterator()), 1);
}

TEST_F(FileCommandsTest, ReadOnlyProjectRefusesSaveAndKeepsItsChanges) {
    FillRequiredFields();
    gProjectFileName = kReadOnlyUntitledFileName;
    gProjectDirty = true;
    // Yes to the question whose save is refused counts as Cancel: New leaves the project.
    prompts.Expect(Answer::Yes, "Would you like to save");
    prompts.Expect(Answer::OK, "Read-Only mode");
    EXPECT_EQ(window->QuerySave(), Answer::Cancel);
    EXPECT_TRUE(gProjectDirty);
    prompts.Expect(Answer::Yes, "Would you like to save");
    prompts.Expect(Answer::OK, "Read-Only mode");
    window->mnuFileNew_Click();
    EXPECT_EQ(gProject->ProjectID(), "TUG-0417");
}

TEST_F(FileCommandsTest, OpenGoesThroughTheLibraryAndTellsAMissingFolder) {
    const std::string sample = WriteSample("sample.cvpj", "Harbour Ferries");
    libraryPick = sample;
    window->mnuFileOpen_Click();
    EXPECT_EQ(libraryShown, std::vector<bool>{false});
    EXPECT_EQ(gProject->Customer(), "Harbour Ferries");
    EXPECT_EQ(gProjectFileName, "sample.cvpj");
    EXPECT_EQ(Title(), "Corvane [Shop] - SAMPLE-1 - Harbour Ferries");
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageProject);

    libraryPick.reset();
    window->mnuFileViewArchive_Click();
    EXPECT_EQ(libraryShown, (std::vector<bool>{false, true}));

    fs::remove_all(archive);
    prompts.Expect(Answer::OK,
                   "Archive Library filepath cannot be found. Please review Archive Library filepath "
                   "settings.");
    window->mnuFileViewArchive_Click();
    EXPECT_EQ(libraryShown.size(), 2u);
}

// A file opened from elsewhere (the command line) is copied into the library, and its lock,
// saves and closing all concern the copy: the original is never written nor left locked.
TEST_F(FileCommandsTest, AFileFromElsewhereIsSavedAndFreedInTheLibrary) {
    const std::string sample = WriteSample("job.cvpj", "Harbour Ferries");
    const std::string original = test::FileBytes(sample);
    window->Files().OpenNamedFile(sample);
    EXPECT_EQ(window->statusBar()->currentMessage().toStdString(),
              "\"" + sample + "\" was copied into the Project Library as \"" + InLibrary("job.cvpj") +
                  "\"; changes are saved there.");

    gProject->SetMarkedPitch("61");
    gProjectDirty = true;
    EXPECT_EQ(window->mnuFileSave_Click(), 1);
    prompts.Expect(Answer::OK, "OK to close Corvane?");
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(fs::exists(LockFilePath(InLibrary("job.cvpj"))));
    EXPECT_EQ(test::FileBytes(sample), original);
    ASSERT_EQ(CreateNewProject(), 1);
    ASSERT_EQ(ReadProjectShown(InLibrary("job.cvpj")), 1);
    EXPECT_EQ(gProject->MarkedPitch(), "61");
}

TEST_F(FileCommandsTest, ImportOffersTheTypesOfTheStationAndReadsAProjectFile) {
    const std::string sample = WriteSample("sample.cvpj", "Harbour Ferries");
    dialogs.Choose(sample, 0);
    window->mnuFileImport_Click();
    ASSERT_EQ(dialogs.requests.size(), 1u);
    EXPECT_EQ(dialogs.requests[0].title, "Open file...");
    EXPECT_EQ(FilterCaptions(0), (std::vector<std::string>{" Norvelle Corvane (*.cvpj) ",
                                                           "Tesselby Propeller Scan File (*.tbsc) ",
                                                           "Hale MRI (*.txt, *.dat)"}));
    EXPECT_EQ(gProject->Customer(), "Harbour Ferries");
    EXPECT_EQ(gProjectFileName, kUntitledFileName); // saved under a new name, never over the source
    EXPECT_FALSE(gProjectDirty);

    gOfficeMode = 1;
    dialogs.Cancel();
    window->mnuFileImport_Click();
    EXPECT_EQ(FilterCaptions(1), std::vector<std::string>{" Norvelle Corvane (*.cvpj) "});
    EXPECT_EQ(gProject->Customer(), "Harbour Ferries"); // cancelled: nothing replaced
}

TEST_F(FileCommandsTest, ImportReadsAHaleMRIFileIntoANewProjectAndSaysWhenAFileIsBroken) {
    FillRequiredFields();
    const std::string hale = temp->File("scan.txt");
    std::ofstream(hale)
        << "H,Ferry Co,,M,40,36,R,,,J,,1/2/2025,,S,,,I,,,,,Mk,FERRY-1,Br\n1,95,1,2\n10.0,.5\n20.0,.5\n";
    dialogs.Choose(hale, 2);
    window->mnuFileImport_Click();
    EXPECT_EQ(gProject->ProjectID(), "FERRY-1");
    ASSERT_EQ(gProject->PropellerScanCount(), 1);
    EXPECT_EQ(gProject->PropellerScan(0)->Blades(0)->Section(0)->RawOffsetCount(), 2);
    EXPECT_EQ(Title(), "Corvane [Shop] - FERRY-1 - Ferry Co");

    const std::string broken = temp->File("broken.cvpj");
    std::ofstream(broken) << "[Project]\nCustomer=Half a file\n";
    dialogs.Choose(broken, 0);
    prompts.SetAnswerFreely(true); // the reader's own notice comes first
    window->mnuFileImport_Click();
    EXPECT_EQ(
        prompts.Texts().back(),
        "An error occurred reading the file. All the data was read, but some data is missing. Please review "
        "the file.");
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageProject);
}

TEST_F(FileCommandsTest, ExportWritesTheProjectWhereChosen) {
    FillRequiredFields();
    const std::string target = temp->File("copy.cvpj");
    dialogs.Choose(target, 0);
    window->mnuFileExport_Click();
    EXPECT_EQ(dialogs.requests[0].title, "Save file...");
    EXPECT_EQ(dialogs.requests[0].fileName, kUntitledFileName);
    EXPECT_EQ(FilterCaptions(0),
              (std::vector<std::string>{"Norvelle Corvane (*.cvpj)", "Propeller Pitch Progression (*.ppp)"}));
    ASSERT_TRUE(fs::exists(target));
    EXPECT_EQ(gProjectFileName, kUntitledFileName); // an export is not a save
    EXPECT_FALSE(fs::exists(LockFilePath(target)));

    // The ppp type writes the reference of the demo's scan, checked as CHECK does.
    ASSERT_EQ(BuildDemoProject(6), 1);
    ASSERT_TRUE(RunCheck(*gProject, *gISO484, CheckRequest{}).Passed());
    dialogs.Choose(temp->File("copy.ppp"), 1);
    window->mnuFileExport_Click();
    EXPECT_GT(fs::file_size(temp->File("copy.ppp")), 500u);
}

} // namespace
} // namespace corvane
