#include "library/clsProjectLibrary.h"

#include "files/modProjectFile.h"
#include "iso484/clsISO484.h"
#include "library/modLibraryFiles.h"
#include "library/modLibraryOpen.h"
#include "model/Globals.h"
#include "model/clsUnits.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace corvane {

namespace fs = std::filesystem;

namespace {

const char* const kCRLF = "\r\n";
constexpr int kMetreIndex = 1;

std::string Lowered(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

std::string Digits(int value, int width) {
    std::string text = std::to_string(value);
    while (static_cast<int>(text.size()) < width)
        text.insert(text.begin(), '0');
    return text;
}

bool IsProjectFile(const fs::directory_entry& entry) {
    std::error_code ec;
    return entry.is_regular_file(ec) && !ec && Lowered(entry.path().extension().string()) == ".cvpj";
}

// Texts compare ignoring case first, so "alpha" and "Beta" sort as a reader expects; exact
// case decides only between otherwise equal texts.
int CompareText(const std::string& a, const std::string& b) {
    const int folded = Lowered(a).compare(Lowered(b));
    return folded != 0 ? folded : a.compare(b);
}

int CompareRows(const LibraryRow& a, const LibraryRow& b, int column) {
    switch (column) {
    case kColumnPropeller:
    case kColumnDiameter:
        return a.diameterMetres < b.diameterMetres ? -1 : (b.diameterMetres < a.diameterMetres ? 1 : 0);
    case kColumnDateSaved:
        return a.dateSaved < b.dateSaved ? -1 : (b.dateSaved < a.dateSaved ? 1 : 0);
    default:
        return CompareText(a.Cell(column), b.Cell(column));
    }
}

bool RowHasText(const LibraryRow& row, const std::string& loweredText) {
    for (int column : {kColumnProjectID, kColumnCustomer, kColumnPropeller, kColumnDateSaved}) {
        if (Lowered(row.Cell(column)).find(loweredText) != std::string::npos)
            return true;
    }
    return false;
}

bool FileExists(const std::string& path) {
    std::error_code ec;
    return fs::exists(path, ec) && !ec;
}

} // namespace

std::string LibraryRow::Cell(int column) const {
    switch (column) {
    case kColumnProjectID:
        return projectID;
    case kColumnCustomer:
        return customer;
    case kColumnPropeller:
        return propeller;
    case kColumnDateSaved:
        return LibraryDateText(dateSaved);
    case kColumnFilePath:
        return filePath;
    case kColumnDiameter:
        return FormatPoint(diameterMetres, "0.000");
    default:
        return {};
    }
}

std::string LibraryDateText(const DateTime& date) {
    if (date == DateTime{} || !date.IsValid())
        return {};
    return Digits(date.year, 4) + "-" + Digits(date.month, 2) + "-" + Digits(date.day, 2) + " " +
           Digits(date.hour, 2) + ":" + Digits(date.minute, 2);
}

LibraryRow MakeLibraryRow(const std::string& path, const std::string& projectID,
                          const std::string& lastModified, const std::string& customer, double markedDiameter,
                          const std::string& markedPitch, int bladeCount, int classIndex,
                          int propLengthIndex) {
    LibraryRow row;
    row.projectID = projectID;
    row.customer = customer;
    row.filePath = path;
    if (!std::isfinite(markedDiameter))
        markedDiameter = 0.0;

    const auto& unitTags = clsUnits::PropLengthFileTags();
    const bool knownUnit = propLengthIndex >= 0 && propLengthIndex < static_cast<int>(unitTags.size());
    clsISO484 iso;
    row.propeller = FormatPoint(markedDiameter, "") + " x " + markedPitch + " - " +
                    std::to_string(bladeCount) + " - [" +
                    (knownUnit ? unitTags[static_cast<std::size_t>(propLengthIndex)] : "") + "] - " +
                    (classIndex >= 0 ? iso.ISOClassLabel(classIndex) : "");
    if (knownUnit) {
        const double metres = clsUnits().ConvertUnitPropLength(markedDiameter, kMetreIndex, propLengthIndex);
        row.diameterMetres = std::isfinite(metres) ? metres : 0.0;
    }

    const DateTime stamp = StampToDate(lastModified);
    row.dateSaved = stamp != DateTime{} && stamp.IsValid() ? stamp : FileModifiedDate(path);
    return row;
}

const std::array<std::string, kLibraryColumnCount>& clsProjectLibrary::ColumnCaptions() {
    static const std::array<std::string, kLibraryColumnCount> captions = {
        "All", "Project ID", "Customer", "Propeller", "Date Saved", "FilePath", "Diameter (m)"};
    return captions;
}

std::string clsProjectLibrary::Folder() const {
    return archiveMode_ ? gArchiveDirectory : gRootDirectory;
}

std::string clsProjectLibrary::TargetFolder() const {
    return archiveMode_ ? gRootDirectory : gArchiveDirectory;
}

std::string clsProjectLibrary::Caption() const {
    return gAppTitle + (archiveMode_ ? " Archive" : " Project Library");
}

bool clsProjectLibrary::CheckFolderWritable() const {
    return CheckLibraryFolderWritable(Folder());
}

int clsProjectLibrary::Load(const Progress& progress) {
    all_.clear();
    shown_.clear();
    searchTexts_.clear();
    ErrorTail tail("loading file library");
    std::vector<std::string> paths;
    tail.Step([&] {
        paths.clear();
        std::error_code ec;
        const std::string folder = Folder();
        if (folder.empty())
            return;
        for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
            if (IsProjectFile(*it))
                paths.push_back(it->path().string());
        }
        // The same folder lists the same way on every station, whatever the directory order.
        std::sort(paths.begin(), paths.end());
    });
    if (progress)
        progress(0);
    const std::size_t total = paths.size();
    for (std::size_t i = 0; i < total && !tail.Aborted(); ++i) {
        tail.Step([&] {
            std::string projectID, lastModified, customer, markedPitch;
            double markedDiameter = 0.0;
            std::int16_t bladeCount = 0, classIndex = 0, propLengthIndex = 0;
            if (ReadProjectHeader(paths[i], projectID, lastModified, customer, markedDiameter, markedPitch,
                                  bladeCount, classIndex, propLengthIndex) != 1)
                return;
            all_.push_back(MakeLibraryRow(paths[i], projectID, lastModified, customer, markedDiameter,
                                          markedPitch, bladeCount, classIndex, propLengthIndex));
        });
        if (progress)
            progress(static_cast<int>((i + 1) * 100 / total));
        Events().DoEvents();
    }
    Sort(kColumnDateSaved, true);
    return static_cast<int>(shown_.size());
}

const LibraryRow* clsProjectLibrary::FindRow(const std::string& path) const {
    const auto it =
        std::find_if(all_.begin(), all_.end(), [&](const LibraryRow& row) { return row.filePath == path; });
    return it == all_.end() ? nullptr : &*it;
}

void clsProjectLibrary::Sort(int column, bool ascending) {
    if (column <= kColumnAll || column >= kLibraryColumnCount)
        return;
    sortColumn_ = column;
    sortAscending_ = ascending;
    std::stable_sort(all_.begin(), all_.end(), [&](const LibraryRow& a, const LibraryRow& b) {
        const int order = CompareRows(a, b, column);
        return ascending ? order < 0 : order > 0;
    });
    ApplySearch();
}

void clsProjectLibrary::ToggleSort(int column) {
    Sort(column, column == sortColumn_ ? !sortAscending_ : true);
}

int clsProjectLibrary::Search(const std::string& text) {
    if (text.empty())
        return static_cast<int>(shown_.size());
    const std::string lowered = Lowered(text);
    const bool anyHit = std::any_of(shown_.begin(), shown_.end(),
                                    [&](const LibraryRow& row) { return RowHasText(row, lowered); });
    if (!anyHit)
        return 0;
    searchTexts_.push_back(lowered);
    ApplySearch();
    return static_cast<int>(shown_.size());
}

void clsProjectLibrary::ClearSearch() {
    searchTexts_.clear();
    ApplySearch();
}

void clsProjectLibrary::ApplySearch() {
    // From all rows each time, so that a sort or a move keeps the narrowed list in step.
    shown_.clear();
    std::copy_if(all_.begin(), all_.end(), std::back_inserter(shown_), [&](const LibraryRow& row) {
        return std::all_of(searchTexts_.begin(), searchTexts_.end(),
                           [&](const std::string& lowered) { return RowHasText(row, lowered); });
    });
}

bool clsProjectLibrary::CanTick(const std::string& path) const {
    const std::string name = FileNameOf(path);
    if (name != gProjectFileName)
        return true;
    Prompts().MessageBox(name + " is currently open. Open files cannot be moved to the archive.",
                         MsgBox::Exclamation, "Open File selected");
    return false;
}

clsProjectLibrary::MoveResult clsProjectLibrary::MoveFiles(const std::vector<std::string>& paths) {
    MoveResult result;
    if (!(archiveMode_ ? ProjectLibraryFound() : ArchiveFound()) || paths.empty())
        return result;
    const std::string direction =
        archiveMode_ ? " from Archive into Project Library?" : " from Project Library into Archive?";
    std::string question = "Are you sure you want to move ";
    if (paths.size() == 1) {
        const LibraryRow* row = FindRow(paths.front());
        question += "\"" + (row != nullptr ? row->projectID : BaseNameOf(paths.front())) + "\"" + direction;
    } else {
        question += std::to_string(paths.size()) + " file(s)" + direction;
    }
    if (Prompts().MessageBox(question, MsgBox::YesNo | MsgBox::Question, "Move File") != Answer::Yes)
        return result;

    result.ran = true;
    const std::string target = TargetFolder();
    for (const std::string& path : paths) {
        // The open project's file stays where saving expects it, even when a caller skipped the
        // tick check.
        const bool moved = FileNameOf(path) != gProjectFileName && MoveProjectFile(path, target);
        ++(moved ? result.moved : result.failed);
        Events().DoEvents();
    }

    std::erase_if(all_, [](const LibraryRow& row) { return !FileExists(row.filePath); });
    std::string report;
    if (result.failed > 0)
        report = std::to_string(result.failed) + " file(s) could not be moved and remain unmodified" + kCRLF +
                 kCRLF;
    report += std::to_string(result.moved) +
              (archiveMode_ ? " file(s) were successfully moved into the Project Library"
                            : " file(s) were successfully moved into the Archive");
    Prompts().MessageBox(report, result.failed > 0 ? MsgBox::Exclamation : MsgBox::Information,
                         "Move Complete");
    Sort(sortColumn_, sortAscending_);
    return result;
}

int clsProjectLibrary::Open(const std::string& path) {
    const LibraryRow* row = FindRow(path);
    const std::string projectID = row != nullptr ? row->projectID : BaseNameOf(path);
    return OpenLibraryProject(path, projectID, archiveMode_);
}

} // namespace corvane
