#include "common/ServicesFixture.h"

#include "common/ProgramState.h"

#include <atomic>
#include <random>
#include <unistd.h>

namespace corvane::test {

TempFolder::TempFolder() {
    static std::atomic<unsigned> counter{0};
    std::random_device random;
    const auto name = "corvane-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + "-" +
                      std::to_string(random());
    path_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ec;
    // Make read-only leftovers of permission tests removable again.
    for (auto it = std::filesystem::recursive_directory_iterator(path_, ec);
         !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec)) {
        std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ec);
    }
    std::filesystem::remove_all(path_, ec);
}

void ServicesTest::SetUp() {
    ResetProgramState();
    temp = std::make_unique<TempFolder>();
    environment.userName = "tech";
    environment.computerName = "STATION1";
    environment.appDataFolder = temp->Folder() + "appdata/";
    environment.desktopFolder = temp->Folder() + "desktop/";
    environment.tempFolder = temp->Folder() + "tmp/";
    environment.programFilePath = temp->Folder() + "bin/corvane";
    std::filesystem::create_directories(temp->Path() / "appdata");
    std::filesystem::create_directories(temp->Path() / "tmp");
    scope_ = std::make_unique<ServiceScope>(
        Services{&prompts, &settings, &clock, &environment, &events, &sound, &mail});
}

void ServicesTest::TearDown() {
    EXPECT_TRUE(prompts.Unexpected().empty())
        << "unexpected prompt: " << (prompts.Unexpected().empty() ? "" : prompts.Unexpected().front());
    EXPECT_EQ(prompts.Pending(), 0u) << "a scripted answer was never asked for";
    scope_.reset();
    temp.reset();
    ResetProgramState();
}

} // namespace corvane::test
