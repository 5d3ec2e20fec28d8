#include "ReferenceFixture.h"

#include "files/modReferenceFile.h"
#include "reference/modImportFile.h"

namespace corvane::test {
namespace {

// Every blade of the reference holds the same row: pitch, chord, rake and panels.
void ExpectBladesAlike(clsPropeller& ref, int row, double rel = 1e-6) {
    auto first = ref.Blades(0);
    for (int b = 1; b < ref.BladeCount(); ++b) {
        SCOPED_TRACE("blade " + std::to_string(b) + ", row " + std::to_string(row));
        auto blade = ref.Blades(b);
        EXPECT_TRUE(Near(blade->Pitch(row), first->Pitch(row), rel));
        EXPECT_TRUE(Near(blade->Chord(row), first->Chord(row), rel));
        EXPECT_TRUE(Near(blade->RakeAft(row), first->RakeAft(row), rel, 100.0));
        ASSERT_EQ(blade->Section(row)->SegmentPanelCount(), first->Section(row)->SegmentPanelCount());
        for (int j = 0; j < first->Section(row)->SegmentPanelCount(); ++j) {
            EXPECT_TRUE(Near(blade->Section(row)->SegmentPanelPitch(j),
                             first->Section(row)->SegmentPanelPitch(j), rel));
        }
    }
}

using modReferencePropertiesTest = ReferenceTest;

TEST_F(modReferencePropertiesTest, NoReferenceIsAPlainCopyOfTheInternalScan) {
    ASSERT_TRUE(Measure(Shop()));
    gProject->SetReferenceSourceIndex(0);
    ASSERT_EQ(Calculate(), 1);
    EXPECT_NE(gProject->ReferenceScan(), gProject->PropellerScan(0));
    EXPECT_EQ(Ref().Blades(2)->Section(3)->ThetaDegArray(), Active().Blades(2)->Section(3)->ThetaDegArray());
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(modReferencePropertiesTest, ScanReferenceAtConstantPitchIsTheIdealPropellerOnTheScanGrid) {
    clsVirtualPropeller prop = Shop();
    ASSERT_TRUE(Measure(prop));
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceConstantPitch(2500.0);
    ASSERT_EQ(Calculate(), 1);
    const IdealScan ideal{prop};
    ASSERT_EQ(Ref().BladeCount(), 4);
    for (int k = 0; k < 8; ++k) {
        SCOPED_TRACE("row " + std::to_string(k));
        auto blade = Ref().Blades(0);
        EXPECT_TRUE(Near(blade->RadialPos(k), ideal.Q(k), 1e-6));
        EXPECT_DOUBLE_EQ(blade->Pitch(k), 2500.0);
        EXPECT_TRUE(Near(blade->Chord(k), ideal.Chord(k), 1e-4));
        // Flat face: every panel at the section pitch, on the scan's panel grid.
        const int panels = Active().Blades(0)->Section(k)->SegmentPanelCount();
        ASSERT_EQ(blade->Section(k)->SegmentPanelCount(), panels);
        for (int j = 0; j < panels; ++j) {
            EXPECT_TRUE(Near(blade->Section(k)->SegmentPanelPitch(j), 2500.0, 1e-6)) << "panel " << j;
        }
        ExpectBladesAlike(Ref(), k);
        // The scan's rake is read at the reference's BCL angle.
        for (int b = 0; b < 4; ++b) {
            EXPECT_TRUE(SameAngle(Active().Blades(b)->ISOTotalThetaDegToBCL(k),
                                  Ref().Blades(b)->ISOTotalThetaDegToBCL(k), 1e-9));
        }
    }
    for (int b = 0; b < 4; ++b) {
        EXPECT_TRUE(
            SameAngle(Ref().Blades(b)->GLPositionThetaDeg(), Active().Blades(b)->GLPositionThetaDeg(), 1e-9));
        EXPECT_TRUE(Near(Ref().Blades(b)->ISOBladePitch(), 2500.0, 1e-9));
    }
    EXPECT_TRUE(Near(Ref().ISOPropellerPitch(), 2500.0, 1e-9));
    EXPECT_DOUBLE_EQ(gProject->ReferenceDiameter(), 3000.0);
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(modReferencePropertiesTest, VariablePitchFollowsTheTableAndOneUsableRowGivesOnePitch) {
    ASSERT_TRUE(Measure(Shop()));
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceSectionPitchIndex(1);
    gProject->SetReferenceVariablePitchCount(8);
    for (int i = 0; i < 8; ++i) {
        gProject->SetReferenceVariablePitchRadialPos(i,
                                                     kStandardRadialPositions[static_cast<std::size_t>(i)]);
        gProject->SetReferenceVariablePitch(
            i, 2000.0 + 500.0 * kStandardRadialPositions[static_cast<std::size_t>(i)]);
    }
    ASSERT_EQ(Calculate(), 1);
    for (int k = 0; k < 8; ++k) {
        // The pitch is linear in r/R, which the spline through the rows keeps.
        const double q = Ref().Blades(0)->RadialPos(k);
        EXPECT_TRUE(Near(Ref().Blades(3)->Pitch(k), 2000.0 + 500.0 * q, 1e-6)) << "row " << k;
    }

    for (int i = 0; i < 8; ++i) {
        gProject->SetReferenceVariablePitch(i, i == 4 ? 2300.0 : 0.0);
    }
    ASSERT_EQ(Calculate(), 1);
    for (int k = 0; k < 8; ++k) {
        EXPECT_DOUBLE_EQ(Ref().Blades(1)->Pitch(k), 2300.0) << "row " << k;
    }

    // No usable row: no reference, and nothing said.
    gProject->SetReferenceVariablePitch(4, 0.0);
    EXPECT_EQ(Calculate(), 0);
    EXPECT_TRUE(prompts.History().empty());
}

// A cambered section: one row of every blade bulges along its chord, so its local pitch falls from
// the trailing edge to the leading edge.
void Camber(clsPropeller& scan, int row, double height) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        auto s = scan.Blades(b)->Section(row);
        const int n = s->RawOffsetCount();
        for (int i = 0; i < n; ++i) {
            const double t = static_cast<double>(i) / (n - 1);
            s->SetAxialDropX(i, s->AxialDropX(i) + 4.0 * height * t * (1.0 - t));
        }
    }
}

TEST_F(modReferencePropertiesTest, CamberedFaceKeepsTheMeasuredRunOfPitchAtTheReferenceLevel) {
    ASSERT_TRUE(Measure(Shop(), nullptr, [](clsPropeller& scan) { Camber(scan, 3, 12.0); }));
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceConstantPitch(2400.0);
    gProject->SetReferenceLocalPitchIndex(1);
    ASSERT_EQ(Calculate(), 1);
    auto cambered = Ref().Blades(0)->Section(3)->SegmentPanelPitchArray();
    ASSERT_GE(cambered.size(), 4u);
    // The measured shape, scaled to the reference pitch: the same run as the scan's panels.
    auto measured = Active().Blades(0)->Section(3)->SegmentPanelPitchArray();
    ASSERT_EQ(measured.size(), cambered.size());
    EXPECT_GT(cambered.front(), cambered.back() + 50.0);
    for (std::size_t j = 0; j < cambered.size(); ++j) {
        EXPECT_TRUE(Near(cambered[j], measured[j], 0.01)) << "panel " << j;
    }
    // An uncambered row stays flat.
    for (double p : Ref().Blades(0)->Section(1)->SegmentPanelPitchArray()) {
        EXPECT_TRUE(Near(p, 2400.0, 1e-4));
    }

    gProject->SetReferenceLocalPitchIndex(0);
    ASSERT_EQ(Calculate(), 1);
    for (double p : Ref().Blades(2)->Section(3)->SegmentPanelPitchArray()) {
        EXPECT_TRUE(Near(p, 2400.0, 1e-6));
    }
}

TEST_F(modReferencePropertiesTest, BladesSwitchedOffStayOutOfTheMeanSection) {
    clsVirtualPropeller prop = Shop();
    prop.BladeOffsetDeg = {0.0, 0.0, 1.5, 0.0}; // swept blade 2 stands off its spacing
    ASSERT_TRUE(Measure(prop));
    gProject->SetReferenceSourceIndex(1);
    const int off = SlotOf(2, 4);
    const double cleanRake = Active().Blades(1)->RakeAft(4);
    const double offRake = Active().Blades(off)->RakeAft(4);
    ASSERT_GT(std::fabs(cleanRake - offRake), 5.0);

    ASSERT_EQ(Calculate(), 1);
    EXPECT_TRUE(Near(Ref().Blades(0)->RakeAft(4), (3.0 * cleanRake + offRake) / 4.0, 1e-6, 100.0));
    gProject->SetReferenceScanBladesEnabled(off, 0);
    ASSERT_EQ(Calculate(), 1);
    EXPECT_TRUE(Near(Ref().Blades(0)->RakeAft(4), cleanRake, 1e-6, 100.0));
    EXPECT_TRUE(Near(Ref().Blades(off)->RakeAft(4), cleanRake, 1e-6, 100.0));
    EXPECT_TRUE(prompts.History().empty());

    // All of them off is an error of the calculation.
    for (int b = 0; b < 4; ++b) {
        gProject->SetReferenceScanBladesEnabled(b, 0);
    }
    prompts.Expect(Answer::Ignore, "calculating reference propeller geometric properties");
    EXPECT_EQ(Calculate(), 0);
    EXPECT_EQ(prompts.Pending(), 0u);
}

TEST_F(modReferencePropertiesTest, ScanOfFewerBladesThanTheReferenceIsToldByBlade) {
    ASSERT_TRUE(Measure(Shop(), nullptr));
    gProject->SetPropellerScanCount(2);
    gProject->PropellerScan(1)->SetBladeCount(4);
    Shop().FillScan(*gProject->PropellerScan(1), Rows(), kPoints);
    gProject->PropellerScan(0)->SetBladeCount(3);
    gProject->SetInternalScanSourceIndex(1);
    gProject->SetInternalScanIndex(1);
    gProject->SetReferenceSourceIndex(1);
    prompts.SetAnswerFreely(true); // the error handler speaks first about the missing blade
    EXPECT_EQ(Calculate(), 0);
    const auto& history = prompts.History();
    const auto told = std::find_if(history.begin(), history.end(), [](const auto& shown) {
        return shown.text ==
               "An error occurred calculating the blade angle shift for the Propeller scan (Blade: 4).";
    });
    ASSERT_NE(told, history.end());
    EXPECT_EQ(told->title, "Reference Data Error");
    EXPECT_EQ(told->style, MsgBox::OKOnly | MsgBox::Exclamation);
}

// A reference as the reference editor writes it: one blade of section values, no sweeps.
std::shared_ptr<clsPropeller> FileReference(const clsVirtualPropeller& prop, double pitch, int panels = 4) {
    auto p = std::make_shared<clsPropeller>();
    p->SetBladeCount(1);
    p->SetDiameter(prop.Diameter);
    auto blade = p->Blades(0);
    blade->SetSectionCount(8);
    for (int k = 0; k < 8; ++k) {
        const double q = kStandardRadialPositions[static_cast<std::size_t>(k)];
        blade->SetRadialPos(k, q);
        blade->SetPitch(k, pitch);
        blade->SetChord(k, prop.At(prop.Chord, q));
        blade->SetSkewHelix(k, 0.0);
        blade->Section(k)->SetSegmentPanelPitchArray(
            std::vector<double>(static_cast<std::size_t>(panels), pitch));
    }
    return p;
}

TEST_F(modReferencePropertiesTest, FileReferenceIsBladeZeroRepeatedOnTheScanGLsWithMissingRowsBlanked) {
    clsVirtualPropeller prop = Shop();
    prop.Rake = {{0.0, 0.0}};
    prop.SkewDeg = {{0.0, 0.0}};
    ASSERT_TRUE(Measure(prop, nullptr, [](clsPropeller& scan) {
        for (int b = 0; b < 4; ++b) {
            scan.Blades(b)->Section(5)->SetRawOffsetCount(0);
        }
    }));
    gProject->SetReferenceSource(FileReference(prop, 2450.0));
    for (std::int16_t source : {2, 3}) {
        SCOPED_TRACE("source " + std::to_string(source));
        gProject->SetReferenceSourceIndex(source);
        ASSERT_EQ(Calculate(), 1);
        ASSERT_EQ(Ref().BladeCount(), 4);
        for (int b = 0; b < 4; ++b) {
            auto blade = Ref().Blades(b);
            EXPECT_TRUE(SameAngle(blade->GLPositionThetaDeg(), Active().Blades(b)->GLPositionThetaDeg()));
            EXPECT_EQ(blade->Section(5)->RawOffsetCount(), 0);
            EXPECT_EQ(blade->Section(5)->SegmentPanelCount(), 0);
            // Each blade stands where the scan's blade stands.
            EXPECT_TRUE(SameAngle(blade->ISOEffectiveBladeAngleDeg(),
                                  Active().Blades(b)->ISOEffectiveBladeAngleDeg(), 1e-3));
        }
        for (int k : {0, 3, 7}) {
            EXPECT_TRUE(Near(Ref().Blades(0)->Pitch(k), 2450.0, 1e-4)) << "row " << k;
            ExpectBladesAlike(Ref(), k, 1e-6);
        }
        EXPECT_TRUE(Near(Ref().ISOPropellerPitch(), 2450.0, 1e-4));
    }
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(modReferencePropertiesTest, FileThatCannotBeResplinedIsTold) {
    ASSERT_TRUE(Measure(Shop()));
    auto broken = std::make_shared<clsPropeller>();
    broken->SetBladeCount(1);
    broken->Blades(0)->SetSectionCount(0); // read, but without a section
    gProject->SetReferenceSource(broken);
    gProject->SetReferenceSourceIndex(2);
    prompts.SetAnswerFreely(true);
    EXPECT_EQ(Calculate(), 0);
    ASSERT_FALSE(prompts.History().empty());
    EXPECT_EQ(prompts.History().back().text,
              "An error occurred splining the reference file to the current r/R distribution.");
    EXPECT_EQ(prompts.History().back().title, "Reference Data Error");
}

TEST_F(modReferencePropertiesTest, SectionsLandInTheRowsOfTheStandardTableAndStrangersAreDropped) {
    NewProject(0, 5);
    clsPropeller ref;
    ref.SetDescription("read");
    auto blade = ref.Blades(0);
    blade->SetSectionCount(4);
    const double radial[] = {0.305, 0.42, 0.7, 0.895}; // rows 7, none, 3 and 1
    for (int k = 0; k < 4; ++k) {
        blade->SetRadialPos(k, radial[k]);
        blade->SetPitch(k, 1000.0 + k);
        blade->SetRakeAft(k, 30.0 + k);
        blade->Section(k)->SetSegmentPanelPitchArray({1.0 + k, 2.0 + k, 3.0 + k});
    }
    ASSERT_EQ(ResortReferenceSections(ref), 1);
    EXPECT_EQ(ref.BladeCount(), 5);
    EXPECT_EQ(ref.Description(), "");
    auto out = ref.Blades(0);
    ASSERT_EQ(out->SectionCount(), 8);
    const std::pair<int, int> landed[] = {{7, 0}, {3, 2}, {1, 3}};
    for (const auto& [row, k] : landed) {
        EXPECT_DOUBLE_EQ(out->RadialPos(row), kStandardRadialPositions[static_cast<std::size_t>(row)]);
        EXPECT_DOUBLE_EQ(out->Pitch(row), 1000.0 + k) << row;
        EXPECT_DOUBLE_EQ(out->RakeAft(row), 0.0) << "the rake is not carried over";
        EXPECT_EQ(out->Section(row)->SegmentPanelPitchArray(),
                  (std::vector<double>{1.0 + k, 2.0 + k, 3.0 + k}));
    }
    for (int row : {0, 2, 4, 5, 6}) {
        EXPECT_DOUBLE_EQ(out->RadialPos(row), 0.0) << row;
        EXPECT_EQ(out->Section(row)->SegmentPanelCount(), 0) << row;
    }
}

} // namespace
} // namespace corvane::test
