#pragma once

#include "common/ServicesFixture.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"

#include <fstream>
#include <sstream>

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

    static std::string ReadText(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        std::ostringstream out;
        out << in.rdbuf();
        return out.str();
    }

    void WriteText(const std::string& path, const std::string& text) const {
        std::ofstream(path, std::ios::binary) << text;
    }

    static clsBlades& Blade(const clsPropeller& p, int i = 0) { return *p.Blades(i); }
};

} // namespace corvane::test
