#pragma once

// The propeller the calculation benchmarks sweep: a 3 m, millimetre project with pitch, chord,
// rake and skew varying along the radius, blades slightly off their spacing, quantised like a
// shop arm. StartBenchProject sets the allocator up as the programs do and leaves a new project in the
// globals with one scan of `points` points per section at the standard radii.

#include "acquisition/clsVirtualPropeller.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsUnits.h"
#include "support/ProcessMemory.h"

#include <cstdint>
#include <memory>

namespace corvane::bench {

inline clsVirtualPropeller BenchPropeller(int blades) {
    clsVirtualPropeller prop;
    prop.Diameter = 3000.0;
    prop.MillimetresPerUnit = 1.0;
    prop.BladeCount = static_cast<std::int16_t>(blades);
    prop.Pitch = {{0.3, 2100.0}, {0.95, 2500.0}};
    prop.Chord = {{0.3, 450.0}, {0.7, 800.0}, {0.95, 500.0}};
    prop.Rake = {{0.3, 0.0}, {0.95, 60.0}};
    prop.SkewDeg = {{0.3, -2.0}, {0.95, 15.0}};
    prop.FirstBladeThetaDeg = 350.0;
    prop.BladeOffsetDeg = {0.0, 0.4, -0.3, 0.2, -0.5, 0.1, 0.3};
    prop.AngleCountsPerRotation = 40000.0;
    prop.RadiusCountsPerMM = 100.0;
    prop.DropCountsPerMM = 100.0;
    return prop;
}

inline void StartBenchProject(const clsVirtualPropeller& prop, int points) {
    PrepareAllocatorForLargeProjects(); // as the programs do at start
    gUnits = std::make_shared<clsUnits>();
    gUnits->SetPropLengthIndex(3);
    gProject = std::make_shared<clsCorvane>();
    gProject->SetUnits(gUnits);
    gProject->SetMarkedDiameter(prop.Diameter);
    gProject->SetBladeCount(prop.BladeCount);
    gProject->SetPropellerScanCount(1);
    gISO484 = std::make_shared<clsISO484>();
    gISO484->SetUnits(gUnits);
    prop.FillScan(*gProject->PropellerScan(0),
                  {kStandardRadialPositions.begin(), kStandardRadialPositions.end()}, points);
}

} // namespace corvane::bench
