#include "FuzzSupport.h"

#include "common/ProgramState.h"
#include "model/Globals.h"
#include "support/FixedClock.h"
#include "support/FixedEnvironment.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingEventPump.h"
#include "support/ScriptedPrompts.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace corvane::fuzz {

namespace fs = std::filesystem;

struct FuzzScope::Impl {
    ScriptedPrompts prompts;
    MemorySettingsStore settings;
    FixedClock clock{DateTime{2026, 11, 22, 9, 5, 7}};
    FixedEnvironment environment;
    RecordingEventPump events;
    SilentSound sound;
    std::unique_ptr<ServiceScope> scope;
    fs::path folder;
};

FuzzScope::FuzzScope(const std::uint8_t* data, std::size_t size, const std::string& fileName)
    : impl_(std::make_unique<Impl>()) {
    static std::atomic<unsigned> counter{0};
    test::ResetProgramState();
    impl_->prompts.SetAnswerFreely(true);
    impl_->scope =
        std::make_unique<ServiceScope>(Services{&impl_->prompts, &impl_->settings, &impl_->clock,
                                                &impl_->environment, &impl_->events, &impl_->sound});
    impl_->folder = fs::temp_directory_path() /
                    ("corvane-fuzz-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
    fs::create_directories(impl_->folder);
    gLogFolder = impl_->folder.string() + "/";
    path_ = (impl_->folder / fileName).string();
    std::ofstream out(path_, std::ios::binary);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

FuzzScope::~FuzzScope() {
    std::error_code ignored;
    fs::remove_all(impl_->folder, ignored);
    impl_->scope.reset();
    test::ResetProgramState();
}

std::string FuzzScope::Folder() const {
    return impl_->folder.string() + "/";
}

} // namespace corvane::fuzz
