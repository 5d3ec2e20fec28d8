#pragma once

#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace corvane {

// One entry of a file dialog's type list: the caption the user reads and the patterns it
// stands for, separated by ";" ("*.txt;*.dat").
struct FileFilter {
    std::string description;
    std::string patterns;
};

// What a file dialog was asked to show.
struct FileDialogRequest {
    enum class Kind { Open, Save, OpenFolder };
    Kind kind = Kind::Open;
    std::string title;
    std::vector<FileFilter> filters;
    std::string initialFolder;
    std::string fileName; // preset name (save) or path
};

// The user's choice: the path and the 0-based index of the type chosen in the list.
struct FileDialogChoice {
    std::string path;
    int filterIndex = 0;
};

// Shows the dialogs. The program uses the desktop's dialogs; tests install a scripted one.
class IFileDialogs {
public:
    virtual ~IFileDialogs() = default;
    // No value when the user cancelled.
    virtual std::optional<FileDialogChoice> Show(const FileDialogRequest& request, QWidget* parent) = 0;
};

// The open, save and folder dialogs of every page: set the fields, call Show..., read the
// result. A cancelled dialog leaves FileName empty and gives false.
class clsFileDialog {
public:
    std::string DialogTitle;
    std::vector<FileFilter> Filters;
    std::string InitDir;
    std::string FileName; // in: the preset name; out: the full path chosen
    int FilterIndex = 0;  // out: the type chosen, 0-based
    QWidget* Parent = nullptr;

    bool ShowOpen();
    bool ShowSave();
    bool ShowOpenFolder();

    // Installs the dialogs used from now on; nullptr puts the desktop's back. Returns the ones
    // installed before.
    static IFileDialogs* SetDialogs(IFileDialogs* dialogs);

private:
    bool Show(FileDialogRequest::Kind kind);
};

// Qt's name filter for a type: the caption without its own pattern list, then the patterns
// as Qt reads them ("Hale MRI (*.txt, *.dat)" with "*.txt;*.dat" gives "Hale MRI (*.txt *.dat)").
std::string QtNameFilter(const FileFilter& filter);

} // namespace corvane
