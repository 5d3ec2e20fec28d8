#pragma once

#include <array>

#include "iso484/clsISO484.h"
#include "model/Globals.h"

// The module goes on in its own files: the ISO data calculation, the evaluators, the criteria
// status and the class verdicts. Including this header brings all of them.
#include "iso484/modISO484Class.h"
#include "iso484/modISO484Criteria.h"
#include "iso484/modISO484Evaluate.h"

namespace corvane {

class clsCorvane;

// Rows of the standard radial table (gRadialPositions): 0.95 outermost down to the inner
// section in row 7.
inline constexpr int kISOSectionRows = 8;
using ISOSectionMask = std::array<bool, kISOSectionRows>;

// Row 7 of the standard radial table (gRadialPositions) for the settings of iso: the inner
// radius (ISOInnerRadius / 100) when it is on and above 0, the standard 0.3 otherwise. Applied
// whenever a project is read or its inner radius setting changes, so that every screen and the
// command line measure row 7 at the same radius.
void ApplyInnerRadiusRow(const clsISO484& iso);

// Picks the standard from the marked diameter (ISO 484-1 above 2.5 m, ISO 484-2 up to and at
// 2.5 m) and fills the tolerances of the chosen class. Classes 1 and 1a share their tables;
// the custom class, and any index outside the table, keeps the tolerances the instance holds.
void SetISOStandardAndTolerances(clsISO484& iso, const clsCorvane& project);

// The fixed tolerance tables: lengths given in millimetres and stored in the project unit of
// iso.Units(), fractions as they are, and the radial positions the class requires.
// "Small" is ISO 484-2, "Large" ISO 484-1; classes S, I, II and III.
void SetISOSmallClassSTolerances(clsISO484& iso);
void SetISOSmallClassITolerances(clsISO484& iso);
void SetISOSmallClassIITolerances(clsISO484& iso);
void SetISOSmallClassIIITolerances(clsISO484& iso);
void SetISOLargeClassSTolerances(clsISO484& iso);
void SetISOLargeClassITolerances(clsISO484& iso);
void SetISOLargeClassIITolerances(clsISO484& iso);
void SetISOLargeClassIIITolerances(clsISO484& iso);

// The radial sections the class of iso requires, one row per row of the standard radial
// table; every row is written. Row 7 (the inner section) is required only with the inner
// radius on; in classes 2 to 4 row 6 (0.4) is required only with it off. The custom class
// requires none. Without a mask argument the result goes to gISORadiusFlags.
void GetSectionMask(const clsISO484& iso, ISOSectionMask& mask = gISORadiusFlags);

// The reports' variant, for the class of iso: the required rows are true; a row that is not
// required takes the user's selection from userMask when keepUser is true and is false
// otherwise. Row 6, when not required while the inner radius is on, always takes the user's
// selection: the user decides whether the 0.4 section is shown beside the inner one.
void GetClassSectionMask(const clsISO484& iso, const ISOSectionMask& userMask, ISOSectionMask& mask,
                         bool keepUser);

} // namespace corvane
