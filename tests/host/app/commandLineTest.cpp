#include "host/app/commandLine.h"

#include "host/app/exitStatus.h"

#include <gmock/gmock.h>

namespace host::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

ParsedCommandLine parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "tvkexport");
    return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

struct WrongUsage {
    std::vector<const char*> arguments;
    const char* error;
};

class WrongUsageTest : public testing::TestWithParam<WrongUsage> {};

TEST_P(WrongUsageTest, isTold) {
    const ParsedCommandLine parsed = parse(GetParam().arguments);
    EXPECT_FALSE(parsed.commandLine.has_value());
    EXPECT_EQ(parsed.exitStatus, kWrongUsage);
    EXPECT_EQ(parsed.error, GetParam().error);
    EXPECT_EQ(parsed.output, "");
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, WrongUsageTest,
    testing::Values(
        WrongUsage{{}, "no scene was named"}, WrongUsage{{"-q"}, "no scene was named"},
        WrongUsage{{"--nonsense", "a.ma"}, "The following argument was not expected: --nonsense"},
        WrongUsage{{"a.ma", "b.ma"}, "The following argument was not expected: b.ma"},
        WrongUsage{{"a.ma", "-o"}, "--output: 1 required BASE missing"},
        WrongUsage{{"a.ma", "--kinds", "imd,abc"}, "--kinds: unknown kind 'abc'"},
        WrongUsage{{"a.ma", "--kinds", "IMD"}, "--kinds: unknown kind 'IMD'"},
        WrongUsage{{"a.ma", "--set", "magnify"}, "--set: 'magnify' is not KEY=VALUE without further '=' or ';'"},
        WrongUsage{{"a.ma", "--set", "=2"}, "--set: '=2' is not KEY=VALUE without further '=' or ';'"},
        WrongUsage{{"a.ma", "--set", "a=b=c"}, "--set: 'a=b=c' is not KEY=VALUE without further '=' or ';'"},
        WrongUsage{{"a.ma", "--set", "a=1;b=2"}, "--set: 'a=1;b=2' is not KEY=VALUE without further '=' or ';'"},
        WrongUsage{{"a.ma", "--batch", "list"}, "--batch is not in this version"},
        WrongUsage{{"--batch"}, "--batch is not in this version"},
        WrongUsage{{"--check", "a.ma"}, "--check is not in this version"},
        WrongUsage{{"a.ma", "--settings", "x.z3es"}, "--settings is not in this version"},
        WrongUsage{{"a.ma", "--target", "all"}, "--target is not in this version"},
        WrongUsage{{"a.ma", "--command", "x", "--set", "a=1"},
                   "--script and --command export nothing: -o, --kinds, --set and --select do not go with them"},
        WrongUsage{{"a.ma", "--script", "x.mel", "-o", "b"},
                   "--script and --command export nothing: -o, --kinds, --set and --select do not go with them"}));

TEST(commandLine, everythingCanBeAskedFor) {
    const ParsedCommandLine parsed =
        parse({"--set", "magnify=2", "scene.ma", "-o", "out/base", "--kinds", "imd,ica", "--kinds", "ita", "--set",
               "frame_range=1", "--select", "a,b", "--strict", "-q", "--no-progress", "--plugin", "p.so"});
    ASSERT_TRUE(parsed.commandLine.has_value()) << parsed.error;
    const CommandLine& line = *parsed.commandLine;
    EXPECT_EQ(line.scene, "scene.ma");
    EXPECT_EQ(line.output, "out/base");
    EXPECT_THAT(line.kinds, ElementsAre("imd", "ica", "ita"));
    EXPECT_THAT(line.settings, ElementsAre("magnify=2", "frame_range=1"));
    EXPECT_THAT(line.nodes, ElementsAre("a", "b"));
    EXPECT_EQ(line.plugin, "p.so");
    EXPECT_TRUE(line.strict && line.quiet && line.noProgress);
    EXPECT_FALSE(line.runsScripts());
}

TEST(commandLine, scriptsNeedNoScene) {
    const ParsedCommandLine parsed = parse({"--command", "print 1"});
    ASSERT_TRUE(parsed.commandLine.has_value());
    EXPECT_TRUE(parsed.commandLine->runsScripts());
    EXPECT_TRUE(parse({"--script", "x.mel", "a.ma"}).commandLine.has_value());
}

TEST(commandLine, helpAndVersionAreAnswers) {
    const ParsedCommandLine help = parse({"--help"});
    EXPECT_EQ(help.exitStatus, kDone);
    for (const char* word :
         {"SCENE.ma", "--output", "--kinds", "--settings", "--set", "--select", "--batch", "--check", "--script",
          "--command", "--quiet", "--no-progress", "--strict", "--plugin", "64 wrong usage"}) {
        EXPECT_THAT(help.output, HasSubstr(word));
    }
    EXPECT_EQ(parse({"--version"}).output, "tvkexport 1.6.0\n");
    EXPECT_EQ(parse({"--version"}).exitStatus, kDone);
}

TEST(commandLine, optionsOfTheExporter) {
    CommandLine line;
    EXPECT_EQ(optionString(line), "") << "its own defaults";
    line.kinds = {"ica", "imd"};
    line.settings = {"magnify=2", "a="};
    EXPECT_EQ(optionString(line), "imd_file_out=1;ica_file_out=1;ima_file_out=0;itp_file_out=0;iva_file_out=0;"
                                  "ita_file_out=0;magnify=2;a=;");
}

} // namespace
} // namespace host::app
