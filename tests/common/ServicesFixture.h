#pragma once

#include "support/FixedClock.h"
#include "support/FixedEnvironment.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingEventPump.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace corvane::test {

// A scratch folder under the system's temporary folder, removed with its content at the end.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    // The folder as the core writes folders: with a trailing separator.
    std::string Folder() const { return path_.string() + "/"; }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

// Installs scripted services for each test and checks at the end that no prompt came that the
// test did not expect. Every piece of program-wide state is reset on both ends
// (ResetProgramState).
class ServicesTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    ScriptedPrompts prompts;
    MemorySettingsStore settings;
    FixedClock clock{DateTime{2026, 11, 22, 9, 5, 7}};
    FixedEnvironment environment;
    RecordingEventPump events;
    SilentSound sound;
    RecordingMailTransport mail; // no test sends mail
    std::unique_ptr<TempFolder> temp;

private:
    std::unique_ptr<ServiceScope> scope_;
};

} // namespace corvane::test
