#pragma once

// The reference editor's tables: an ideal propeller told by its sections and their local pitch,
// with the rules of the editor (counts, sorting, pitch averages, the constant local pitch lock).
// The editor window shows and edits them; the reference files are read into them and written
// from them (modReferenceEditor.h).
//
// Rows are the sections, kept sorted by r/R from the tip down (row 0 outermost, as everywhere
// in the program); r/R is in percent as the table shows it. Each row's local pitch runs over the
// segments from the leading edge (column "(LE)") to the trailing edge. Lengths are in the project
// unit. Questions and refusals go through Prompts() with the editor's own words.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

class clsPropeller;

struct ReferenceSectionRow {
    double radialPct = 0; // r/R, percent
    double chord = 0;
    double rake = 0;
    double skew = 0;
    double pitch = 0;
    std::vector<double> localPitch; // one per segment, leading edge first
    double meanPitch = 0;           // the mean over the segments' pitch angles; 0 until it can be had
};

enum class SectionColumn { RadialPos = 0, Chord, Rake, Skew, Pitch };

class clsReferenceTables {
public:
    // Fewest sections and segments a reference may have once it has any.
    static constexpr int kMinimumCount = 3;
    // Two local pitches closer than this count as equal (the files print four decimals).
    static constexpr double kPitchTolerance = 1e-4;

    const std::string& Description() const { return description_; }
    void SetDescription(const std::string& text);
    // Changing the diameter changes every radius, so the averages follow.
    double Diameter() const { return diameter_; }
    void SetDiameter(double diameter);
    int SectionCount() const { return static_cast<int>(rows_.size()); }
    int SegmentCount() const { return segments_; }
    const std::vector<ReferenceSectionRow>& Rows() const { return rows_; }
    bool UseConstantLocalPitch() const { return constant_; }
    // Set by every edit; cleared when the tables were saved.
    bool Changed() const { return changed_; }
    void SetChanged(bool changed) { changed_ = changed; }
    // The file the tables were last read from or saved to.
    const std::string& FileName() const { return fileName_; }
    void SetFileName(const std::string& path) { fileName_ = path; }

    // "New": no description, diameter or file name, no rows and both counts 0.
    void Clear();
    // True when any cell of either table holds a value other than 0.
    bool HasData() const;

    // A count typed into its field. Not a number: nothing changes. Below 3: the minimum message
    // and 3. A different count erases both tables, after asking when they hold data (No keeps
    // the count). Gives the count in force afterwards, which the field shows.
    int ChangeSectionCount(std::string_view text);
    int ChangeSegmentCount(std::string_view text);
    // One more section row at r/R 0, or one more segment (each row's new local pitch is its
    // section pitch).
    void AddSection();
    void AddSegment();
    // After asking; never below 3. DeleteSegment(-1) says that no segment is selected. True when
    // the row or segment went.
    bool DeleteSection(int row);
    bool DeleteSegment(int segment);

    // An edited cell. The rows are sorted again when r/R changed; gives the row's index after.
    // With the constant local pitch on, a section pitch goes to every segment of its row.
    int SetSectionValue(int row, SectionColumn column, double value);
    void SetLocalPitch(int row, int segment, double value);
    // Switching on asks first and then gives every segment its section's pitch; false when the
    // user said No (the lock stays off). Switching off only unlocks.
    bool SetUseConstantLocalPitch(bool on);
    // Sets the lock without asking: a file read in whose segments all have their section's pitch.
    void SetConstantLocalPitchFound(bool on) { constant_ = on; }
    // True when every segment of every row has its section's pitch, within kPitchTolerance.
    bool LocalPitchesConstant() const;

    // Each row's mean pitch, taken over the pitch angles of its segments on the cylinder of its
    // radius (r = r/R / 100 x Diameter / 2; the angle of pitch P there is atan(P / (pi r)) and the
    // mean goes back by the same factor pi, as the station always averaged). Rows at a radius of
    // 0 or less, and rows without segments, have a mean of 0. With the constant local pitch on,
    // the mean becomes the section pitch.
    void UpdatePitchAverages();
    // The propeller's pitch: the mean of the section pitches; 0 without rows.
    double PropPitch() const;

    // The whole content at once (a file read, a scan): rows sorted, averages taken, the changed
    // flag set. The lock stays as it is: while it is on, every segment gets its section's pitch.
    void Assign(const std::string& description, double diameter, std::vector<ReferenceSectionRow> rows,
                int segments);
    // The tables as a reference propeller of one blade: Description, Diameter, and per row a
    // section with RadialPos (a fraction), Chord, Pitch, RakeAft, SkewHelix and its panels
    // (panel 0 at the trailing edge). No offsets: BuildReferenceOffsets makes them.
    std::shared_ptr<clsPropeller> ToPropeller() const;
    // Blade 0 of a propeller into rows (onlyWithOffsets: the sections that have raw offsets),
    // on a grid of its largest panel count.
    static std::vector<ReferenceSectionRow> RowsOf(const clsPropeller& propeller, bool onlyWithOffsets,
                                                   int& segments);

private:
    int ChangeCount(std::string_view text, bool sections);
    void Resize(int sections, int segments);
    // Sorts the rows from the tip down; gives where row `row` went (-1 for none).
    int SortKeeping(int row);

    std::string description_;
    double diameter_ = 0;
    std::vector<ReferenceSectionRow> rows_;
    int segments_ = 0;
    bool constant_ = false;
    bool changed_ = false;
    std::string fileName_;
};

} // namespace corvane
