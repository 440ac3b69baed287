// What programs ask the loaded library directly.

#include "BatchSession.h"
#include "sceneText.h"

#include "host/api/Plugin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace tvk {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ProgramInterface : public testing::Test {
protected:
    template <typename Function>
    Function find(const char* name) {
        void* const found = session.plugin()->library.find(name);
        EXPECT_NE(found, nullptr) << name;
        return reinterpret_cast<Function>(found);
    }

    BatchSession session;
};

TEST_F(ProgramInterface, TellsTheKeysOfTheOptionString) {
    const auto keys = find<const char* (*)()>("tvkOptionKeys");
    const std::string all = keys();
    EXPECT_THAT(all, StartsWith("magnify;optimize_node;compress_material;"));
    EXPECT_THAT(all, testing::EndsWith(";batch_flag;batch_log_path;"));
    EXPECT_EQ(std::count(all.begin(), all.end(), ';'), 31);
    EXPECT_EQ(keys(), all) << "asked again";
}

TEST_F(ProgramInterface, ReadsSettingsFiles) {
    const auto options = find<const char* (*)(const char*)>("tvkSettingsOptions");
    EXPECT_EQ(options(session.folder.path("none.z3es").c_str()), nullptr);
    EXPECT_EQ(options(session.folder.path("in/a.ma").c_str()), nullptr);
    session.writeSettings("set/two.z3es", "magnify=\"2\"\n");
    EXPECT_THAT(options(session.folder.path("set/two.z3es").c_str()), StartsWith("magnify=2;optimize_node=0;"));
    EXPECT_THAT(options(session.folder.path("set/model.z3es").c_str()), HasSubstr("magnify=1.0;"));
}

TEST_F(ProgramInterface, TellsWhatAListAsksFor) {
    const auto read = find<int (*)(const char*, int)>("tvkReadBatch");
    const auto text = find<const char* (*)(int, const char*)>("tvkBatchText");
    const std::string list = session.folder.path("list.z3be"), log = session.folder.path("log.txt");
    EXPECT_EQ(read(session.folder.path("none.z3be").c_str(), 0), -1);
    session.write("list.z3be", "# TVK_Batch_Export\n");
    EXPECT_EQ(read(list.c_str(), 0), -1) << "no scene";
    session.write("list.z3be", "# TVK_Batch_Export\nlog \"" + log + "\"\n" + session.placed(session.start()) +
                                   "scene \"a.ma\"\nscene \"gone.ma\" -name \"c\" -root \" a,, shared \"\n");
    EXPECT_EQ(read(list.c_str(), 0), 2) << "scenes are not looked for";
    EXPECT_FALSE(std::filesystem::exists(log));
    EXPECT_EQ(text(0, "log"), log);
    EXPECT_STREQ(text(0, "end"), "Batch Export is finished. Total 2 scenes.\n");
    EXPECT_EQ(text(0, "scene"), session.folder.path("in/a.ma"));
    EXPECT_EQ(text(0, "output"), session.folder.path("out/a"));
    EXPECT_STREQ(text(0, "roots"), "");
    EXPECT_EQ(text(1, "project"), session.folder.path("in"));
    EXPECT_EQ(text(1, "scene"), session.folder.path("in/gone.ma"));
    EXPECT_EQ(text(1, "settings"), session.folder.path("set/model.z3es"));
    EXPECT_EQ(text(1, "output"), session.folder.path("out/c"));
    EXPECT_STREQ(text(1, "roots"), "a,shared");
    EXPECT_THAT(text(1, "title"), testing::MatchesRegex("\\[2\\] -+\n# scene: .*/in/gone.ma\n"));
    EXPECT_THAT(text(1, "head"), HasSubstr("# scene: gone.ma (root:  a,, shared )\n"));
    EXPECT_EQ(text(2, "scene"), nullptr);
    EXPECT_EQ(text(-1, "scene"), nullptr);
    EXPECT_EQ(text(0, "colour"), nullptr);
    EXPECT_EQ(read(list.c_str(), 1), 2);
    EXPECT_TRUE(std::filesystem::is_regular_file(log));
}

TEST_F(ProgramInterface, TellsOfWarningsInABatch) {
    const auto wasWarned = find<int (*)()>("tvkWarningRaised");
    session.writeScene("in/long.ma", nodeText("transform", "a2345678901234567"));
    EXPECT_TRUE(session.batch(session.start() + "scene \"a.ma\"\n"));
    EXPECT_EQ(wasWarned(), 0);
    EXPECT_TRUE(session.batch(session.start() + "scene \"long.ma\"\nscene \"a.ma\"\n"));
    EXPECT_EQ(wasWarned(), 1) << "of an export before the last";
}

} // namespace
} // namespace tvk
