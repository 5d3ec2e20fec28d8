#include "acquisition/DemoProject.h"

#include "files/modProjectCommands.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsUnits.h"

#include <vector>

namespace corvane {

clsVirtualPropeller DemoPropeller() {
    clsVirtualPropeller prop;
    prop.Diameter = 40.0;
    prop.BladeCount = 4;
    prop.RotationIndex = 0;
    // A slight pitch reduction towards hub and tip, as on a real fixed-pitch propeller.
    prop.Pitch = {{0.3, 34.0}, {0.7, 36.0}, {0.95, 35.0}};
    prop.Chord = {{0.3, 7.0}, {0.7, 10.0}, {0.95, 6.0}};
    prop.Rake = {{0.3, 0.0}, {0.95, 0.6}};
    prop.SkewDeg = {{0.3, 0.0}, {0.95, 8.0}};
    prop.FirstBladeThetaDeg = 0.0;
    prop.GLDrop = 2.0;
    return prop;
}

int BuildDemoProject(int pointsPerSection) {
    if (CreateNewProject() != 1)
        return 0;
    gUnits->SetPropLengthIndex(2); // inches
    gProject->SetProjectID("DEMO-4B");
    gProject->SetCustomer("Demo Shipping");
    gProject->SetVessel("MV Example");
    gProject->SetJobNumber("J-0001");
    gProject->SetManufacturer("Corvane demo");
    gProject->SetModelNumber("FP-40");
    gProject->SetSerialNumber("0001");
    gProject->SetMaterialDescription("Nibral");
    gProject->SetMarkedDiameter(40.0);
    gProject->SetMarkedPitch("36");
    gProject->SetRotationIndex(0);
    gProject->SetBladeCount(4);
    gISO484->SetISOClassIndex(1);

    const clsVirtualPropeller prop = DemoPropeller();
    gProject->SetPropellerScanCount(1);
    gProject->SetProjectScanCount(1);
    gProject->SetActiveScanIndex(0);
    auto scan = gProject->PropellerScan(0);
    scan->SetScanID(0);
    scan->SetScanDate("22-Nov-2026 09:00");
    scan->SetScanSource("Simulated arm");
    scan->SetScanDrop(1);
    scan->SetDescription("Demo scan");
    prop.FillScan(*scan, std::vector<double>(gRadialPositions.begin(), gRadialPositions.end()),
                  pointsPerSection);
    gProjectDirty = false;
    return 1;
}

} // namespace corvane
