#pragma once

// How many local pitch panels a section is cut into, by the ISO 484 standard, class and task of
// gISO484 and the section's chord in millimetres (the project unit converted through
// gProject's units). Both throw CorvaneError when gProject, its units or gISO484 is missing, so
// they are called from inside an error tail.

#include "model/clsPropeller.h"

namespace corvane {

// Panels of row `section`, from the largest SegmentChord of that row over all blades (C, mm):
//   ISO 484-1, class S, I or II: round(C/400 + 1), a half to the even neighbour, at least 4; then
//     widened while a panel is over 400 mm, and narrowed while one is under 100 mm, the
//     narrowing stopping as soon as 4 panels remain and never going below 1 panel.
//   ISO 484-1, class Ia, III and any other: 1.
//   ISO 484-2: class S 4, I and Ia 3, II 2, III 1 (any other 1); narrowed while a panel is
//     under 25.4 mm, down to 1.
// Task "node on CL" makes a count above 1 even (a station on the centre line), task "segment on
// CL" odd (a panel on it). panelMode gives 48 whatever the rest. `blade` is not used: every
// blade of a row gets the same panels.
int GetSectionPanelCount(clsPropeller& propeller, int blade, int section, bool panelMode);

// The same choice of count from blade 0's Chord of row `section`, without the widening and
// narrowing by panel width: used when a reference file is resplined.
int GetExportPanelCount(clsPropeller& propeller, int section);

} // namespace corvane
