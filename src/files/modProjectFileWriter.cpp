// WriteProjectFile of modProjectFile: the writer lives apart from the readers.
#include "files/modProjectFile.h"

#include "files/clsFileINI.h"
#include "files/modProjectBlockReader.h"
#include "files/modProjectFileSupport.h"
#include "files/modReferenceFile.h"
#include "iso484/clsISO484.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <algorithm>

namespace corvane {

using namespace projectfile;

namespace {

// The blocks of one save go into one batch of the file, written at the end in one go.
struct BlockWriter {
    clsFileINI& file;
    const std::string& path;
    bool& errorFlag;
    std::string& errorText;

    void Write(const std::string& block) {
        if (file.WriteBlock(block, path) == 0) {
            errorFlag = true;
        }
    }
    void String(const std::string& tag, const std::string& value) {
        file.SetStringToBlockTag(tag, OneLine(value), errorFlag, errorText);
    }
    void Float(const std::string& tag, double value) {
        file.SetFloatToBlockTag(tag, value, errorFlag, errorText);
    }
    void Integer(const std::string& tag, std::int16_t value) {
        file.SetIntegerToBlockTag(tag, value, errorFlag, errorText);
    }
    void Word(const std::string& tag, int index, const std::vector<std::string>& words) {
        file.SetIndexToBlockTag(index, tag, words, errorFlag, errorText);
    }
};

void WriteProjectBlock(BlockWriter& w) {
    const clsCorvane& project = *gProject;
    w.file.ResetArrayIndex();
    w.String("SchemaVersion", "2");
    w.String("LastModified", DateToStamp(Clock().Now()));
    w.String("Source", SourceText());
    w.Word("PropLength", gUnits->PropLengthIndex(), PropLengthWords());
    w.String("ProjectID", project.ProjectID());
    w.String("RepairShop", project.RepairShop());
    w.String("Inspector", project.Inspector());
    w.String("Notes", LineBreaksToPipes(project.Notes()));
    w.String("JobNotes", LineBreaksToPipes(project.JobNotes()));
    w.String("Customer", project.Customer());
    w.String("Vessel", project.Vessel());
    w.String("JobNumber", project.JobNumber());
    w.Write("Project");
}

void WritePropellerInfoBlock(BlockWriter& w) {
    const clsCorvane& project = *gProject;
    const clsISO484& iso = *gISO484;
    w.file.ResetArrayIndex();
    w.String("Manufacturer", project.Manufacturer());
    w.String("ModelNumber", project.ModelNumber());
    w.String("SerialNumber", project.SerialNumber());
    w.Float("MarkedDiameter", project.MarkedDiameter());
    w.String("MarkedPitch", project.MarkedPitch());
    w.Integer("BladeCount", project.BladeCount());
    w.Word("Rotation", project.RotationIndex(), RotationWords());
    w.String("MaterialDescription", project.MaterialDescription());
    w.String("BoreSize", project.BoreSize());
    w.Word("ISOTaskIndex", iso.ISOTaskIndex(), ISOTaskWords(5));
    w.Word("ISOCriteriaIndex", iso.ISOCriteriaIndex(), ISOCriteriaWords());
    w.Word("ClassIndex", iso.ISOClassIndex(), ISOClassWords());
    w.Word("IncludeInnerRadiusIndex", iso.ISOIncludeInnerRadiusIndex(), ISOIncludeInnerRadiusWords());
    // Filed in the user's own number format, as these three always were.
    w.String("InnerRadius", FormatUserNumber(iso.ISOInnerRadius()));
    w.String("CupExclusionDistance", FormatUserNumber(project.CupExclusionDistance()));
    w.String("LEExclusionDistance", FormatUserNumber(project.LEExclusionDistance()));
    w.Integer("RightScanCount", project.RightScanCount());
    w.Integer("LeftScanCount", project.LeftScanCount());
    w.Integer("ProjectScanCount", project.ProjectScanCount());
    w.Integer("ActiveRightScanIndex", project.ActiveRightScanIndex());
    w.Integer("ActiveLeftScanIndex", project.ActiveLeftScanIndex());
    w.Write("PropellerInfo");
}

// One scan and, right after it, its blades and their sections. False when the user ignored an
// error: the save is then abandoned.
bool WriteScanBlocks(BlockWriter& w, ErrorTail& tail, const std::string& scanBlock,
                     const clsPropeller& scan) {
    if (!tail.Step([&] {
            w.file.ResetArrayIndex();
            w.Integer("ScanID", scan.ScanID());
            w.String("ScanDate", scan.ScanDate());
            w.String("ScanSource", scan.ScanSource());
            w.Word("ScanDrop", scan.ScanDrop(), ScanDropWords());
            w.String("Description", scan.Description());
            w.Float("Diameter", scan.Diameter());
            w.Float("PitchMean", scan.PitchMean());
            w.String("PitchOfRecord", scan.PitchOfRecord());
            w.Integer("BladeCount", scan.BladeCount());
            w.String("MaterialDescription", scan.MaterialDescription());
            w.Write(scanBlock);
        })) {
        return false;
    }
    for (int j = 1; j <= scan.BladeCount(); ++j) {
        const std::string bladeBlock = scanBlock + "Blade" + std::to_string(j);
        std::shared_ptr<clsBlades> blade;
        if (!tail.Step([&] {
                blade = scan.Blades(j - 1);
                w.file.ResetArrayIndex();
                w.Float("BladeDiameter", blade->BladeDiameter());
                w.Float("GLPositionThetaDeg", blade->GLPositionThetaDeg());
                w.Float("GLPositionAxialX", blade->GLPositionAxialX());
                w.Integer("SectionCount", blade->SectionCount());
                w.Write(bladeBlock);
            })) {
            return false;
        }
        for (int k = 1; k <= blade->SectionCount(); ++k) {
            if (!tail.Step([&] {
                    const clsSection& section = *blade->Section(k - 1);
                    const std::int16_t count = section.RawOffsetCount();
                    w.file.ResetArrayIndex();
                    w.Integer("RawOffsetCount", count);
                    if (count > 0) {
                        w.file.SetFloatArrayToBlockTag("Radius", count, section.RadiusArray(), w.errorFlag,
                                                       w.errorText);
                        w.file.SetFloatArrayToBlockTag("ThetaDeg", count, section.ThetaDegArray(),
                                                       w.errorFlag, w.errorText);
                        w.file.SetFloatArrayToBlockTag("AxialDropX", count, section.AxialDropXArray(),
                                                       w.errorFlag, w.errorText);
                    }
                    w.Write(bladeBlock + "Section" + std::to_string(k));
                })) {
                return false;
            }
        }
    }
    return true;
}

bool WriteScanSets(BlockWriter& w, ErrorTail& tail) {
    const clsCorvane& project = *gProject;
    for (int i = 1; i <= project.RightScanCount(); ++i) {
        if (!WriteScanBlocks(w, tail, "RightPropeller" + std::to_string(i), *project.RightScan(i - 1))) {
            return false;
        }
    }
    for (int i = 1; i <= project.LeftScanCount(); ++i) {
        if (!WriteScanBlocks(w, tail, "LeftPropeller" + std::to_string(i), *project.LeftScan(i - 1))) {
            return false;
        }
    }
    return true;
}

// A scan reference needs a pitch to compare with: a constant one above 0, or a variable one
// with no row below 0. Without it the project is saved, and from now on held, with no
// reference.
void CheckScanReference(clsCorvane& project) {
    if (project.ReferenceSourceIndex() == kReferenceScan && !ScanReferencePitchUsable(project)) {
        project.SetReferenceSourceIndex(kReferenceNone);
    }
}

void WriteReferenceInfoBlock(BlockWriter& w) {
    const clsCorvane& project = *gProject;
    w.file.ResetArrayIndex();
    w.Word("ReferenceSource", project.ReferenceSourceIndex(), ReferenceSourceWords());
    w.String("ReferenceSourceFilePath", project.ReferenceSourceFilePath());
    w.Word("InternalScanSourceIndex", project.InternalScanSourceIndex(), InternalScanSourceWords());
    w.Integer("InternalScanIndex", project.InternalScanIndex());
    const int blades = std::min<int>(project.BladeCount(), 7);
    for (int n = 1; n <= blades; ++n) {
        w.Word("ReferenceIncludeBlade" + std::to_string(n), project.ReferenceScanBladesEnabled(n - 1),
               OffOnWords());
    }
    w.Word("ReferenceSectionPitch", project.ReferenceSectionPitchIndex(), ReferenceSectionPitchWords());
    w.Word("ReferenceLocalPitch", project.ReferenceLocalPitchIndex(), ReferenceLocalPitchWords());
    w.Word("ReferenceSectionPitchSource", project.ReferenceSectionPitchSourceIndex(),
           ReferenceSectionPitchSourceWords());
    w.Float("ReferenceDiameter", project.ReferenceDiameter());
    w.Float("ReferenceConstantPitch", project.ReferenceConstantPitch());
    const std::int16_t rows = project.ReferenceVariablePitchCount();
    w.Float("ReferenceVariablePitchCount", rows);
    if (rows > 0) {
        w.file.SetFloatArrayToBlockTag("ReferenceVariablePitchRadialPos", rows,
                                       project.ReferenceVariablePitchRadialPosArray(), w.errorFlag,
                                       w.errorText);
        w.file.SetFloatArrayToBlockTag("ReferenceVariablePitch", rows, project.ReferenceVariablePitchArray(),
                                       w.errorFlag, w.errorText);
    }
    w.Write("ReferencePropellerInfo");
}

// The reference in use: the one built from scans, or the one read from a file; none for none.
void WriteReference(BlockWriter& w) {
    const clsCorvane& project = *gProject;
    const std::int16_t source = project.ReferenceSourceIndex();
    std::shared_ptr<clsPropeller> reference;
    if (source == kReferenceScan) {
        reference = project.ReferenceScan();
    } else if (IsFileReference(source)) {
        reference = project.ReferenceSource();
    }
    if (!reference) {
        return;
    }
    bool referenceFlag = false; // the reference writer clears its flag at the start
    if (WriteReferenceBlocks(w.path, *reference, referenceFlag, w.errorText) == 0 || referenceFlag) {
        w.errorFlag = true;
    }
}

[[noreturn]] void ThrowCannotWrite(const std::string& path) {
    if (path.empty()) {
        throw CorvaneError(ErrorNumber::BadFileName, "Bad file name or number");
    }
    throw CorvaneError(ErrorNumber::PathFileAccessError, "Path/File access error");
}

} // namespace

int WriteProjectFile(const std::string& path) {
    bool errorFlag = false;
    std::string errorText;
    clsFileINI file;
    ErrorTail tail("writing the cvpj file to disk");
    if (!tail.Step([&] {
            RequireProjectGlobals();
            if (path.empty() || file.BeginBatch(path) == 0) {
                ThrowCannotWrite(path);
            }
        })) {
        return 0;
    }
    BlockWriter w{file, path, errorFlag, errorText};
    bool done = tail.Step([&] { WriteProjectBlock(w); }) && tail.Step([&] { WritePropellerInfoBlock(w); }) &&
                WriteScanSets(w, tail) && tail.Step([&] {
                    CheckScanReference(*gProject);
                    WriteReferenceInfoBlock(w);
                }) &&
                tail.Step([&] { WriteReference(w); });
    // Written once, whole: on a failure the old file stays as it was.
    done = done && tail.Step([&] {
        if (file.CommitBatch() == 0) {
            ThrowCannotWrite(path);
        }
    });
    if (!done) {
        file.DiscardBatch();
        return 0;
    }
    return errorFlag ? 0 : 1;
}

} // namespace corvane
