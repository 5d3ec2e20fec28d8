#pragma once

// Verdicts: whether the active scan meets one class, which class each blade and criterion
// reaches, the best class of the scan and the sentence that words it.
//
// Verdict codes index kISOStatusWords: 0 not evaluated (no reference), 1 meets, 2 fails,
// 3 partial scan meets.
//
// The blades the user has selected, and the user's own choice of the 0.4 section beside the
// inner radius, come with an ISOSelection.

#include <cstdint>
#include <string>
#include <vector>

#include "iso484/ISOResults.h"

namespace corvane {

class clsCorvane;
class clsISO484;

// The verdict of the project's active scan for the class of `iso`: 0 without a reference, else 1,
// or 2 at the first failure. Walks the propeller mean pitch and each enabled blade: mean pitch
// (only when above 0), spacing, and in each measured section that the class requires the
// nose-tail pitch, chord, leading edge and rake position; every panel's local pitch unless the
// class is 3 (index 4), and with secondary criteria every station's pitch continuity. Diameter,
// rake between blades and rake progression never decide.
std::int16_t EvaluateClassStatus(const clsCorvane& project, const clsISO484& iso);

// The same walk over the enabled and selected blades of scan scanIndex, recording per blade and
// criterion instead of stopping. Rows 1 to 13 of `flags` are set to one true entry per blade
// and turn false where the criterion fails; row 0 is only sized, never written. Rake between
// blades (against the next blade; a next blade not selected counts as a failure) and the rake
// progression to the next measured section are looked at only with secondary criteria.
// propellerOK is false when the propeller mean pitch fails. Returns 0 without a reference,
// else 2 when any criterion but diameter, rake between blades and rake progression failed,
// else 1.
std::int16_t EvaluateClassPerBlade(const clsCorvane& project, const clsISO484& iso, int scanIndex,
                                   const ISOSelection& selection, ISOClassFlags& flags, bool& propellerOK);

// The class the measured sections of each selected blade of the active scan can support at
// best, by the sections the class of `iso` requires: 6 (missing) for a blade left out; 4 with rows 1, 3 and 5
// measured (2 below the size limit, else 3 under ISO 484-2); then 1 with rows 2 and 4 as well
// (3 under ISO 484-1); then 0 with row 0 too. `overall` is the smallest code over the blades.
void GetCoverageClass(const clsCorvane& project, const clsISO484& iso, const ISOSelection& selection,
                      std::vector<std::int16_t>& bladeCodes, std::int16_t& overall, bool belowLimit);

// The marked diameter is below 0.8 m (within 1e-5): the coverage of a small propeller counts
// for more.
bool ISOBelowSizeLimit(const clsCorvane& project);

// standardText: "ISO 484-1  " or "ISO 484-2 " and "Primary" or "Primary and Secondary".
// sentence by verdict code: 0 "Scan not evaluated.", 1 "MEETS OR EXCEEDS CLASS ...", 2 "Fails to
// meet Class ...", 3 "Partial scan meets Class ..."; any other code gives "".
void GetEvaluationSentence(const clsISO484& iso, std::string& standardText, std::string& sentence, int code);

} // namespace corvane
