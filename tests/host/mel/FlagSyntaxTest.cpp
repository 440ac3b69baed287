#include "host/mel/FlagSyntax.h"

#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/mel/Interpreter.h"

namespace host::mel {
namespace {

const FlagSyntax& syntax() {
    static const FlagSyntax kSyntax({{"f", "force"},
                                     {"ns", "namespace", {FlagArgument::kString}},
                                     {"r", "range", {FlagArgument::kInt, FlagArgument::kFloat}},
                                     {"v", "visible", {FlagArgument::kBool}},
                                     {"s", "stringArg", {FlagArgument::kString}, true},
                                     {"m", "multi", {FlagArgument::kBool}, false, false, true},
                                     {"ote", "objectTypeEntry", {FlagArgument::kString}, false, true},
                                     {"x", "anything", {FlagArgument::kAny}}},
                                    FlagSyntax::kQueryAndEdit);
    return kSyntax;
}

// Runs a command statement whose command parses its arguments.
FlagSyntax::Result parse(const std::string& statement) {
    Interpreter interpreter;
    FlagSyntax::Result result;
    EXPECT_TRUE(interpreter.commands().add("cmd", [&](Interpreter&, const Invocation& call) -> CommandResult {
        result = syntax().parse(call);
        return {};
    }));
    EXPECT_TRUE(interpreter.eval(statement).ok());
    return result;
}

TEST(FlagSyntax, namesWhatIsWrong) {
    struct Case {
        const char* statement;
        const char* error;
    };
    const Case cases[] = {
        {"cmd -zz", "Invalid flag '-zz'"},
        {"cmd -ns", "Flag '-ns' needs 1 argument(s)"},
        {"cmd -ns -f", "Flag '-ns' needs 1 argument(s)"},
        {"cmd -range 1", "Flag '-range' needs 2 argument(s)"},
        {"cmd -f -force", "Flag '-force' must be given only once"},
        {"cmd -r \"x\" 1", "Invalid arguments for flag '-r'. Expected int, got string"},
        {"cmd -r 1 on", "Invalid arguments for flag '-r'. Expected float, got string"},
        {"cmd -v maybe", "Invalid arguments for flag '-v'. Expected boolean, got string"},
        {"cmd -ns {1}", "Invalid arguments for flag '-ns'. Expected string, got int[]"},
        {"cmd -q -e -f", "A command can not be queried and edited at once"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(parse(row.statement).error, std::optional<std::string>(row.error)) << row.statement;
    }
}

TEST(FlagSyntax, takesShortAndLongNamesInAnyOrder) {
    const FlagSyntax::Result result = parse(R"(cmd a -force b -r 3 "2.5" -visible off c -s "p" -stringArg q)");
    ASSERT_FALSE(result.error.has_value());
    EXPECT_TRUE(result.flags.has("f"));
    EXPECT_TRUE(result.flags.has("force"));
    EXPECT_FALSE(result.flags.has("ns"));
    EXPECT_FALSE(result.flags.has("unknown"));
    EXPECT_EQ(result.flags.value("range", 0).toInt(), 3);
    EXPECT_EQ(result.flags.value("r", 1).toFloat(), 2.5);
    EXPECT_TRUE(result.flags.value("r", 2).isNone());
    EXPECT_FALSE(result.flags.boolean("v", true));
    EXPECT_TRUE(result.flags.boolean("m", true));
    EXPECT_EQ(result.flags.uses("s"), 2U);
    EXPECT_EQ(result.flags.value("s", 0, 1).text(), "q");
    EXPECT_EQ(result.flags.text("ns", "none"), "none");
    EXPECT_THAT(result.flags.objectNames(), ::testing::ElementsAre("a", "b", "c"));
}

TEST(FlagSyntax, anArgumentMayBeAbsentWhereTheFlagSaysSo) {
    EXPECT_EQ(parse("cmd -m -f").flags.argumentCount("m"), 0U);
    EXPECT_EQ(parse("cmd -m name").flags.objectNames(), std::vector<std::string>{"name"});
    EXPECT_TRUE(parse("cmd -m yes").flags.boolean("m", false));
}

TEST(FlagSyntax, queriedFlagsTakeNoArgumentsUnlessTheyKeepThem) {
    const FlagSyntax::Result result = parse("cmd -v -q -ote \"scene\" -ns control");
    ASSERT_FALSE(result.error.has_value());
    EXPECT_TRUE(result.flags.isQuery);
    EXPECT_EQ(result.flags.argumentCount("v"), 0U);
    EXPECT_EQ(result.flags.value("ote").text(), "scene");
    EXPECT_THAT(result.flags.objectNames(), ::testing::ElementsAre("control"));
    EXPECT_TRUE(parse("cmd -edit -v 1 control").flags.isEdit);
}

TEST(FlagSyntax, quotedFlagsCountInFunctionCallsOnly) {
    EXPECT_TRUE(parse("cmd(\"-force\", \"a\");").flags.has("f"));
    EXPECT_THAT(parse("cmd(\"-unknown\", \"a\");").flags.objectNames(), ::testing::ElementsAre("-unknown", "a"));
    EXPECT_THAT(parse("cmd \"-force\";").flags.objectNames(), ::testing::ElementsAre("-force"));
}

TEST(FlagSyntax, objectsMayComeAsArrays) {
    EXPECT_THAT(parse("cmd {\"a\", \"b\"} c").flags.objectNames(), ::testing::ElementsAre("a", "b", "c"));
    EXPECT_EQ(parse("cmd -x {1, 2}").flags.value("x").ints().size(), 2U);
}

TEST(FlagSyntax, withoutModesTheirLettersAreOrdinaryFlags) {
    const FlagSyntax plain({{"q", "queryValue", {FlagArgument::kString}}});
    const FlagSyntax::Result result = plain.parse({"optionVar", {{"-q", true}, {"name", false}}, false, "", 0});
    EXPECT_EQ(result.flags.value("q").text(), "name");
    EXPECT_FALSE(result.flags.isQuery);
    EXPECT_EQ(plain.parse({"optionVar", {{"-e", true}}, false, "", 0}).error,
              std::optional<std::string>("Invalid flag '-e'"));
}

} // namespace
} // namespace host::mel
