#include "acquisition/SimulatedEncoderBox.h"
#include "acquisition/ArmTrajectory.h"
#include "acquisition/RecordingEncoderBox.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

std::array<std::int32_t, 4> Counts(IEncoderBox& box) {
    std::array<std::int32_t, 4> counts{};
    std::uint32_t time = 0;
    box.CaptureTimeAndCounts(0, counts, time);
    return counts;
}

void Program(IEncoderBox& box, std::int32_t anglePreset) {
    box.SetCounterMode(0, 0, kCounterModeModulo);
    box.SetPresetValue(0, 0, anglePreset);
    box.SetForward(0, 0, false);
    for (std::int16_t ch = 0; ch < 3; ++ch)
        box.ResetCount(0, ch);
}

TEST(SimulatedEncoderBoxTest, CountersKeepTheBoxRules) {
    SimulatedEncoderBox box;
    box.MoveArm({100, 50, 20, 0});
    Program(box, 7999);
    const struct {
        ArmPosition arm;
        std::array<std::int32_t, 3> counts;
    } cases[] = {
        {{99, 49, 21, 0}, {1, 16777215, 1}},        // angle reversed, radius wraps at 2^24
        {{100 - 8001, 50, 20, 0}, {1, 0, 0}},       // modulo one turn
        {{100 + 3.5, 50.4, 20.6, 0}, {7996, 0, 1}}, // fractional positions round half to even
    };
    for (const auto& c : cases) {
        box.MoveArm(c.arm);
        const auto counts = Counts(box);
        EXPECT_EQ(counts[0], c.counts[0]);
        EXPECT_EQ(counts[1], c.counts[1]);
        EXPECT_EQ(counts[2], c.counts[2]);
    }
    box.MoveArm({100, 50, 20, 0});
    box.SetCount(0, 0, 4000);
    EXPECT_EQ(Counts(box)[0], 4000);
    box.MoveArm({90, 50, 20, 0});
    EXPECT_EQ(Counts(box)[0], 4010) << "SetCount moves the base, not the direction";
    box.SetForward(0, 0, true);
    EXPECT_EQ(Counts(box)[0], 4010) << "a change of direction keeps the count";
    std::int32_t pedal = -1;
    box.MoveArm({90, 50, 20, 3100});
    box.GetA2D(0, 0, pedal);
    EXPECT_EQ(pedal, 3100);
}

TEST(SimulatedEncoderBoxTest, TheLogStartsOnARisingPedalAndStopsFullOrStopped) {
    auto trajectory = std::make_shared<ArmTrajectory>();
    ASSERT_TRUE(trajectory->Add({0, 0, 0, 0, 4000})); // down already when armed: no start
    ASSERT_TRUE(trajectory->Add({10, 0, 0, 0, 0}));
    ASSERT_TRUE(trajectory->Add({20, 0, 0, 0, 3600})); // rises above 3500
    ASSERT_TRUE(trajectory->Add({50, 30, 0, 0, 0}));
    SimulatedEncoderBox box;
    box.Play(trajectory);
    TimeBasedLogSettings log;
    log.a2dTriggerMode[0] = 1;
    log.a2dThreshold[0] = 3500;
    log.recordLimit = kFIFORecordLimit;
    box.SetTimeBasedLogSettings(0, log);
    box.EnableFIFOBuffer(0);
    box.StartAcquisition(0);
    std::int32_t waiting = -1;
    box.AdvanceTo(15);
    box.GetFIFOBufferCount(0, waiting);
    EXPECT_EQ(waiting, 0);
    box.AdvanceTo(40);
    box.GetFIFOBufferCount(0, waiting);
    EXPECT_EQ(waiting, 21) << "one record a millisecond from 20 ms on";
    std::array<USB4FIFORecord, 30> records{};
    std::int32_t asked = 30;
    box.ReadFIFOBufferStruct(0, asked, records.data(), 0);
    EXPECT_EQ(asked, 21);
    EXPECT_EQ(records[20].counts[0], 20) << "the log samples where the arm moves";
    box.StopAcquisition(0);
    box.AdvanceTo(45);
    box.GetFIFOBufferCount(0, waiting);
    EXPECT_EQ(waiting, 0);

    // A full log stops logging.
    SimulatedEncoderBox full;
    full.Play(trajectory);
    full.SetTimeBasedLogSettings(0, log);
    full.SetLogCapacity(5);
    full.EnableFIFOBuffer(0);
    full.StartAcquisition(0);
    full.AdvanceTo(40);
    full.GetFIFOBufferCount(0, waiting);
    EXPECT_EQ(waiting, 5);
    EXPECT_TRUE(full.LogOverflowed());
}

TEST(SimulatedEncoderBoxTest, AVanishedBoxFreezesAndMissingBoxesAnswerNone) {
    SimulatedEncoderBox box;
    box.MoveArm({0, 0, 0, 0});
    Program(box, 7999);
    box.MoveArm({-5, 7, 9, 4095});
    const auto before = Counts(box);
    box.Vanish();
    box.MoveArm({-50, 70, 90, 4095});
    box.ResetCount(0, 1);
    EXPECT_EQ(Counts(box), before);
    std::int32_t pedal = 0;
    box.GetA2D(0, 0, pedal);
    EXPECT_EQ(pedal, 0);
    std::int16_t boxes = -1;
    box.Initialize(boxes);
    EXPECT_EQ(boxes, 0);
    SimulatedEncoderBox two;
    two.SetDeviceCount(2);
    two.Initialize(boxes);
    EXPECT_EQ(boxes, 2);
}

TEST(SimulatedEncoderBoxTest, TrajectoriesInterpolateHoldAndRefuseBrokenLines) {
    ArmTrajectory t;
    std::string error;
    ASSERT_TRUE(ParseArmTrajectory("# a comment\ntime_ms,angle,radius,drop,pedal\n0,0,100,-4,0\n"
                                   "10,20,100,6,4095\r\n\n20.5,20,100,6,0\n",
                                   t, error))
        << error;
    EXPECT_EQ(t.comments, std::vector<std::string>{"a comment"});
    EXPECT_EQ(t.At(5), (ArmPosition{10, 100, 1, 0})) << "positions move, the pedal holds";
    EXPECT_EQ(t.At(-3), (ArmPosition{0, 100, -4, 0}));
    EXPECT_EQ(t.At(99), (ArmPosition{20, 100, 6, 0}));
    ArmTrajectory again;
    ASSERT_TRUE(ParseArmTrajectory(FormatArmTrajectory(t), again, error));
    EXPECT_EQ(again.Samples(), t.Samples());

    const struct {
        const char* text;
        const char* error;
    } broken[] = {
        {"time,angle\n0,0,0,0,0\n", "line 1: the header must read"},
        {"time_ms,angle,radius,drop,pedal\n0,0,0,0\n", "line 2: a row has five values"},
        {"time_ms,angle,radius,drop,pedal\n0,0,0,0,0\n0,1,0,0,0\n", "line 3: the time does not increase"},
        {"time_ms,angle,radius,drop,pedal\n0,0.5,0,0,0\n", "line 2: positions are whole numbers"},
        {"time_ms,angle,radius,drop,pedal\n0,0,0,0,4096\n",
         "line 2: the pedal is a whole number from 0 to 4095"},
        {"time_ms,angle,radius,drop,pedal\n", "no samples"},
    };
    for (const auto& b : broken) {
        EXPECT_FALSE(ParseArmTrajectory(b.text, t, error));
        EXPECT_NE(error.find(b.error), std::string::npos) << error;
        EXPECT_TRUE(t.Empty());
    }
}

// What the recorder rebuilds from the counts and the resets plays back to the same counts, from
// the session's first HOME on.
TEST(SimulatedEncoderBoxTest, ARecordedSessionReplaysToTheSameCounts) {
    auto original = std::make_shared<ArmTrajectory>();
    original->Add({0, 500, 300, 200, 0});
    original->Add({100, -9000, 900, -100, 0}); // more than a turn back, the drop below its zero
    original->Add({200, 12000, 200, 50, 4095});
    original->Add({300, 12000, 200, 50, 0});
    SimulatedEncoderBox box;
    box.Play(original);
    RecordingEncoderBox recorder(box);
    std::vector<std::array<std::int32_t, 4>> seen;
    Program(recorder, 7999); // the window opens
    for (double t = 0; t <= 300; t += 10) {
        box.AdvanceTo(t);
        recorder.AdvanceTo(t);
        if (t == 50) {
            recorder.BeginAtHome();
            Program(recorder, 7999); // HOME
        }
        if (t == 150)
            recorder.SetCount(0, 0, 77);
        if (t >= 50)
            seen.push_back(Counts(recorder));
        std::int32_t pedal = 0;
        recorder.GetA2D(0, 0, pedal);
    }
    auto replayed = std::make_shared<ArmTrajectory>(recorder.Trajectory());
    EXPECT_EQ(replayed->Samples().front().timeMs, 0) << "HOME is the recording's time 0";
    SimulatedEncoderBox replay;
    replay.Play(replayed);
    Program(replay, 7999); // HOME of the replay
    for (std::size_t i = 0; i < seen.size(); ++i) {
        replay.AdvanceTo(static_cast<double>(i) * 10);
        if (i == 10)
            replay.SetCount(0, 0, 77);
        EXPECT_EQ(Counts(replay), seen[i]) << "at " << i * 10 << " ms";
    }
    EXPECT_LT(replayed->Samples().size(), seen.size()) << "still runs keep only their ends";
}

} // namespace
} // namespace corvane
