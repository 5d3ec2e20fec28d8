#pragma once

// The best ISO 484 class a scan reaches, blade by blade and criterion by criterion.

#include "check/modISO484Data.h"
#include "iso484/ISOResults.h"

#include <cstdint>

namespace corvane {

class clsCorvane;
class clsISO484;

// The best class of scan scanIndex. Runs the whole chain for classes 3, 2, 1 and S on a
// short-lived clsISO484 with the settings of projectISO, and gives each blade and criterion the
// best class it passed (4, class 3, where it passes none); row kISORowCoverage holds the
// coverage code. The verdict is that of the project's class (class 1a reads class 1's), or 3
// (partial) when it passes but the measured sections support less than the class needs. With a
// single-channel drop encoder the three rake rows are 5 (not applicable). Only the blades of the
// selection are judged.
//
// projectISO keeps its class, tolerances and results; the class codes are added to its results.
// gISOStatus is put back as it was. belowLimit: see ISOBelowSizeLimit. dataStep brings the scan
// and its reference up to date before each class is judged; tests that build the results by
// hand hand in one that keeps them.
using ISODataStep = std::int32_t (*)(clsCorvane& project, std::int16_t& useRawEnds);
std::int16_t GetBestISOClass(clsCorvane& project, clsISO484& projectISO, int scanIndex,
                             const ISOSelection& selection, bool belowLimit, ISOClassCodes& codes,
                             std::int16_t& propellerCode, ISODataStep dataStep = &CalculateAllISOData);

} // namespace corvane
