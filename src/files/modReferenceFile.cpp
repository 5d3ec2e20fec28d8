#include "files/modReferenceFile.h"

#include "files/clsFileINI.h"
#include "files/modProjectFileSupport.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

namespace corvane {

using namespace projectfile;

namespace {

const std::string kPropellerBlock = "ReferencePropeller";
const std::string kBladeBlock = "ReferenceBlade1";

std::string SectionBlock(int k) {
    return kBladeBlock + "Section" + std::to_string(k);
}

[[noreturn]] void ThrowFileAccess() {
    throw CorvaneError(ErrorNumber::PathFileAccessError, "Path/File access error");
}

// The tags of one section block, already loaded, into section k - 1 of the blade.
void ReadSectionValues(BlockReader& reader, const std::string& block, clsBlades& blade, int k) {
    clsFileINI& file = reader.file;
    bool& flag = reader.errorFlag;
    std::string& text = reader.errorText;
    const int i = k - 1;
    blade.SetRadialPos(i, file.GetFloatFromBlockTag("RadialPos", flag, text));
    blade.SetChord(i, file.GetFloatFromBlockTag("Chord", flag, text));
    blade.SetPitch(i, file.GetFloatFromBlockTag("Pitch", flag, text));
    blade.SetSkewHelix(i, file.GetFloatFromBlockTag("SkewHelix", flag, text));
    blade.SetRakeAft(i, file.GetFloatFromBlockTag("RakeAft", flag, text));
    const std::int16_t panels = file.GetIntegerFromBlockTag("SegmentPanelCount", flag, text);
    clsSection& section = *blade.Section(i);
    if (panels <= 0) {
        section.SetSegmentPanelCount(panels);
        return;
    }
    std::vector<double> pitch;
    const bool fits = file.GetFloatArrayFromBlockTag("SegmentPanelPitch", pitch, flag, text) == panels;
    if (!fits) {
        flag = true; // dropped; the panels keep zeros
        if (!reader.limits.TakeUnbacked(panels)) {
            section.SetSegmentPanelCount(0);
            text += kCrLf + " [SegmentPanelCount] tag [" + std::to_string(panels) +
                    "] does not match the panels of block " + block + ".";
            return;
        }
    }
    section.SetSegmentPanelCount(panels);
    if (fits) {
        section.SetSegmentPanelPitchArray(pitch);
    }
}

// Blades 1 to BladeCount - 1 as copies of blade 0, each turned by its share of the circle.
void BuildOtherBlades(BlockReader& reader, clsPropeller& propeller) {
    const std::shared_ptr<clsBlades> first = propeller.Blades(0);
    const int count = propeller.BladeCount();
    std::int64_t records = 1 + std::max<int>(first->SectionCount(), 0);
    for (int s = 0; s < first->SectionCount(); ++s) {
        records += std::max<int>(first->Section(s)->RawOffsetCount(), 0);
    }
    for (int b = 1; b < count; ++b) {
        if (!reader.limits.TakeUnbacked(records)) {
            reader.errorFlag = true;
            reader.errorText += kCrLf + " [BladeCount] tag [" + std::to_string(count) + "] reduced to " +
                                std::to_string(b) + ": the file cannot hold that many blades.";
            propeller.SetBladeCount(static_cast<std::int16_t>(b));
            return;
        }
        const std::shared_ptr<clsBlades> blade = first->CopyClass();
        const double angle = static_cast<double>(b) / count * 360.0;
        blade->SetGLPositionThetaDeg(angle);
        blade->SetGLPositionAxialX(0.0);
        for (int s = 0; s < blade->SectionCount(); ++s) {
            const std::shared_ptr<clsSection> source = first->Section(s);
            const std::shared_ptr<clsSection> section = blade->Section(s);
            for (int p = 0; p < source->RawOffsetCount(); ++p) {
                section->SetThetaDeg(p, Wrap360(source->ThetaDeg(p) + angle));
            }
        }
        propeller.SetBlades(b, blade);
    }
}

} // namespace

int WriteReferenceBlocks(const std::string& path, const clsPropeller& propeller, bool& errorFlag,
                         std::string& errorText) {
    errorFlag = false;
    clsFileINI file;
    ErrorTail tail("writing the .cvrf file to the disk");
    // Inside the project writer's batch the blocks join it; otherwise this is a batch of its own.
    const bool ownBatch = file.BeginBatch(path) == 1;
    const auto write = [&](const std::string& block) {
        if (file.WriteBlock(block, path) == 0) {
            errorFlag = true;
        }
    };
    bool done = tail.Step([&] {
        file.ResetArrayIndex();
        file.SetFloatToBlockTag("Diameter", propeller.Diameter(), errorFlag, errorText);
        write(kPropellerBlock);
    });
    if (done && propeller.BladeCount() > 0) {
        std::shared_ptr<clsBlades> blade;
        done = tail.Step([&] {
            blade = propeller.Blades(0);
            file.ResetArrayIndex();
            file.SetIntegerToBlockTag("SectionCount", blade->SectionCount(), errorFlag, errorText);
            write(kBladeBlock);
        });
        for (int k = 1; done && k <= blade->SectionCount(); ++k) {
            done = tail.Step([&] {
                const int i = k - 1;
                const clsSection& section = *blade->Section(i);
                file.ResetArrayIndex();
                file.SetFloatToBlockTag("RadialPos", blade->RadialPos(i), errorFlag, errorText);
                file.SetFloatToBlockTag("Chord", blade->Chord(i), errorFlag, errorText);
                file.SetFloatToBlockTag("Pitch", blade->Pitch(i), errorFlag, errorText);
                file.SetFloatToBlockTag("SkewHelix", blade->SkewHelix(i), errorFlag, errorText);
                file.SetFloatToBlockTag("RakeAft", blade->RakeAft(i), errorFlag, errorText);
                const std::int16_t panels = section.SegmentPanelCount();
                file.SetIntegerToBlockTag("SegmentPanelCount", panels, errorFlag, errorText);
                if (panels > 0) {
                    file.SetFloatArrayToBlockTag("SegmentPanelPitch", panels,
                                                 section.SegmentPanelPitchArray(), errorFlag, errorText);
                }
                write(SectionBlock(k));
            });
        }
    }
    if (done && ownBatch) {
        done = tail.Step([&] {
            if (file.CommitBatch() == 0) {
                ThrowFileAccess();
            }
        });
    }
    if (!done) {
        file.DiscardBatch(); // the file keeps its old content
        return 0;
    }
    return errorFlag ? 0 : 1;
}

int ReadReferenceBlocks(const std::string& path, clsPropeller& propeller, bool& errorFlag,
                        std::string& errorText) {
    clsFileINI file;
    const ReadSnapshot snapshot(file, path);
    ErrorTail tail("reading the cvrf file reference block");
    ReadLimits limits(path);
    std::vector<Notice> notices; // the reference readers tell nothing on the way
    BlockReader reader{file, path, errorFlag, errorText, tail, limits, notices};

    bool present = false;
    if (!tail.Step([&] {
            present = file.ReadBlock(kPropellerBlock, path) == 1;
            if (present) {
                propeller.SetDiameter(file.GetFloatFromBlockTag("Diameter", errorFlag, errorText));
                propeller.SetBladeCount(1);
            }
        })) {
        return 0;
    }
    if (!present) {
        return 1; // no reference in the file: the propeller stays as it is
    }
    std::shared_ptr<clsBlades> blade;
    bool found = false;
    if (!tail.Step([&] {
            found = file.ReadBlock(kBladeBlock, path) == 1;
            if (found) {
                blade = propeller.Blades(0);
                blade->SetSectionCount(file.GetIntegerFromBlockTag("SectionCount", errorFlag, errorText));
            }
        })) {
        return 0;
    }
    if (!found) {
        AddMissingBlock(errorFlag, errorText, kBladeBlock);
        return 0;
    }
    for (int k = 1; k <= blade->SectionCount(); ++k) {
        const std::string block = SectionBlock(k);
        if (!tail.Step([&] {
                found = file.ReadBlock(block, path) == 1;
                if (found) {
                    ReadSectionValues(reader, block, *blade, k);
                }
            })) {
            return 0;
        }
        if (!found) {
            AddMissingBlock(errorFlag, errorText, block);
            return 0;
        }
    }
    return 1;
}

int ReadLegacyReferenceBlocks(const std::string& path, bool& errorFlag, std::string& errorText) {
    const auto failure = [] { return 0; };
    const auto success = [] { return 1; };
    if (path.empty()) {
        errorFlag = true;
        errorText += kNoFilepath;
        return failure();
    }
    clsFileINI file;
    const ReadSnapshot snapshot(file, path);
    ErrorTail tail("reading the legacy reference file block");
    ReadLimits limits(path);
    std::vector<Notice> notices; // the reference readers tell nothing on the way
    BlockReader reader{file, path, errorFlag, errorText, tail, limits, notices};

    std::shared_ptr<clsPropeller> propeller;
    bool found = false;
    if (!tail.Step([&] {
            if (!gProject) {
                throw CorvaneError(91, "Object variable or With block variable not set");
            }
            propeller = gProject->ReferenceSource();
            found = file.ReadBlock(kPropellerBlock, path) == 1;
            if (found) {
                propeller->SetDescription(file.GetStringFromBlockTag("Description", errorFlag, errorText));
                propeller->SetDiameter(file.GetFloatFromBlockTag("Diameter", errorFlag, errorText));
                propeller->SetPitchMean(file.GetFloatFromBlockTag("PitchMean", errorFlag, errorText));
                propeller->SetPitchOfRecord(
                    file.GetStringFromBlockTag("PitchOfRecord", errorFlag, errorText));
                propeller->SetBladeCount(
                    CountFromFloat(file.GetFloatFromBlockTag("BladeCount", errorFlag, errorText)));
                propeller->SetMaterialDescription(
                    file.GetStringFromBlockTag("MaterialDescription", errorFlag, errorText));
            }
        })) {
        return 0;
    }
    if (!found) {
        return success();
    }
    std::shared_ptr<clsBlades> blade;
    if (!tail.Step([&] {
            found = file.ReadBlock(kBladeBlock, path) == 1;
            if (found) {
                blade = propeller->Blades(0);
                blade->SetBladeDiameter(file.GetFloatFromBlockTag("BladeDiameter", errorFlag, errorText));
                // The two generator-line tags land crossed, as they always have: the angle of
                // blade 0 comes from the axial tag, and the axial position is set to 0 below.
                blade->SetGLPositionAxialX(
                    file.GetFloatFromBlockTag("GLPositionThetaDeg", errorFlag, errorText));
                blade->SetGLPositionThetaDeg(
                    file.GetFloatFromBlockTag("GLPositionAxialX", errorFlag, errorText));
                blade->SetSectionCount(file.GetIntegerFromBlockTag("SectionCount", errorFlag, errorText));
            }
        })) {
        return 0;
    }
    if (!found) {
        AddMissingBlock(errorFlag, errorText, kBladeBlock);
        return failure();
    }
    for (int k = 1; k <= blade->SectionCount(); ++k) {
        const std::string block = SectionBlock(k);
        if (!tail.Step([&] {
                found = file.ReadBlock(block, path) == 1;
                if (found) {
                    clsSection& section = *blade->Section(k - 1);
                    const std::int16_t count =
                        file.GetIntegerFromBlockTag("RawOffsetCount", errorFlag, errorText);
                    if (count > 0) {
                        ReadRawPoints(reader, block, section, count);
                    } else {
                        section.SetRawOffsetCount(count);
                    }
                }
            })) {
            return 0;
        }
        if (!found) {
            AddMissingBlock(errorFlag, errorText, block);
            return failure();
        }
    }
    if (!tail.Step([&] {
            blade->SetGLPositionAxialX(0.0);
            BuildOtherBlades(reader, *propeller);
        })) {
        return 0;
    }
    return success();
}

} // namespace corvane
