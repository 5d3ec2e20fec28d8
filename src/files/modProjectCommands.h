#pragma once

// The project-level commands of the core: starting a new project and the two ways of saving.
// The window owns the dialogs, the marks on the Project page and the cursor; it lends them
// through ProjectCommandHost so that the rules themselves (file names, refusals and their
// messages, the lock, the dirty flag) live here and run the same under the command-line program
// and the tests.

#include <string>

namespace corvane {

class clsCorvane;
class clsISO484;

// Which of the project's required fields hold. The page gates and the saves share it.
struct ProjectFieldCheck {
    bool customer = true;    // Customer not empty
    bool projectID = true;   // ProjectID not empty
    bool diameter = true;    // MarkedDiameter above 0
    bool pitch = true;       // MarkedPitch not empty
    bool innerRadius = true; // with the inner radius on: from 1 up to, not including, 40
    bool AllHold() const { return customer && projectID && diameter && pitch && innerRadius; }
};
ProjectFieldCheck CheckProjectFields(const clsCorvane& project, const clsISO484& iso);

class ProjectCommandHost {
public:
    virtual ~ProjectCommandHost() = default;
    // Save as: mark or clear the two fields it requires.
    virtual void MarkSaveAsFields(bool diameterMissing, bool customerMissing) {
        (void)diameterMissing;
        (void)customerMissing;
    }
    // Opens the Project page (after a refusal that concerns its fields).
    virtual void ShowProjectPage() {}
    // Asks for a new Project ID, modally; OK stores it in the project, Cancel leaves it.
    virtual void AskNewProjectID() {}
    virtual void SetWaitCursor(bool wait) { (void)wait; }
};

// gRootDirectory, a separator and gProjectFileName.
std::string CurrentProjectPath();

// A new file name for the project: the first 10 characters of its ID, "_", the date as
// yyyymmdd, "_", the time as hhmmss, ".cvpj". Characters a file name cannot hold become "_".
std::string NewProjectFileName();

// Replaces the project, its units and ISO settings by new ones with the station's defaults,
// after removing the lock of the project that was open. 1, or 0 after an Ignore.
int CreateNewProject();

// Opens a project file as the library does: a new project, the file read with its notices (a
// failed read says so under "File read error" and leaves a new project), then the lock: a file
// locked by any station opens read-only under "~untitled.cvpj" after saying who holds it, any
// other file gets this station's lock. 1 when the project was read.
int OpenProjectFile(const std::string& path);

// "Save project": refuses without a library folder, with missing required fields, or for a
// project opened read-only; makes a file name on the first save; otherwise writes the lock and
// the file. The result is that of the write, or 0 when refused.
int SaveProject(ProjectCommandHost& host);

// "Save project as...": asks for a new Project ID and writes under a new name. The ID and the
// file name are put back when the new name is refused.
int SaveProjectAs(ProjectCommandHost& host);

} // namespace corvane
