#include "common/ServicesFixture.h"

#include "acquisition/DemoProject.h"
#include "check/ReferenceTablesFromScan.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "reference/clsReferenceTables.h"
#include "reference/modReferenceEditor.h"

#include <cmath>

namespace corvane {
namespace {

// Chord, rake and skew follow r/R, so that a row that moves is known by all of them.
ReferenceSectionRow Row(double pct, double pitch, std::vector<double> local) {
    return ReferenceSectionRow{pct, pct / 10.0, pct / 100.0, pct / 20.0, pitch, std::move(local), 0};
}

class clsReferenceTablesTest : public test::ServicesTest {
protected:
    // Four sections given out of order, with cambered local pitch.
    void Fill() {
        tables.Assign("Tug reference", 40.0,
                      {Row(50, 34, {33, 34, 35}), Row(95, 35, {34.5, 35, 35.5}), Row(70, 36, {35, 36, 37}),
                       Row(30, 32.5, {32, 32.5, 33})},
                      3);
    }
    clsReferenceTables tables;
};

TEST_F(clsReferenceTablesTest, CountsHaveTheirMinimumAndAskBeforeErasingData) {
    prompts.Expect(Answer::OK, "The minumum number of Sections required is 3.");
    EXPECT_EQ(tables.ChangeSectionCount("2"), 3);
    EXPECT_EQ(prompts.History().back().title, "Sections");
    EXPECT_EQ(tables.ChangeSegmentCount("x4"), 0); // not a number: nothing changes
    prompts.Expect(Answer::OK, "The minumum number of Segments (local pitch) required is 3.");
    EXPECT_EQ(tables.ChangeSegmentCount("1"), 3);
    EXPECT_EQ(tables.Rows().at(2).localPitch.size(), 3u); // empty tables change without a question

    Fill();
    prompts.Expect(Answer::No,
                   "Changing number of Sections will erase all table data. Do you want to proceed?");
    EXPECT_EQ(tables.ChangeSectionCount("6"), 4);
    EXPECT_EQ(tables.Rows()[0].radialPct, 95);
    prompts.Expect(Answer::Yes, "Changing number of Segments (local pitch) will erase all table data.");
    EXPECT_EQ(tables.ChangeSegmentCount("5"), 5);
    EXPECT_EQ(prompts.History().back().title, "Segments");
    EXPECT_FALSE(tables.HasData());
    EXPECT_EQ(tables.SectionCount(), 4);
}

TEST_F(clsReferenceTablesTest, RowsStaySortedFromTheTipAndAveragesTakeTheAnglesWithPi) {
    Fill();
    const std::vector<double> order = {95, 70, 50, 30};
    for (std::size_t r = 0; r < order.size(); ++r) {
        EXPECT_EQ(tables.Rows()[r].radialPct, order[r]);
    }
    // r = 0.7 x 40 / 2 = 14; angles over pi r, not 2 pi r.
    double sum = 0;
    for (const double p : {35.0, 36.0, 37.0}) {
        sum += std::atan(p / (gPi * 14.0)) / gDegToRad;
    }
    EXPECT_NEAR(tables.Rows()[1].meanPitch, std::tan(gDegToRad * sum / 3.0) * gPi * 14.0, 1e-12);
    EXPECT_LT(tables.Rows()[1].meanPitch, 36.0); // a mean of angles lies below the mean of pitches
    EXPECT_DOUBLE_EQ(tables.PropPitch(), (34 + 35 + 36 + 32.5) / 4.0);

    EXPECT_EQ(tables.SetSectionValue(3, SectionColumn::RadialPos, 80), 1); // the 30 % row moves up
    EXPECT_EQ(tables.Rows()[1].localPitch, (std::vector<double>{32, 32.5, 33}));
    EXPECT_EQ(tables.SetSectionValue(1, SectionColumn::RadialPos, 0), 3);
    EXPECT_EQ(tables.Rows()[3].meanPitch, 0); // no radius, no mean
    tables.AddSection();
    EXPECT_EQ(tables.SectionCount(), 5);
    EXPECT_EQ(tables.Rows()[4].radialPct, 0);
}

TEST_F(clsReferenceTablesTest, ConstantLocalPitchAsksFillsAndFollowsTheSectionPitch) {
    Fill();
    const std::string question = "Changing to constant pitch values will overwrite all local pitch values";
    prompts.Expect(Answer::No, question);
    EXPECT_FALSE(tables.SetUseConstantLocalPitch(true));
    EXPECT_FALSE(tables.UseConstantLocalPitch());
    EXPECT_EQ(tables.Rows()[0].localPitch, (std::vector<double>{34.5, 35, 35.5}));
    prompts.Expect(Answer::Yes, question);
    EXPECT_TRUE(tables.SetUseConstantLocalPitch(true));
    EXPECT_EQ(prompts.History().back().title, "Constant Pitch Values?");
    EXPECT_TRUE(tables.LocalPitchesConstant());
    tables.SetSectionValue(0, SectionColumn::Pitch, 38);
    EXPECT_EQ(tables.Rows()[0].localPitch, (std::vector<double>{38, 38, 38}));
    EXPECT_NEAR(tables.Rows()[0].pitch, 38, 1e-12);

    // A constant section closes on its chord line: n + 1 offsets from the trailing edge.
    const auto propeller = tables.ToPropeller();
    ASSERT_EQ(BuildReferenceOffsets(*propeller), 1);
    clsSection& section = *propeller->Blades(0)->Section(0);
    ASSERT_EQ(section.RawOffsetCount(), 4);
    EXPECT_DOUBLE_EQ(section.RawOffsetX(3), 9.5);
    EXPECT_NEAR(section.RawOffsetY(3), 0.0, 1e-12);
}

TEST_F(clsReferenceTablesTest, DeletesAskAndNeverGoBelowThree) {
    Fill();
    prompts.Expect(Answer::Yes, "Delete section 70");
    EXPECT_TRUE(tables.DeleteSection(1));
    EXPECT_EQ(prompts.History().back().title, "Remove Radius?");
    EXPECT_FALSE(tables.DeleteSection(0)); // three left: not even asked
    prompts.Expect(Answer::OK, "No segment Selected, Click column header to select a Segment.");
    EXPECT_FALSE(tables.DeleteSegment(-1));
    tables.AddSegment();
    EXPECT_EQ(tables.Rows()[0].localPitch.back(), 35); // a new segment starts at the section pitch
    prompts.Expect(Answer::Yes, "Delete Segment 1");
    EXPECT_TRUE(tables.DeleteSegment(0));
    EXPECT_EQ(tables.Rows()[0].localPitch, (std::vector<double>{35, 35.5, 35}));
    EXPECT_FALSE(tables.DeleteSegment(0));
}

TEST_F(clsReferenceTablesTest, TablesRoundTripThroughCvrfAndPpp) {
    Fill();
    struct Trip {
        const char* name;
        int (*write)(const std::string&, const clsReferenceTables&);
        int (*read)(const std::string&, clsReferenceTables&);
        double digits;
    };
    for (const Trip& trip :
         {Trip{"tug.cvrf", SaveCvrfFile, ReadCvrfReferenceFile, 1e-9},
          Trip{"tug.ppp", WriteMichiganReferenceWheelFile, ReadMichWheelReferenceFile, 5e-5}}) {
        const std::string path = temp->File(trip.name);
        ASSERT_EQ(trip.write(path, tables), 1) << trip.name;
        clsReferenceTables back;
        ASSERT_EQ(trip.read(path, back), 1) << trip.name;
        EXPECT_EQ(back.Description(), "Tug reference") << trip.name;
        EXPECT_NEAR(back.Diameter(), 40.0, trip.digits);
        EXPECT_FALSE(back.Changed());
        EXPECT_FALSE(back.UseConstantLocalPitch());
        ASSERT_EQ(back.SectionCount(), 4) << trip.name;
        ASSERT_EQ(back.SegmentCount(), 3) << trip.name;
        for (std::size_t r = 0; r < 4; ++r) {
            const ReferenceSectionRow& a = tables.Rows()[r];
            const ReferenceSectionRow& b = back.Rows()[r];
            std::vector<double> expected = {a.radialPct, a.chord, a.rake, a.skew, a.pitch};
            std::vector<double> got = {b.radialPct, b.chord, b.rake, b.skew, b.pitch};
            expected.insert(expected.end(), a.localPitch.begin(), a.localPitch.end());
            got.insert(got.end(), b.localPitch.begin(), b.localPitch.end());
            for (std::size_t c = 0; c < expected.size(); ++c) {
                EXPECT_NEAR(got[c], expected[c], trip.digits) << trip.name << " row " << r << " value " << c;
            }
        }
    }
    prompts.Expect(Answer::Yes, "Changing to constant pitch values");
    tables.SetUseConstantLocalPitch(true);
    ASSERT_EQ(WriteMichiganReferenceWheelFile(temp->File("flat.ppp"), tables), 1);
    clsReferenceTables flat;
    ASSERT_EQ(ReadMichWheelReferenceFile(temp->File("flat.ppp"), flat), 1);
    EXPECT_TRUE(flat.UseConstantLocalPitch());
}

TEST_F(clsReferenceTablesTest, FromScanTakesBladeZeroOfTheScansReference) {
    ASSERT_EQ(BuildDemoProject(), 1);
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceConstantPitch(36.0);
    prompts.SetAnswerFreely(true);
    ASSERT_EQ(ReferenceTablesFromScan(*gProject, *gISO484, tables), 1)
        << ::testing::PrintToString(prompts.Texts());
    EXPECT_DOUBLE_EQ(tables.Diameter(), 40.0);
    ASSERT_EQ(tables.SectionCount(), 8);
    EXPECT_DOUBLE_EQ(tables.Rows()[7].radialPct, 30);
    EXPECT_NEAR(tables.Rows()[3].pitch, 36.0, 1e-6);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), 1);
}

} // namespace
} // namespace corvane
