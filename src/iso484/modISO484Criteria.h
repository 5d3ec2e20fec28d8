#pragma once

// The criteria status of the active scan: one cell per criterion for the whole scan, and the
// window of every criterion at every blade and section in the results of the clsISO484 used.

#include <array>
#include <cstdint>

namespace corvane {

class clsCorvane;
class clsISO484;

// Cells of gISOStatus: 1 all clear, 2 failed somewhere, 0 not applicable.
enum ISOStatusCell : int {
    kISOStatusGeneral = 0,
    kISOStatusChord,
    kISOStatusLeadingEdge,
    kISOStatusSpacing,
    kISOStatusPropellerMeanPitch,
    kISOStatusBladeMeanPitch,
    kISOStatusNoseTailPitch,
    kISOStatusLocalPitch,
    kISOStatusRakePosition,
    kISOStatusRakeProgression,
    kISOStatusRakeBetweenBlades,
    kISOStatusPitchContinuity,
};
inline constexpr int kISOStatusCells = 12;
inline constexpr std::int16_t kISOCellNotApplicable = 0;
inline constexpr std::int16_t kISOCellClear = 1;
inline constexpr std::int16_t kISOCellFailed = 2;

extern std::array<std::int16_t, kISOStatusCells> gISOStatus;

// Every cell back to 1 (all clear).
void ClearISOCriteriaStatus();

// Evaluates every criterion of gProject's active scan against the class of `iso`, with no
// section or blade mask: the propeller mean pitch; for each enabled blade its diameter (shown
// only), mean pitch and spacing; for each measured section the nose-tail pitch, each panel's
// local pitch, each station's pitch continuity, chord, leading edge, rake position, the rake
// progression to each later measured section and the rake difference to the previous and the
// next blade. The general cell becomes 0; a criterion that fails anywhere, or whose evaluator
// fails, turns its cell to 2. A rake difference to a blade without that section turns its cell
// to 0 unless a failure was already found.
//
// The windows replace iso.Results() (see ISOResults.h). Returns 1, or 0 when there is no
// project or scan to evaluate (the error handler has been told).
std::int32_t EvaluateISOCriteria(const clsCorvane& project, clsISO484& iso);

} // namespace corvane
