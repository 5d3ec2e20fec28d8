#include "reference/modImportFile.h"

#include "PPPTestSupport.h"
#include "acquisition/clsVirtualPropeller.h"
#include "model/modUtilities.h"

namespace corvane {
namespace {

using modImportFileWriteTest = test::PPPTest;

const char* const kExportErrorText =
    "A minimum of 3 sections are required to create a reference PPP file. The PPP "
    "file cannot be exported.";
const char* const kPrepareErrorText =
    "An error occurred preparing the reference data. The PPP file cannot be exported.";

// A scan of the virtual propeller on the standard rows, with the measures of blade 0 filled in
// as the geometry would: pitch, chord and rake from the propeller's tables, a light camber.
std::shared_ptr<clsPropeller> MeasuredScan() {
    clsVirtualPropeller prop;
    prop.Pitch = {{0.3, 31.25}, {1.0, 36.8125}};
    prop.Chord = {{0.3, 6.5}, {0.7, 11.0}, {1.0, 2.5}};
    prop.Rake = {{0.3, 0.0}, {1.0, 0.84375}};
    auto scan = std::make_shared<clsPropeller>();
    const std::vector<double> rows(kStandardRadialPositions.begin(), kStandardRadialPositions.end());
    prop.FillScan(*scan, rows, 12);
    scan->SetDescription("Scan A: \"4-blade\" 40 x 36");
    clsBlades& blade = *scan->Blades(0);
    blade.SetISOBladePitch(34.5625);
    for (int k = 0; k < 8; ++k) {
        const double r = rows[static_cast<std::size_t>(k)];
        blade.SetRadialPos(k, r);
        blade.SetPitch(k, prop.PitchAt(0, r));
        blade.SetChord(k, prop.At(prop.Chord, r));
        blade.SetRakeAft(k, prop.At(prop.Rake, r));
        blade.SetSkewHelix(k, -0.25 * k);
        blade.Section(k)->SetSegmentPanelPitchArray(
            {blade.Pitch(k) - 0.25, blade.Pitch(k) + 0.25, blade.Pitch(k) + 0.25, blade.Pitch(k) - 0.25});
    }
    return scan;
}

void ExpectSameWithinPrint(const clsPropeller& read, const clsPropeller& written,
                           const std::vector<int>& rows) {
    const clsBlades& a = *read.Blades(0);
    clsBlades& b = *written.Blades(0);
    ASSERT_EQ(a.SectionCount(), static_cast<int>(rows.size()));
    EXPECT_EQ(read.Description(), written.Description());
    EXPECT_NEAR(read.Diameter(), written.Diameter(), 5e-5);
    EXPECT_NEAR(a.ISOBladePitch(), b.ISOBladePitch(), 5e-5);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int k = rows[i];
        const int r = static_cast<int>(i);
        EXPECT_NEAR(a.RadialPos(r), b.RadialPos(k), 5e-4) << k; // r/R * 100 with one decimal
        EXPECT_NEAR(a.Pitch(r), b.Pitch(k), 5e-5) << k;
        EXPECT_NEAR(a.Chord(r), b.Chord(k), 5e-5) << k;
        EXPECT_NEAR(a.RakeAft(r), b.RakeAft(k), 5e-5) << k;
        EXPECT_NEAR(a.SkewHelix(r), b.SkewHelix(k), 5e-5) << k;
        auto from = b.Section(k);
        auto to = read.Blades(0)->Section(r);
        ASSERT_EQ(to->SegmentPanelCount(), from->SegmentPanelCount());
        for (int j = 0; j < from->SegmentPanelCount(); ++j) {
            EXPECT_NEAR(to->SegmentPanelPitch(j), from->SegmentPanelPitch(j), 5e-5) << k << "/" << j;
        }
    }
}

TEST_F(modImportFileWriteTest, WhatIsWrittenReadsBackWithinThePrintedDigits) {
    const auto scan = MeasuredScan();
    scan->Blades(0)->Section(3)->SetRawOffsetCount(0); // no offsets: left out of the file
    const std::string path = temp->File("scan.ppp");
    ASSERT_EQ(WritePPPFile(path, *scan), 1);

    const std::string text = test::FileBytes(path);
    EXPECT_TRUE(text.starts_with("[Prop Description]\r\nScan A: \"4-blade\" 40 x 36\r\n"));
    EXPECT_NE(text.find("[Number of Radii + 1]\r\n7\r\n[Number of Sectors per Radius + 2]\r\n4\r\n"),
              std::string::npos);
    // Hub first, each cell 14 characters wide.
    EXPECT_NE(text.find("34.5625       30.0          40.0          50.0          60.0          80.0          "
                        "90.0          95.0          \r\nLE            "),
              std::string::npos);
    EXPECT_NE(text.find("\r\nTE            31"), std::string::npos);

    clsPropeller back;
    ASSERT_EQ(ImportPPPFile(path, back, 4), 1);
    ExpectSameWithinPrint(back, *scan, {0, 1, 2, 4, 5, 6, 7});
}

// A value as wide as a cell still stands apart from the next one.
TEST_F(modImportFileWriteTest, WideValuesKeepTheirCellsApart) {
    const auto scan = MeasuredScan();
    scan->Blades(0)->SetChord(2, 123456789012.5);
    scan->Blades(0)->SetRakeAft(2, -1234567890.25);
    const std::string path = temp->File("wide.ppp");
    ASSERT_EQ(WritePPPFile(path, *scan), 1);
    clsPropeller back;
    ASSERT_EQ(ImportPPPFile(path, back, 4), 1);
    EXPECT_DOUBLE_EQ(back.Blades(0)->Chord(2), 123456789012.5);
    EXPECT_DOUBLE_EQ(back.Blades(0)->RakeAft(2), -1234567890.25);
    EXPECT_NEAR(back.Blades(0)->Chord(3), scan->Blades(0)->Chord(3), 5e-5);
}

TEST_F(modImportFileWriteTest, ExportWithoutReferenceOrFolderFails) {
    prompts.Expect(Answer::Ignore, "calculating reference propeller geometric properties");
    prompts.Expect(Answer::OK, kPrepareErrorText);
    EXPECT_EQ(ExportPPPFile(temp->File("none.ppp")), 0);

    const auto scan = MeasuredScan();
    prompts.Expect(Answer::Ignore, "exporting the Michigan Wheel PPP file");
    EXPECT_EQ(WritePPPFile(temp->File("missing/folder.ppp"), *scan), 0);
    EXPECT_EQ(prompts.History().back().kind, ScriptedPrompts::Kind::CriticalError);
}

// Sections at radii of their own, out of order, with values linear in r/R: the spline keeps
// straight runs straight, so every standard radius gets the exact line value, panels too.
TEST_F(modImportFileWriteTest, ResplineMovesSectionsOntoTheStandardRadii) {
    gRadialPositions[7] = 0.25; // an inner radius of 25 %
    clsPropeller p;
    p.SetBladeCount(4);
    clsBlades& blade = *p.Blades(0);
    const std::vector<double> own = {0.85, 1.0, 0.45, 0.22, 0.62};
    blade.SetSectionCount(static_cast<std::int16_t>(own.size()));
    for (int k = 0; k < blade.SectionCount(); ++k) {
        const double r = own[static_cast<std::size_t>(k)];
        blade.SetRadialPos(k, r);
        blade.SetPitch(k, 30 + 6 * r);
        blade.SetChord(k, 2 + 8 * r);
        blade.SetRakeAft(k, 0.5 * r);
        blade.SetSkewHelix(k, 1 - r);
        blade.Section(k)->SetSegmentPanelPitchArray({29 + 6 * r, 31 + 6 * r, 31 + 6 * r, 29 + 6 * r});
    }
    ASSERT_EQ(ResplineSectionsToISORadii(p), 1);
    const clsBlades& now = blade;
    ASSERT_EQ(now.SectionCount(), 8);
    for (int k = 0; k < 8; ++k) {
        const double r = gRadialPositions[static_cast<std::size_t>(k)];
        EXPECT_EQ(now.RadialPos(k), r);
        // Measured again on the rebuilt surfaces of five offsets: close, not exact.
        EXPECT_NEAR(now.Pitch(k), 30 + 6 * r, 0.05) << k;
        EXPECT_NEAR(now.Chord(k), 2 + 8 * r, 1e-6) << k;
        EXPECT_NEAR(now.RakeAft(k), 0.5 * r, 1e-3) << k;
        EXPECT_NEAR(now.SkewHelix(k), 1 - r, 1e-3) << k;
        auto s = p.Blades(0)->Section(k);
        ASSERT_EQ(s->SegmentPanelCount(), 4);
        EXPECT_NEAR(s->SegmentPanelPitch(0), 29 + 6 * r, 1e-5) << k;
        EXPECT_NEAR(s->SegmentPanelPitch(2), 31 + 6 * r, 1e-5) << k;
        ASSERT_EQ(s->RawOffsetCount(), 5);
        auto copy = p.Blades(2)->Section(k);
        ASSERT_EQ(copy->RawOffsetCount(), 5);
        EXPECT_NEAR(Wrap180(copy->ThetaDeg(3) - s->ThetaDeg(3) - 180.0), 0.0, 1e-9);
    }
    EXPECT_TRUE(prompts.History().empty());
}

} // namespace
} // namespace corvane
