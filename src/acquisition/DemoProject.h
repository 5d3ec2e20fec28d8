#pragma once

// The built-in demo: an ideal four-bladed right-hand propeller of 40 in diameter with eight
// sections on every blade, swept by the simulated arm over the virtual propeller. The program
// opens it with --demo, and data/demo.cvpj is this project as Corvane writes it.

#include "acquisition/clsVirtualPropeller.h"

namespace corvane {

// The propeller the demo is swept over (and that the simulated arm plays over by default).
clsVirtualPropeller DemoPropeller();

// Replaces gProject by a new project filled with the demo's job data and one scan of
// DemoPropeller(). 1, or 0 when the new project could not be made.
int BuildDemoProject(int pointsPerSection = 40);

} // namespace corvane
