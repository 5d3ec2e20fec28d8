#pragma once

// The evaluation chain behind every screen, report and command that shows ISO 484 results.

#include <cstdint>

namespace corvane {

class clsCorvane;
class clsISO484;

// Runs on the project's active scan and iso, in this fixed order: ClearISOCriteriaStatus,
// SetISOStandardAndTolerances, CalculateAllISOData (useRawEnds 0), EvaluateISOCriteria and
// EvaluateClassStatus. A reference that cannot be had (no scan to copy or no pitch above 0 for
// a scan reference, no file read) or whose calculation fails is dropped without a word:
// ReferenceSourceIndex becomes 0 and the scan is evaluated alone. Returns 1 when the data
// calculated, handing back the verdict of EvaluateClassStatus (0 not evaluated, 1 meets,
// 2 fails); 0 when it did not (its message has been shown), and nothing is then evaluated.
[[nodiscard]] std::int32_t RunISOEvaluationChain(clsCorvane& project, clsISO484& iso, std::int16_t& verdict);

} // namespace corvane
