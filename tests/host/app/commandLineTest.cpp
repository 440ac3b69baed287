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
        WrongUsage{{"--batch"}, "--batch: 1 required LIST.z3be missing"},
        WrongUsage{{"--batch", ""}, "--batch: the value is empty"},
        WrongUsage{{"a.ma", "--settings", ""}, "--settings: the value is empty"},
        WrongUsage{{"a.ma", "--batch", "list"},
                   "--batch takes all from its list: SCENE.ma, -o, --kinds, --settings, --set and --select do not go "
                   "with it"},
        WrongUsage{{"--batch", "list", "--settings", "x.z3es"},
                   "--batch takes all from its list: SCENE.ma, -o, --kinds, --settings, --set and --select do not go "
                   "with it"},
        WrongUsage{{"--batch", "list", "--check"},
                   "only one of --batch, --preview, --check, and --script with --command, can be asked for"},
        WrongUsage{{"a.ma", "--check", "--command", "x"},
                   "only one of --batch, --preview, --check, and --script with --command, can be asked for"},
        WrongUsage{{"--preview"}, "--preview: 1 required BASE missing"},
        WrongUsage{{"--preview", ""}, "--preview: the value is empty"},
        WrongUsage{{"--preview", "b", "a.ma"},
                   "--preview shows what was exported: of the other options only -o goes with it"},
        WrongUsage{{"--preview", "b", "--kinds", "imd"},
                   "--preview shows what was exported: of the other options only -o goes with it"},
        WrongUsage{{"--preview", "b", "--jobs", "2"},
                   "--preview shows what was exported: of the other options only -o goes with it"},
        WrongUsage{{"--preview", "b", "--check"},
                   "only one of --batch, --preview, --check, and --script with --command, can be asked for"},
        WrongUsage{{"--preview", "b", "--report"},
                   "--report and --report-json go with the export of a scene, or --report-json with --report-of"},
        WrongUsage{{"--batch", "list", "--jobs", "0"}, "--jobs: '0' is not a number from 1 to 256"},
        WrongUsage{{"--batch", "list", "--jobs", "257"}, "--jobs: '257' is not a number from 1 to 256"},
        WrongUsage{{"--batch", "list", "--jobs=-1"}, "--jobs: '-1' is not a number from 1 to 256"},
        WrongUsage{{"--batch", "list", "--jobs", "2x"}, "--jobs: '2x' is not a number from 1 to 256"},
        WrongUsage{{"--batch", "list", "--jobs", ""}, "--jobs: '' is not a number from 1 to 256"},
        WrongUsage{{"--batch", "list", "--jobs", "99999999999"}, "--jobs: '99999999999' is not a number from 1 to 256"},
        WrongUsage{{"--batch", "list", "--jobs"}, "--jobs: 1 required N missing"},
        WrongUsage{{"a.ma", "--jobs", "2"}, "--jobs and --print-jobs go with --batch only"},
        WrongUsage{{"a.ma", "--print-jobs"}, "--jobs and --print-jobs go with --batch only"},
        WrongUsage{{"--batch", "list", "--jobs", "2", "--print-jobs"},
                   "--print-jobs runs nothing: --jobs does not go with it"},
        WrongUsage{{"a.ma", "--project", ""}, "--project: the value is empty"},
        WrongUsage{{"--batch", "list", "--project", "p"},
                   "--batch takes the project from its list: --project does not go with it"},
        WrongUsage{{"--report"}, "no scene was named"}, WrongUsage{{"--report-json", "r"}, "no scene was named"},
        WrongUsage{{"--batch", "list", "--verify"}, "--verify goes with the export of a scene only"},
        WrongUsage{{"a.ma", "--check", "--verify"}, "--verify goes with the export of a scene only"},
        WrongUsage{{"--preview", "b", "--verify"}, "--verify goes with the export of a scene only"},
        WrongUsage{{"--verify"}, "no scene was named"},
        WrongUsage{{"--report-of"}, "--report-of: 1 required BASE missing"},
        WrongUsage{{"--report-of", ""}, "--report-of: the value is empty"},
        WrongUsage{{"a.ma", "--report-json", ""}, "--report-json: the value is empty"},
        WrongUsage{{"--batch", "list", "--report"},
                   "--report and --report-json go with the export of a scene, or --report-json with --report-of"},
        WrongUsage{{"a.ma", "--check", "--report-json", "r"},
                   "--report and --report-json go with the export of a scene, or --report-json with --report-of"},
        WrongUsage{{"--report-of", "base", "a.ma"},
                   "--report-of reads what was exported: of the other options only --report-json goes with it"},
        WrongUsage{{"--report-of", "base", "--report"},
                   "--report-of reads what was exported: of the other options only --report-json goes with it"},
        WrongUsage{{"--report-of", "base", "--kinds", "imd"},
                   "--report-of reads what was exported: of the other options only --report-json goes with it"},
        WrongUsage{{"--report-of", "base", "--command", "x"},
                   "--report-of reads what was exported: of the other options only --report-json goes with it"},
        WrongUsage{{"--check"}, "no scene was named"},
        WrongUsage{{"a.ma", "--check", "-o", "x"},
                   "--check exports nothing: -o, --kinds, --settings and --set do not go with it"},
        WrongUsage{{"a.ma", "--target", "all"}, "--target goes with --check only"},
        WrongUsage{{"a.ma", "--check", "--target", "some"}, "--target: 'some' is neither all nor selection"},
        WrongUsage{{"a.ma", "--check", "--target", "all", "--select", "a"}, "--select goes with --target selection"},
        WrongUsage{
            {"a.ma", "--command", "x", "--set", "a=1"},
            "--script and --command export nothing: -o, --kinds, --settings, --set and --select do not go with them"},
        WrongUsage{
            {"a.ma", "--script", "x.mel", "-o", "b"},
            "--script and --command export nothing: -o, --kinds, --settings, --set and --select do not go with them"}));

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

TEST(commandLine, aProofIsOfAnExport) {
    EXPECT_TRUE(parse({"a.ma", "--verify", "--select", "b"}).commandLine->verifies);
    EXPECT_FALSE(parse({"a.ma"}).commandLine->verifies);
}

TEST(commandLine, reportsAreOfAnExportOrOfFiles) {
    const ParsedCommandLine ofExport = parse({"a.ma", "--report", "--report-json", "r.json"});
    ASSERT_TRUE(ofExport.commandLine.has_value()) << ofExport.error;
    EXPECT_TRUE(ofExport.commandLine->reports);
    EXPECT_EQ(ofExport.commandLine->reportJson, "r.json");
    const ParsedCommandLine ofFiles = parse({"--report-of", "out/a", "--report-json", "r.json", "--strict", "-q"});
    ASSERT_TRUE(ofFiles.commandLine.has_value()) << ofFiles.error;
    EXPECT_EQ(ofFiles.commandLine->reportOf, "out/a");
    EXPECT_FALSE(ofFiles.commandLine->reports);
}

TEST(commandLine, aBatchNeedsNoScene) {
    const ParsedCommandLine parsed = parse({"--batch", "list.z3be", "--strict"});
    ASSERT_TRUE(parsed.commandLine.has_value()) << parsed.error;
    EXPECT_EQ(parsed.commandLine->batch, "list.z3be");
    EXPECT_EQ(parsed.commandLine->scene, "");
}

TEST(commandLine, aBatchIsSharedOrPrinted) {
    const ParsedCommandLine shared = parse({"--batch", "list.z3be", "--jobs", "256"});
    ASSERT_TRUE(shared.commandLine.has_value()) << shared.error;
    EXPECT_EQ(shared.commandLine->jobs, 256);
    EXPECT_FALSE(shared.commandLine->printsJobs);
    const ParsedCommandLine printed = parse({"--batch", "list.z3be", "--print-jobs"});
    ASSERT_TRUE(printed.commandLine.has_value()) << printed.error;
    EXPECT_TRUE(printed.commandLine->printsJobs);
}

TEST(commandLine, namesAreCheckedOfAllOrOfASelection) {
    struct Case {
        std::vector<const char*> arguments;
        bool ofSelection;
    };
    const Case cases[] = {{{"--check", "a.ma"}, false},
                          {{"a.ma", "--check", "--target", "all"}, false},
                          {{"--check", "a.ma", "--target", "selection"}, true},
                          {{"--check", "a.ma", "--target", "selection", "--select", "b"}, true},
                          {{"--check", "a.ma", "--select", "b"}, true}};
    for (const Case& c : cases) {
        const ParsedCommandLine parsed = parse(c.arguments);
        ASSERT_TRUE(parsed.commandLine.has_value()) << parsed.error;
        EXPECT_TRUE(parsed.commandLine->checksNames);
        EXPECT_EQ(parsed.commandLine->scene, "a.ma");
        EXPECT_EQ(parsed.commandLine->checksSelection, c.ofSelection);
    }
}

TEST(commandLine, settingsComeFromAFileAndFromTheLine) {
    const ParsedCommandLine parsed = parse({"a.ma", "--settings", "f.z3es", "--set", "magnify=2"});
    ASSERT_TRUE(parsed.commandLine.has_value()) << parsed.error;
    EXPECT_EQ(parsed.commandLine->settingsFile, "f.z3es");
    EXPECT_THAT(parsed.commandLine->settings, ElementsAre("magnify=2"));
}

TEST(commandLine, helpAndVersionAreAnswers) {
    const ParsedCommandLine help = parse({"--help"});
    EXPECT_EQ(help.exitStatus, kDone);
    for (const char* word : {"SCENE.ma", "--output", "--kinds", "--settings", "--set", "--select", "--batch", "--jobs",
                             "--print-jobs", "--project", "--check", "--script", "--command", "--quiet",
                             "--no-progress", "--strict", "--plugin", "64 wrong usage"}) {
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
