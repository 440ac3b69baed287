#include "scene/messages.h"

#include "ExportSession.h"
#include "FreshRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tvk {
namespace {

constexpr Message kBroken{Severity::kError, "Broken: "};
constexpr Message kOdd{Severity::kWarning, "Odd: "};

TEST(Messages, ErrorsAreLinesThatRaiseNoFlag) {
    const FreshRun fresh;
    say(kBroken, "a");
    EXPECT_EQ(fresh.messages(), "Error: Broken: a\n");
    EXPECT_FALSE(warningRaised());
}

TEST(Messages, WarningsAreLinesThatRaiseTheFlag) {
    const FreshRun fresh;
    say(kOdd, "a");
    EXPECT_EQ(fresh.messages(), "Warning: Odd: a\n");
    EXPECT_TRUE(warningRaised());
}

TEST(Messages, TheFlagStaysUntilItIsCleared) {
    const FreshRun fresh;
    raiseWarning();
    say(kBroken);
    EXPECT_TRUE(warningRaised());
    clearWarning();
    EXPECT_FALSE(warningRaised());
}

TEST(Messages, InformationGoesToTheHostExceptInBatchRuns) {
    ExportSession session;
    const FreshRun fresh;
    showInformation("one \xE3\x82\xBD");
    run().options.batchFlag = true;
    showInformation("two");
    EXPECT_THAT(session.infos, testing::ElementsAre("one \xE3\x82\xBD"));
    EXPECT_EQ(fresh.messages(), "");
    EXPECT_FALSE(warningRaised());
}

} // namespace
} // namespace tvk
