#include "common/ServicesFixture.h"

#include "support/modNVSystemUtilities.h"

#include <fstream>

namespace corvane {
namespace {

using modNVSystemUtilitiesTest = test::ServicesTest;
namespace fs = std::filesystem;

TEST_F(modNVSystemUtilitiesTest, SplitPathsWithEitherSeparator) {
    EXPECT_EQ(FileNameOf("C:\\a\\b.cvpj"), "b.cvpj");
    EXPECT_EQ(BaseNameOf("C:\\a\\b.cvpj"), "b");
    EXPECT_EQ(FileExtensionOf("C:\\a\\b.cvpj"), "cvpj");
    EXPECT_EQ(FolderOf("C:\\a\\b.cvpj"), "C:\\a\\");
    EXPECT_EQ(FileNameOf("/srv/lib/My Prop.v2.cvpj"), "My Prop.v2.cvpj");
    EXPECT_EQ(BaseNameOf("/srv/lib/My Prop.v2.cvpj"), "My Prop.v2");
    EXPECT_EQ(FolderOf("/srv/lib/x"), "/srv/lib/");
    EXPECT_EQ(FolderOf("x.cvpj"), "");
    EXPECT_EQ(BaseNameOf("/srv/.hidden"), "");
    EXPECT_EQ(BaseNameOf("/srv/"), "");
    EXPECT_EQ(FileExtensionOf("/srv/noext"), "");
    EXPECT_EQ(AddFolderSeparator("/srv"), "/srv/");
    EXPECT_EQ(AddFolderSeparator("C:\\a\\"), "C:\\a\\");
}

TEST_F(modNVSystemUtilitiesTest, FoldersAreMadeOneLevelAtATime) {
    const std::string parent = temp->File("lib");
    const std::string child = parent + "/archive";
    EXPECT_FALSE(EnsureFolder(child, true)); // the parent is missing
    EXPECT_FALSE(EnsureFolder(parent, false));
    EXPECT_TRUE(EnsureFolder(parent, true));
    EXPECT_TRUE(EnsureFolder(child, true));
    EXPECT_TRUE(fs::is_directory(child));
    EXPECT_TRUE(EnsureFolderTree(temp->File("a/b/c")));
    EXPECT_FALSE(EnsureFolder("X:\\none", true));
    EXPECT_FALSE(DriveOrShareExists(""));
    EXPECT_FALSE(DriveOrShareExists("//no-such-share/lib"));
}

TEST_F(modNVSystemUtilitiesTest, WritableFolderProbeLeavesNothingBehind) {
    const auto entries = [&] { return std::distance(fs::directory_iterator(temp->Path()), {}); };
    const auto before = entries();
    EXPECT_TRUE(IsFolderWritable(temp->Folder()));
    EXPECT_EQ(entries(), before);
    EXPECT_FALSE(IsFolderWritable(temp->File("missing")));
    std::string found;
    EXPECT_FALSE(FindFileInFolder("Corvane.html", temp->Path().string(), found));
    std::ofstream(temp->File("Corvane.html")) << "<html/>";
    EXPECT_TRUE(FindFileInFolder("Corvane.html", temp->Path().string(), found));
    EXPECT_EQ(found, temp->File("Corvane.html"));

    // Nobody, root included, can create a file in /proc.
    EXPECT_FALSE(IsFolderWritable("/proc"));
}

TEST_F(modNVSystemUtilitiesTest, RegistryValuesGoThroughTheSettingsStore) {
    const std::string key = "Software\\Corvane\\DefaultOptions";
    EXPECT_FALSE(SetRegistryValue(key, "RootDirectory", "/lib", false)); // no key, not asked to create
    EXPECT_TRUE(SetRegistryValue(key, "RootDirectory", "/lib  ", true));
    EXPECT_EQ(GetRegistryValue("software/corvane/defaultoptions", "rootdirectory"), "/lib");
    std::string value = "stale";
    EXPECT_FALSE(GetRegistryValue(key, "Missing", value));
    EXPECT_EQ(value, "");
    DeleteRegistryValue(key, "RootDirectory");
    EXPECT_EQ(GetRegistryValue(key, "RootDirectory"), "");
}

TEST_F(modNVSystemUtilitiesTest, EnvironmentFoldersEndInASeparator) {
    environment.appDataFolder = "/home/tech/.local/share\r\n";
    EXPECT_EQ(GetAppDataFolder(), "/home/tech/.local/share/");
    environment.desktopFolder = "";
    EXPECT_EQ(GetDesktopFolder(), "");
    const std::string tmp = GetTempFolder();
    EXPECT_EQ(tmp.back(), '/');
}

} // namespace
} // namespace corvane
