#pragma once

// A new, empty project in the globals for the project readers of the fuzz targets, linked as
// the program links a new project.
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"

namespace corvane::fuzz {

inline void MakeFreshProject() {
    gUnits = std::make_shared<clsUnits>();
    gProject = std::make_shared<clsCorvane>();
    gISO484 = std::make_shared<clsISO484>();
    gProject->SetLinkedClasses(gUnits);
    gISO484->SetLinkedClasses(gUnits);
    gProject->SetBladeCount(4);
    gProject->SetReferenceScanBladesEnabled(0, 1);
}

} // namespace corvane::fuzz
