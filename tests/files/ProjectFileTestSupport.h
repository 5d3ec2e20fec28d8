#pragma once

#include "common/FileBytes.h"
#include "common/ServicesFixture.h"
#include "files/FileAccess.h"
#include "iso484/clsISO484.h"
#include "model/clsCorvane.h"

namespace corvane::test {

// A new, empty project in gProject, gUnits and gISO484, linked as the program links a new
// project, with the new-project values the file readers depend on (4 blades, blade 0 in the
// scan reference, "Auto" section pitch source).
void MakeFreshProject();

// Fills the project in the globals with both hands of scans, blades, sections, ISO settings
// and an external reference, every filed member set to a value of its own.
void FillSampleProject();

// Fixture text is written with LF for reading; files hold CR LF.
std::string Crlf(std::string_view text);

// The real steps of a durable write, each recorded by name in `log`; the one named `failing`
// fails instead of running.
struct FailingWriteSteps : FileWriteSteps {
    explicit FailingWriteSteps(std::string step = {}) : failing(std::move(step)) {}
    bool Write(std::FILE* f, std::string_view b) override {
        return Run("write") && FileWriteSteps::Write(f, b);
    }
    bool SyncFile(std::FILE* f) override { return Run("sync") && FileWriteSteps::SyncFile(f); }
    bool Rename(const std::filesystem::path& a, const std::filesystem::path& b) override {
        return Run("rename") && FileWriteSteps::Rename(a, b);
    }
    bool SyncFolder(const std::filesystem::path& d) override {
        return Run("sync folder") && FileWriteSteps::SyncFolder(d);
    }
    bool Run(const std::string& step) { return log.push_back(step), step != failing; }

    std::string failing;
    std::vector<std::string> log;
};

// The services fixture with a fresh project and the error log in the temporary folder.
class ProjectFileTest : public ServicesTest {
protected:
    void SetUp() override;

    // A fixture text (LF line ends) written as a file of the temporary folder.
    std::string Put(const std::string& name, std::string_view text);
    // A file of tests/files/data copied to the temporary folder.
    std::string Fixture(const std::string& name);
};

} // namespace corvane::test
