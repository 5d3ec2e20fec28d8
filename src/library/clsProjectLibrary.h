#pragma once

// The project library list: the project files of one folder (the Project Library or the
// Archive) with the few values the technician picks a job by, sorted and searched, and the
// moves between the two folders. The window shows the rows; every rule, message and file
// operation lives here so that it runs the same under the tests.

#include "model/DateTime.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace corvane {

// Columns of the list, in the order shown. FilePath and DiameterMetres are hidden.
enum LibraryColumn : int {
    kColumnAll = 0, // the tick box
    kColumnProjectID = 1,
    kColumnCustomer = 2,
    kColumnPropeller = 3,
    kColumnDateSaved = 4,
    kColumnFilePath = 5,
    kColumnDiameter = 6,
    kLibraryColumnCount = 7,
};

struct LibraryRow {
    std::string projectID;
    std::string customer;
    std::string propeller; // "1850 x 1400 - 4 - [mm] - Class 1"
    DateTime dateSaved;    // the zero date when neither the stamp nor the file date is known
    std::string filePath;
    double diameterMetres = 0.0; // the marked diameter in metres; 0 when unknown

    // The text of a column as the list shows it; "" for the tick box.
    std::string Cell(int column) const;
};

// The row of one project file from the values of its header. lastModified is the stamp as
// filed; when it is empty or unreadable the file's own date stands in.
LibraryRow MakeLibraryRow(const std::string& path, const std::string& projectID,
                          const std::string& lastModified, const std::string& customer, double markedDiameter,
                          const std::string& markedPitch, int bladeCount, int classIndex,
                          int propLengthIndex);

// "yyyy-mm-dd hh:mm", "" for the zero date.
std::string LibraryDateText(const DateTime& date);

class clsProjectLibrary {
public:
    static const std::array<std::string, kLibraryColumnCount>& ColumnCaptions();

    // Library or Archive; chosen before the list is loaded.
    bool ArchiveMode() const { return archiveMode_; }
    void SetArchiveMode(bool archive) { archiveMode_ = archive; }
    // gRootDirectory, or gArchiveDirectory in archive mode; the other one is the move target.
    std::string Folder() const;
    std::string TargetFolder() const;
    // gAppTitle and " Project Library" or " Archive".
    std::string Caption() const;

    // The check before listing: false, after the "Access Error" message, when the folder cannot
    // be written.
    bool CheckFolderWritable() const;

    // Reads the header of every project file of the folder; files that cannot be read are left
    // out. progress gets the percentage done after each file. The list comes sorted by date
    // saved, oldest first, and unsearched. The number of rows.
    using Progress = std::function<void(int percent)>;
    int Load(const Progress& progress = {});

    // The rows shown: all of them, or the hits of the search under way.
    const std::vector<LibraryRow>& Rows() const { return shown_; }
    int TotalCount() const { return static_cast<int>(all_.size()); }
    const LibraryRow* FindRow(const std::string& path) const;

    // Sorts by a column: dates as dates, the Propeller column by the diameter in metres, texts
    // ignoring case. Equal keys keep their order.
    void Sort(int column, bool ascending);
    // A click on the column head: the other direction when the list is sorted by it already,
    // ascending otherwise.
    void ToggleSort(int column);
    int SortColumn() const { return sortColumn_; }
    bool SortAscending() const { return sortAscending_; }

    // Keeps the rows shown that have the text in a shown column, ignoring case, and gives their
    // number: each search narrows the one before, so "2026" then "tug" finds the rows with both.
    // Without a hit among the rows shown they stay as they were and the result is 0. An empty
    // text does nothing and gives the number shown.
    int Search(const std::string& text);
    // Forgets every search: all rows are shown again.
    void ClearSearch();
    bool Searching() const { return !searchTexts_.empty(); }

    // Whether a row may be ticked for a move: not the project that is open now ("Open File
    // selected" says so).
    bool CanTick(const std::string& path) const;

    // The move of the ticked files into the other folder, after the checks and the question;
    // reports under "Move Complete" and drops the rows of the files moved.
    struct MoveResult {
        bool ran = false; // false: no file ticked, folder missing, or the user said No
        int moved = 0;
        int failed = 0;
    };
    MoveResult MoveFiles(const std::vector<std::string>& paths);

    // Opens the project of a row (from the Archive with its move into the Library). 1 when a
    // project was read; then the dialog closes.
    int Open(const std::string& path);

private:
    void ApplySearch();

    bool archiveMode_ = false;
    std::vector<LibraryRow> all_;
    std::vector<LibraryRow> shown_;
    // The texts of the searches under way, lowered; a row is shown when it has every one.
    std::vector<std::string> searchTexts_;
    int sortColumn_ = kColumnDateSaved;
    bool sortAscending_ = true;
};

} // namespace corvane
