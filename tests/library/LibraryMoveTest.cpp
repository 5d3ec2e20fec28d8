#include "LibraryTestProjects.h"

#include "files/FileAccess.h"
#include "library/clsProjectLibrary.h"
#include "library/modLibraryFiles.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

class LibraryMoveTest : public test::LibraryTest {
protected:
    void SetUp() override {
        LibraryTest::SetUp();
        WriteThreeProjects();
        bravo = test::FileBytes(library + "bravo.cvpj");
        list.Load();
    }
    // Both folders as they were: bravo in the library only, unchanged.
    void ExpectBravoUntouched() {
        EXPECT_EQ(test::FileBytes(library + "bravo.cvpj"), bravo);
        EXPECT_FALSE(fs::exists(archive + "bravo.cvpj"));
        EXPECT_NE(list.FindRow(library + "bravo.cvpj"), nullptr);
    }
    void ExpectOneFailure(const clsProjectLibrary::MoveResult& result) {
        EXPECT_TRUE(result.ran);
        EXPECT_EQ(result.moved, 0);
        EXPECT_EQ(result.failed, 1);
        EXPECT_EQ(prompts.History().back().text, "1 file(s) could not be moved and remain unmodified\r\n\r\n"
                                                 "0 file(s) were successfully moved into the Archive");
    }

    clsProjectLibrary list;
    std::string bravo;
};

TEST_F(LibraryMoveTest, MovesTheTickedFilesIntoTheArchiveAndBack) {
    prompts.Expect(Answer::Yes, "Are you sure you want to move 2 file(s) from Project Library into Archive?");
    prompts.Expect(Answer::OK, "2 file(s) were successfully moved into the Archive");
    const auto result = list.MoveFiles({library + "bravo.cvpj", library + "alpha.cvpj"});
    EXPECT_EQ(result.moved, 2);
    EXPECT_EQ(result.failed, 0);
    EXPECT_EQ(prompts.History()[0].title, "Move File");
    EXPECT_EQ(prompts.History()[0].style & MsgBox::ButtonsMask, MsgBox::YesNo);
    EXPECT_EQ(prompts.History()[1].title, "Move Complete");
    EXPECT_EQ(test::FileBytes(archive + "bravo.cvpj"), bravo);
    EXPECT_FALSE(fs::exists(library + "bravo.cvpj"));
    EXPECT_FALSE(fs::exists(library + "alpha.cvpj"));
    ASSERT_EQ(list.Rows().size(), 1u);
    EXPECT_EQ(list.Rows()[0].projectID, "Charlie-9");

    clsProjectLibrary archived;
    archived.SetArchiveMode(true);
    ASSERT_EQ(archived.Load(), 2);
    prompts.Expect(Answer::Yes,
                   "Are you sure you want to move \"Bravo-17\" from Archive into Project Library?");
    prompts.Expect(Answer::OK, "1 file(s) were successfully moved into the Project Library");
    EXPECT_EQ(archived.MoveFiles({archive + "bravo.cvpj"}).moved, 1);
    EXPECT_EQ(test::FileBytes(library + "bravo.cvpj"), bravo);
    EXPECT_EQ(archived.Rows().size(), 1u);
}

TEST_F(LibraryMoveTest, NothingMovesWithoutAnArchiveOrAYes) {
    EXPECT_FALSE(list.MoveFiles({}).ran);

    prompts.Expect(Answer::No,
                   "Are you sure you want to move \"Bravo-17\" from Project Library into Archive?");
    EXPECT_FALSE(list.MoveFiles({library + "bravo.cvpj"}).ran);
    ExpectBravoUntouched();

    gArchiveDirectory = temp->Folder() + "gone";
    prompts.Expect(Answer::OK, "Archive filepath");
    EXPECT_FALSE(list.MoveFiles({library + "bravo.cvpj"}).ran);
    EXPECT_EQ(prompts.History().back().title, "Archive");
    EXPECT_EQ(prompts.History().back().text,
              "Archive filepath \"" + gArchiveDirectory +
                  "\" cannot be found. Please review Archive filepath in Program "
                  "Settings.");
    ExpectBravoUntouched();
}

TEST_F(LibraryMoveTest, ACopyThatIsNotWholeLosesNothing) {
    // Truncated but reported as done, refused, and thrown: each leaves no copy behind.
    const std::vector<FileCopier> copiers = {
        [](const std::string&, const std::string& target) {
            test::WriteBytes(target, "[Project]\r\n");
            return true;
        },
        [](const std::string& source, const std::string& target) {
            CopyFileKeepingDate(source, target);
            return false;
        },
        [](const std::string& source, const std::string& target) -> bool {
            test::WriteBytes(target, test::FileBytes(source) + "tail");
            throw std::runtime_error("network drive gone");
        },
    };
    for (const auto& copier : copiers) {
        SetFileCopier(copier);
        prompts.Expect(Answer::Yes, "Are you sure");
        prompts.Expect(Answer::OK, "could not be moved");
        ExpectOneFailure(list.MoveFiles({library + "bravo.cvpj"}));
        ExpectBravoUntouched();
    }

    // A whole copy that the disk does not take in: the original must not go.
    SetFileCopier(nullptr);
    struct RefusingDisk : FileWriteSteps {
        bool SyncFile(std::FILE*) override { return false; }
    } disk;
    const ScopedFileWriteSteps refusing(disk);
    prompts.Expect(Answer::Yes, "Are you sure");
    prompts.Expect(Answer::OK, "could not be moved");
    ExpectOneFailure(list.MoveFiles({library + "bravo.cvpj"}));
    ExpectBravoUntouched();
}

TEST_F(LibraryMoveTest, AFileOfTheSameNameInTheTargetIsNeverOverwritten) {
    test::WriteBytes(archive + "bravo.cvpj", "another job\r\n");
    prompts.Expect(Answer::Yes, "Are you sure");
    prompts.Expect(Answer::OK, "could not be moved");
    ExpectOneFailure(list.MoveFiles({library + "bravo.cvpj"}));
    EXPECT_EQ(test::FileBytes(archive + "bravo.cvpj"), "another job\r\n");
    EXPECT_EQ(test::FileBytes(library + "bravo.cvpj"), bravo);

    // A true copy left by a move cut short: the move finishes.
    test::WriteBytes(archive + "bravo.cvpj", bravo);
    EXPECT_TRUE(MoveProjectFile(library + "bravo.cvpj", archive));
    EXPECT_FALSE(fs::exists(library + "bravo.cvpj"));
    EXPECT_EQ(test::FileBytes(archive + "bravo.cvpj"), bravo);
}

TEST_F(LibraryMoveTest, AnOriginalThatCannotBeDeletedLosesNothing) {
    // The library refuses to give the original up: the copy in the archive is taken back.
    EXPECT_FALSE(MoveProjectFile(library + "bravo.cvpj", archive, [](const std::string&) { return false; }));
    ExpectBravoUntouched();
    // So does an archive that nobody, root included, can write in.
    EXPECT_FALSE(MoveProjectFile(library + "bravo.cvpj", "/proc"));
    ExpectBravoUntouched();
}

TEST_F(LibraryMoveTest, TheOpenProjectCannotBeTickedOrMoved) {
    gProjectFileName = "bravo.cvpj";
    EXPECT_TRUE(list.CanTick(library + "alpha.cvpj"));
    prompts.Expect(Answer::OK, "is currently open");
    EXPECT_FALSE(list.CanTick(library + "bravo.cvpj"));
    EXPECT_EQ(prompts.History().back().title, "Open File selected");
    EXPECT_EQ(prompts.History().back().text,
              "bravo.cvpj is currently open. Open files cannot be moved to the archive.");

    prompts.Expect(Answer::Yes, "2 file(s)");
    prompts.Expect(Answer::OK, "1 file(s) could not be moved");
    const auto result = list.MoveFiles({library + "bravo.cvpj", library + "alpha.cvpj"});
    EXPECT_EQ(result.moved, 1);
    EXPECT_EQ(result.failed, 1);
    ExpectBravoUntouched();
}

} // namespace
} // namespace corvane
