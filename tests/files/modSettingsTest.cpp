#include "files/modSettings.h"
#include "common/ServicesFixture.h"
#include "model/Globals.h"

#include <functional>
#include <tuple>
#include <utility>

namespace corvane {
namespace {

namespace fs = std::filesystem;

const std::string kKey = "Software\\Corvane\\DefaultOptions";
const std::string kOldKey = "Software\\Norvelle\\Corvane\\DefaultOptions";

class modSettingsTest : public test::ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        gLogFolder = temp->Folder();
    }
    void Set(const std::string& name, const std::string& value, const std::string& key = kKey) {
        settings.SetValue(key, name, value);
    }
    std::string Get(const std::string& name, const std::string& key = kKey) {
        return settings.GetValue(key, name);
    }
    DefaultOptions Read() {
        DefaultOptions values;
        ReadDefaultOptions(kDefaultOptionsRootKey, kDefaultOptionsSubKey, values, kOldDefaultOptionsRootKey);
        return values;
    }
    // Settings of a station that has been in use: a shop name keeps the reader on the new key.
    void UsedStation() {
        Set("RepairShopName", "Harbour Props");
        Set("RootDirectory", temp->Folder() + "lib");
        Set("ArchiveDirectory", temp->Folder() + "arc");
    }
};

TEST_F(modSettingsTest, FreshMachineGetsEveryDefaultAndItsFoldersCreatedWithTheirParents) {
    // Not even the profile folder exists yet.
    environment.appDataFolder = temp->Folder() + "profile/AppData/";
    ReadDefaultOptions();

    DefaultOptions expected;
    expected.rootDirectory = environment.appDataFolder + "Corvane/Project";
    expected.archiveDirectory = environment.appDataFolder + "Corvane/Archive";
    EXPECT_EQ(DefaultOptionsFromGlobals(), expected);
    // The defaults themselves, as the station has always had them.
    EXPECT_EQ(gRepairShopAddress, "My Address\r\nMy Address\r\nMy Tel\r\nMy Fax\r\nMy Website\r\nMy Email");
    EXPECT_TRUE(gRadiusEncoderFlip && gDropEncoderFlip && !gAngleEncoderFlip && gAudioFeedback &&
                !gFootPedal);
    EXPECT_EQ(gAngleCalibration + gRadiusCalibration + gDropCalibration, 8400);
    EXPECT_EQ(gAngleEncoderType + gRadiusEncoderType + gDropEncoderType, 3);
    EXPECT_EQ(gScanSourceDevice, "NOT SPECIFIED");
    EXPECT_EQ(gDefaultPropLengthIndex + gRadiusDisplayRulerIndex, 4);
    EXPECT_TRUE(fs::is_directory(gRootDirectory));
    EXPECT_TRUE(fs::is_directory(gArchiveDirectory));

    // Nothing was found at the new key, so what was read is written there for the next start.
    EXPECT_EQ(Get("AngleCalibration"), "8000");
    EXPECT_EQ(Get("RootDirectory"), gRootDirectory);

    // A store that refuses every write stays silent.
    settings.SetReadOnly(true);
    ResetGlobals();
    ReadDefaultOptions();
    EXPECT_EQ(DefaultOptionsFromGlobals(), expected);
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(modSettingsTest, OldLocationIsCopiedToTheNewKeyAndTheNextStartReadsTheNewKey) {
    Set("RepairShopName", "Old Shop", kOldKey);
    Set("AngleCalibration", "4096", kOldKey);
    Set("RadiusEncoderFlip", "false", kOldKey);
    Set("ScanBladeOrder", "RotationDirection", kOldKey);
    Set("KeyboardTrigger", "65", kOldKey);
    Set("RootDirectory", temp->Folder() + "lib", kOldKey);
    Set("ArchiveDirectory", temp->Folder() + "arc", kOldKey);

    ReadDefaultOptions();
    EXPECT_EQ(gRepairShopName, "Old Shop");
    EXPECT_EQ(gAngleCalibration, 4096);
    EXPECT_FALSE(gRadiusEncoderFlip);
    EXPECT_EQ(gScanBladeOrder, 1);
    EXPECT_EQ(gKeyboardTrigger, 65);
    EXPECT_EQ(Get("RepairShopName"), "Old Shop");
    EXPECT_EQ(Get("RadiusEncoderFlip"), "False");
    EXPECT_EQ(Get("ScanBladeOrder"), "RotationDirection");
    // Both folders were given: none is made.
    EXPECT_FALSE(fs::exists(temp->Path() / "lib"));

    Set("RepairShopName", "Changed Later", kOldKey);
    Set("AngleCalibration", "1", kOldKey);
    ReadDefaultOptions();
    EXPECT_EQ(gRepairShopName, "Old Shop");
    EXPECT_EQ(gAngleCalibration, 4096);
}

TEST_F(modSettingsTest, NumbersFlipsAndTheTriggerKeyFollowTheirOwnRules) {
    UsedStation();
    // clang-format off
    const std::vector<std::tuple<std::string, std::string, std::function<double(const DefaultOptions&)>, double>> cases = {
        {"AngleCalibration", "-5", [](auto& v) { return v.angleCalibration; }, 8000},
        {"AngleCalibration", "0", [](auto& v) { return v.angleCalibration; }, 8000},
        {"AngleCalibration", "abc", [](auto& v) { return v.angleCalibration; }, 8000},
        {"AngleCalibration", "12abc", [](auto& v) { return v.angleCalibration; }, 12},
        {"StandardOffset", "-2", [](auto& v) { return v.standardOffset; }, 0},
        {"DogLegOffset", "1.25", [](auto& v) { return v.dogLegOffset; }, 1.25},
        {"Pulse", "31750", [](auto& v) { return v.calibrationPulse; }, 31750},
        {"AngleEncoderFlip", "TRUE", [](auto& v) { return v.angleEncoderFlip; }, 1},
        {"AngleEncoderFlip", "1", [](auto& v) { return v.angleEncoderFlip; }, 0},
        {"RadiusEncoderFlip", "fAlSe", [](auto& v) { return v.radiusEncoderFlip; }, 0},
        {"DropEncoderFlip", "yes", [](auto& v) { return v.dropEncoderFlip; }, 1},
        {"RadiusDisplayRulerFlip", "True", [](auto& v) { return v.radiusDisplayRulerFlip; }, 1},
        {"KeyboardTrigger", "0", [](auto& v) { return v.keyboardTrigger; }, 0},
        {"KeyboardTrigger", "32", [](auto& v) { return v.keyboardTrigger; }, 32},
        {"KeyboardTrigger", "65.5", [](auto& v) { return v.keyboardTrigger; }, 66},
        {"KeyboardTrigger", "1e20", [](auto& v) { return v.keyboardTrigger; }, 0},
    };
    // clang-format on
    for (const auto& [name, text, member, expected] : cases) {
        Set(name, text);
        EXPECT_EQ(member(Read()), expected) << name << "=" << text;
        settings.DeleteValue(kKey, name);
    }
}

TEST_F(modSettingsTest, WordTablesReadTheirSynonymsAndDefaults) {
    using Cases = std::vector<std::pair<std::string, int>>;
    const auto check = [&](const Cases& cases, auto read) {
        for (const auto& [word, expected] : cases) {
            Set("W", word);
            EXPECT_EQ(read(), expected) << word;
        }
    };
    // clang-format off
    check({{"Off", 0}, {"0", 0}, {"DualChannel", 1}, {"Absolute", 1}, {"SingleChannel", 2}, {"Differential", 2},
           {"", 7}, {"Quadrature", 7}, {"1", 7}}, [&] { return ReadEncoderTypeWord(kKey, "W", 7); });
    check({{"Off", 0}, {"0", 0}, {"On", 1}, {"1", 1}, {"2", 5}}, [&] { return ReadOnOffWord(kKey, "W", 5); });
    check({{"ft", 0}, {"0", 0}, {"m", 1}, {"1", 1}, {"in", 2}, {"mm", 3}, {"3", 3}, {"4", 2}, {"yd", 2}, {"", 2}},
          [&] { return ReadUnitWord(kKey, "W"); });
    check({{"RotationDirection", 1}, {"BladeOrder", 0}, {"1", 0}}, [&] { return ReadBladeOrderWord(kKey, "W"); });
    check({{"Legal", 2}, {"Custom", 3}, {"Tabloid", 0}}, [&] { return ReadReportLayoutWord(kKey, "W"); });
    // clang-format on

    WriteOnOffWord(kKey, "W", 2);
    EXPECT_EQ(Get("W"), "");
    WriteUnitWord(kKey, "W", 9);
    EXPECT_EQ(Get("W"), "in");
}

TEST_F(modSettingsTest, AMissingFolderIsDerivedFromTheOther) {
    Set("RepairShopName", "Harbour Props");
    Set("RootDirectory", temp->Folder() + "lib");
    DefaultOptions values = Read();
    EXPECT_EQ(values.archiveDirectory, temp->Folder() + "lib/Archive");
    EXPECT_TRUE(fs::is_directory(temp->Path() / "lib"));
    EXPECT_FALSE(fs::exists(temp->Path() / "lib" / "Archive")); // left to the library checks

    settings.DeleteValue(kKey, "RootDirectory");
    Set("ArchiveDirectory", temp->Folder() + "old/arc");
    values = Read();
    EXPECT_EQ(values.rootDirectory, temp->Folder() + "old/arc/Project");
    EXPECT_TRUE(fs::is_directory(values.rootDirectory));
    // Derived folders are not stored: the settings keep what the user chose.
    EXPECT_EQ(Get("RootDirectory"), "");
}

TEST_F(modSettingsTest, WritesTwelveDigitNumbersAndTheStationsWords) {
    DefaultOptions values;
    values.angleCalibration = 8000.000000000012; // beyond 12 significant digits
    values.dogLegOffset = 1.0 / 3.0;
    values.scanBladeOrder = 1;
    values.reportLayout = 1;
    values.audioFeedback = 0;
    WriteDefaultOptions(kDefaultOptionsRootKey, kDefaultOptionsSubKey, values);
    const std::pair<const char*, const char*> stored[] = {{"AngleCalibration", "8000"},
                                                          {"DogLegOffset", "0.333333333333"},
                                                          {"ScanBladeOrder", "RotationDirection"},
                                                          {"AudioFeedback", "Off"},
                                                          {"ReportLayout", "A4"},
                                                          {"PanelSize", "Small"}};
    for (const auto& [name, text] : stored) {
        EXPECT_EQ(Get(name), text) << name;
    }
}

TEST_F(modSettingsTest, EveryValueRoundTripsThroughTheGlobals) {
    // Every member away from its default, so that a value mixed up with another shows.
    // clang-format off
    const DefaultOptions written{"Harbour Props", "1 Quay\r\nPort", "J. Smith", temp->File("logo.jpg"), "Arm 2",
                                 "Acme", 0, true, 40000, 2, false, 78.74, 1, false, 0.0125, 3.5, 41.25, 250, 19685,
                                 temp->Folder() + "lib", temp->Folder() + "arc", 0, 0, 1, 116, 3, 1, true, 1, 3};
    // clang-format on
    ApplyDefaultOptionsToGlobals(written);
    WriteDefaultOptions();
    ResetGlobals();
    ReadDefaultOptions();
    EXPECT_EQ(DefaultOptionsFromGlobals(), written);
    EXPECT_TRUE(gFootPedal && !gAudioFeedback);
}

TEST_F(modSettingsTest, CommaLocaleUserWritesAndReadsBackItsOwnNumbers) {
    environment.decimalSeparator = ',';
    gDecimalChar = ','; // as the start-up sets it from the same environment
    DefaultOptions values;
    values.repairShopName = "Werft";
    values.radiusCalibration = 78.74;
    values.dogLegOffset = 0.125;
    values.dropCalibration = 0.00001;
    values.rootDirectory = temp->Folder() + "lib";
    values.archiveDirectory = temp->Folder() + "arc";
    WriteDefaultOptions(kDefaultOptionsRootKey, kDefaultOptionsSubKey, values);
    EXPECT_EQ(Get("RadiusCalibration"), "78,74");
    EXPECT_EQ(Get("DogLegOffset"), "0,125");
    EXPECT_EQ(Get("DropCalibration"), "1E-05");
    EXPECT_EQ(Read(), values);

    // Values a point user left behind still read right.
    Set("AngleCalibration", "2500.5");
    EXPECT_EQ(Read().angleCalibration, 2500.5);
}

TEST_F(modSettingsTest, AnUnreadableNumberGoesToTheHandlerAndTheRestIsStillRead) {
    UsedStation();
    Set("AngleCalibration", "1e999");
    Set("RadiusCalibration", "150");
    prompts.Expect(Answer::Ignore, "A mathematical error has occurred reading default options.");
    const DefaultOptions values = Read();
    EXPECT_EQ(values.angleCalibration, 8000);
    EXPECT_EQ(values.radiusCalibration, 150);
    EXPECT_EQ(values.repairShopName, "Harbour Props");
}

} // namespace
} // namespace corvane
