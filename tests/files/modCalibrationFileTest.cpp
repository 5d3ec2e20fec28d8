#include "files/modCalibrationFile.h"
#include "ProjectFileTestSupport.h"
#include "model/Globals.h"

namespace corvane {
namespace {

class modCalibrationFileTest : public test::ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        gLogFolder = temp->Folder();
    }
    std::string Put(const std::string& name, const std::string& bytes) {
        test::WriteBytes(temp->File(name), bytes);
        return temp->File(name);
    }
    static std::string Bytes(const std::string& path) { return test::FileBytes(path); }
    // A calibration that differs from the defaults in every member.
    static CalibrationValues Sample() {
        return {"Arm 2", 40000, 78.74, 0.5, 0, 2, 1, false, true, true, -1.5, 41.25, 250, 19685};
    }
    CalibrationValues values;
    CalibrationLimits limits;
};

TEST_F(modCalibrationFileTest, CvstFileHoldsTheTagsInOrderAndReadsBackTheSameCalibration) {
    // An existing file keeps its other blocks.
    const std::string path = Put("arm.cvst", "[Notes]\r\nText=keep\r\n");
    gBuildTag = "rc1";
    ASSERT_EQ(WriteCalibrationFile(path, Sample()), 1);
    EXPECT_EQ(Bytes(path), "[Notes]\r\nText=keep\r\n"
                           "[Calibration]\r\n"
                           "LastModified=2026/11/22 9:5:7\r\n"
                           "Source=Corvane 1.00.0000.rc1\r\n"
                           "ScanSourceDevice=Arm 2\r\n"
                           "AngleEncoder=Off\r\n"
                           "AnglePulsePerRotation=40000\r\n"
                           "AngleEncoderFlip=On\r\n"
                           "RadiusEncoder=Single\r\n"
                           "RadiusPulsePerMM=78.74\r\n"
                           "RadiusEncoderFlip=Off\r\n"
                           "DropEncoder=Dual\r\n"
                           "DropPulsePerMM=.5\r\n"
                           "DropEncoderFlip=On\r\n"
                           "DeviceStandardProbeOffset=-1.5\r\n"
                           "DeviceDoglegProbeOffset=41.25\r\n"
                           "DeviceCalibrationPointRadiusMM=250\r\n"
                           "DeviceCalibrationPointPulse=19685\r\n");

    limits = {1, 2, 3, 4};
    ASSERT_EQ(ReadCalibrationFile(path, values, limits), 1);
    EXPECT_EQ(values, Sample());
    EXPECT_EQ(limits, CalibrationLimits{}); // never written, so they read 0
}

TEST_F(modCalibrationFileTest, EncoderWordsAndFlipsIgnoreCaseAndUnknownWordsKeepTheType) {
    const std::string path = Put("arm.cvst", "[calibration]\r\n"
                                             "AngleEncoder=Dual\r\n"
                                             "AngleEncoderFlip=ON\r\n"
                                             "RadiusEncoder=SINGLE\r\n"
                                             "RadiusEncoderFlip=yes\r\n"
                                             "DropEncoder=Quadrature\r\n"
                                             "DropEncoderFlip=oN\r\n"
                                             "AnglePulsePerRotation=8000\r\n"
                                             "RadiusLimitMinMM=-5\r\n"
                                             "RadiusLimitMaxMM=1200\r\n"
                                             "DropLimitMinMM=-250\r\n"
                                             "DropLimitMaxMM=1000.5\r\n");
    values.dropType = 2;
    values.radiusFlip = true;
    ASSERT_EQ(ReadCalibrationFile(path, values, limits), 1);
    // "yes" is no flip; "Quadrature" keeps drop type 2; a missing number reads 0.
    EXPECT_EQ(values, (CalibrationValues{"", 8000, 0, 0, 1, 2, 2, false, true, true, 0, 0, 0, 0}));
    EXPECT_EQ(limits, (CalibrationLimits{-5, 1200, -250, 1000.5}));
}

TEST_F(modCalibrationFileTest, FileWithoutTheBlockIsRefusedAndChangesNothing) {
    values = Sample();
    limits = {1, 2, 3, 4};
    for (const std::string& path :
         {Put("other.cvst", "[Project]\r\nName=x\r\n"), Put("empty.cvst", ""), temp->File("none.cvst")}) {
        prompts.Expect(Answer::OK);
        EXPECT_EQ(ReadCalibrationFile(path, values, limits), 0) << path;
        const auto& shown = prompts.History().back();
        EXPECT_EQ(shown.text, "An error occurred reading the calibration file. Check the file format.");
        EXPECT_EQ(shown.title, "Corvane");
        EXPECT_EQ(shown.style, MsgBox::OKOnly | MsgBox::Critical);
    }
    EXPECT_EQ(values, Sample());
    EXPECT_EQ(limits, (CalibrationLimits{1, 2, 3, 4}));
}

TEST_F(modCalibrationFileTest, AnOverflowingNumberFailsTheReadThroughTheHandler) {
    const std::string path =
        Put("arm.cvst", "[Calibration]\r\nAngleEncoder=Dual\r\nRadiusPulsePerMM=1e999\r\n");
    values = Sample();
    prompts.Expect(Answer::Ignore, "reading calibration file from disk.");
    EXPECT_EQ(ReadCalibrationFile(path, values, limits), 0);
    EXPECT_EQ(values, Sample());
}

const std::string kHaleFile = "\"ShopName = \",\"Harbour Props\"\r\n"
                              "\"AngleResolution = \",36000\r\n"
                              "\"AngleCalibration = \",-1\r\n"
                              "\"RadiusResolution = \",2540\r\n"
                              "\"RadiusCalibration = \",-1\r\n"
                              "\"DepthResolution = \",5080\r\n"
                              "\"DepthCalibration = \",-1\r\n"
                              "\"Units = \",\"in\"\r\n";

TEST_F(modCalibrationFileTest, HaleMRIFileGivesInchResolutionsPerMillimetreAndItsFlipSenses) {
    values = Sample();
    ASSERT_EQ(ReadHaleMRICalibrationFile(Put("hale.txt", kHaleFile), values, limits), 1);
    // Negative calibrations: angle and radius flip, depth does not (its sense is reversed).
    const CalibrationValues expected{"Hale MRI", 36000, 100, 200, 1, 1, 1, true, false, true, 0, 0, 0, 0};
    EXPECT_EQ(values, expected);
    EXPECT_EQ(limits, (CalibrationLimits{0, 50 * 25.4, -10 * 25.4, 40 * 25.4}));

    // Positive calibrations, prefixes in another case, LF-only line ends.
    const std::string lfOnly = "\"anglecalibration = \",1\n"
                               "\"RADIUSCALIBRATION = \",2\n"
                               "\"DepthCalibration = \",  3\n";
    ASSERT_EQ(ReadHaleMRICalibrationFile(Put("lf.txt", lfOnly), values, limits), 1);
    EXPECT_FALSE(values.angleFlip);
    EXPECT_FALSE(values.radiusFlip);
    EXPECT_TRUE(values.dropFlip);
    EXPECT_EQ(values.anglePulses, 36000); // not named in this file: kept
}

TEST_F(modCalibrationFileTest, HaleMRIGarbageAndNearMissesChangeOnlyTheMachineFields) {
    values = Sample();
    // Prefixes count only with their quotes and comma, at the very start of the line.
    const char bytes[] = "AngleResolution = ,1\r\n\"RadiusResolution =\",2\r\n \"RadiusResolution = \",3\r\n"
                         "\x00\xff\xfe\r\r\n\"AngleResolution = \",\x80\x81\n\"DepthResolution = \",";
    const std::string garbage(bytes, sizeof bytes - 1);
    ASSERT_EQ(ReadHaleMRICalibrationFile(Put("junk.txt", garbage), values, limits), 1);
    EXPECT_EQ(values.angleType, 1);
    EXPECT_EQ(values.anglePulses, 0);
    EXPECT_EQ(values.dropType, 1);
    EXPECT_EQ(values.dropPulses, 0);
    EXPECT_EQ(values.radiusType, Sample().radiusType);
    EXPECT_EQ(values.radiusPulses, Sample().radiusPulses);
    EXPECT_EQ(values.device, "Hale MRI");
}

TEST_F(modCalibrationFileTest, HaleMRIFailuresGoToTheHandlerAndChangeNothing) {
    values = Sample();
    limits = {1, 2, 3, 4};
    prompts.Expect(Answer::Ignore, "File not found reading HaleMRI calibration file from disk.");
    EXPECT_EQ(ReadHaleMRICalibrationFile(temp->File("missing.txt"), values, limits), 0);
    prompts.Expect(Answer::Ignore, "A mathematical error has occurred reading HaleMRI calibration file");
    EXPECT_EQ(ReadHaleMRICalibrationFile(Put("big.txt", "\"AngleResolution = \",1e999\r\n"), values, limits),
              0);
    EXPECT_EQ(values, Sample());
    EXPECT_EQ(limits, (CalibrationLimits{1, 2, 3, 4}));
}

} // namespace
} // namespace corvane
