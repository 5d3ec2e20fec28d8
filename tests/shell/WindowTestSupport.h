#pragma once

#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/FileCommands.h"
#include "shell/MainToolStrip.h"
#include "shell/MenuController.h"
#include "shell/ProjectPageController.h"
#include "shell/QtTestApp.h"
#include "shell/frmCorvane.h"

#include <QAction>
#include <QSettings>

namespace corvane::test {

// File dialogs that answer from a script and record what they were asked to show. A dialog
// with nothing queued fails the test and is cancelled.
class ScriptedFileDialogs : public IFileDialogs {
public:
    void Choose(std::string path, int filterIndex = 0) {
        script_.push_back(FileDialogChoice{std::move(path), filterIndex});
    }
    void Cancel() { script_.push_back(std::nullopt); }

    std::optional<FileDialogChoice> Show(const FileDialogRequest& request, QWidget* /*parent*/) override {
        requests.push_back(request);
        if (script_.empty()) {
            ADD_FAILURE() << "unexpected file dialog \"" << request.title << "\"";
            return std::nullopt;
        }
        auto choice = script_.front();
        script_.pop_front();
        return choice;
    }

    std::size_t Pending() const { return script_.size(); }
    std::vector<FileDialogRequest> requests;

private:
    std::deque<std::optional<FileDialogChoice>> script_;
};

// The real main window over a new project in a scratch library, with scripted prompts and file
// dialogs. The library dialog and the Project ID dialog are played by the test: the library
// opens `libraryPick` (when set) by the library's rules, the ID dialog stores `nextProjectID`.
class WindowTest : public ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        TestApp();
        // The window's placement goes to a scratch settings file, never the user's own.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(temp->File("qsettings")));
        library = temp->Folder() + "library";
        archive = temp->Folder() + "archive";
        std::filesystem::create_directories(library);
        std::filesystem::create_directories(archive);
        // Without a shop name the options would be looked for under the old key.
        settings.SetValue("Software\\Corvane\\DefaultOptions", "RepairShopName", "Harbour Props");
        settings.SetValue("Software\\Corvane\\DefaultOptions", "RootDirectory", library);
        settings.SetValue("Software\\Corvane\\DefaultOptions", "ArchiveDirectory", archive);
        clsFileDialog::SetDialogs(&dialogs);
        ASSERT_EQ(CreateNewProject(), 1);
        gScanMode = 1;
        window = std::make_unique<frmCorvane>();
        window->Files().SetLibraryDialog([this](bool inArchive) {
            libraryShown.push_back(inArchive);
            if (libraryPick) {
                OpenProjectFile(*libraryPick);
            }
        });
        window->Files().SetProjectIDDialog([this] {
            if (nextProjectID) {
                gProject->SetProjectID(*nextProjectID);
            }
        });
    }

    void TearDown() override {
        window.reset();
        clsFileDialog::SetDialogs(nullptr);
        EXPECT_EQ(dialogs.Pending(), 0u) << "a scripted file dialog was never shown";
        ServicesTest::TearDown();
    }

    static void FillRequiredFields(const std::string& id = "TUG-0417",
                                   const std::string& customer = "Atlantic Tug") {
        gProject->SetProjectID(id);
        gProject->SetCustomer(customer);
        gProject->SetMarkedDiameter(72);
        gProject->SetMarkedPitch("58");
    }

    QAction* Entry(const char* name) const {
        auto* action = window->findChild<QAction*>(QString::fromLatin1(name));
        EXPECT_NE(action, nullptr) << name;
        return action;
    }
    bool Open(const char* menu) const { return Entry(menu)->isEnabled(); }
    MainToolStrip& Strip() const { return window->ToolStrip(); }
    std::string Title() const { return window->windowTitle().toStdString(); }
    std::string InLibrary(const std::string& name) const {
        return (std::filesystem::path(library) / name).string();
    }

    std::string library;
    std::string archive;
    ScriptedFileDialogs dialogs;
    std::unique_ptr<frmCorvane> window;
    std::vector<bool> libraryShown;
    std::optional<std::string> libraryPick;
    std::optional<std::string> nextProjectID;
};

} // namespace corvane::test
