#include "host/scene/Workspace.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace host {

namespace {

class WorkspaceTest : public testing::Test {
protected:
    void write(const std::string& name, const std::string& text) {
        std::ofstream(folder.path(name), std::ios::binary) << text;
    }

    tvk::TemporaryFolder folder;
    Workspace workspace;
};

TEST_F(WorkspaceTest, RefusesWhatIsNoFolder) {
    const std::string before = workspace.rootDirectory();
    write("file", "x");
    EXPECT_FALSE(workspace.open(folder.path("gone")));
    EXPECT_FALSE(workspace.open(folder.path("file")));
    EXPECT_FALSE(workspace.open(""));
    EXPECT_FALSE(workspace.setDirectory(folder.path("gone")));
    EXPECT_EQ(workspace.rootDirectory(), before);
}

TEST_F(WorkspaceTest, FoldersEndInASlash) {
    std::filesystem::create_directories(folder.path("scenes"));
    ASSERT_TRUE(workspace.open(folder.path()));
    EXPECT_EQ(workspace.rootDirectory(), folder.path() + "/");
    EXPECT_EQ(workspace.directory(), folder.path() + "/");
    EXPECT_EQ(workspace.fullName(), folder.path());
    ASSERT_TRUE(workspace.open(folder.path() + "/scenes/.."));
    EXPECT_EQ(workspace.rootDirectory(), folder.path() + "/");
    ASSERT_TRUE(workspace.setDirectory("scenes"));
    EXPECT_EQ(workspace.directory(), folder.path("scenes") + "/");
    EXPECT_EQ(workspace.rootDirectory(), folder.path() + "/");
}

TEST_F(WorkspaceTest, RulesAreReadAsData) {
    write("workspace.mel",
          "//Maya 2018 Project Definition\n\nworkspace -fr \"scene\" \"scenes\";\nworkspace -ot \"scene\" \"old "
          "scenes\";\n"
          "workspace -fileRule \"images\" \"img\";\nworkspace -v \"x\" \"y\";\nsystem(\"touch ran\");\n"
          "workspace -fr \"sound\" \"sound\";\n");
    ASSERT_TRUE(workspace.open(folder.path()));
    EXPECT_EQ(workspace.fileRuleEntry("scene"), "scenes");
    EXPECT_EQ(workspace.objectTypeEntry("scene"), "old scenes");
    EXPECT_EQ(workspace.fileRuleEntry("images"), "img");
    EXPECT_EQ(workspace.fileRuleEntry("sound"), "sound");
    EXPECT_EQ(workspace.fileRuleEntry("movie"), "");
    EXPECT_EQ(workspace.objectTypeEntry("images"), "");
    EXPECT_FALSE(std::filesystem::exists("ran"));
}

TEST_F(WorkspaceTest, BrokenRulesEndTheReading) {
    write("workspace.mel",
          "workspace -fr \"scene\" \"scenes\";\nworkspace -fr \"images;\nworkspace -fr \"sound\" \"sound\";\n");
    ASSERT_TRUE(workspace.open(folder.path()));
    EXPECT_EQ(workspace.fileRuleEntry("scene"), "scenes");
    EXPECT_EQ(workspace.fileRuleEntry("sound"), "");
}

TEST_F(WorkspaceTest, AnotherProjectHasItsOwnRules) {
    workspace.setObjectTypeEntry("scene", "scenes");
    ASSERT_TRUE(workspace.open(folder.path()));
    EXPECT_EQ(workspace.objectTypeEntry("scene"), "");
}

} // namespace

} // namespace host
