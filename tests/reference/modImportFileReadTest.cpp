#include "reference/modImportFile.h"

#include "PPPTestSupport.h"
#include "acquisition/clsVirtualPropeller.h"
#include "files/modProjectFile.h"
#include "model/modUtilities.h"

namespace corvane {
namespace {

using modImportFileReadTest = test::PPPTest;

const char* const kMinimumText =
    "The PPP file requires a minimum of 3 sections. The reading of the PPP file will abort.";
const char* const kIncompleteText =
    "The file was incomplete. The existing data has been processed, however errors "
    "may occur. Do you wish to continue?";
const char* const kOpenText =
    "The pitch progression for one or more sections does not match the section pitch "
    "values. The existing data has been processed, however errors may occur...";

// What basic.ppp says, tip first as the sections stand in memory.
const std::vector<double> kRadialPos = {1.0, 0.9, 0.7, 0.5, 0.3};
const std::vector<double> kPitch = {34, 36, 36, 33, 30};
const std::vector<double> kChord = {3, 8, 10, 9, 7};
const std::vector<double> kRake = {0.7, 0.6, 0.4, 0.2, 0.0};

// The blade of basic.ppp as an ideal helicoidal propeller, generator line of blade 0 at 0.
clsVirtualPropeller BasicPropeller(std::int16_t rotation) {
    clsVirtualPropeller prop;
    prop.Diameter = 40;
    prop.BladeCount = 4;
    prop.RotationIndex = rotation;
    prop.FirstBladeThetaDeg = 0;
    prop.GLDrop = 0;
    prop.Pitch.clear();
    prop.Chord.clear();
    prop.Rake.clear();
    for (std::size_t k = kRadialPos.size(); k-- > 0;) {
        prop.Pitch.emplace_back(kRadialPos[k], kPitch[k]);
        prop.Chord.emplace_back(kRadialPos[k], kChord[k]);
        prop.Rake.emplace_back(kRadialPos[k], kRake[k]);
    }
    return prop;
}

void ExpectBasicData(const clsPropeller& p) {
    const clsBlades& blade = *p.Blades(0);
    EXPECT_EQ(p.Description(), "Demo 4-blade reference");
    EXPECT_EQ(p.BladeCount(), 4);
    EXPECT_DOUBLE_EQ(p.Diameter(), 40.0);
    EXPECT_DOUBLE_EQ(blade.ISOBladePitch(), 34.2);
    ASSERT_EQ(blade.SectionCount(), 5);
    for (int k = 0; k < 5; ++k) {
        const auto i = static_cast<std::size_t>(k);
        EXPECT_DOUBLE_EQ(blade.RadialPos(k), kRadialPos[i]) << k;
        EXPECT_DOUBLE_EQ(blade.Pitch(k), kPitch[i]) << k;
        EXPECT_DOUBLE_EQ(blade.Chord(k), kChord[i]) << k;
        EXPECT_DOUBLE_EQ(blade.RakeAft(k), kRake[i]) << k;
        EXPECT_DOUBLE_EQ(blade.SkewHelix(k), 0.0) << k;
        auto section = p.Blades(0)->Section(k);
        ASSERT_EQ(section->SegmentPanelCount(), 4);
        for (int j = 0; j < 4; ++j) {
            EXPECT_DOUBLE_EQ(section->SegmentPanelPitch(j), kPitch[i]) << k << "/" << j;
        }
        EXPECT_EQ(section->RawOffsetCount(), 5) << k;
    }
}

// Blanks, tabs, LF ends, headers inside other text and in any case, blocks in another order,
// blank and stray lines, extra tokens (spaced.ppp): all read as the plain file does.
TEST_F(modImportFileReadTest, ReadsTheBlocksIntoBlade0TipFirstHoweverSpaced) {
    for (const char* file : {"basic.ppp", "spaced.ppp"}) {
        SCOPED_TRACE(file);
        clsPropeller p;
        ASSERT_EQ(ImportPPPFile(Data(file), p, 4), 1);
        ExpectBasicData(p);
    }
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(modImportFileReadTest, LeRowLandsOnTheLastPanelAndTeRowOnPanel0) {
    clsPropeller p;
    ASSERT_EQ(ImportPPPFile(Data("cambered.ppp"), p, 4), 1);
    auto tip = p.Blades(0)->Section(0); // pitch 34: TE 33, LE+2 34.5, LE+1 35, LE 33.5
    EXPECT_DOUBLE_EQ(tip->SegmentPanelPitch(0), 33.0);
    EXPECT_DOUBLE_EQ(tip->SegmentPanelPitch(1), 34.5);
    EXPECT_DOUBLE_EQ(tip->SegmentPanelPitch(2), 35.0);
    EXPECT_DOUBLE_EQ(tip->SegmentPanelPitch(3), 33.5);
    // Panels that even out over the chord close on it: no message.
    EXPECT_TRUE(prompts.History().empty());
}

// Constant panel pitch gives the helicoid itself: every point of every blade lies on the
// surface of the ideal propeller, and the edges stand where its edges are.
TEST_F(modImportFileReadTest, FlatPanelsLieOnTheHelicoidOfEitherHand) {
    for (const std::int16_t rotation : {std::int16_t{0}, std::int16_t{1}}) {
        NewProject(rotation);
        const clsVirtualPropeller prop = BasicPropeller(rotation);
        clsPropeller p;
        ASSERT_EQ(ImportPPPFile(Data("basic.ppp"), p, 4), 1);
        for (int b = 0; b < 4; ++b) {
            EXPECT_DOUBLE_EQ(p.Blades(b)->GLPositionThetaDeg(), b * 90.0);
            for (int k = 0; k < 5; ++k) {
                auto s = p.Blades(b)->Section(k);
                ASSERT_EQ(s->RawOffsetCount(), 5);
                for (int j = 1; j < 4; ++j) {
                    double drop = 0;
                    ASSERT_TRUE(prop.DropAt(s->ThetaDeg(j), s->Radius(j), drop)) << rotation << b << k << j;
                    EXPECT_NEAR(s->AxialDropX(j), drop, 1e-9) << rotation << b << k << j;
                }
            }
        }
        for (int k = 0; k < 5; ++k) {
            const double te = Wrap360(prop.TrailingEdgeThetaDeg(0, kRadialPos[static_cast<std::size_t>(k)]));
            EXPECT_NEAR(Wrap180(p.Blades(0)->Section(k)->ThetaDeg(0) - te), 0.0, 1e-9) << rotation << k;
        }
    }
}

TEST_F(modImportFileReadTest, PanelsThatDoNotCloseAreToldOnceAndStillBuilt) {
    clsPropeller p;
    prompts.Expect(Answer::OK, kOpenText);
    ASSERT_EQ(ImportPPPFile(Data("open.ppp"), p, 4), 1);
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].title, "Missing Data");
    // Panels 10 % above the section pitch lift the leading edge above the chord line.
    auto open = p.Blades(0)->Section(2);
    ASSERT_EQ(open->RawOffsetCount(), 5);
    EXPECT_GT(open->RawOffsetY(4), 10.0 * 0.001);
    EXPECT_DOUBLE_EQ(open->RawOffsetX(4), 10.0);

    // Two open sections: still one message; without the check: none.
    p.Blades(0)->Section(0)->SetSegmentPanelPitch(1, 40.0);
    prompts.Expect(Answer::OK, kOpenText);
    EXPECT_EQ(BuildPPPOffsets(p, true), 1);
    EXPECT_EQ(BuildPPPOffsets(p, false), 1);
    EXPECT_EQ(prompts.History().size(), 2u);
}

TEST_F(modImportFileReadTest, TwoRadiiEndTheReadingAtOnce) {
    clsPropeller p;
    prompts.Expect(Answer::OK, kMinimumText);
    EXPECT_EQ(ImportPPPFile(Data("tworadii.ppp"), p, 4), 0);
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].text, kMinimumText);
    EXPECT_EQ(prompts.History()[0].title, "Error reading PPP");
}

TEST_F(modImportFileReadTest, AMissingBlockIsAskedAboutOnce) {
    clsPropeller accepted;
    prompts.Expect(Answer::Yes, kIncompleteText);
    EXPECT_EQ(ImportPPPFile(Data("noskew.ppp"), accepted, 4), 1);
    EXPECT_EQ(prompts.History().back().title, "Missing Data");
    EXPECT_DOUBLE_EQ(accepted.Blades(0)->Chord(0), 3.0);
    EXPECT_EQ(accepted.Blades(3)->Section(4)->RawOffsetCount(), 5);

    clsPropeller refused;
    prompts.Expect(Answer::No, kIncompleteText);
    EXPECT_EQ(ImportPPPFile(Data("noskew.ppp"), refused, 4), 0);
    EXPECT_EQ(prompts.History().size(), 2u);
}

TEST_F(modImportFileReadTest, TheDiameterMustMatchTheActiveScan) {
    gProject->SetPropellerScanCount(1);
    gISO484->SetScrewRadiusTol(0.1);
    gProject->PropellerScan(0)->SetDiameter(40.15);
    clsPropeller fits;
    EXPECT_EQ(ImportPPPFile(Data("basic.ppp"), fits, 4), 1);

    gProject->PropellerScan(0)->SetDiameter(40.3);
    const std::string text =
        "The reference file cannot be applied.\r\nThe diameter of the reference file (40.000 in) "
        "does not match the diameter of the propeller (40.300 in)).";
    prompts.Expect(Answer::OK, text);
    clsPropeller misfit;
    EXPECT_EQ(ImportPPPFile(Data("basic.ppp"), misfit, 4), 0);
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].text, text);
    EXPECT_EQ(prompts.History()[0].title, "Data Error");
}

// Counts a damaged file might hold are turned away before anything is allocated for them;
// numbers beyond the double range and a missing file go to the error handler.
TEST_F(modImportFileReadTest, DamagedCountsAndMissingFilesFailCleanly) {
    const std::string basic = test::FileBytes(Data("basic.ppp"));
    auto variant = [&](const std::string& from, const std::string& to) {
        std::string text = basic;
        text.replace(text.find(from), from.size(), to);
        const std::string path = temp->File("variant.ppp");
        test::WriteBytes(path, text);
        return path;
    };
    clsPropeller p;
    prompts.Expect(Answer::OK, "holds more than 100 sections");
    EXPECT_EQ(ImportPPPFile(variant("+ 1]\r\n5", "+ 1]\r\n30000"), p, 4), 0);
    prompts.Expect(Answer::OK, "requires from 1 to 500 sectors per radius");
    EXPECT_EQ(ImportPPPFile(variant("+ 2]\r\n4", "+ 2]\r\n0"), p, 4), 0);
    prompts.Expect(Answer::Ignore, "importing the PPP file while processing [Diameter]");
    EXPECT_EQ(ImportPPPFile(variant("]\r\n40.0", "]\r\n1e999"), p, 4), 0);
    prompts.Expect(Answer::Ignore, "importing the PPP file while opening the file");
    EXPECT_EQ(ImportPPPFile(temp->File("none.ppp"), p, 4), 0);
    EXPECT_EQ(prompts.History().back().kind, ScriptedPrompts::Kind::CriticalError);
}

} // namespace
} // namespace corvane
