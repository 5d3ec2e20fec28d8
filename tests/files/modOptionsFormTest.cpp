#include "files/modOptionsForm.h"

#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "support/modNVSystemUtilities.h"

namespace corvane {
namespace {

class modOptionsFormTest : public test::ServicesTest {};

// Every field goes into the store and comes back as it was.
TEST_F(modOptionsFormTest, EveryFieldRoundTripsThroughTheSettings) {
    OptionsForm form = LoadOptionsForm();
    form.units = 3;
    form.inspectorName = "J. Smith";
    form.repairShopName = "Harbour Props";
    form.repairShopAddress = "Quay 4\r\nRotterdam";
    form.logoPath = temp->File("logo.jpg");
    form.defaultManufacturer = "Wartsila";
    form.reportLayout = 1;
    form.page = ReportLayoutPageData(1);
    form.scanSourceDevice = "Arm 2";
    form.angleEncoderIndex = 0;
    form.radiusEncoderIndex = 0;
    form.dropEncoderIndex = 2;
    form.angleFlip = true;
    form.radiusFlip = false;
    form.dropFlip = false;
    form.angleCalib = "4096";
    form.radiusCalibMM = "157.5";
    form.dropCalib = "100";
    form.standardOffset = "3.5";
    form.dogLegOffset = "12";
    form.calibRad = "250";
    form.calibPulse = "40000";
    form.activeFolder = temp->Folder() + "lib";
    form.archiveFolder = temp->Folder() + "old";
    form.email = {kMessagingCDO, true};
    form.audioFeedback = 0;
    form.footPedal = 1;
    form.triggerKey = "<SPACE>";
    form.rulerDisplay = 1;
    form.rulerFlip = true;
    form.bladeOrder = 1;
    form.font = {"DejaVu Sans", 10.5};
    SaveOptions(form);
    EXPECT_EQ(LoadOptionsForm(), form);
    EXPECT_EQ(GetRegistryValue("Software\\Corvane\\DefaultOptions", "KeyboardTrigger"), "32");
    EXPECT_EQ(GetRegistryValue("Software\\Corvane\\Report", "PaperSizeIndex"), "9");
    EXPECT_EQ(GetRegistryValue("Software\\Corvane\\Email", "EmailMessaging"), "MAPICDO");
}

TEST_F(modOptionsFormTest, FieldsConvertTolerantlyAndEmptyValuesReadTheirDefaults) {
    OptionsForm form = LoadOptionsForm();
    form.angleCalib = "0";
    form.radiusCalibMM = "";
    form.dropCalib = "abc";
    form.scanSourceDevice = "";
    form.triggerKey = "";
    SaveOptions(form);
    const OptionsForm back = LoadOptionsForm();
    EXPECT_EQ(back.angleCalib, "8000");
    EXPECT_EQ(back.radiusCalibMM, "200");
    EXPECT_EQ(back.dropCalib, "200");
    EXPECT_EQ(back.scanSourceDevice, "NOT SPECIFIED");
    EXPECT_EQ(back.triggerKey, "");
}

TEST_F(modOptionsFormTest, EncoderChoicesOpenAndLockTheirFields) {
    const struct {
        int angle, radius, drop;
        EncoderFieldStates states;
    } cases[] = {
        {1, 1, 1, {false, true, false, true, true, true, false, false, false, true}},
        {0, 0, 0, {true, false, true, false, false, false, true, true, true, false}},
        {1, 1, 2, {false, true, false, true, true, true, false, false, false, false}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(UpdateEncoderFields(c.angle, c.radius, c.drop), c.states) << c.angle << c.radius << c.drop;
    }
}

TEST_F(modOptionsFormTest, TriggerKeysAreRefusedClearedOrShown) {
    const struct {
        int key;
        const char* typed;
        const char* shown;
        bool refused;
    } cases[] = {
        {VirtualKey::Enter, "\r", "", true},
        {VirtualKey::Tab, "\t", "", true},
        {VirtualKey::F1 + 15, "", "", true},
        {VirtualKey::Left, "", "", true},
        {VirtualKey::Backspace, "\b", "", true},
        {VirtualKey::Escape, "\x1b", "", false},
        {VirtualKey::Space, " ", "<SPACE>", false},
        {'T', "t", "T", false},
        {'5', "5", "5", false},
        {0, "", "Q", false}, // a dead key leaves it
    };
    for (const auto& c : cases) {
        if (c.refused) {
            prompts.Expect(Answer::OK, "This key is not a valid trigger key.");
        }
        EXPECT_EQ(TriggerKeyDown(c.key, c.typed, "Q"), c.shown) << c.key;
    }
    EXPECT_EQ(prompts.History().front().title, "Trigger Key Error");
    for (const auto& [text, code] :
         {std::pair<std::string, int>{"<SPACE>", 32}, {"", 0}, {"0", 0}, {"T", 84}}) {
        EXPECT_EQ(TriggerKeyCode(text), code) << text;
    }
    EXPECT_EQ(TriggerKeyText(84), "T");
    EXPECT_EQ(TriggerKeyText(0), "");
}

TEST_F(modOptionsFormTest, PathsShortenLayoutsCarryTheirPagesAndTheDogLegIsLive) {
    for (const auto& [path, shown] :
         {std::pair<std::string, std::string>{"/home/tech/logos/shop.jpg", ".../logos/shop.jpg"},
          {"C:\\Data\\Corvane\\Project", "...\\Corvane\\Project"},
          {"/logos/shop.jpg", "/logos/shop.jpg"},
          {"shop.jpg", "shop.jpg"}}) {
        EXPECT_EQ(ShortenedPath(path), shown) << path;
    }
    EXPECT_EQ(ReportLayoutPageData(1), (ReportPageData{7, 2.5, 1.25, 1.25, 1.25, 9, 1, 8.5, 11.0}));
    EXPECT_EQ(ReportLayoutPageData(2).paperSizeIndex, 5);
    ReportPageData custom;
    custom.paperSizeUserWidth = 12;
    EXPECT_EQ(ReportLayoutPageData(3, custom).paperSizeIndex, 256);
    EXPECT_EQ(ReportLayoutPageData(3, custom).paperSizeUserWidth, 12);

    gDogLegOffset = 4;
    for (const auto& [typed, taken] :
         {std::pair<std::string, bool>{"-2", false}, {"", false}, {"1.5", true}, {"abc", false}}) {
        EXPECT_EQ(TakeDogLegOffset(typed), taken) << typed;
    }
    EXPECT_EQ(gDogLegOffset, 1.5);

    std::string library;
    std::string archive;
    ApplyFolderFallbacks(library, archive);
    EXPECT_EQ(library, temp->Folder() + "appdata/Corvane/Project");
    EXPECT_EQ(archive, temp->Folder() + "appdata/Corvane/Archive");
}

} // namespace
} // namespace corvane
