#include "shell/clsFileDialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace corvane {
namespace {

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The extension the first pattern of a type names ("*.cvpj" gives "cvpj"); empty for "*.*".
QString DefaultSuffix(const FileFilter& filter) {
    const QString first = Q(filter.patterns).split(';', Qt::SkipEmptyParts).value(0).trimmed();
    const int dot = first.lastIndexOf('.');
    const QString suffix = dot < 0 ? QString() : first.mid(dot + 1);
    return suffix.contains('*') ? QString() : suffix;
}

// The desktop's own dialogs, through QFileDialog.
class DesktopFileDialogs : public IFileDialogs {
public:
    std::optional<FileDialogChoice> Show(const FileDialogRequest& request, QWidget* parent) override {
        QFileDialog dialog(parent, Q(request.title), Q(request.initialFolder));
        if (request.kind == FileDialogRequest::Kind::OpenFolder) {
            dialog.setFileMode(QFileDialog::Directory);
            dialog.setOption(QFileDialog::ShowDirsOnly);
        } else {
            dialog.setFileMode(request.kind == FileDialogRequest::Kind::Save ? QFileDialog::AnyFile
                                                                             : QFileDialog::ExistingFile);
            dialog.setAcceptMode(request.kind == FileDialogRequest::Kind::Save ? QFileDialog::AcceptSave
                                                                               : QFileDialog::AcceptOpen);
            QStringList names;
            for (const FileFilter& filter : request.filters) {
                names << Q(QtNameFilter(filter));
            }
            dialog.setNameFilters(names);
            if (!request.filters.empty()) {
                dialog.setDefaultSuffix(DefaultSuffix(request.filters.front()));
            }
            // A name typed without extension takes the one of the type chosen.
            QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& chosen) {
                const int index = static_cast<int>(names.indexOf(chosen));
                if (index >= 0) {
                    dialog.setDefaultSuffix(DefaultSuffix(request.filters[static_cast<std::size_t>(index)]));
                }
            });
            if (!request.fileName.empty()) {
                dialog.selectFile(Q(request.fileName));
            }
        }
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
            return std::nullopt;
        }
        FileDialogChoice choice;
        choice.path = QDir::toNativeSeparators(dialog.selectedFiles().first()).toStdString();
        QStringList names;
        for (const FileFilter& filter : request.filters) {
            names << Q(QtNameFilter(filter));
        }
        choice.filterIndex = std::max(0, static_cast<int>(names.indexOf(dialog.selectedNameFilter())));
        return choice;
    }
};

DesktopFileDialogs gDesktopDialogs;
IFileDialogs* gDialogs = &gDesktopDialogs;

} // namespace

std::string QtNameFilter(const FileFilter& filter) {
    std::string caption = Trimmed(filter.description);
    const auto open = caption.rfind('(');
    if (open != std::string::npos && caption.back() == ')') {
        caption = Trimmed(caption.substr(0, open));
    }
    std::string patterns;
    for (const QString& pattern : Q(filter.patterns).split(';', Qt::SkipEmptyParts)) {
        patterns += (patterns.empty() ? "" : " ") + pattern.trimmed().toStdString();
    }
    return caption + " (" + patterns + ")";
}

IFileDialogs* clsFileDialog::SetDialogs(IFileDialogs* dialogs) {
    IFileDialogs* previous = gDialogs == &gDesktopDialogs ? nullptr : gDialogs;
    gDialogs = dialogs != nullptr ? dialogs : &gDesktopDialogs;
    return previous;
}

bool clsFileDialog::ShowOpen() {
    return Show(FileDialogRequest::Kind::Open);
}

bool clsFileDialog::ShowSave() {
    return Show(FileDialogRequest::Kind::Save);
}

bool clsFileDialog::ShowOpenFolder() {
    return Show(FileDialogRequest::Kind::OpenFolder);
}

bool clsFileDialog::Show(FileDialogRequest::Kind kind) {
    FileDialogRequest request;
    request.kind = kind;
    request.title = DialogTitle;
    request.filters = Filters;
    request.initialFolder = InitDir;
    request.fileName = FileName;
    const auto choice = gDialogs->Show(request, Parent);
    if (!choice || choice->path.empty()) {
        FileName.clear();
        return false;
    }
    FileName = choice->path;
    FilterIndex = choice->filterIndex;
    return true;
}

} // namespace corvane
