#include "acquisition/modDAQUtilities.h"
#include "acquisition/NoEncoderBox.h"
#include "model/Globals.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

// A box whose log holds the records a test puts there, and that counts the calls it gets.
class LogBox : public NoEncoderBox {
public:
    std::int16_t boxes = 1;
    std::vector<USB4FIFORecord> log;
    int calls = 0;
    std::int32_t lastAsked = 0;

    void Initialize(std::int16_t& deviceCount) override { deviceCount = boxes; }
    void ResetCount(std::int16_t, std::int16_t) override { ++calls; }
    void SetMultiplier(std::int16_t, std::int16_t, std::int16_t) override { ++calls; }
    void GetFIFOBufferCount(std::int16_t, std::int32_t& count) override {
        ++calls;
        count = static_cast<std::int32_t>(log.size());
    }
    void ReadFIFOBufferStruct(std::int16_t, std::int32_t& count, USB4FIFORecord* buffer,
                              std::int32_t) override {
        lastAsked = count;
        count = std::min<std::int32_t>(count, static_cast<std::int32_t>(log.size()));
        std::copy_n(log.begin(), count, buffer);
    }
    void ClearFIFOBuffer(std::int16_t) override { log.clear(); }
};

USB4FIFORecord Record(std::int32_t angle, std::int32_t radius, std::int32_t drop) {
    USB4FIFORecord record;
    record.counts = {angle, radius, drop, 0};
    return record;
}

TEST(modDAQUtilitiesTest, TheDrainKeepsRecordsThatMoveOnInTheSweepDirection) {
    StationSettings station;
    station.angleCalibration = 8000; // 0.045 degrees a count
    station.radiusCalibration = 200;
    station.dropCalibration = 200;
    station.radiusEncoderType = 1;
    clsUnits mm;
    mm.SetPropLengthIndex(3);
    const struct {
        std::int16_t rotation;
        std::vector<std::int32_t> angles;
        std::vector<std::int32_t> kept;
    } cases[] = {
        // Right hand: angles grow; through 360 to 0 the jump is kept.
        {0, {7955, 7977, 11, 22, 18, 22, 44}, {7955, 7977, 11, 22, 44}},
        // Left hand: angles fall; through 0 to 360 likewise.
        {1, {44, 22, 33, 11, 7977, 7990, 7955}, {44, 22, 11, 7977, 7955}},
    };
    for (const auto& c : cases) {
        LogBox box;
        DAQState daq(box);
        ASSERT_EQ(DAQDiscover(daq), 1);
        for (std::size_t i = 0; i < c.angles.size(); ++i)
            box.log.push_back(Record(c.angles[i], 40000, static_cast<std::int32_t>(i) * 10));
        clsSection section;
        const int stored = DAQReadFIFORecords(daq, {section, c.rotation, 0}, station, mm);
        ASSERT_EQ(stored, static_cast<int>(c.kept.size()));
        EXPECT_EQ(box.lastAsked, static_cast<std::int32_t>(c.angles.size()) + 2) << "two more than announced";
        for (int i = 0; i < stored; ++i) {
            EXPECT_NEAR(section.ThetaDeg(i), c.kept[static_cast<std::size_t>(i)] * 0.045, 1e-9);
            EXPECT_DOUBLE_EQ(section.Radius(i), 200);
        }
        EXPECT_TRUE(box.log.empty()) << "the log is emptied after the drain";
        // Nothing waiting: the polled points stand.
        EXPECT_EQ(DAQReadFIFORecords(daq, {section, c.rotation, 0}, station, mm), 0);
        EXPECT_EQ(section.RawOffsetCount(), stored);
    }
}

TEST(modDAQUtilitiesTest, TwoBoxesAreTreatedLikeNoneAndNothingIsCalled) {
    for (const std::int16_t boxes : {0, 2}) {
        LogBox box;
        box.boxes = boxes;
        box.log.push_back(Record(1, 2, 3));
        DAQState daq(box);
        EXPECT_EQ(DAQDiscover(daq), 0);
        EXPECT_EQ(daq.deviceNo, -1);
        StationSettings station;
        EXPECT_EQ(DAQConfigureCounters(daq, station), 0);
        DAQResetDropCounter(daq);
        EXPECT_EQ(DAQGetFIFOCount(daq), 0);
        std::array<double, 4> counts{1, 1, 1, 1};
        std::uint32_t time = 0;
        DAQReadCounts(daq, counts, time);
        EXPECT_EQ(counts, (std::array<double, 4>{}));
        EXPECT_EQ(box.calls, 0) << boxes << " boxes";
    }
}

} // namespace
} // namespace corvane
