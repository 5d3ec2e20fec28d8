#include "iso484/modISO484.h"

#include <cstddef>
#include <cstdint>

#include "model/CorvaneError.h"
#include "model/clsCorvane.h"
#include "support/ErrorTail.h"

namespace corvane {

namespace {

constexpr int kMetres = 1;
constexpr int kMillimetres = 3;
// ISO 484-1 covers propellers above this diameter; at and below it ISO 484-2 applies.
constexpr double kLargePropellerDiameterM = 2.5;
constexpr std::int16_t kStandardLarge = 0;
constexpr std::int16_t kStandardSmall = 1;

// One column of the tolerance tables. Lengths in millimetres, fractions plain, angle in degrees.
struct ToleranceColumn {
    const char* context;
    double localPitchPercent;
    double localPitchTolMm;
    double meanPitchPerRadPercent;
    double meanPitchPerRadTolMm;
    double meanPitchPerBladePercent;
    double meanPitchPerBladeTolMm;
    double meanPitchOfPropPercent;
    double meanPitchOfPropTolMm;
    double screwRadiusPercent;
    double screwRadiusTolMm;
    double dzRatioPercent;
    double dzRatioTolMm;
    double rakePercent;
    double angDeviationTolDeg;
    int radialPosCount;
    std::array<double, kISOSectionRows> radialPos; // r/R, rows beyond the count unused
};

// Class III has no local pitch tolerance: local pitch is not evaluated in that class.
// ISO 484-1 has no absolute floors for blade pitch, propeller pitch and radius.
// clang-format off
//          local pitch    pitch/radius   pitch/blade     pitch/prop      radius         chord         rake   spacing
constexpr ToleranceColumn kSmallS = {"setting ISO standard (small), ISO class (S) tolerances",
            0.015, 10,     0.01,  7.5,    0.0075, 5,      0.005,  4,      0.002, 1.5,    0.015, 7,     0.005, 1,
            8, {0.95, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.2}};
constexpr ToleranceColumn kSmallI = {"setting ISO standard (small), ISO class (I) tolerances",
            0.02,  15,     0.015, 10,     0.01,   7.5,    0.0075, 5,      0.003, 1.5,    0.02,  10,    0.01,  1,
            8, {0.95, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.2}};
constexpr ToleranceColumn kSmallII = {"setting ISO standard (small), ISO class (II) tolerances",
            0.03,  20,     0.02,  15,     0.015,  10,     0.01,   7.5,    0.004, 2,      0.03,  13,    0.015, 2,
            4, {0.9, 0.7, 0.5, 0.2}};
constexpr ToleranceColumn kSmallIII = {"setting ISO standard (small), ISO class (III) tolerances",
            0,     0,      0.05,  25,     0.04,   20,     0.03,   15,     0.005, 2.5,    0.05,  15,    0.03,  2,
            4, {0.9, 0.7, 0.5, 0.2}};
constexpr ToleranceColumn kLargeS = {"setting ISO standard (large), ISO class (S) tolerances",
            0.015, 10,     0.01,  7.5,    0.0075, 0,      0.005,  0,      0.002, 0,      0.015, 7,     0.005, 1,
            8, {0.95, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3}};
constexpr ToleranceColumn kLargeI = {"setting ISO standard (large), ISO class (I) tolerances",
            0.02,  15,     0.015, 10,     0.01,   0,      0.0075, 0,      0.003, 0,      0.02,  10,    0.01,  1,
            8, {0.95, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3}};
constexpr ToleranceColumn kLargeII = {"setting ISO standard (large), ISO class (II) tolerances",
            0.03,  20,     0.02,  15,     0.015,  0,      0.01,   0,      0.004, 0,      0.03,  13,    0.015, 2,
            6, {0.9, 0.8, 0.7, 0.6, 0.5, 0.3}};
constexpr ToleranceColumn kLargeIII = {"setting ISO standard (large), ISO class (III) tolerances",
            0,     0,      0.05,  25,     0.04,   0,      0.03,   0,      0.005, 0,      0.05,  15,    0.03,  2,
            4, {0.9, 0.7, 0.5, 0.3}};
// clang-format on

constexpr std::array<const ToleranceColumn*, 4> kSmallColumns = {&kSmallS, &kSmallI, &kSmallII, &kSmallIII};
constexpr std::array<const ToleranceColumn*, 4> kLargeColumns = {&kLargeS, &kLargeI, &kLargeII, &kLargeIII};

// Each field is its own step: when a length cannot be converted (no unit linked, say) and the
// user ignores the error, the fields that can be set still are, and the others keep their values.
void ApplyColumn(clsISO484& iso, const ToleranceColumn& c) {
    ErrorTail tail(c.context);
    tail.Step([&] { iso.SetLocalPitchPercent(c.localPitchPercent); });
    tail.Step([&] { iso.SetLocalPitchTol(c.localPitchTolMm, kMillimetres); });
    tail.Step([&] { iso.SetMeanPitchPerRadPercent(c.meanPitchPerRadPercent); });
    tail.Step([&] { iso.SetMeanPitchPerRadTol(c.meanPitchPerRadTolMm, kMillimetres); });
    tail.Step([&] { iso.SetMeanPitchPerBladePercent(c.meanPitchPerBladePercent); });
    tail.Step([&] { iso.SetMeanPitchPerBladeTol(c.meanPitchPerBladeTolMm, kMillimetres); });
    tail.Step([&] { iso.SetMeanPitchOfPropPercent(c.meanPitchOfPropPercent); });
    tail.Step([&] { iso.SetMeanPitchOfPropTol(c.meanPitchOfPropTolMm, kMillimetres); });
    tail.Step([&] { iso.SetScrewRadiusPercent(c.screwRadiusPercent); });
    tail.Step([&] { iso.SetScrewRadiusTol(c.screwRadiusTolMm, kMillimetres); });
    tail.Step([&] { iso.SetDZRatioPercent(c.dzRatioPercent); });
    tail.Step([&] { iso.SetDZRatioTol(c.dzRatioTolMm, kMillimetres); });
    tail.Step([&] { iso.SetRakePercent(c.rakePercent); });
    tail.Step([&] { iso.SetAngDeviationTol(c.angDeviationTolDeg); });
    tail.Step([&] {
        iso.SetRequiredRadialPosCount(c.radialPosCount);
        for (int row = 0; row < c.radialPosCount; ++row) {
            iso.SetRequiredRadialPos(row, c.radialPos[static_cast<std::size_t>(row)]);
        }
    });
}

// Rows a class requires, before any user selection.
ISOSectionMask RequiredSections(const clsISO484& iso) {
    const bool innerOn = iso.ISOIncludeInnerRadiusIndex() == 1;
    const bool innerOff = iso.ISOIncludeInnerRadiusIndex() == 0;
    switch (iso.ISOClassIndex()) {
    case 0:
    case 1:
        return {true, true, true, true, true, true, true, innerOn};
    case 2:
    case 3:
        if (iso.ISOStandardIndex() == kStandardLarge) {
            return {false, true, true, true, true, true, innerOff, innerOn};
        }
        return {false, true, false, true, false, true, innerOff, innerOn};
    case 4:
        return {false, true, false, true, false, true, innerOff, innerOn};
    default:
        return {};
    }
}

} // namespace

void SetISOSmallClassSTolerances(clsISO484& iso) {
    ApplyColumn(iso, kSmallS);
}

void SetISOSmallClassITolerances(clsISO484& iso) {
    ApplyColumn(iso, kSmallI);
}

void SetISOSmallClassIITolerances(clsISO484& iso) {
    ApplyColumn(iso, kSmallII);
}

void SetISOSmallClassIIITolerances(clsISO484& iso) {
    ApplyColumn(iso, kSmallIII);
}

void SetISOLargeClassSTolerances(clsISO484& iso) {
    ApplyColumn(iso, kLargeS);
}

void SetISOLargeClassITolerances(clsISO484& iso) {
    ApplyColumn(iso, kLargeI);
}

void SetISOLargeClassIITolerances(clsISO484& iso) {
    ApplyColumn(iso, kLargeII);
}

void SetISOLargeClassIIITolerances(clsISO484& iso) {
    ApplyColumn(iso, kLargeIII);
}

void ApplyInnerRadiusRow(const clsISO484& iso) {
    constexpr std::size_t kInnerRow = 7;
    const bool inner = iso.ISOIncludeInnerRadiusIndex() == 1 && iso.ISOInnerRadius() > 0.0;
    gRadialPositions[kInnerRow] = inner ? iso.ISOInnerRadius() / 100.0 : kStandardRadialPositions[kInnerRow];
}

void SetISOStandardAndTolerances(clsISO484& iso, const clsCorvane& project) {
    ErrorTail tail("setting the ISO standard and tolerances");
    tail.Step([&] {
        iso.SetISOStandardIndex(project.MarkedDiameter(kMetres) > kLargePropellerDiameterM ? kStandardLarge
                                                                                           : kStandardSmall);
    });
    if (tail.Aborted()) {
        return;
    }
    // Class Ia (2) shares the tables of class I; the custom class, and anything else, keeps the
    // tolerances the user set.
    const int column = [&] {
        switch (iso.ISOClassIndex()) {
        case 0:
            return 0;
        case 1:
        case 2:
            return 1;
        case 3:
            return 2;
        case 4:
            return 3;
        default:
            return -1;
        }
    }();
    if (column < 0) {
        return;
    }
    const auto& columns = iso.ISOStandardIndex() == kStandardSmall ? kSmallColumns : kLargeColumns;
    ApplyColumn(iso, *columns[static_cast<std::size_t>(column)]);
}

void GetSectionMask(const clsISO484& iso, ISOSectionMask& mask) {
    mask = RequiredSections(iso);
}

void GetClassSectionMask(const clsISO484& iso, const ISOSectionMask& userMask, ISOSectionMask& mask,
                         bool keepUser) {
    const ISOSectionMask required = RequiredSections(iso);
    const bool innerOn = iso.ISOIncludeInnerRadiusIndex() == 1;
    for (std::size_t row = 0; row < required.size(); ++row) {
        if (required[row]) {
            mask[row] = true;
        } else if (keepUser || (row == 6 && innerOn)) {
            mask[row] = userMask[row];
        } else {
            mask[row] = false;
        }
    }
}

} // namespace corvane
