#include "cli/ReferenceOptions.h"

#include "files/modReferenceFile.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"
#include "reference/modImportFile.h"
#include "reference/modReferenceProperties.h"
#include "support/modNVSystemUtilities.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <ostream>

namespace corvane::cli {
namespace {

std::string Lower(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// A file that held no reference blocks reads without complaint and leaves no section.
bool HasSections(clsPropeller& reference) {
    const auto blade = reference.Blades(0);
    for (int k = 0; k < blade->SectionCount(); ++k)
        if (blade->RadialPos(k) > 0)
            return true;
    return false;
}

bool ReadReferenceFile(const std::string& path, std::ostream& err) {
    const std::string prefix = "corvane-cli evaluate: cannot read the reference " + path + ": ";
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        err << prefix << "no such file\n";
        return false;
    }
    const std::string extension = Lower(FileExtensionOf(path));
    auto source = std::make_shared<clsPropeller>();
    if (extension == "cvrf") {
        bool flagged = false;
        std::string text;
        if (ReadReferenceBlocks(path, *source, flagged, text) != 1 || ResortReferenceSections(*source) != 1 ||
            !HasSections(*source)) {
            err << prefix << (text.empty() ? "no usable reference blocks" : text) << "\n";
            return false;
        }
    } else if (extension == "ppp") {
        if (ImportPPPFile(path, *source, gProject->BladeCount()) != 1) {
            err << prefix << "not a usable ppp file\n";
            return false;
        }
    } else {
        err << prefix << "File type is not recognized.\n";
        return false;
    }
    gProject->SetReferenceSource(source);
    gProject->SetReferenceSourceFilePath(path);
    gProject->SetReferenceSourceIndex(kReferenceFile);
    return true;
}

// As the reference panel's Apply: the blades with data make up a scan reference.
void UseBladesWithData() {
    const auto scan = gProject->PropellerScan(gProject->ActiveScanIndex());
    for (int b = 0; b < gProject->BladeCount() && b < scan->BladeCount(); ++b) {
        const auto blade = scan->Blades(b);
        bool hasData = false;
        for (int k = 0; k < blade->SectionCount() && !hasData; ++k)
            hasData = blade->Section(k)->RawOffsetCount() > 0;
        gProject->SetReferenceScanBladesEnabled(b, hasData ? 1 : 0);
    }
}

} // namespace

std::array<double, 8> PitchAtStandardRows(const std::vector<std::pair<double, double>>& points,
                                          const std::array<double, 8>& rows) {
    std::array<double, 8> pitch{};
    for (std::size_t row = 0; row < rows.size(); ++row)
        pitch[row] = InterpolateLinear(points, rows[row]);
    return pitch;
}

bool ApplyReferenceOptions(const EvaluateOptions& options, std::ostream& err) {
    if (!options.referencePath.empty()) {
        if (!ReadReferenceFile(options.referencePath, err))
            return false;
        UseBladesWithData();
        return true;
    }
    if (options.constantPitch) {
        gProject->SetReferenceSourceIndex(kReferenceScan);
        gProject->SetReferenceSectionPitchSourceIndex(0);
        gProject->SetReferenceSectionPitchIndex(0);
        gProject->SetReferenceConstantPitch(*options.constantPitch);
        UseBladesWithData();
    } else if (!options.variablePitch.empty()) {
        std::array<double, 8> rows{};
        std::copy(gRadialPositions.begin(), gRadialPositions.end(), rows.begin());
        const std::array<double, 8> pitch = PitchAtStandardRows(options.variablePitch, rows);
        gProject->SetReferenceSourceIndex(kReferenceScan);
        gProject->SetReferenceSectionPitchSourceIndex(0);
        gProject->SetReferenceSectionPitchIndex(1);
        gProject->SetReferenceVariablePitchCount(static_cast<std::int16_t>(rows.size()));
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const int i = static_cast<int>(row);
            gProject->SetReferenceVariablePitchEnabled(i, true);
            gProject->SetReferenceVariablePitchRadialPos(i, rows[row]);
            gProject->SetReferenceVariablePitch(i, pitch[row]);
        }
        UseBladesWithData();
    }
    return true;
}

bool ApplyCheckOptions(const EvaluateOptions& options, std::ostream& err) {
    if (options.classIndex)
        gISO484->SetISOClassIndex(*options.classIndex);
    if (options.criteriaIndex)
        gISO484->SetISOCriteriaIndex(*options.criteriaIndex);
    return ApplyReferenceOptions(options, err);
}

} // namespace corvane::cli
