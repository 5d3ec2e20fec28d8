#include "acquisition/ScanWorkflow.h"
#include "acquisition/ScanRadii.h"
#include "acquisition/ScriptedOperator.h"
#include "acquisition/SimulatedEncoderBox.h"
#include "common/ServicesFixture.h"
#include "files/modProjectCommands.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/clsCorvane.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

// A three-bladed 40 in propeller inspected to class II of ISO 484-2: radii 0.9, 0.7 and 0.5 (rows
// 1, 3 and 5), swept from the inside out. The arm is calibrated with the settings' defaults.
class ScanWorkflowTest : public test::ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        ASSERT_EQ(CreateNewProject(), 1);
        gUnits->SetPropLengthIndex(2);
        gProject->SetCustomer("Harbour Tug");
        gProject->SetProjectID("TUG-1");
        gProject->SetMarkedDiameter(40);
        gProject->SetMarkedPitch("36");
        gProject->SetBladeCount(3);
        gISO484->SetISOClassIndex(3);
        SetISOStandardAndTolerances(*gISO484, *gProject);
        station.angleCalibration = 8000;
        station.radiusCalibration = 200;
        station.dropCalibration = 200;
        station.angleEncoderType = station.radiusEncoderType = station.dropEncoderType = 1;
        station.radiusEncoderFlip = station.dropEncoderFlip = true;
        station.footPedal = true;
        station.audioFeedback = true;
        station.keyboardTrigger = 'G';
    }

    ScanContext Ctx() {
        return ScanContext{*gProject, *gISO484,    station,      2,
                           orderMode, ActiveBlade, ActiveRadius, gRadialPositions};
    }

    // The Scan page opened on a new scan, HOME pressed with the arm where it stands.
    void StartScan() {
        workflow.PageLoad(Ctx());
        workflow.Activate(Ctx());
        ASSERT_TRUE(workflow.AddScan(Ctx(), clock.Now()));
        EXPECT_EQ(workflow.View().guidance, "Retract to minimum, move to center of Blade 1, set Zero.");
        workflow.PressScanButton(Ctx());
        EXPECT_EQ(workflow.ScanState(), 1);
    }

    void Tick(int ticks = 1) {
        for (int i = 0; i < ticks; ++i) {
            now += 10;
            box.AdvanceTo(now);
            workflow.Tick(Ctx());
        }
    }

    // Stands the arm on row 3 (0.7R, 14 in): HOME zeroed the counters at position 0.
    void ToRadius(double angle = 0, int pedal = 0) { box.MoveArm({angle, 14 * 25.4 * 200, 500, pedal}); }

    std::shared_ptr<clsSection> Section(int blade, int row) const {
        return gProject->PropellerScan(gProject->ActiveScanIndex())->Blades(blade)->Section(row);
    }

    StationSettings station;
    std::int16_t orderMode = 0;
    SimulatedEncoderBox box;
    ScanWorkflow workflow{box};
    double now = 0;
};

TEST_F(ScanWorkflowTest, TheScriptedWalkFollowsTheScanAndBladeOrders) {
    using Sweeps = std::vector<std::pair<int, int>>;
    const struct {
        std::int16_t orderMode;
        std::int32_t bladeOrder;
        Sweeps sweeps; // (blade, row) at each GO
        const char* firstStop;
    } cases[] = {
        {0,
         0,
         {{0, 5}, {1, 5}, {2, 5}, {0, 3}, {1, 3}, {2, 3}, {0, 1}, {1, 1}, {2, 1}},
         "Move to trailing edge of Blade 2."},
        {0,
         1,
         {{0, 5}, {2, 5}, {1, 5}, {0, 3}, {2, 3}, {1, 3}, {0, 1}, {2, 1}, {1, 1}},
         "Move to trailing edge of Blade 3."},
        {1,
         0,
         {{0, 5}, {0, 3}, {0, 1}, {1, 5}, {1, 3}, {1, 1}, {2, 5}, {2, 3}, {2, 1}},
         "Move to a valid radius for Blade 1."},
    };
    clsVirtualPropeller propeller;
    propeller.BladeCount = 3;
    propeller.Chord = {{0.0, 6.0}};
    for (const auto& c : cases) {
        orderMode = c.orderMode;
        station.scanBladeOrder = c.bladeOrder;
        OperatorPlan plan;
        plan.station = station;
        plan.scanOrderMode = c.orderMode;
        plan.radii = ScanRadiusOrder(*gISO484, gRadialPositions);
        ASSERT_EQ(plan.radii, (std::vector<int>{5, 3, 1}));
        auto trajectory = std::make_shared<ArmTrajectory>(
            ScriptOperator(*VirtualSweeps(propeller, gRadialPositions, 0), *gUnits, plan));
        box.Play(trajectory);
        StartScan();
        workflow.TakeEvents();
        const double start = now;
        Sweeps walked;
        std::vector<std::string> stops;
        while (now - start < trajectory->EndMs()) {
            Tick();
            const ScanEvents events = workflow.TakeEvents();
            if (events.sweepsStarted > 0)
                walked.emplace_back(ActiveBlade, ActiveRadius);
            if (events.sweepsEnded > 0)
                stops.push_back(workflow.View().guidance);
        }
        EXPECT_EQ(walked, c.sweeps) << "order " << c.orderMode << ", blades " << c.bladeOrder;
        ASSERT_EQ(stops.size(), c.sweeps.size());
        EXPECT_EQ(stops.front(), c.firstStop);
        for (const auto& [blade, row] : c.sweeps) {
            const auto section = Section(blade, row);
            // The pedal's log: about one point for each count the angle moved on.
            EXPECT_GT(section->RawOffsetCount(), 100) << blade << "/" << row;
            for (int i = 1; i < section->RawOffsetCount(); ++i)
                ASSERT_GT(Wrap180(section->ThetaDeg(i) - section->ThetaDeg(i - 1)), 0);
        }
        EXPECT_EQ(Section(0, 0)->RawOffsetCount(), 0) << "row 0 is not swept in class II";
    }
}

TEST_F(ScanWorkflowTest, ThePedalFiresOnceAndRearmsOnlyBelowTheLowerLevel) {
    StartScan();
    Tick(); // out of every window: the button waits
    EXPECT_FALSE(workflow.View().scanButton.enabled);
    EXPECT_EQ(workflow.View().guidance, "Move to a valid radius for Blade 1.");
    ToRadius();
    Tick();
    EXPECT_TRUE(workflow.View().scanButton.enabled);
    EXPECT_EQ(ActiveRadius, 3);
    EXPECT_EQ(sound.lastFrequencyHz, 1400) << "the arm came into a valid radius";
    const struct {
        int pedal;
        int presses;
    } steps[] = {{4000, 0}, {4001, 1}, {3000, 1}, {4095, 1}, {2500, 1}, {2499, 1}, {4001, 2}, {4095, 2}};
    int presses = 0;
    for (const auto& step : steps) {
        ToRadius(0, step.pedal);
        Tick();
        const ScanEvents events = workflow.TakeEvents();
        presses += events.sweepsStarted + events.sweepsEnded;
        EXPECT_EQ(presses, step.presses) << "pedal " << step.pedal;
    }
    EXPECT_EQ(workflow.ScanState(), 1) << "GO, then STOP";
}

TEST_F(ScanWorkflowTest, ReScanLastAndTheBufferResetEraseWhatWasSwept) {
    StartScan();
    ToRadius();
    Tick();
    workflow.PressScanButton(Ctx()); // GO
    for (int step = 0; step < 5; ++step) {
        ToRadius(-10.0 * step); // the angle counter runs backwards: the angle grows
        Tick();
    }
    ToRadius(-20); // backwards
    Tick();
    EXPECT_EQ(workflow.View().ShownGuidance(), "Not Recording");
    EXPECT_EQ(workflow.RecordPointCount(), 5);
    workflow.PressScanButton(Ctx()); // STOP: nothing logged without a pedal, the polled points stand
    EXPECT_EQ(ActiveBlade, 1);
    EXPECT_EQ(Section(0, 3)->RawOffsetCount(), 5);

    prompts.Expect(Answer::Yes, "Warning! There are 5 points in the last scanned radius. Erase this data and "
                                "re-scan the 70R for blade 1?");
    workflow.ReScanLast(Ctx());
    EXPECT_EQ(prompts.History().back().title, "RE-SCAN LAST");
    EXPECT_EQ(Section(0, 3)->RawOffsetCount(), 0);
    EXPECT_EQ(ActiveBlade, 0);
    prompts.Expect(Answer::OK, "There are no data points in the 70R for blade 3.");
    workflow.ReScanLast(Ctx());

    // During a sweep it aborts: the next tick ends the sweep and keeps nothing.
    workflow.PressScanButton(Ctx());
    ToRadius(-30);
    Tick();
    workflow.ReScanLast(Ctx());
    Tick();
    EXPECT_FALSE(workflow.Recording());
    EXPECT_TRUE(workflow.View().topBarEnabled);
    EXPECT_EQ(Section(0, 3)->RawOffsetCount(), 0);

    Section(0, 3)->SetRawOffsetCount(7);
    prompts.Expect(Answer::No,
                   "Warning! There are 7 points in the buffer. Erase the buffer and re-scan the 70R "
                   "for blade 1?");
    workflow.ResetScanBuffer(Ctx());
    EXPECT_EQ(Section(0, 3)->RawOffsetCount(), 7);
    prompts.Expect(Answer::Yes, "points in the buffer");
    workflow.ResetScanBuffer(Ctx());
    EXPECT_EQ(prompts.History().back().title, "Reset scan buffer");
    EXPECT_EQ(Section(0, 3)->RawOffsetCount(), 0);
}

TEST_F(ScanWorkflowTest, TheTriggerKeyFiresInEitherCaseAndTheScanLimitHolds) {
    StartScan();
    ToRadius();
    Tick();
    EXPECT_FALSE(workflow.KeyTyped(Ctx(), 'h'));
    EXPECT_TRUE(workflow.KeyTyped(Ctx(), 'g')) << "stored upper case, typed lower case";
    EXPECT_TRUE(workflow.Recording());
    EXPECT_TRUE(workflow.KeyTyped(Ctx(), ' ')) << "the blank always works";
    EXPECT_FALSE(workflow.Recording());

    gProject->SetPropellerScanCount(50);
    EXPECT_TRUE(workflow.AddScan(Ctx(), clock.Now())) << "the 51st is still taken";
    EXPECT_EQ(gProject->PropellerScanCount(), 51);
    EXPECT_EQ(gProject->PropellerScan(50)->ScanDate(), "22-Nov-2026 09:05");
    prompts.Expect(Answer::OK, "The project only supports up to 50 scans!");
    EXPECT_FALSE(workflow.AddScan(Ctx(), clock.Now()));
    EXPECT_EQ(prompts.History().back().title, "Scan limit");
    EXPECT_EQ(gProject->PropellerScanCount(), 51);
}

TEST_F(ScanWorkflowTest, TypedTipsAskBeforeTheyAreTakenAgainAndASweptScanIsOnlyOverwritten) {
    StartScan();
    station.radiusEncoderType = 0; // no radial encoder: the tips are typed
    const auto tip = [](int blade) { return gProject->PropellerScan(0)->Blades(blade)->BladeDiameter(); };
    for (const char* radius : {"19.5", "19.75", "20"}) {
        prompts.ExpectInput(radius, "Enter the radius of Blade");
    }
    workflow.TipClick(Ctx());
    EXPECT_EQ(tip(1), 39.5);
    EXPECT_EQ(tip(2), 40);
    EXPECT_FALSE(workflow.View().tip.pressed);

    prompts.Expect(Answer::No, "The tip diameters have already been recorded.");
    workflow.TipClick(Ctx());
    EXPECT_EQ(tip(0), 39) << "No keeps them";
    prompts.Expect(Answer::Yes, "The tip diameters have already been recorded.");
    prompts.ExpectInput(std::nullopt, "Enter the radius of Blade 1:");
    workflow.TipClick(Ctx());
    EXPECT_EQ(tip(0) + tip(1) + tip(2), 0) << "a cancelled entry leaves no tip";

    // A scan that holds sweeps takes no more: its letter shows N/A until it is overwritten.
    Section(0, 3)->SetRawOffsetCount(5);
    workflow.HistoryClick(Ctx(), 0);
    EXPECT_EQ(workflow.View().scanButton.caption, "N/A");
    EXPECT_EQ(workflow.View().guidance, "Previous scan data exists, scan data cannot be added.");
    prompts.Expect(Answer::No, "Re-scan and overwrite all data from Scan A?");
    EXPECT_FALSE(workflow.OverwriteScan(Ctx()));
    prompts.Expect(Answer::Yes, "Re-scan and overwrite all data from Scan A?");
    ASSERT_TRUE(workflow.OverwriteScan(Ctx()));
    EXPECT_EQ(workflow.View().scanButton.caption, "HOME");
    EXPECT_EQ(Section(0, 3)->RawOffsetCount(), 0);
    EXPECT_EQ(gProject->PropellerScan(0)->Blades(2)->SectionCount(), 8);
}

} // namespace
} // namespace corvane
