#pragma once

#include "common/FileBytes.h"
#include "common/ServicesFixture.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"

namespace corvane::test {

// A fresh inch project of 4 blades and 40 in marked diameter, without scans, as the program
// has it when a reference is chosen.
class PPPTest : public ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        NewProject(0);
    }

    static void NewProject(std::int16_t rotation) {
        gUnits = std::make_shared<clsUnits>();
        gUnits->SetPropLengthIndex(2);
        gProject = std::make_shared<clsCorvane>();
        gISO484 = std::make_shared<clsISO484>();
        gProject->SetLinkedClasses(gUnits);
        gISO484->SetLinkedClasses(gUnits);
        gProject->SetRotationIndex(rotation);
        gProject->SetBladeCount(4);
        gProject->SetMarkedDiameter(40.0);
    }

    static std::string Data(const std::string& name) { return std::string(CORVANE_TEST_DATA) + "/" + name; }

    static clsBlades& Blade(const clsPropeller& p, int i = 0) { return *p.Blades(i); }
};

} // namespace corvane::test
