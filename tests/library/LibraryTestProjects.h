#pragma once

// Project files for the library tests, written by the project writer itself so the list reads
// what a station really saves. Header-only: the shell tests use it too.

#include "common/FileBytes.h"
#include "common/ServicesFixture.h"
#include "files/modProjectCommands.h"
#include "files/modProjectFile.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"

namespace corvane::test {

struct TestProject {
    std::string id;
    std::string customer;
    double diameter = 0.0;
    std::string pitch;
    int blades = 4;
    int classIndex = 1; // Class 1
    int unit = 3;       // mm
    DateTime saved;
};

// Writes the project to path with `saved` as its stamp and leaves a new project behind.
inline void WriteTestProject(FixedClock& clock, const std::string& path, const TestProject& values) {
    CreateNewProject();
    gUnits->SetPropLengthIndex(static_cast<std::int16_t>(values.unit));
    gProject->SetProjectID(values.id);
    gProject->SetCustomer(values.customer);
    gProject->SetMarkedDiameter(values.diameter);
    gProject->SetMarkedPitch(values.pitch);
    gProject->SetBladeCount(static_cast<std::int16_t>(values.blades));
    gISO484->SetISOClassIndex(static_cast<std::int16_t>(values.classIndex));
    clock.Set(values.saved);
    EXPECT_EQ(WriteProjectFile(path), 1) << path;
    CreateNewProject();
}

// The services fixture with a Project Library and an Archive folder in the settings, as the
// station reads them on each new project.
class LibraryTest : public ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        library = temp->Folder() + "library/";
        archive = temp->Folder() + "archive/";
        std::filesystem::create_directories(library);
        std::filesystem::create_directories(archive);
        settings.SetValue("Software\\Corvane\\DefaultOptions", "RootDirectory", library);
        settings.SetValue("Software\\Corvane\\DefaultOptions", "ArchiveDirectory", archive);
        // The options are read from this key only when it names the repair shop.
        settings.SetValue("Software\\Corvane\\DefaultOptions", "RepairShopName", "Harbour Props");
        gAppTitle = "Corvane";
        CreateNewProject();
    }

    // Three jobs in the library: saved in the order Bravo, alpha, Charlie; in metres the
    // diameters order alpha (6 ft), Bravo (1850 mm), Charlie (2.1 m), which no text order gives.
    void WriteThreeProjects() {
        WriteTestProject(clock, library + "bravo.cvpj",
                         {"Bravo-17", "North Tug Co", 1850, "1400", 4, 1, 3, {2025, 11, 3, 8, 0, 0}});
        WriteTestProject(clock, library + "alpha.cvpj",
                         {"alpha-02", "Harbour Ferries", 6, "4.5", 5, 0, 0, {2026, 1, 15, 14, 30, 0}});
        WriteTestProject(clock, library + "charlie.cvpj",
                         {"Charlie-9", "Coastal Lines", 2.1, "1.7", 3, 3, 1, {2026, 2, 1, 9, 45, 0}});
    }

    std::string library;
    std::string archive;
};

} // namespace corvane::test
