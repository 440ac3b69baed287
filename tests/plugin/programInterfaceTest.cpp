// What programs ask the loaded library directly.

#include "BatchSession.h"
#include "sceneText.h"

#include "host/api/Plugin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
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
