#include "iso484/modISO484.h"

#include "common/ServicesFixture.h"
#include "model/clsCorvane.h"

#include <gmock/gmock.h>

namespace corvane {
namespace {

using test::ServicesTest;
using testing::ElementsAre;

constexpr int kMetres = 1;
constexpr int kInches = 2;
constexpr int kMillimetres = 3;

class modISO484Test : public ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        gAppDataPath = environment.appDataFolder; // the error log goes to the scratch folder
        units->SetPropLengthIndex(kMillimetres);
        project.SetLinkedClasses(units);
        iso.SetLinkedClasses(units);
    }

    // Class and marked diameter in metres; returns the standard chosen.
    int Apply(std::int16_t classIndex, double diameterM) {
        iso.SetISOClassIndex(classIndex);
        project.SetMarkedDiameter(diameterM, kMetres);
        SetISOStandardAndTolerances(iso, project);
        return iso.ISOStandardIndex();
    }

    std::shared_ptr<clsUnits> units = std::make_shared<clsUnits>();
    clsCorvane project;
    clsISO484 iso;
};

TEST_F(modISO484Test, StandardFollowsTheMarkedDiameter) {
    EXPECT_EQ(Apply(0, 2.5), 1); // at 2.5 m still the small-propeller standard
    EXPECT_EQ(Apply(0, 2.5001), 0);
    EXPECT_EQ(Apply(5, 0.5), 1); // the custom class still gets its standard
}

TEST_F(modISO484Test, EachStandardAndClassPicksItsOwnColumn) {
    Apply(4, 1.0); // small III: no local pitch tolerance
    EXPECT_DOUBLE_EQ(iso.LocalPitchPercent(), 0.0);
    EXPECT_DOUBLE_EQ(iso.MeanPitchPerBladeTol(), 20.0);
    EXPECT_DOUBLE_EQ(iso.ScrewRadiusTol(), 2.5);
    EXPECT_DOUBLE_EQ(iso.RequiredRadialPosCount(), 4.0);
    EXPECT_DOUBLE_EQ(iso.RequiredRadialPos(3), 0.2);

    Apply(3, 3.0); // large II: no absolute floors for blade and propeller pitch
    EXPECT_DOUBLE_EQ(iso.MeanPitchOfPropTol(), 0.0);
    EXPECT_DOUBLE_EQ(iso.DZRatioTol(), 13.0);
    EXPECT_DOUBLE_EQ(iso.AngDeviationTol(), 2.0);
    EXPECT_DOUBLE_EQ(iso.RequiredRadialPosCount(), 6.0);
    EXPECT_DOUBLE_EQ(iso.RequiredRadialPos(5), 0.3);

    Apply(2, 3.0); // class 1a takes the tables of class 1
    EXPECT_DOUBLE_EQ(iso.LocalPitchTol(), 15.0);
    EXPECT_DOUBLE_EQ(iso.MeanPitchOfPropPercent(), 0.0075);
    EXPECT_DOUBLE_EQ(iso.RequiredRadialPos(7), 0.3);

    units->SetPropLengthIndex(kInches); // lengths are stored in the project unit
    Apply(0, 1.0);
    EXPECT_DOUBLE_EQ(iso.LocalPitchTol(), 10.0 / 25.4);
    EXPECT_DOUBLE_EQ(iso.MeanPitchOfPropTol(kMillimetres), 4.0);
    EXPECT_DOUBLE_EQ(iso.AngDeviationTol(), 1.0); // degrees, never converted
    EXPECT_DOUBLE_EQ(iso.RequiredRadialPos(7), 0.2);

    iso.SetLocalPitchTol(42.0); // the custom class keeps the user's tolerances
    Apply(5, 3.0);
    EXPECT_EQ(iso.ISOStandardIndex(), 0);
    EXPECT_DOUBLE_EQ(iso.LocalPitchTol(), 42.0);
    EXPECT_DOUBLE_EQ(iso.RakePercent(), 0.005);
}

TEST_F(modISO484Test, WithoutUnitsTheFractionsAreSetAndEachLengthIsReported) {
    clsISO484 unlinked;
    unlinked.SetLocalPitchTol(99.0);
    for (int i = 0; i < 6; ++i) {
        prompts.Expect(Answer::Ignore, "setting ISO standard (large), ISO class (II) tolerances");
    }
    SetISOLargeClassIITolerances(unlinked);
    EXPECT_EQ(prompts.History().size(), 6u);
    EXPECT_DOUBLE_EQ(unlinked.LocalPitchTol(), 99.0);
    EXPECT_DOUBLE_EQ(unlinked.LocalPitchPercent(), 0.03);
    EXPECT_DOUBLE_EQ(unlinked.AngDeviationTol(), 2.0);
    EXPECT_DOUBLE_EQ(unlinked.RequiredRadialPos(5), 0.3);
}

TEST_F(modISO484Test, SectionMaskFollowsClassStandardAndInnerRadius) {
    ISOSectionMask mask{};
    iso.SetISOClassIndex(1);
    iso.SetISOIncludeInnerRadiusIndex(1);
    GetSectionMask(iso, mask);
    EXPECT_THAT(mask, ElementsAre(true, true, true, true, true, true, true, true));

    iso.SetISOClassIndex(3);
    GetSectionMask(iso, mask); // the inner section replaces 0.4
    EXPECT_THAT(mask, ElementsAre(false, true, true, true, true, true, false, true));
    iso.SetISOStandardIndex(1);
    iso.SetISOIncludeInnerRadiusIndex(0);
    GetSectionMask(iso, mask);
    EXPECT_THAT(mask, ElementsAre(false, true, false, true, false, true, true, false));

    iso.SetISOClassIndex(4);
    iso.SetISOStandardIndex(0);
    GetSectionMask(iso); // to the global by default
    EXPECT_THAT(gISORadiusFlags, ElementsAre(false, true, false, true, false, true, true, false));

    mask.fill(true);
    iso.SetISOClassIndex(5);
    GetSectionMask(iso, mask);
    EXPECT_THAT(mask, testing::Each(false));
}

TEST_F(modISO484Test, ClassSectionMaskMixesInTheUsersSelection) {
    ISOSectionMask mask{};
    const ISOSectionMask all = {true, true, true, true, true, true, true, true};
    const ISOSectionMask none{};
    clsISO484 iso;
    iso.SetISOClassIndex(4);
    iso.SetISOIncludeInnerRadiusIndex(1);
    GetClassSectionMask(iso, all, mask, false); // row 6 is the user's even without keepUser
    EXPECT_THAT(mask, ElementsAre(false, true, false, true, false, true, true, true));
    GetClassSectionMask(iso, none, mask, false);
    EXPECT_THAT(mask, ElementsAre(false, true, false, true, false, true, false, true));

    const ISOSectionMask user = {true, false, false, false, true, false, false, false};
    GetClassSectionMask(iso, user, mask, true);
    EXPECT_THAT(mask, ElementsAre(true, true, false, true, true, true, false, true));

    iso.SetISOClassIndex(0);
    iso.SetISOIncludeInnerRadiusIndex(0);
    mask = {false, false, false, false, false, false, false, true}; // input and output may be one array
    GetClassSectionMask(iso, mask, mask, true);
    EXPECT_THAT(mask, ElementsAre(true, true, true, true, true, true, true, true));
}

} // namespace
} // namespace corvane
