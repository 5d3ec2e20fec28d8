// Verdicts of whole propellers: ideal sweeps with one fault put in, measured, compared with their
// reference and evaluated through the chain every screen runs.
#include "ReferenceFixture.h"

#include "files/modReferenceFile.h"
#include "model/modBladeCoverage.h"
#include "reference/modImportFile.h"

#include <functional>
#include <limits>

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
        EXPECT_EQ(RunISOEvaluationChain(*gProject, *gISO484, verdict), 1);
        return verdict;
    }

    // The best classes of every blade and criterion, and the verdict of the project's class.
    std::int16_t Best(std::int16_t classIndex) {
        gISO484->SetISOClassIndex(classIndex);
        propellerCode = -1;
        return GetBestISOClass(*gProject, *gISO484, 0, ISOSelection{}, ISOBelowSizeLimit(*gProject), codes,
                               propellerCode);
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
        ASSERT_EQ(CalculateReferenceProperties(*gProject, raw), 1);
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
                    ASSERT_EQ(ReadReferenceBlocks(file, *read, flag, text), 1) << text;
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

// Sweeps that were never taken: every row of the blades given (as swept), and the rows given on
// every blade.
void Unswept(clsPropeller& scan, const std::vector<int>& blades, const std::vector<int>& rows) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        for (int k = 0; k < scan.Blades(b)->SectionCount(); ++k) {
            const bool blade = std::find(blades.begin(), blades.end(), b) != blades.end();
            const bool row = std::find(rows.begin(), rows.end(), k) != rows.end();
            if (blade || row) {
                scan.Blades(b)->SetSection(k, std::make_shared<clsSection>());
            }
        }
    }
}

TEST_F(VerdictTest, PartialScansAreJudgedOnTheSweepsTaken) {
    struct Case {
        const char* name;
        std::int16_t hand;
        std::int16_t blades;
        std::vector<int> unsweptBlades; // as swept, before the check numbers them
        std::vector<int> unsweptRows;   // on every blade
        std::int16_t classIndex;
        std::int16_t best; // 1 meets, 3 partial scan meets
    };
    const Case cases[] = {
        {"right hand, one blade never swept", 0, 4, {1}, {}, 0, 1},
        {"right hand, the blade opposite blade 1", 0, 4, {2}, {}, 0, 1},
        {"right hand, the last blade", 0, 4, {3}, {}, 0, 1},
        {"left hand, five blades", 1, 5, {3}, {}, 0, 1},
        {"right hand, two blades never swept", 0, 5, {1, 2}, {}, 0, 1},
        {"one blade and four rows never swept", 0, 4, {1}, {0, 2, 4, 6, 7}, 1, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        prompts.Clear();
        prompts.Expect(Answer::Yes, "no sections"); // one question names every unswept blade
        const clsVirtualPropeller prop = Shop(c.hand, c.blades);
        ASSERT_TRUE(
            Measure(prop, &prop, [&](clsPropeller& scan) { Unswept(scan, c.unsweptBlades, c.unsweptRows); }));
        CleanScanReference();
        EXPECT_EQ(Verdict(c.classIndex), 1);
        EXPECT_EQ(Best(c.classIndex), c.best);
        for (int b = 0; b < c.blades; ++b) {
            const bool swept =
                std::find(c.unsweptBlades.begin(), c.unsweptBlades.end(), b) == c.unsweptBlades.end();
            const int slot = SlotOf(b, c.blades);
            EXPECT_EQ(HasEffectiveBladeAngle(Active(), slot), swept) << "slot " << slot;
            if (swept) {
                EXPECT_EQ(Code(kISORowBladeSpacing, slot), 0) << "slot " << slot;
                EXPECT_NEAR(Active().Blades(slot)->ISOEffectiveBladeAngleDeg(),
                            Active().Blades(slot)->GLPositionThetaDeg(), 1e-6);
            }
        }
        EXPECT_EQ(prompts.Pending(), 0u);
        EXPECT_EQ(prompts.Unexpected(), std::vector<std::string>{});
    }
}

TEST_F(VerdictTest, ReferencesAreBuiltAroundWhatTheScanLacks) {
    // A cvrf reference keeps no rake of its sections: a propeller without rake and skew.
    clsVirtualPropeller shop = Shop();
    shop.Rake = {{0.0, 0.0}};
    shop.SkewDeg = {{0.0, 0.0}};
    // Chords of just over 400 mm at the tip, swept a little outside the standard radius: the
    // scan's tip row gets four panels by its chord, the reference row at 0.95 R only three by its
    // own.
    clsVirtualPropeller narrow = shop;
    narrow.Chord = {{0.3, 300.0}, {0.7, 420.0}, {0.95, 401.0}};
    const auto outerTip = [&narrow](clsPropeller& scan) {
        clsPropeller outer;
        outer.SetBladeCount(narrow.BladeCount);
        narrow.FillScan(outer, {0.955}, kPoints);
        for (int b = 0; b < scan.BladeCount(); ++b) {
            scan.Blades(b)->SetSection(0, outer.Blades(b)->Section(0)->CopyClass());
        }
    };
    enum class Source { Ppp, VariablePitch, NeverActiveScan, CamberedWithoutPitch };
    struct Case {
        const char* name;
        Source source;
        const clsVirtualPropeller& prop;
        std::function<void(clsPropeller&)> edit;
        std::int16_t best;      // the result of the best-class search
        std::int16_t kept;      // the reference source left standing
        std::size_t errorBoxes; // critical errors told
    };
    const auto rowOfFirstBlade = [](clsPropeller& scan) {
        scan.Blades(0)->SetSection(3, std::make_shared<clsSection>());
    };
    const Case cases[] = {
        {"ppp file, a row the first blade lacks", Source::Ppp, shop, rowOfFirstBlade, 1, 2, 0},
        {"ppp file, cut on the scan's panels", Source::Ppp, narrow, outerTip, -1, 2, 0},
        {"variable pitch given at two radii", Source::VariablePitch, shop, [](clsPropeller&) {}, 1, 1, 0},
        {"scan reference never evaluated", Source::NeverActiveScan, shop, [](clsPropeller&) {}, 1, 1, 0},
        {"cambered face of a scan without pitch", Source::CamberedWithoutPitch, shop, [](clsPropeller&) {}, 0,
         0, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        prompts.Clear();
        prompts.SetAnswerFreely(true);
        clsVirtualPropeller clean = c.prop;
        if (c.source == Source::CamberedWithoutPitch) {
            clean.BladePitchFactor = {1.0, -1.0, 1.0, -1.0}; // a mean measured pitch of 0
        }
        ASSERT_TRUE(Measure(c.prop, &clean));
        CleanScanReference();
        std::string file;
        if (c.source == Source::Ppp) {
            ASSERT_EQ(Calculate(), 1);
            file = temp->File("reference.ppp");
            ASSERT_EQ(ExportPPPFile(file), 1);
            ASSERT_TRUE(Measure(c.prop, nullptr, c.edit));
            auto read = std::make_shared<clsPropeller>();
            ASSERT_EQ(ImportPPPFile(file, *read, 4), 1);
            gProject->SetReferenceSource(read);
            gProject->SetReferenceSourceFilePath(file);
            gProject->SetReferenceSourceIndex(2);
        } else if (c.source == Source::VariablePitch) {
            gProject->SetReferenceSectionPitchIndex(1);
            gProject->SetReferenceVariablePitchCount(2);
            for (int row = 0; row < 2; ++row) {
                gProject->SetReferenceVariablePitchRadialPos(row, row == 0 ? 0.3 : 0.95);
                gProject->SetReferenceVariablePitch(row, 2400.0);
                gProject->SetReferenceVariablePitchEnabled(row, true);
            }
        } else if (c.source == Source::NeverActiveScan) {
            for (int b = 0; b < 4; ++b) {
                gProject->PropellerScan(1)->Blades(b)->SetBladeEnabled(false);
            }
        } else {
            gProject->SetReferenceLocalPitchIndex(1);
        }
        std::int16_t verdict = -1;
        gISO484->SetISOClassIndex(0);
        EXPECT_EQ(RunISOEvaluationChain(*gProject, *gISO484, verdict), 1);
        EXPECT_EQ(gProject->ReferenceSourceIndex(), c.kept);
        if (c.best >= 0) {
            EXPECT_EQ(Best(0), c.best);
        }
        if (c.kept != 0) {
            for (int b = 0; b < 4; ++b) {
                for (int k = 0; k < 8; ++k) {
                    if (Active().Blades(b)->Section(k)->RawOffsetCount() > 1) {
                        EXPECT_EQ(Ref().Blades(b)->Section(k)->SegmentPanelCount(),
                                  Active().Blades(b)->Section(k)->SegmentPanelCount())
                            << "blade " << b << ", row " << k;
                    }
                }
            }
        }
        std::size_t errors = 0;
        for (const auto& shown : prompts.History()) {
            errors += shown.kind == ScriptedPrompts::Kind::CriticalError ? 1 : 0;
            if (c.errorBoxes == 0) {
                ADD_FAILURE() << "told: " << shown.text;
            }
        }
        EXPECT_EQ(errors, c.errorBoxes);
    }
}

} // namespace
} // namespace corvane::test
