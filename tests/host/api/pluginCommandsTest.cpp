#include "host/api/pluginCommands.h"

#include "HostTest.h"

namespace host {
namespace {

using testing::ElementsAre;

const std::string kRecorder = std::string(HOST_TEST_PLUGINS) + "/recorder" + std::string(SharedLibrary::suffix());

class PluginCommandsTest : public HostTest {
protected:
    PluginCommandsTest() { run("loadPlugin \"" + kRecorder + "\""); }
    ~PluginCommandsTest() override { run("unloadPlugin recorder"); }
};

struct WrongCall {
    const char* script;
    const char* error;
};

class WrongCallTest : public PluginCommandsTest, public testing::WithParamInterface<WrongCall> {};

TEST_P(WrongCallTest, fails) {
    EXPECT_EQ(failure(GetParam().script), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, WrongCallTest,
    testing::Values(WrongCall{"loadPlugin", "loadPlugin: No plug-in was named"},
                    WrongCall{"loadPlugin \"gone\"",
                              "loadPlugin: Plug-in, \"gone\", was not found on MAYA_PLUG_IN_PATH"},
                    WrongCall{"loadPlugin -zz \"gone\"", "loadPlugin: Invalid flag '-zz'"},
                    WrongCall{"unloadPlugin", "unloadPlugin: No plug-in was named"},
                    WrongCall{"unloadPlugin \"gone\"", "unloadPlugin: Plug-in, \"gone\", is not loaded"},
                    WrongCall{"pluginInfo \"recorder\"", "pluginInfo: Only queries are supported"},
                    WrongCall{"pluginInfo -q -l", "pluginInfo: One plug-in must be named"},
                    WrongCall{"pluginInfo -q -v \"gone\"", "pluginInfo: Plug-in, \"gone\", is not loaded"},
                    WrongCall{"pluginInfo -q \"recorder\"", "pluginInfo: Nothing was asked"},
                    WrongCall{"translator \"Record\"", "translator: Only queries are supported"},
                    WrongCall{"translator -q -ext", "translator: One file type must be named"},
                    WrongCall{"translator -q -ext \"Other\"", "translator: Unknown file type: Other"},
                    WrongCall{"translator -q \"Record\"", "translator: Nothing was asked"},
                    WrongCall{"recordEcho -zz", "recordEcho failed"},
                    WrongCall{"recordRun \"fail\"", "recordRun failed"},
                    WrongCall{"recordRun \"throw\"", "plug-in 'recorder' threw an exception: the command gave up"},
                    WrongCall{"recordRun \"memory\"", "out of memory in plug-in 'recorder'"}));

TEST_F(PluginCommandsTest, tellAboutThePlugin) {
    EXPECT_EQ(run("pluginInfo -q -l recorder").toInt(), 1);
    EXPECT_EQ(run("pluginInfo -q -l gone").toInt(), 0);
    EXPECT_EQ(run("pluginInfo -q -path recorder").text(), kRecorder);
    EXPECT_EQ(run("pluginInfo -q -vendor recorder").text(), "Tests");
    EXPECT_EQ(run("pluginInfo -q -version recorder").text(), "1.2");
    EXPECT_EQ(run("pluginInfo -q -apiVersion recorder").text(), "20200000");
    EXPECT_THAT(run("pluginInfo -q -command recorder").strings(), ElementsAre("recordEcho", "recordRun"));
    EXPECT_THAT(run("pluginInfo -q -translator recorder").strings(), ElementsAre("Record"));
    EXPECT_THAT(run("pluginInfo -q -listPlugins").strings(), ElementsAre("recorder"));
}

TEST_F(PluginCommandsTest, tellAboutTheFileType) {
    EXPECT_EQ(run("translator -q -ext Record").text(), "rec");
    EXPECT_EQ(run("translator -q -filter Record").text(), "*.rec");
    EXPECT_EQ(run("translator -q -optionsScript Record").text(), "recordOptions");
    EXPECT_EQ(run("translator -q -defaultOptions Record").text(), "default=1;");
    EXPECT_EQ(run("translator -q -readSupport Record").toInt(), 0);
    EXPECT_EQ(run("translator -q -writeSupport Record").toInt(), 1);
    EXPECT_EQ(run("translator -q -loaded Record").toInt(), 1);
    EXPECT_EQ(run("translator -q -loaded Other").toInt(), 0);
    EXPECT_THAT(run("translator -q -list").strings(), ElementsAre("mayaAscii", "Record"));
}

TEST_F(PluginCommandsTest, loadingTwiceIsOneWarning) {
    EXPECT_THAT(run("loadPlugin \"" + kRecorder + "\"").strings(), ElementsAre("recorder"));
    EXPECT_THAT(warnings, ElementsAre("Plug-in, \"recorder\", is already loaded"));
    run("loadPlugin -quiet \"" + kRecorder + "\"");
    EXPECT_EQ(warnings.size(), 1U);
}

TEST_F(PluginCommandsTest, argumentsReachTheCommandByItsSyntax) {
    EXPECT_THAT(run("recordEcho -t \"a b\" -number 2.5 -b -m x -many \"-y\" \"one\" two").strings(),
                ElementsAre("text a b", "number 2.5", "bare", "many x", "many -y", "object one", "object two"));
    EXPECT_THAT(run("recordEcho(\"-text\", \"called\")").strings(), ElementsAre("text called"));
    EXPECT_THAT(run("string $names[] = {\"p\", \"q\"}; recordEcho $names").strings(),
                ElementsAre("object p", "object q"));
    EXPECT_TRUE(run("recordEcho").isArray());
}

TEST_F(PluginCommandsTest, wrongArgumentsAreTold) {
    failure("recordEcho -zz 1");
    failure("recordEcho -t");
    failure("recordEcho -n word");
    failure("recordEcho -t a -t b");
    EXPECT_THAT(errors, ElementsAre("Invalid flag '-zz'", "Flag '-t' needs 1 argument(s)",
                                    "Invalid arguments for flag '-n'. Expected float, got word",
                                    "Flag '-t' must be given only once"));
}

TEST_F(PluginCommandsTest, resultsArriveAndCallsNest) {
    EXPECT_THAT(run("recordRun list").ints(), ElementsAre(1, 2));
    EXPECT_EQ(run("recordRun text \"pluginInfo -q -v recorder\"").text(), "got 1.2");
    EXPECT_EQ(run("recordRun text \"recordRun text \\\"pluginInfo -q -v recorder\\\"\"").text(), "got got 1.2");
}

TEST_F(PluginCommandsTest, aResultOfTheWrongTypeFailsInsideThePlugin) {
    EXPECT_EQ(failure("recordRun text \"recordRun list\""), "recordRun failed");
}

} // namespace
} // namespace host
