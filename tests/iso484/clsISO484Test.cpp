#include "iso484/clsISO484.h"
#include "common/Fails.h"

#include "model/CorvaneError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace corvane;
using corvane::test::Fails;

namespace {

constexpr int kFeet = 0;
constexpr int kInches = 2;
constexpr int kMillimetres = 3;

class clsISO484Test : public testing::Test {
protected:
    void SetUp() override {
        units->SetPropLengthIndex(kInches);
        iso.SetLinkedClasses(units);
    }

    std::shared_ptr<clsUnits> units = std::make_shared<clsUnits>();
    clsISO484 iso;
};

} // namespace

TEST_F(clsISO484Test, TagsOfTheCurrentValueFollowTheirOwnRules) {
    // Tasks 3 and 4 only come from old files: a tag, no label.
    iso.SetISOTaskIndex(4);
    EXPECT_EQ(iso.ISOTaskFileTag(), "Repair");
    EXPECT_EQ(iso.ISOTaskLabel(), "");
    // The inner radius tag of the current value reads the standard.
    iso.SetISOIncludeInnerRadiusIndex(1);
    EXPECT_EQ(iso.ISOIncludeInnerRadiusLabel(), "On");
    EXPECT_EQ(iso.ISOIncludeInnerRadiusFileTag(), "Off");
    iso.SetISOStandardIndex(1);
    iso.SetISOIncludeInnerRadiusIndex(0);
    EXPECT_EQ(iso.ISOIncludeInnerRadiusFileTag(), "On");
}

TEST_F(clsISO484Test, LengthTolerancesConvertThroughTheLinkedUnits) {
    iso.SetLocalPitchTol(25.4, kMillimetres);
    EXPECT_DOUBLE_EQ(iso.LocalPitchTol(), 1.0); // stored in inches
    EXPECT_DOUBLE_EQ(iso.LocalPitchTol(kMillimetres), 25.4);
    iso.SetScrewRadiusTol(3.0);
    EXPECT_DOUBLE_EQ(iso.ScrewRadiusTol(kFeet), 0.25);

    // The per-radius getter converts the propeller tolerance when asked for a unit.
    iso.SetMeanPitchPerRadTol(25.4, kMillimetres);
    iso.SetMeanPitchOfPropTol(5.0);
    EXPECT_DOUBLE_EQ(iso.MeanPitchPerRadTol(), 1.0);
    EXPECT_DOUBLE_EQ(iso.MeanPitchPerRadTol(kInches), 5.0);

    clsISO484 unlinked;
    unlinked.SetDZRatioTol(7.0);
    EXPECT_DOUBLE_EQ(unlinked.DZRatioTol(), 7.0);
    EXPECT_THAT([&] { unlinked.DZRatioTol(kMillimetres); }, Fails(91));
    EXPECT_THAT([&] { unlinked.SetDZRatioTol(1.0, kMillimetres); }, Fails(91));
}

TEST_F(clsISO484Test, ConvertAllDataRescalesTolerancesButNotFractions) {
    clsUnits feet;
    clsUnits millimetres;
    millimetres.SetPropLengthIndex(kMillimetres);
    iso.SetMeanPitchPerBladeTol(3.0);
    iso.SetDZRatioTol(6.0);
    iso.SetAngDeviationTol(1.0);
    iso.SetRakePercent(0.01);
    iso.ConvertAllData(millimetres, feet, 2.0);
    EXPECT_DOUBLE_EQ(iso.MeanPitchPerBladeTol(), 3.0 * 304.8 * 2.0);
    EXPECT_DOUBLE_EQ(iso.DZRatioTol(), 6.0 * 304.8 * 2.0);
    EXPECT_DOUBLE_EQ(iso.AngDeviationTol(), 304.8 * 2.0); // degrees, converted all the same
    EXPECT_DOUBLE_EQ(iso.RakePercent(), 0.01);

    // A custom unit converts with the factor of the object that defines it.
    clsUnits custom;
    custom.SetUnitPropLengthCustomData("cubit", 2.0);
    custom.SetPropLengthIndex(clsUnits::kCustomIndex);
    iso.SetLocalPitchTol(4.0);
    iso.ConvertAllData(feet, custom, 1.0);
    EXPECT_DOUBLE_EQ(iso.LocalPitchTol(), 2.0);
}
