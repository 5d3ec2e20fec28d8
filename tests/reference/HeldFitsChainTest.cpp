// The search for the best class with the raw curves kept between its runs gives what it gives
// when every run fits every curve again, to the last bit of every measure.
#include "ReferenceFixture.h"

#include "geometry/clsSplineFitCache.h"

#include <cstring>

namespace corvane::test {
namespace {

class HeldFitsChainTest : public ReferenceTest {
protected:
    struct Outcome {
        std::int16_t result = -1;
        std::int16_t propellerCode = -1;
        ISOClassCodes codes;
        std::vector<double> scan;
        std::vector<double> reference;
    };

    // Every measure the chain leaves on a propeller, in a fixed order.
    static std::vector<double> Measures(clsPropeller& propeller) {
        std::vector<double> out;
        for (int b = 0; b < propeller.BladeCount(); ++b) {
            clsBlades& blade = *propeller.Blades(b);
            for (int k = 0; k < blade.SectionCount(); ++k) {
                const clsSection& s = *blade.Section(k);
                out.insert(out.end(), {blade.Pitch(k), blade.RakeAft(k), blade.Chord(k), blade.SkewHelix(k),
                                       blade.ISOTotalThetaDegToBCL(k), blade.ISOTotalAxialRakeToBCL(k),
                                       s.SegmentChord(), s.SegmentAxialXBCL(), s.ISOLEArcLengthPerSection(),
                                       static_cast<double>(s.SegmentPanelCount())});
                for (int j = 0; j < s.SegmentPanelCount(); ++j) {
                    out.push_back(s.SegmentPanelPitch(j));
                }
                for (int i = 0; i < s.SegmentOffsetCount(); ++i) {
                    out.insert(out.end(), {s.SegmentOffsetThetaDeg(i), s.SegmentOffsetAxialDropX(i),
                                           s.SegmentOffsetDeviationSum(i), s.SegmentOffsetDeviationDiff(i)});
                }
            }
        }
        return out;
    }

    Outcome Best() {
        Outcome out;
        out.result = GetBestISOClass(*gProject, *gISO484, 0, ISOSelection{}, ISOBelowSizeLimit(*gProject),
                                     out.codes, out.propellerCode);
        out.scan = Measures(Active());
        out.reference = Measures(Ref());
        return out;
    }

    static void ExpectSameBits(const std::vector<double>& a, const std::vector<double>& b) {
        ASSERT_EQ(a.size(), b.size());
        EXPECT_EQ(std::memcmp(a.data(), b.data(), a.size() * sizeof(double)), 0);
    }
};

TEST_F(HeldFitsChainTest, KeptCurvesGiveTheSameClassesAndMeasuresAsFreshFits) {
    // A blade off in pitch against a cambered scan reference: the runs differ
    // in their panel grids and verdicts, so that each run has its own measures to get right.
    clsVirtualPropeller faulty = Shop();
    faulty.BladePitchFactor.assign(static_cast<std::size_t>(faulty.BladeCount), 1.0);
    faulty.BladePitchFactor[1] = 1.012;
    const clsVirtualPropeller clean = Shop();
    ASSERT_TRUE(Measure(faulty, &clean));
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceLocalPitchIndex(1);
    gProject->SetReferenceSectionPitchIndex(0);

    Outcome expected;
    {
        const SplineFitsFresh fresh;
        // The first search switches on the swept blades: the two compared start from the same data.
        Best();
        expected = Best();
    }
    ASSERT_EQ(expected.result, 2); // class S is missed
    const Outcome got = Best();
    EXPECT_EQ(clsSplineFitCache::Active(), nullptr); // nothing is kept after the search

    EXPECT_EQ(got.result, expected.result);
    EXPECT_EQ(got.propellerCode, expected.propellerCode);
    EXPECT_EQ(got.codes, expected.codes);
    ExpectSameBits(got.scan, expected.scan);
    ExpectSameBits(got.reference, expected.reference);
    EXPECT_TRUE(prompts.History().empty());
}

} // namespace
} // namespace corvane::test
