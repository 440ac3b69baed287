#include "PluginSession.h"

#include "host/api/Host.h"

#include <maya/MPxCommand.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace tvk {
namespace {

class CheckElementNameCommand : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(session.load(), ""); }
    PluginSession session;
};

TEST_F(CheckElementNameCommand, FailsWithOneClearLine) {
    EXPECT_FALSE(session.melRuns("TVK_CheckElementNameCmd"));
    EXPECT_THAT(session.errors, testing::Contains("TVK_CheckElementNameCmd is not in this version").Times(1));
}

TEST_F(CheckElementNameCommand, LetsNothingBeThrownIntoTheHost) {
    std::vector<std::string> shown;
    bool thrown = false;
    host::Host::instance().messages().error = [&](const std::string& line) {
        shown.push_back(line);
        if (!thrown) {
            thrown = true;
            throw std::runtime_error("no window");
        }
    };
    EXPECT_FALSE(session.melRuns("TVK_CheckElementNameCmd"));
    EXPECT_THAT(shown, testing::Contains("TVK_Export failed unexpectedly: no window"));
}

TEST_F(CheckElementNameCommand, CannotBeUndone) {
    const auto& commands = session.plugin()->commands;
    for (const host::CommandEntry& entry : commands) {
        if (entry.name == "TVK_CheckElementNameCmd") {
            const std::unique_ptr<MPxCommand> command(static_cast<MPxCommand*>(entry.create()));
            const std::unique_ptr<MPxCommand> another(static_cast<MPxCommand*>(entry.create()));
            EXPECT_NE(command, another);
            EXPECT_FALSE(command->isUndoable());
            EXPECT_NE(entry.createSyntax, nullptr);
        }
    }
}

} // namespace
} // namespace tvk
