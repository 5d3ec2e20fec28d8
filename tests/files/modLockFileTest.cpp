#include "common/FileBytes.h"
#include "common/ServicesFixture.h"

#include "files/FileAccess.h"
#include "files/modLockFile.h"

namespace corvane {
namespace {

class modLockFileTest : public test::ServicesTest {
protected:
    std::string project() const { return temp->File("P1_20261122_090507.cvpj"); }
};

TEST_F(modLockFileTest, WriteNamesThisStationAndReplacesAnOldLock) {
    WriteFileAtomically(LockFilePath(project()), "UserName=someone\r\nComputerName=ELSEWHERE\r\n");
    ASSERT_EQ(WriteLockFile(project()), 1);
    EXPECT_EQ(test::FileBytes(project() + ".lck"),
              "UserName=tech\r\nComputerName=STATION1\r\nDate=2026-11-22 09:05:07\r\n");

    std::string user, computer;
    EXPECT_TRUE(IsFileLocked(project(), user, computer));
    EXPECT_EQ(user, "tech");
    EXPECT_EQ(computer, "STATION1");

    EXPECT_EQ(RemoveLockFile(project()), 1);
    EXPECT_FALSE(std::filesystem::exists(project() + ".lck"));
    EXPECT_FALSE(IsFileLocked(project(), user, computer));
    // Removing a lock that is not there is no failure.
    EXPECT_EQ(RemoveLockFile(project()), 1);
}

TEST_F(modLockFileTest, MissingNamesFallBackToPlaceholders) {
    environment.userName.clear();
    environment.computerName.clear();
    ASSERT_EQ(WriteLockFile(project()), 1);
    std::string user, computer;
    ASSERT_EQ(ReadLockFile(project(), user, computer), 1);
    EXPECT_EQ(user, "User");
    EXPECT_EQ(computer, "MyPC");
}

TEST_F(modLockFileTest, AShortOrOddLockStillCountsAsLocked) {
    std::string user = "x", computer = "y";
    WriteFileAtomically(LockFilePath(project()), "UserName=alone\n");
    EXPECT_EQ(ReadLockFile(project(), user, computer), 0);
    EXPECT_EQ(user, "User");
    EXPECT_EQ(computer, "MyPC");
    EXPECT_TRUE(IsFileLocked(project(), user, computer));

    // Written by another station with LF line ends: still read.
    WriteFileAtomically(LockFilePath(project()), "UserName=ann\nComputerName=BENCH2\nDate=x\n");
    EXPECT_EQ(ReadLockFile(project(), user, computer), 1);
    EXPECT_EQ(user, "ann");
    EXPECT_EQ(computer, "BENCH2");
}

TEST_F(modLockFileTest, FailuresGiveZeroAndNeverThrow) {
    std::string user, computer;
    EXPECT_EQ(WriteLockFile(""), 0);
    EXPECT_EQ(WriteLockFile(temp->File("no/such/folder/p.cvpj")), 0);
    EXPECT_EQ(ReadLockFile(temp->File("none.cvpj"), user, computer), 0);
    EXPECT_FALSE(IsFileLocked("", user, computer));

    // A folder in the lock's place cannot be removed as a file and so cannot be replaced.
    std::filesystem::create_directories(LockFilePath(project()) + "/inside");
    EXPECT_EQ(RemoveLockFile(project()), 0);
    EXPECT_EQ(WriteLockFile(project()), 0);
}

} // namespace
} // namespace corvane
