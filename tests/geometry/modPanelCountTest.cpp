#include "geometry/modPanelCount.h"
#include "PropertiesFixture.h"

namespace corvane::test {
namespace {

class modPanelCountTest : public ScanTest {
protected:
    void SetUp() override {
        ScanTest::SetUp();
        scan = NewProject(0, 3);
        gProject->Units()->SetPropLengthIndex(3); // mm
        gISO484 = std::make_shared<clsISO484>();
        gISO484->SetUnits(gProject->Units());
    }

    // Row 2 with the given segment chords on blades 0, 1, 2 (mm unless the unit is changed).
    int Count(double c0, double c1 = 0.0, double c2 = 0.0, bool panelMode = false) {
        const double chords[] = {c0, c1, c2};
        for (int b = 0; b < 3; ++b) {
            scan->Blades(b)->Section(2)->SetSegmentChord(chords[b]);
        }
        return GetSectionPanelCount(*scan, 1, 2, panelMode);
    }

    void Settings(std::int16_t standard, std::int16_t cls, std::int16_t task = 0) {
        gISO484->SetISOStandardIndex(standard);
        gISO484->SetISOClassIndex(cls);
        gISO484->SetISOTaskIndex(task);
    }

    std::shared_ptr<clsPropeller> scan;
};

TEST_F(modPanelCountTest, Iso4841KeepsPanelsBetween100And400Millimetres) {
    Settings(0, 0);
    // 250 mm: 2 panels raised to 4, then 62.5 and 83.3 mm are too narrow, 125 mm is not.
    EXPECT_EQ(Count(250.0), 2);
    // 700 mm: 2.75 rounds to 3, raised to 4; 175 mm panels stay.
    EXPECT_EQ(Count(700.0), 4);
    // The largest chord of the row over all blades decides, wherever it is.
    EXPECT_EQ(Count(100.0, 700.0, 250.0), 4);
    // Halves go to the even neighbour: 2200 mm gives 6.5, so 6 (not 7) panels of 367 mm.
    EXPECT_EQ(Count(2200.0), 6);
    EXPECT_EQ(Count(3000.0), 8);
    // A tiny chord narrows down to one panel and no further.
    EXPECT_EQ(Count(10.0), 1);
    // Class I and II count the same way; Ia, III and custom take the whole section.
    for (std::int16_t cls : {1, 3}) {
        Settings(0, cls);
        EXPECT_EQ(Count(700.0), 4);
    }
    for (std::int16_t cls : {2, 4, 5}) {
        Settings(0, cls);
        EXPECT_EQ(Count(700.0), 1);
    }
}

TEST_F(modPanelCountTest, Iso4842CountsByClassAndKeepsPanelsAnInchWide) {
    const int byClass[] = {4, 3, 3, 2, 1, 1};
    for (std::int16_t cls = 0; cls <= 5; ++cls) {
        Settings(1, cls);
        EXPECT_EQ(Count(300.0), byClass[cls]) << "class " << cls;
    }
    Settings(1, 0);
    EXPECT_EQ(Count(80.0), 3); // 20 mm panels are too narrow, 26.7 mm are not
    EXPECT_EQ(Count(50.0), 1); // 12.5, 16.7 and 25 mm are all below an inch
}

TEST_F(modPanelCountTest, TaskPutsAStationOrAPanelOnTheCentreLine) {
    Settings(0, 0, 1); // node on CL: even
    EXPECT_EQ(Count(700.0), 4);
    Settings(1, 1, 1);
    EXPECT_EQ(Count(300.0), 4);
    Settings(0, 0, 2); // segment on CL: odd
    EXPECT_EQ(Count(700.0), 5);
    Settings(1, 1, 2);
    EXPECT_EQ(Count(300.0), 3);
    EXPECT_EQ(Count(10.0), 1) << "a single panel is left alone";
    EXPECT_EQ(Count(700.0, 0.0, 0.0, true), 48) << "panel mode";
}

TEST_F(modPanelCountTest, ChordsAreJudgedInMillimetres) {
    gProject->Units()->SetPropLengthIndex(2); // inches
    Settings(0, 0);
    EXPECT_EQ(Count(250.0 / 25.4), 2);
    EXPECT_EQ(Count(700.0 / 25.4), 4);
}

TEST_F(modPanelCountTest, ExportCountTakesBladeZerosChordWithoutWidthRules) {
    Settings(0, 0);
    scan->Blades(0)->SetChord(2, 250.0);
    EXPECT_EQ(GetExportPanelCount(*scan, 2), 4) << "no narrowing below 100 mm";
    scan->Blades(0)->SetChord(2, 2200.0);
    EXPECT_EQ(GetExportPanelCount(*scan, 2), 6);
    Settings(0, 0, 2);
    EXPECT_EQ(GetExportPanelCount(*scan, 2), 7);
    Settings(1, 3);
    scan->Blades(0)->SetChord(2, 20.0);
    EXPECT_EQ(GetExportPanelCount(*scan, 2), 2);
}

} // namespace
} // namespace corvane::test
