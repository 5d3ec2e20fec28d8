// Verdicts of whole propellers: ideal sweeps with one fault put in, measured, compared with their
// reference and evaluated through the chain every screen runs.
#include "ReferenceFixture.h"

#include "files/modReferenceFile.h"
#include "iso484/modISO484Class.h"
#include "reference/modImportFile.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace corvane::test {
namespace {

// The rows of the class table that decide a class (diameter and the secondary rake rows do not).
constexpr ISOClassRow kDeciding[] = {kISORowBladeMeanPitch, kISORowNoseTailPitch, kISORowLocalPitch,
                                     kISORowChordLength,    kISORowLEPosition,    kISORowRakePosition,
                                     kISORowBladeSpacing};

class VerdictTest : public ReferenceTest {
protected:
    // The verdict of one class through the chain (0 none, 1 meets, 2 fails).
    std::int16_t Verdict(std::int16_t classIndex) {
        gISO484->SetISOClassIndex(classIndex);
        std::int16_t verdict = -1;
        EXPECT_EQ(RunISOEvaluationChain(verdict), 1);
        return verdict;
    }

    // The best classes of every blade and criterion, and the verdict of the project's class.
    std::int16_t Best(std::int16_t classIndex) {
        gISO484->SetISOClassIndex(classIndex);
        propellerCode = -1;
        return GetBestISOClass(0, ISOBelowSizeLimit(*gProject), codes, propellerCode);
    }

    std::int16_t Code(ISOClassRow row, int slot) const {
        return codes[static_cast<std::size_t>(row)][static_cast<std::size_t>(slot)];
    }

    // Every deciding criterion of every blade reaches class index 0 (S), except the one given.
    void ExpectClasses(int faultySlot = -1, ISOClassRow faultyRow = kISORowOverall,
                       std::int16_t faultyClass = 0) const {
        for (int slot = 0; slot < gProject->BladeCount(); ++slot) {
            for (ISOClassRow row : kDeciding) {
                const std::int16_t expected = slot == faultySlot && row == faultyRow ? faultyClass : 0;
                EXPECT_EQ(Code(row, slot), expected) << "row " << row << ", blade slot " << slot;
            }
        }
    }

    // The clean sweep of scan 1 is the reference: a scan reference locked on it.
    static void CleanScanReference() {
        gProject->SetReferenceSourceIndex(1);
        gProject->SetReferenceSectionPitchIndex(0);
        gProject->SetReferenceLocalPitchIndex(0);
    }

    static clsVirtualPropeller WithBladePitch(clsVirtualPropeller prop, int blade, double factor) {
        prop.BladePitchFactor.assign(static_cast<std::size_t>(prop.BladeCount), 1.0);
        prop.BladePitchFactor[static_cast<std::size_t>(blade)] = factor;
        return prop;
    }

    ISOClassCodes codes;
    std::int16_t propellerCode = -1;
};

TEST_F(VerdictTest, CleanPropellerMeetsClassSAgainstItselfAndAgainstAnotherScan) {
    const clsVirtualPropeller prop = Shop();
    ASSERT_TRUE(Measure(prop, &prop));
    for (std::int16_t internal : {0, 1}) {
        SCOPED_TRACE("internal scan " + std::to_string(internal));
        gProject->SetInternalScanIndex(internal);
        CleanScanReference();
        EXPECT_EQ(Verdict(0), 1);
        EXPECT_EQ(gISO484->ISOStandardIndex(), 0);
        EXPECT_EQ(Best(0), 1);
        EXPECT_EQ(propellerCode, 0);
        ExpectClasses();
    }
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(VerdictTest, OneMeasuredFaultLandsInTheClassItsToleranceAllows) {
    const clsVirtualPropeller clean = Shop();
    clsVirtualPropeller turned = clean;
    turned.BladeOffsetDeg = {0.0, 1.5, 0.0, 0.0};
    clsVirtualPropeller longer = clean;
    for (auto& knot : longer.Chord) {
        knot.second *= 1.025;
    }
    struct Case {
        const char* name;
        const clsVirtualPropeller& prop;
        std::function<void(clsPropeller&)> edit;
        int blade;
        ISOClassRow row;
        std::int16_t code;
        std::int16_t passingClass;
    };
    const Case cases[] = {
        // 1.5 degrees: over the 1 degree of classes S and 1, under the 2 degrees of classes 2 and 3.
        {"spacing", turned, [](clsPropeller&) {}, 1, kISORowBladeSpacing, 3, 3},
        // 22 mm on a 3 m propeller: over the 15 mm (0.5% of D) of class S, under the 30 mm of class 1.
        {"rake", clean,
         [](clsPropeller& scan) {
             auto s = scan.Blades(2)->Section(4);
             for (int i = 0; i < s->RawOffsetCount(); ++i) {
                 s->SetAxialDropX(i, s->AxialDropX(i) + 22.0);
             }
         },
         2, kISORowRakePosition, 1, 1},
        // 2.5% on the 0.7 section: over the 1.5% and 2% of classes S and 1, under the 3% of class 2.
        {"chord", clean, [&](clsPropeller& scan) { TakeSection(scan, longer, 3, 3); }, 3, kISORowChordLength,
         3, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(Measure(c.prop, &clean, c.edit));
        CleanScanReference();
        EXPECT_EQ(Best(0), 2);
        ExpectClasses(SlotOf(c.blade, 4), c.row, c.code);
        EXPECT_EQ(Verdict(c.passingClass), 1);
    }
}

TEST_F(VerdictTest, UnusableReferenceFallsBackToTheScanAloneWithoutAWord) {
    ASSERT_TRUE(Measure(Shop()));
    gProject->SetReferenceSourceIndex(2); // a file reference, but no file was read
    EXPECT_EQ(Verdict(0), 0);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), 0);
    gProject->SetReferenceSourceIndex(1); // a scan reference without a pitch
    gProject->SetReferenceConstantPitch(0.0);
    EXPECT_EQ(Verdict(0), 0);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), 0);
    // Files read with nothing usable in them: sections on the axis, no pitch, a pitch that is not
    // a number.
    for (const auto& [radialPos, pitch] : std::vector<std::pair<double, double>>{
             {0.0, 2400.0}, {0.7, 0.0}, {0.7, -2400.0}, {0.7, std::numeric_limits<double>::quiet_NaN()}}) {
        auto read = std::make_shared<clsPropeller>();
        read->Blades(0)->SetSectionCount(8);
        for (int k = 0; k < 8; ++k) {
            read->Blades(0)->SetRadialPos(k, radialPos);
            read->Blades(0)->SetPitch(k, pitch);
        }
        gProject->SetReferenceSource(read);
        gProject->SetReferenceSourceIndex(2);
        EXPECT_EQ(Verdict(0), 0);
        EXPECT_EQ(gProject->ReferenceSourceIndex(), 0);
    }
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(VerdictTest, EveryReferenceSourceGivesTheSameVerdictForTheSameGeometry) {
    // A cvrf reference keeps no rake of its sections (they are sorted into the standard rows
    // without it), so the propeller has neither rake nor the skew that turns into rake. A
    // left-hand five-blade propeller checks that the blades are matched in the right order.
    for (const auto& [hand, bladeCount] : {std::pair{0, 4}, {1, 5}}) {
        clsVirtualPropeller prop =
            Shop(static_cast<std::int16_t>(hand), static_cast<std::int16_t>(bladeCount));
        prop.Rake = {{0.0, 0.0}};
        prop.SkewDeg = {{0.0, 0.0}};
        ASSERT_TRUE(Measure(WithBladePitch(prop, 1, 1.012), &prop));
        CleanScanReference();
        // 1.2%: over the 0.75% and 1% of a blade's mean pitch in classes S and 1, under the 1.5% of
        // class 2; over the 1% of a section's pitch in class S only.
        EXPECT_EQ(Verdict(1), 2);
        EXPECT_EQ(Verdict(3), 1);
        ASSERT_EQ(Best(0), 2);
        for (int s = 0; s < bladeCount; ++s) {
            const bool off = s == SlotOf(1, bladeCount);
            EXPECT_EQ(Code(kISORowBladeMeanPitch, s), off ? 3 : 0) << "slot " << s;
            EXPECT_EQ(Code(kISORowNoseTailPitch, s), off ? 1 : 0) << "slot " << s;
            EXPECT_EQ(Code(kISORowLocalPitch, s), 0) << "slot " << s;
        }
        EXPECT_EQ(propellerCode, 0); // 0.3% on the propeller's mean is within class S
        const ISOClassCodes scanCodes = codes;

        // The reference as Corvane writes it: a cvrf file of the scan reference, and a ppp export.
        std::int16_t raw = 0;
        ASSERT_EQ(CalculateReferenceProperties(raw), 1);
        bool flag = false;
        std::string text;
        const std::string cvrf = temp->File("reference.cvrf");
        ASSERT_EQ(WriteReferenceBlocks(cvrf, Ref(), flag, text), 1) << text;
        const std::string ppp = temp->File("reference.ppp");
        ASSERT_EQ(ExportPPPFile(ppp), 1);

        for (const std::string& file : {cvrf, ppp}) {
            for (std::int16_t source : {2, 3}) {
                SCOPED_TRACE(file + ", source " + std::to_string(source) + ", hand " + std::to_string(hand));
                auto read = std::make_shared<clsPropeller>();
                if (file == cvrf) {
                    ASSERT_EQ(ReadReferenceBlocks(file, *read, flag, text, false), 1) << text;
                    ASSERT_EQ(ResortReferenceSections(*read), 1);
                } else {
                    ASSERT_EQ(ImportPPPFile(file, *read, static_cast<std::int16_t>(bladeCount)), 1);
                }
                gProject->SetReferenceSource(read);
                gProject->SetReferenceSourceFilePath(file);
                gProject->SetReferenceSourceIndex(source);
                EXPECT_EQ(Best(0), 2);
                EXPECT_EQ(gProject->ReferenceSourceIndex(), source);
                for (ISOClassRow row : kDeciding) {
                    EXPECT_EQ(codes[static_cast<std::size_t>(row)], scanCodes[static_cast<std::size_t>(row)])
                        << "row " << row;
                }
            }
        }
    }
    EXPECT_TRUE(prompts.History().empty());
}

} // namespace
} // namespace corvane::test
