#include "common/ServicesFixture.h"

#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "support/modMain.h"

#include <fstream>

namespace corvane {
namespace {

using test::ServicesTest;

class modMainTest : public ServicesTest {
protected:
    StartupHooks Hooks(bool boxAnswers) {
        StartupHooks hooks;
        hooks.connectEncoder = [this, boxAnswers] {
            steps.push_back("encoder");
            return boxAnswers;
        };
        hooks.readDefaultOptions = [this] {
            steps.push_back("settings");
            gStandardOffset = 1.25;
        };
        hooks.createNewProject = [this] { steps.push_back("project"); };
        hooks.showMainWindow = [this] { steps.push_back("window"); };
        return hooks;
    }
    std::vector<std::string> steps;
};

TEST_F(modMainTest, ShopStationWithoutBoxFallsBackToManualEntrySilently) {
    Main(Hooks(false));
    EXPECT_EQ(gScanMode, 1);
    EXPECT_FALSE(gDAQConnected);
    EXPECT_TRUE(prompts.History().empty());
    EXPECT_EQ(steps, (std::vector<std::string>{"encoder", "settings", "project", "window"}));
    EXPECT_EQ(gSessionStamp, "-20261122-0905");
    EXPECT_EQ(gActiveProbeOffset, 1.25);
    EXPECT_EQ(gAppPath, temp->Folder() + "bin/");
    EXPECT_EQ(gAppDataPath, environment.appDataFolder + "Corvane Software/Corvane/");
    EXPECT_GE(events.doEventsCalls, 1);
}

TEST_F(modMainTest, OfficeStationSaysSoAndNeverScans) {
    gOfficeMode = 1;
    prompts.Expect(Answer::OK);
    Main(Hooks(true));
    EXPECT_EQ(gScanMode, 0);
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].text,
              "Cannot connect to DAQ. Data acquisition will be disabled. Corvane is now in Office mode.");
    EXPECT_EQ(prompts.History()[0].title, "Corvane");
    EXPECT_EQ(prompts.History()[0].style, MsgBox::Exclamation);
}

TEST_F(modMainTest, ShopStationWithBoxScansDigitallyUnderAnyProgramNameAndLocale) {
    environment.programFilePath = temp->Folder() + "opt/corvane-2026-beta";
    environment.decimalSeparator = ',';
    Main(Hooks(true));
    EXPECT_EQ(gScanMode, 2);
    EXPECT_TRUE(gDAQConnected);
    EXPECT_EQ(gAppPath, temp->Folder() + "opt/");
    EXPECT_EQ(gDecimalChar, 44);
}

TEST_F(modMainTest, FailingStepIsRetriedOrSkippedAsAnswered) {
    int tries = 0;
    StartupHooks hooks = Hooks(false);
    hooks.readDefaultOptions = [&] {
        if (++tries < 3) {
            throw CorvaneError(ErrorNumber::FileAlreadyInUse, "Permission denied");
        }
    };
    // First failure: retry box Retry, dialog Retry; second: box Cancel, dialog OK (Ignore).
    prompts.Expect(Answer::Retry, "File already in use.");
    prompts.Expect(Answer::Retry, "at main entry.");
    prompts.Expect(Answer::Cancel, "File already in use.");
    prompts.Expect(Answer::Ignore, "at main entry.");
    Main(hooks);
    EXPECT_EQ(tries, 2);
    EXPECT_EQ(steps, (std::vector<std::string>{"encoder", "project", "window"}));
}

TEST_F(modMainTest, HelpFileIsFoundBesideTheProgram) {
    StartupHooks hooks = Hooks(false);
    hooks.helpFileName = "Corvane.html";
    Main(hooks);
    EXPECT_FALSE(gHelpFileFound);

    std::filesystem::create_directories(temp->Path() / "bin");
    std::ofstream(temp->File("bin/Corvane.html")) << "<html/>";
    Main(hooks);
    EXPECT_TRUE(gHelpFileFound);
    EXPECT_EQ(gHelpFilePath, temp->Folder() + "bin/Corvane.html");
}

} // namespace
} // namespace corvane
