#include "PluginSession.h"
#include "sceneText.h"

#include "host/api/Host.h"

#include <maya/MPxCommand.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace tvk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kLong = "a2345678901234567";

class CheckElementNameCommand : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(session.load(), "");
        session.open(nodeText("transform", "a") + nodeText("transform", kLong));
    }

    // The command's result; a test failure when it fails.
    std::vector<std::string> check(const std::string& arguments) {
        const host::mel::EvalResult result = host::Host::instance().execute("TVK_CheckElementNameCmd" + arguments);
        EXPECT_TRUE(result.ok()) << arguments;
        return result.value.strings();
    }

    PluginSession session;
};

// --- arguments that make no sense

TEST_F(CheckElementNameCommand, ATargetThatIsNoneIsRefused) {
    for (const std::string target : {"some", "ALL", "all ", "", "selected"}) {
        session.errors.clear();
        EXPECT_FALSE(session.melRuns("TVK_CheckElementNameCmd -target \"" + target + "\"")) << target;
        EXPECT_THAT(session.errors, Contains("Invalid target: " + target).Times(1)) << target;
    }
}

TEST_F(CheckElementNameCommand, ATargetThatCannotBeReadIsRefused) {
    for (const char* arguments : {" -target", " -t", " -target all -target selection", " -nonsense"}) {
        session.errors.clear();
        EXPECT_FALSE(session.melRuns(std::string("TVK_CheckElementNameCmd") + arguments)) << arguments;
        EXPECT_THAT(session.errors, Contains("Can't get target").Times(1)) << arguments;
    }
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
    EXPECT_FALSE(session.melRuns("TVK_CheckElementNameCmd -target x"));
    EXPECT_THAT(shown, Contains("TVK_Export failed unexpectedly: no window"));
}

// --- results

TEST_F(CheckElementNameCommand, AllIsTheDefault) {
    for (const char* arguments : {"", " -target all", " -t \"all\""}) {
        EXPECT_THAT(check(arguments), ElementsAre("|" + kLong, kLong)) << arguments;
    }
}

TEST_F(CheckElementNameCommand, ASelectionIsCheckedAlone) {
    session.mel("select -cl");
    EXPECT_THAT(check(" -target selection"), IsEmpty());
    EXPECT_EQ(session.takeMessages(), "Warning: No effective node\n\n");
    session.mel("select -r " + kLong);
    EXPECT_THAT(check(" -t selection"), ElementsAre("|" + kLong, kLong));
    session.mel("select -r a");
    EXPECT_THAT(check(" -t selection"), IsEmpty());
}

TEST_F(CheckElementNameCommand, NoLongNameGivesAnEmptyArray) {
    session.open(nodeText("transform", "a"));
    EXPECT_EQ(session.mel("size(`TVK_CheckElementNameCmd`)"), "0");
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
