#pragma once

// Bringing the active scan and the reference up to date before anything is evaluated. Every
// screen and report that shows evaluation results runs the same chain, in this order:
//   ClearISOCriteriaStatus, SetISOStandardAndTolerances, CalculateAllISOData,
//   EvaluateISOCriteria, and EvaluateClassStatus where a verdict is wanted.

#include <cstdint>

namespace corvane {

class clsCorvane;

// Recalculates the active scan of the project and its reference:
// 1. every blade with a measured section (more than one raw offset) is switched on; blades are
//    never switched off here;
// 2. the scan's geometry; a failure ends with 0, its own message having been shown;
// 3. the reference; a reference that cannot be calculated (or is missing) silently falls back
//    to ReferenceSourceIndex 0 and the calculation goes on without it;
// 4. with a reference, the local pitch deviations and the scan's rake at the reference's BCL
//    angle for every section measured on both; without one, each measured section's BCL angle
//    is the mid-angle of its raw ends about the GL, and its rake is taken there.
// A failure in step 4 is told under "Scan Data Error" and ends with 0; the data is then partly
// updated. useRawEnds is handed on to the reference calculation; callers pass 0.
std::int32_t CalculateAllISOData(clsCorvane& project, std::int16_t& useRawEnds);

} // namespace corvane
