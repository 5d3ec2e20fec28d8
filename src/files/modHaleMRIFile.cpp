#include "files/modHaleMRIFile.h"

#include "files/DelimitedFields.h"
#include "files/FileAccess.h"
#include "files/ScanDateText.h"
#include "files/TextEncoding.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/CorvaneError.h"
#include "model/DateTime.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

namespace corvane {

namespace {

const char* const kCrLf = "\r\n";
constexpr std::size_t kHeaderFields = 24;
constexpr int kInchIndex = 2;
constexpr int kRows = 8;
constexpr int kInnerRow = 7;
constexpr int kMaxSections = 8;
// A section's point count is read in 16 bits: points beyond it are dropped.
constexpr std::size_t kMaxSectionPoints = 32767;
constexpr int kObjectNotSet = 91;

// One record of the section list and where it goes.
struct Record {
    int fileBlade = 0;
    double radialPct = 0;
    std::string radialText;
    long long points = 0; // last point number - first + 1
    int row = -1;         // row of the standard radial table, -1 for none
    int blade = -1;       // blade of the new scan, -1 for none
};

double Number(const DelimitedField& field) {
    return StringToDouble(field.text);
}

bool HoldsDot(const DelimitedField& field) {
    return field.text.find('.') != std::string::npos;
}

bool EndsSection(const DelimitedField& field) {
    return field.text == "102";
}

// A count or point number, bounded so that no damaged file makes it overflow.
long long Whole(const DelimitedField& field) {
    const double value = Number(field);
    return std::isfinite(value) ? static_cast<long long>(std::nearbyint(std::clamp(value, -1e9, 1e9))) : 0;
}

// The inner radius row in whole percent: the whole part, one up when the first digit behind the
// point is above 5 (read from the text, which a binary fraction could misstate).
int InnerPercent(const Record& record) {
    int whole = static_cast<int>(std::floor(record.radialPct));
    const std::size_t dot = record.radialText.find('.');
    if (dot != std::string::npos && dot + 1 < record.radialText.size() && record.radialText[dot + 1] > '5' &&
        record.radialText[dot + 1] <= '9') {
        ++whole;
    }
    return whole;
}

class HaleReader {
public:
    HaleReader(std::string_view text, clsCorvane& project, clsISO484& iso, FileReadResult& result)
        : fields_(text), project_(project), iso_(iso), result_(result) {}

    // The inner radius the file set, in whole percent; 0 when it set none.
    int InnerPercentFound() const { return innerPercent_; }

    bool Read() {
        if (!Header() || !SectionList()) {
            return false;
        }
        Limit();
        Match();
        AddScan();
        const bool complete = Points();
        PlaceGeneratorLines();
        return complete;
    }

private:
    bool Fail(const std::string& reason) {
        result_.collected += kCrLf + reason;
        return false;
    }
    void Warn(const std::string& text) {
        result_.notices.push_back(Notice{gAppTitle, text, MsgBox::OKOnly | MsgBox::Exclamation});
    }
    const std::string& Text(std::size_t i) const { return fields_.At(i).text; }
    double Inches(double value) const {
        return project_.Units()->ConvertUnitPropLength(value, -1, kInchIndex);
    }

    bool Header() {
        if (fields_.Count() < kHeaderFields) {
            return Fail("The file ends before its header is complete.");
        }
        if (!project_.Units()) {
            throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
        }
        project_.SetCustomer(Text(1));
        project_.SetModelNumber(Text(3));
        const double diameter = Inches(Number(fields_.At(4)));
        project_.SetMarkedDiameter(diameter);
        project_.SetReferenceDiameter(diameter);
        project_.SetMarkedPitch(
            FormatPoint(Inches(Number(fields_.At(5))), project_.Units()->PropLengthFormat()));
        if (Text(6) == "L" || Text(6) == "l") {
            project_.SetRotationIndex(1);
        } else if (Text(6) == "R" || Text(6) == "r") {
            project_.SetRotationIndex(0);
        }
        project_.SetJobNumber(Text(9));
        date_ = Text(11);
        project_.SetSerialNumber(Text(13));
        project_.SetInspector(Text(16));
        project_.SetManufacturer(Text(21));
        project_.SetProjectID(Text(22));
        project_.SetMaterialDescription(Text(23));
        return true;
    }

    bool SectionList() {
        if (fields_.Count() < kHeaderFields + 2) {
            return Fail("The file ends before its section list.");
        }
        const DelimitedField& second = fields_.At(kHeaderFields + 1);
        const bool plain = Number(second) > 15.0 && !HoldsDot(second);
        counted_ = !plain;
        std::size_t pos = kHeaderFields;
        if (plain) {
            bladeCount_ = Whole(fields_.At(pos++));
            // Records until one whose point numbers hold a ".": that one is the first point. Fewer
            // than three fields left can only be points.
            while (pos + 2 < fields_.Count() && !HoldsDot(fields_.At(pos + 1)) &&
                   !HoldsDot(fields_.At(pos + 2))) {
                const double radialPct = Number(fields_.At(pos));
                const int blade = records_.empty()                         ? 0
                                  : radialPct >= records_.back().radialPct ? records_.back().fileBlade + 1
                                                                           : records_.back().fileBlade;
                AddRecord(blade, pos);
                pos += 3;
            }
        } else {
            std::vector<long long> counts;
            while (pos < fields_.Count() && !(Number(fields_.At(pos)) > 15.0) && !HoldsDot(fields_.At(pos))) {
                counts.push_back(Whole(fields_.At(pos++)));
            }
            bladeCount_ = static_cast<long long>(counts.size());
            for (std::size_t b = 0; b < counts.size(); ++b) {
                for (long long s = 0; s < counts[b]; ++s, pos += 3) {
                    if (pos + 2 >= fields_.Count()) {
                        return Fail("The file ends in its section list.");
                    }
                    AddRecord(static_cast<int>(b), pos);
                }
            }
        }
        fields_.Seek(pos);
        if (bladeCount_ < 1) {
            return Fail("The file holds no blade.");
        }
        if (records_.empty()) {
            return Fail("The file lists no section.");
        }
        return true;
    }

    void AddRecord(int fileBlade, std::size_t pos) {
        Record record;
        record.fileBlade = fileBlade;
        record.radialPct = Number(fields_.At(pos));
        record.radialText = Text(pos);
        record.points = Whole(fields_.At(pos + 2)) - Whole(fields_.At(pos + 1)) + 1;
        records_.push_back(std::move(record));
    }

    // The warnings of a file that holds more than the model can.
    void Limit() {
        if (bladeCount_ > kHaleMaxBlades) {
            Warn("Warning, this file contains data for " + std::to_string(bladeCount_) + " blades. " + kCrLf +
                 " This program is limited to 7 bladed propellers, Only Data for the first 7 blades will be "
                 "included");
            bladeCount_ = kHaleMaxBlades;
        }
        std::vector<int> sections(static_cast<std::size_t>(records_.back().fileBlade) + 1, 0);
        for (const Record& record : records_) {
            ++sections[static_cast<std::size_t>(record.fileBlade)];
        }
        const int most = *std::max_element(sections.begin(), sections.end());
        if (most > kMaxSections) {
            Warn(
                "Warning, this file contains data for " + std::to_string(most) +
                " Sections on some blades. " + kCrLf +
                " This program is limited to 8 Sections per blade, Only Data for the 8 ISO Standard Sections "
                "will be included");
        }
    }

    // Rows and blades of the records. In the plain layout a row goes to the blades in the order
    // of the file, one each; in the counted layout every record stays on its own blade.
    void Match() {
        std::array<int, kRows> given{};
        std::vector<bool> innerTaken(static_cast<std::size_t>(records_.back().fileBlade) + 1, false);
        const bool plain = !counted_;
        for (Record& record : records_) {
            int row = -1;
            for (int k = 0; k < kInnerRow && row < 0; ++k) {
                const double standard = kStandardRadialPositions[static_cast<std::size_t>(k)];
                if (record.radialPct > (standard - 0.01) * 100.0 &&
                    record.radialPct < (standard + 0.01) * 100.0) {
                    row = k;
                }
            }
            if (row < 0 && record.radialPct > 9.5 && record.radialPct < 39.5 &&
                !innerTaken[static_cast<std::size_t>(record.fileBlade)]) {
                innerTaken[static_cast<std::size_t>(record.fileBlade)] = true;
                row = kInnerRow;
                innerPercent_ = InnerPercent(record);
                iso_.SetISOIncludeInnerRadiusIndex(1);
                iso_.SetISOInnerRadius(innerPercent_);
                ApplyInnerRadiusRow(iso_);
            }
            if (row < 0) {
                continue;
            }
            const int blade = plain ? given[static_cast<std::size_t>(row)]++ : record.fileBlade;
            if (blade < bladeCount_) {
                record.row = row;
                record.blade = blade;
            }
        }
    }

    void AddScan() {
        const auto blades = static_cast<std::int16_t>(bladeCount_);
        const auto index = project_.PropellerScanCount();
        project_.SetBladeCount(blades);
        project_.SetPropellerScanCount(static_cast<std::int16_t>(index + 1));
        scan_ = project_.PropellerScan(index);
        scan_->SetBladeCount(blades);
        for (int b = 0; b < blades; ++b) {
            scan_->Blades(b)->SetSectionCount(kRows);
        }
        project_.SetActiveScanIndex(index);
        scan_->SetScanID(project_.ProjectScanCount());
        const std::optional<DateTime> date = ParseScanDate(date_);
        scan_->SetScanDate(date ? FormatScanDate(*date) : date_);
        scan_->SetScanSource("Hale MRI file import");
        project_.SetProjectScanCount(static_cast<std::int16_t>(project_.ProjectScanCount() + 1));
    }

    // The points of every record in list order. False when the file ends before they do.
    bool Points() {
        const bool leftHand = project_.RotationIndex() == 1;
        for (const Record& record : records_) {
            std::shared_ptr<clsSection> section;
            double radius = 0.0;
            if (record.row >= 0) {
                clsBlades& blade = *scan_->Blades(record.blade);
                blade.SetRadialPos(record.row, record.radialPct / 100.0);
                section = blade.Section(record.row);
                radius = blade.RadialPos(record.row) * project_.ReferenceDiameter() / 2.0;
            }
            std::vector<double> radii, angles, drops;
            bool haveLast = false;
            double last = 0.0;
            long long read = 0;
            for (; read < record.points; ++read) {
                if (fields_.AtEnd() || EndsSection(fields_.Peek())) {
                    break;
                }
                const double angle = Number(fields_.Next());
                if (fields_.AtEnd() || EndsSection(fields_.Peek())) {
                    break;
                }
                const double drop = Number(fields_.Next());
                // The same test for both hands: the file's angles grow from edge to edge.
                if (haveLast && !(std::fabs(angle - last) > 180.0 || angle > last)) {
                    continue;
                }
                haveLast = true;
                last = angle;
                if (section && angles.size() < kMaxSectionPoints) {
                    radii.push_back(radius);
                    angles.push_back(leftHand ? 360.0 - angle : angle);
                    drops.push_back(Inches(drop));
                }
            }
            if (section) {
                section->SetRadiusArray(radii);
                section->SetThetaDegArray(angles);
                section->SetAxialDropXArray(drops);
            }
            if (fields_.AtEnd() && read < record.points) {
                return Fail("The file ends in the points of blade " + std::to_string(record.fileBlade + 1) +
                            " at r/R " + record.radialText + " %.");
            }
            if (!fields_.AtEnd() && EndsSection(fields_.Peek())) {
                fields_.Next(); // the section's end mark, early or after its last point
            }
        }
        return true;
    }

    void PlaceGeneratorLines() {
        const int blades = scan_->BladeCount();
        for (int i = 0; i < blades; ++i) {
            clsBlades& blade = *scan_->Blades(i);
            const double share = 360.0 / blades * i;
            if (project_.RotationIndex() == 1) {
                blade.SetGLPositionThetaDeg(share);
            } else {
                blade.SetGLPositionThetaDeg(Wrap360(-share));
                blade.SetGLPositionAxialX(0.0);
            }
        }
    }

    DelimitedFields fields_;
    clsCorvane& project_;
    clsISO484& iso_;
    FileReadResult& result_;
    std::string date_;
    long long bladeCount_ = 0;
    bool counted_ = false;
    std::vector<Record> records_;
    std::shared_ptr<clsPropeller> scan_;
    int innerPercent_ = 0;
};

} // namespace

FileReadResult ImportHaleMRIFile(const std::string& path, clsCorvane& project, clsISO484& iso) {
    FileReadResult result;
    std::string bytes;
    if (!ReadFileBytes(path, bytes)) {
        result.collected = std::string(kCrLf) + "The file cannot be read.";
        return result;
    }
    ErrorTail tail("importing the Hale MRI file");
    bool complete = false;
    int inner = 0;
    const bool ran = tail.Step([&] {
        std::string storage;
        HaleReader reader(DecodeFileText(bytes, storage), project, iso, result);
        complete = reader.Read();
        inner = reader.InnerPercentFound();
    });
    if (!ran) {
        result.abandoned = true;
        return result;
    }
    // Row 7 as the project settings will show it; whole percent when the file set it.
    iso.SetISOInnerRadius(inner > 0 ? inner : std::round(gRadialPositions[kInnerRow] * 100.0 * 1e6) / 1e6);
    result.status = complete ? 1 : 0;
    return result;
}

} // namespace corvane
