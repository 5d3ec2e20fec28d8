#include "files/modProjectBlockReader.h"

#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/modUtilities.h"

#include <algorithm>

namespace corvane::projectfile {

namespace {

// Error number of a call through an object link that was never made.
constexpr int kObjectNotSet = 91;

void ReadScanHeader(BlockReader& reader, const ScanBlockRules& rules, int number, clsPropeller& scan) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    // Older files lack these: read apart, so that they draw no notice.
    bool ownFlag = false;
    std::string ownText;
    scan.SetScanID(file.GetIntegerFromBlockTag("ScanID", ownFlag, ownText));
    if (rules.scanIDFallback && ownFlag) {
        scan.SetScanID(static_cast<std::int16_t>(number - 1));
    }
    scan.SetScanDate(file.GetStringFromBlockTag("ScanDate", flag, text));
    if (rules.hasSourceAndDrop) {
        scan.SetScanSource(file.GetStringFromBlockTag("ScanSource", ownFlag, ownText));
        scan.SetScanDrop(file.GetIndexFromBlockTag("ScanDrop", ScanDropWords(), ownFlag, ownText));
    }
    scan.SetDescription(file.GetStringFromBlockTag("Description", flag, text));
    scan.SetDiameter(file.GetFloatFromBlockTag("Diameter", flag, text));
    scan.SetPitchMean(file.GetFloatFromBlockTag("PitchMean", flag, text));
    scan.SetPitchOfRecord(file.GetStringFromBlockTag("PitchOfRecord", flag, text));
    scan.SetBladeCount(file.GetIntegerFromBlockTag("BladeCount", flag, text));
    scan.SetMaterialDescription(file.GetStringFromBlockTag("MaterialDescription", flag, text));
}

void ReadSectionPoints(BlockReader& reader, const ScanBlockRules& rules, const std::string& block,
                       clsSection& section) {
    const std::int16_t count =
        reader.file.GetIntegerFromBlockTag("RawOffsetCount", reader.errorFlag, reader.errorText);
    if (count >= rules.minPointCount) {
        ReadRawPoints(reader, block, section, count);
    } else {
        section.SetRawOffsetCount(rules.shortSectionsLoadEmpty ? 0 : count);
    }
}

} // namespace

ReadOutcome ReadScanBlocks(BlockReader& reader, const ScanBlockRules& rules, int number, clsPropeller& scan) {
    clsFileINI& file = reader.file;
    const std::string scanBlock = rules.prefix + std::to_string(number);
    bool found = false;
    if (!reader.tail.Step([&] {
            found = file.ReadBlock(scanBlock, reader.path) == 1;
            if (found || rules.missingScanBlock == MissingScanBlock::NoticeAndGoOn) {
                // A missing right scan reads on from empty lines: the scan keeps empty values.
                ReadScanHeader(reader, rules, number, scan);
            }
        })) {
        return ReadOutcome::Abandoned;
    }
    if (!found) {
        if (rules.missingScanBlock != MissingScanBlock::Fail) {
            AddMissingBlock(reader.errorFlag, reader.errorText, scanBlock);
        }
        if (rules.missingScanBlock != MissingScanBlock::NoticeAndGoOn) {
            return ReadOutcome::FailureExit;
        }
    }
    for (int j = 1; j <= scan.BladeCount(); ++j) {
        const std::string bladeBlock = scanBlock + "Blade" + std::to_string(j);
        std::shared_ptr<clsBlades> blade;
        if (!reader.tail.Step([&] {
                found = file.ReadBlock(bladeBlock, reader.path) == 1;
                if (found) {
                    blade = scan.Blades(j - 1);
                    blade->SetBladeDiameter(
                        file.GetFloatFromBlockTag("BladeDiameter", reader.errorFlag, reader.errorText));
                    blade->SetGLPositionThetaDeg(
                        file.GetFloatFromBlockTag("GLPositionThetaDeg", reader.errorFlag, reader.errorText));
                    blade->SetGLPositionAxialX(
                        file.GetFloatFromBlockTag("GLPositionAxialX", reader.errorFlag, reader.errorText));
                    blade->SetSectionCount(
                        file.GetIntegerFromBlockTag("SectionCount", reader.errorFlag, reader.errorText));
                }
            })) {
            return ReadOutcome::Abandoned;
        }
        if (!found) {
            return ReadOutcome::FailureExit;
        }
        for (int k = 1; k <= blade->SectionCount(); ++k) {
            const std::string sectionBlock = bladeBlock + "Section" + std::to_string(k);
            if (!reader.tail.Step([&] {
                    found = file.ReadBlock(sectionBlock, reader.path) == 1;
                    if (found) {
                        ReadSectionPoints(reader, rules, sectionBlock, *blade->Section(k - 1));
                    }
                })) {
                return ReadOutcome::Abandoned;
            }
            if (!found) {
                return ReadOutcome::FailureExit;
            }
        }
    }
    return ReadOutcome::Continue;
}

void SetScanCountFromFile(BlockReader& reader, clsCorvane& project, int rotation, double value,
                          const std::string& tag) {
    std::int16_t count = CountFromFloat(value);
    // Each new scan gets the project's blade count before its own block is read.
    const std::int64_t blades = std::max<int>(project.BladeCount(), 2);
    const std::int64_t most = std::max<std::int64_t>(1, reader.limits.BladeSlots() / blades);
    if (count > most) {
        reader.errorFlag = true;
        reader.errorText += kCrLf + " [" + tag + "] tag [" + std::to_string(count) + "] reduced to " +
                            std::to_string(most) + ": the file cannot hold that many scans.";
        count = static_cast<std::int16_t>(most);
    }
    if (rotation == 0) {
        project.SetRightScanCount(count);
    } else if (rotation == 1) {
        project.SetLeftScanCount(count);
    } else {
        project.SetPropellerScanCount(count);
    }
}

void ReadPropellerInfoTags(BlockReader& reader, clsCorvane& project, clsISO484& iso, bool siblingFormat) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    project.SetManufacturer(file.GetStringFromBlockTag("Manufacturer", flag, text));
    project.SetModelNumber(file.GetStringFromBlockTag("ModelNumber", flag, text));
    project.SetSerialNumber(file.GetStringFromBlockTag("SerialNumber", flag, text));
    project.SetMarkedDiameter(file.GetFloatFromBlockTag("MarkedDiameter", flag, text));
    project.SetMarkedPitch(file.GetStringFromBlockTag("MarkedPitch", flag, text));
    project.SetBladeCount(file.GetIntegerFromBlockTag("BladeCount", flag, text));
    project.SetRotationIndex(file.GetIndexFromBlockTag("Rotation", RotationWords(), flag, text));
    project.SetMaterialDescription(file.GetStringFromBlockTag("MaterialDescription", flag, text));
    std::string bore = siblingFormat ? FormatNumber(file.GetFloatFromBlockTag("BoreSize", flag, text), "")
                                     : file.GetStringFromBlockTag("BoreSize", flag, text);
    if (bore == "0") {
        bore.clear(); // an unset bore was once filed as 0
    }
    project.SetBoreSize(bore);
    std::int16_t task =
        file.GetIndexFromBlockTag("ISOTaskIndex", ISOTaskWords(siblingFormat ? 3 : 5), flag, text);
    if (task == 3) {
        task = 0; // "Inspect", the older name of the class task
    } else if (task == 4) {
        task = 1; // "Repair", the older name of the node task
    }
    iso.SetISOTaskIndex(task);
    iso.SetISOCriteriaIndex(file.GetIndexFromBlockTag("ISOCriteriaIndex", ISOCriteriaWords(), flag, text));
    iso.SetISOClassIndex(file.GetIndexFromBlockTag("ClassIndex", ISOClassWords(), flag, text));
    iso.SetISOIncludeInnerRadiusIndex(
        file.GetIndexFromBlockTag("IncludeInnerRadiusIndex", ISOIncludeInnerRadiusWords(), flag, text));
    // These three are filed in the user's own number format.
    iso.SetISOInnerRadius(StringToDouble(file.GetStringFromBlockTag("InnerRadius", flag, text)));
    project.SetCupExclusionDistance(
        StringToDouble(file.GetStringFromBlockTag("CupExclusionDistance", flag, text)));
    project.SetLEExclusionDistance(
        StringToDouble(file.GetStringFromBlockTag("LEExclusionDistance", flag, text)));
}

void RepairInnerRadius(clsCorvane& project, clsISO484& iso) {
    if (iso.ISOInnerRadius() != 0.0 || project.PropellerScanCount() <= 0) {
        return;
    }
    for (int i = 0; i < project.PropellerScanCount(); ++i) {
        const std::shared_ptr<clsPropeller> scan = project.PropellerScan(i);
        for (int j = 0; j < scan->BladeCount(); ++j) {
            const std::shared_ptr<clsBlades> blade = scan->Blades(j);
            if (blade->SectionCount() < 8 || blade->Section(7)->RawOffsetCount() <= 0) {
                continue;
            }
            if (blade->RadialPos(7) > 0.0) {
                iso.SetISOIncludeInnerRadiusIndex(1);
                iso.SetISOInnerRadius(blade->RadialPos(7) * 100.0);
            } else {
                iso.SetISOIncludeInnerRadiusIndex(0);
            }
        }
    }
}

void RequireProjectGlobals() {
    if (!gProject || !gUnits || !gISO484) {
        throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
    }
}

} // namespace corvane::projectfile
