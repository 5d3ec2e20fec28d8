#include "platform/USB4Library.h"
#include "acquisition/modDAQUtilities.h"
#include "model/Globals.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"

#include <gtest/gtest.h>

#include <QLibrary>

namespace corvane {
namespace {

std::string FakeLog() {
    QLibrary fake(QStringLiteral(CORVANE_FAKE_USB4));
    const auto log = reinterpret_cast<const char* (*)()>(fake.resolve("FakeUSB4_Log"));
    return log ? log() : "";
}

TEST(USB4LibraryTest, AMissingLibraryLeavesTheStationWithoutABox) {
    USB4Library box(QStringLiteral("/no/such/folder/libusb4.so"));
    EXPECT_FALSE(box.Loaded());
    EXPECT_FALSE(box.Problem().isEmpty());
    DAQState daq(box);
    EXPECT_EQ(DAQDiscover(daq), 0);
}

TEST(USB4LibraryTest, TheLibrarysFunctionsGetTheStationsCallsAndRecords) {
    USB4Library box(QStringLiteral(CORVANE_FAKE_USB4));
    ASSERT_TRUE(box.Loaded()) << box.Problem().toStdString();
    DAQState daq(box);
    ASSERT_EQ(DAQDiscover(daq), 1);
    StationSettings station;
    station.angleCalibration = 8000;
    station.radiusCalibration = 2; // a preset of 49.8 goes to the box as 50
    station.dropCalibration = 200;
    station.angleEncoderType = 1;
    station.radiusEncoderFlip = true;
    ASSERT_EQ(DAQConfigureCounters(daq, station), 1);
    DAQConfigureFIFOLog(daq, true);
    EXPECT_EQ(FakeLog(),
              "SetMultiplier(0,0,3);SetPresetValue(0,0,7999);SetCounterMode(0,0,3);SetForward(0,0,0);"
              "SetCounterEnabled(0,0,-1);ResetCount(0,0);SetEnableIndex(0,0,0);SetEnableIndexOnMatch(0,0,0);"
              "SetMultiplier(0,1,0);SetPresetValue(0,1,50);SetCounterMode(0,1,0);SetForward(0,1,-1);"
              "SetCounterEnabled(0,1,-1);ResetCount(0,1);"
              "SetMultiplier(0,2,0);SetPresetValue(0,2,5079);SetCounterMode(0,2,0);SetForward(0,2,0);"
              "SetCounterEnabled(0,2,-1);ResetCount(0,2);"
              "DisableFIFOBuffer(0);StopAcquisition(0);ClearFIFOBuffer(0);SetSamplingRateMultiplier(0,4999);"
              "SetTimeBasedLogSettings(0,1,3500,819202);");

    std::array<double, 4> counts{};
    std::uint32_t time = 0;
    DAQReadCounts(daq, counts, time);
    EXPECT_EQ(counts, (std::array<double, 4>{123, -6, 5, 0}));
    EXPECT_EQ(DAQReadA2D(daq), 4001);

    QLibrary fake(QStringLiteral(CORVANE_FAKE_USB4));
    reinterpret_cast<void (*)(int)>(fake.resolve("FakeUSB4_Feed"))(4);
    EXPECT_EQ(DAQGetFIFOCount(daq), 4);
    clsSection section;
    clsUnits mm;
    mm.SetPropLengthIndex(3);
    station.radiusEncoderType = 1;
    station.radiusCalibration = 200;
    daq.lastRadiusCount = daq.lastDropCount = 0;
    ASSERT_EQ(DAQReadFIFORecords(daq, {section, 0, 0}, station, mm), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(section.ThetaDeg(i), 4.5 * i, 1e-12) << "counts at byte offset 12";
        EXPECT_NEAR(section.Radius(i), 200, 1e-12);
        EXPECT_NEAR(section.AxialDropX(i), 0.05 * i, 1e-12);
    }
}

} // namespace
} // namespace corvane
