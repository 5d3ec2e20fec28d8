#pragma once

// The evaluation chain behind every screen, report and command that shows ISO 484 results, with
// the geometry routines it drives wired in.

#include <cstdint>

namespace corvane {

// Installs the geometry routines that the ISO data calculation (SetISOGeometrySteps) and the ppp
// reader and writer (SetPPPPipeline) call, and the ppp reader through which a project re-reads
// its reference file. The program calls it once at start; calling it again installs the same
// routines again, replacing any stand-ins a test had put in.
void InstallCalculationSteps();

// Runs on gProject's active scan and gISO484, in this fixed order: ClearISOCriteriaStatus,
// SetISOStandardAndTolerances, CalculateAllISOData (useRawEnds 0), EvaluateISOCriteria and
// EvaluateClassStatus. A reference that cannot be had (no scan to copy or no pitch above 0 for
// a scan reference, no file read) or whose calculation fails is dropped without a word:
// ReferenceSourceIndex becomes 0 and the scan is evaluated alone. Returns 1 when the data
// calculated; 0 when it did not (its message has been shown), and nothing is then evaluated.
// Installs the steps when no geometry steps are installed.
std::int32_t RunISOEvaluationChain();
// The same, handing back the verdict of EvaluateClassStatus (0 not evaluated, 1 meets, 2 fails);
// 0 when the data did not calculate.
std::int32_t RunISOEvaluationChain(std::int16_t& verdict);

} // namespace corvane
