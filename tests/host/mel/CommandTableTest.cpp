#include "host/mel/CommandTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/mel/Interpreter.h"

namespace host::mel {
namespace {

CommandResult doNothing(Interpreter&, const Invocation&) {
    return {};
}

TEST(CommandTable, refusesTakenAndImpossibleNames) {
    CommandTable table;
    EXPECT_TRUE(table.add("ls", doNothing));
    EXPECT_FALSE(table.add("ls", doNothing));
    EXPECT_FALSE(table.add("", doNothing));
    EXPECT_FALSE(table.add("2d", doNothing));
    EXPECT_FALSE(table.add("a b", doNothing));
    EXPECT_FALSE(table.add("none", nullptr));
    EXPECT_FALSE(table.remove("absent"));
    EXPECT_EQ(table.find("absent"), nullptr);
}

TEST(CommandTable, listsNamesInOrder) {
    CommandTable table;
    ASSERT_TRUE(table.add("b", doNothing));
    ASSERT_TRUE(table.add("A", doNothing));
    EXPECT_THAT(table.names(), ::testing::ElementsAre("A", "b"));
    EXPECT_TRUE(table.remove("b"));
    EXPECT_THAT(table.names(), ::testing::ElementsAre("A"));
}

TEST(CommandTable, aCommandMayRemoveItself) {
    Interpreter interpreter;
    ASSERT_TRUE(interpreter.commands().add("once", [](Interpreter& inner, const Invocation& call) -> CommandResult {
        EXPECT_TRUE(inner.commands().remove(call.name));
        return Value(call.arguments.size());
    }));
    EXPECT_EQ(interpreter.eval("once 1 2;").value.toInt(), 2);
    EXPECT_EQ(interpreter.eval("once 1 2;").error->text, "Cannot find procedure \"once\".");
}

TEST(Argument, onlyUnquotedWordsAreFlags) {
    EXPECT_TRUE((Argument{"-ea", true}.isFlag()));
    EXPECT_FALSE((Argument{"-ea", false}.isFlag()));
    EXPECT_FALSE((Argument{"-", true}.isFlag()));
    EXPECT_FALSE((Argument{-5, false}.isFlag()));
}

} // namespace
} // namespace host::mel
