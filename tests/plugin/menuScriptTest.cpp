#include "BatchSession.h"
#include "sceneText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

const std::string kLong = "a2345678901234567";

void showMenu(PluginSession& session) {
    ASSERT_EQ(session.load(), "");
    session.mel(std::string("source \"") + TVK_SOURCE_DIR + "/scripts/TVK_Menu.mel\"; TVK_Menu();");
}

TEST(MenuScript, SaysWhenTheNodeOfANameIsGone) {
    PluginSession session;
    showMenu(session);
    EXPECT_FALSE(session.melRuns("TVK_MenuSelect \"gone\";"));
    ASSERT_FALSE(session.errors.empty());
    EXPECT_EQ(session.errors.back(), "Nothing in the scene belongs to this name any more: gone");
}

TEST(MenuScript, ListsTheLongNamesAndSelectsTheirNodes) {
    PluginSession session;
    showMenu(session);
    session.open(nodeText("transform", "short") + nodeText("transform", kLong) + nodeText("transform", kLong + "b"));
    session.mel("select -clear; useControl \"TVK_ExportMenu_checkAll\";");
    EXPECT_EQ(session.mel("button -query -label \"TVK_NameWindow_1\";"), kLong);
    EXPECT_EQ(session.mel("button -exists \"TVK_NameWindow_3\";"), "0");
    session.mel("useControl \"TVK_NameWindow_2\";");
    EXPECT_EQ(session.mel("string $selected[] = `ls -selection`; stringArrayToString($selected, \" \");"), kLong + "b");
}

TEST(MenuScript, ChecksTheSelectionAlone) {
    PluginSession session;
    showMenu(session);
    session.open(nodeText("transform", "short") + nodeText("transform", kLong));
    session.mel("select -replace short; useControl \"TVK_ExportMenu_checkSelection\";");
    EXPECT_EQ(session.mel("window -exists \"TVK_NameWindow\";"), "0");
    session.mel("select -replace \"" + kLong + "\"; useControl \"TVK_ExportMenu_checkSelection\";");
    EXPECT_EQ(session.mel("button -query -label \"TVK_NameWindow_1\";"), kLong);
    session.mel("deleteUI \"TVK_NameWindow\";");
}

TEST(MenuScript, SelectsTheFileTexturesOfAnImage) {
    PluginSession session;
    showMenu(session);
    session.mel("createNode file -n \"shown\"; setAttr shown.fileTextureName -type \"string\" \"/a/b.tga\";"
                "createNode file -n \"other\"; TVK_MenuSelect \"/a/b.tga\";");
    EXPECT_EQ(session.mel("string $selected[] = `ls -selection`; stringArrayToString($selected, \" \");"), "shown");
}

TEST(MenuScript, RunsTheBatchListThatTheUserChose) {
    BatchSession session;
    showMenu(session);
    session.write("list.z3be", "# TVK_Batch_Export\n" + session.placed(session.start()) + "scene \"a.ma\"\n");
    session.mel("useControl \"TVK_ExportMenu_batch\";");
    EXPECT_FALSE(session.hasFile("out/a.imd")); // cancelled
    session.mel("answerFileDialog \"" + session.folder.path("list.z3be") + "\"; useControl \"TVK_ExportMenu_batch\";");
    EXPECT_TRUE(session.hasFile("out/a.imd"));
}

} // namespace
} // namespace tvk
