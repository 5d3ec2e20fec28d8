#include "ProjectFileTestSupport.h"

#include "iso484/modISO484.h"

namespace corvane::test {

void MakeFreshProject() {
    gUnits = std::make_shared<clsUnits>();
    gProject = std::make_shared<clsCorvane>();
    gISO484 = std::make_shared<clsISO484>();
    gProject->SetLinkedClasses(gUnits);
    gISO484->SetLinkedClasses(gUnits);
    gProject->SetBladeCount(4);
    gProject->SetReferenceScanBladesEnabled(0, 1);
    gProject->SetReferenceSectionPitchSourceIndex(1);
}

namespace {

// Points with at most 9 significant digits, which the file keeps exactly.
void FillSection(clsSection& section, int points, double seed) {
    section.SetRawOffsetCount(points);
    for (int p = 0; p < points; ++p) {
        section.SetRadius(p, 100.5 + seed + p * 0.25);
        section.SetThetaDeg(p, -12.125 + seed + p * 1.5);
        section.SetAxialDropX(p, 3.0625 * seed - p * 0.5);
    }
}

// Right sections of a single point load empty, so only left scans get one (section 2).
void FillScan(clsPropeller& scan, int id, int blades, int sectionsPerBlade, double seed, bool singlePoint) {
    scan.SetScanID(static_cast<std::int16_t>(id));
    scan.SetScanDate("2026/11/2" + std::to_string(id % 10) + " 8:15:0");
    scan.SetScanSource(id % 2 == 0 ? "USB4 arm" : "Hale MRI file import");
    scan.SetScanDrop(static_cast<std::int16_t>(id % 3));
    scan.SetDescription("Scan " + std::to_string(id) + " before repair");
    scan.SetDiameter(1250.25 + id);
    scan.SetPitchMean(1100.5 + id);
    scan.SetPitchOfRecord("1100 mm, scan " + std::to_string(id));
    scan.SetMaterialDescription("NiAl bronze");
    scan.SetBladeCount(static_cast<std::int16_t>(blades));
    for (int j = 0; j < blades; ++j) {
        const std::shared_ptr<clsBlades> blade = scan.Blades(j);
        blade->SetSectionCount(static_cast<std::int16_t>(sectionsPerBlade));
        blade->SetBladeDiameter(1249.5 + j);
        blade->SetGLPositionThetaDeg(j * 90.0 + seed);
        blade->SetGLPositionAxialX(-2.5 * j);
        for (int k = 0; k < sectionsPerBlade; ++k) {
            // Section 1 of every blade has no points.
            const int points = k == 1 ? 0 : (k == 2 && singlePoint ? 1 : 3 + (k + j) % 4);
            FillSection(*blade->Section(k), points, seed + j + k * 0.5);
        }
    }
}

} // namespace

void FillSampleProject() {
    clsCorvane& p = *gProject;
    clsISO484& iso = *gISO484;
    gUnits->SetPropLengthIndex(3);
    p.SetProjectID("P-100");
    p.SetRepairShop("Harbour Props");
    p.SetInspector("J. Smith");
    p.SetNotes("Leading edge worn\r\nBlade 3 bent");
    p.SetJobNotes("Ship by Friday\r\n\r\nCall first");
    p.SetCustomer("Blue Line");
    p.SetVessel("MV Tern");
    p.SetJobNumber("J-77");
    p.SetManufacturer("Acme Propellers");
    p.SetModelNumber("FP-4");
    p.SetSerialNumber("SN 1234");
    p.SetMarkedDiameter(1250.5);
    p.SetMarkedPitch("1100 mm");
    p.SetMaterialDescription("NiAl bronze");
    p.SetBoreSize("85 mm");
    p.SetCupExclusionDistance(3.25);
    p.SetLEExclusionDistance(4.5);
    iso.SetISOTaskIndex(2);
    iso.SetISOCriteriaIndex(1);
    iso.SetISOClassIndex(3);
    iso.SetISOIncludeInnerRadiusIndex(1);
    iso.SetISOInnerRadius(25.5);
    ApplyInnerRadiusRow(iso); // the stations of the variable pitch table follow it

    p.SetRotationIndex(0);
    p.SetBladeCount(4);
    p.SetRightScanCount(2);
    p.SetLeftScanCount(3);
    FillScan(*p.RightScan(0), 0, 4, 8, 0.5, false);
    FillScan(*p.RightScan(1), 3, 4, 8, 1.5, false);
    FillScan(*p.LeftScan(0), 4, 4, 8, 2.5, true);
    FillScan(*p.LeftScan(1), 5, 3, 6, 3.5, true);
    FillScan(*p.LeftScan(2), 6, 5, 8, 4.5, true);
    p.SetRotationIndex(1);
    p.SetProjectScanCount(7);
    p.SetActiveRightScanIndex(1);
    p.SetActiveLeftScanIndex(2);

    p.SetReferenceSourceIndex(2);
    p.SetReferenceSourceFilePath("C:\\refs\\blue-line.cvrf");
    p.SetInternalScanSourceIndex(1);
    p.SetInternalScanIndex(2);
    for (int b = 0; b < 4; ++b) {
        p.SetReferenceScanBladesEnabled(b, b == 1 || b == 2 ? 1 : 0);
    }
    p.SetReferenceSectionPitchIndex(1);
    p.SetReferenceLocalPitchIndex(1);
    p.SetReferenceSectionPitchSourceIndex(0);
    p.SetReferenceDiameter(1250.0);
    p.SetReferenceConstantPitch(1100.75);
    for (int row = 0; row < 8; ++row) {
        p.SetReferenceVariablePitchRadialPos(row, gRadialPositions[static_cast<std::size_t>(row)]);
        p.SetReferenceVariablePitch(row, 1000.0 + row * 12.5);
        p.SetReferenceVariablePitchEnabled(row, true);
    }
    clsPropeller& reference = *p.ReferenceSource();
    reference.SetDiameter(1250.0);
    reference.SetBladeCount(1);
    const std::shared_ptr<clsBlades> blade = reference.Blades(0);
    blade->SetSectionCount(3);
    for (int k = 0; k < 3; ++k) {
        blade->SetRadialPos(k, gRadialPositions[static_cast<std::size_t>(k)]);
        blade->SetChord(k, 300.5 - k * 20);
        blade->SetPitch(k, 1100.25 + k);
        blade->SetSkewHelix(k, 10.5 - k);
        blade->SetRakeAft(k, 2.75 * k);
        if (k != 1) {
            blade->Section(k)->SetSegmentPanelPitchArray({1090.5, 1100.0, 1105.25, 1110.125});
        }
    }
}

std::string Crlf(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '\n') {
            out += "\r\n";
        } else {
            out.push_back(c);
        }
    }
    return out;
}

void ProjectFileTest::SetUp() {
    ServicesTest::SetUp();
    gLogFolder = temp->Folder();
    MakeFreshProject();
}

std::string ProjectFileTest::Put(const std::string& name, std::string_view text) {
    const std::string path = temp->File(name);
    WriteBytes(path, Crlf(text));
    return path;
}

std::string ProjectFileTest::Fixture(const std::string& name) {
    const std::string path = temp->File(name);
    std::filesystem::copy_file(std::string(CORVANE_TEST_DATA) + "/" + name, path);
    return path;
}

} // namespace corvane::test
