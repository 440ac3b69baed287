#include "host/api/Plugins.h"

#include "HostTest.h"
#include "TemporaryFolder.h"

#include <cstdlib>
#include <fstream>

namespace host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kFolder = HOST_TEST_PLUGINS;
const std::string kSuffix{SharedLibrary::suffix()};
const std::string kRecorder = kFolder + "/recorder" + kSuffix;

class PluginsTest : public HostTest {
protected:
    ~PluginsTest() override {
        host.plugins().refusedNames.clear();
        while (!host.plugins().loaded().empty()) {
            EXPECT_TRUE(host.plugins().unload(host.plugins().loaded().front()->name).ok());
        }
    }

    Plugins& plugins = host.plugins();
};

struct BadPlugin {
    const char* path;
    const char* error;
};

class BadPluginTest : public PluginsTest, public testing::WithParamInterface<BadPlugin> {};

TEST_P(BadPluginTest, isRefusedAndLeavesNothing) {
    const PluginResult result = plugins.load(kFolder + "/" + GetParam().path);
    EXPECT_THAT(result.error, testing::StartsWith(GetParam().error));
    EXPECT_THAT(plugins.loaded(), IsEmpty());
    EXPECT_THAT(plugins.translators(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Libraries, BadPluginTest,
    testing::Values(
        BadPlugin{"noVersion", "Plug-in, \"noVersion\", cannot be loaded: it is no plug-in: it has no MApiVersion"},
        BadPlugin{"oldVersion",
                  "Plug-in, \"oldVersion\", cannot be loaded: it was built for API version 500, this host "
                  "has 20200000"},
        BadPlugin{"noEntry", "Plug-in, \"noEntry\", cannot be loaded: it has no initializePlugin"},
        BadPlugin{"failing", "Plug-in, \"failing\", cannot be loaded: initializePlugin failed"},
        BadPlugin{"throwing",
                  "Plug-in, \"throwing\", cannot be loaded: plug-in 'throwing' threw an exception: no luck"}),
    [](const auto& suite) { return std::string(suite.param.path); });

TEST_F(PluginsTest, aFileThatIsNoLibraryIsRefused) {
    const tvk::TemporaryFolder folder;
    const std::string path = folder.path("noLibrary" + kSuffix);
    std::ofstream(path) << "just text";
    const PluginResult result = plugins.load(path);
    EXPECT_THAT(result.error, testing::StartsWith("Plug-in, \"" + path + "\", cannot be loaded: "));
}

TEST_F(PluginsTest, aMissingFileIsRefused) {
    EXPECT_EQ(plugins.load("/nowhere/gone.so").error, "Plug-in, \"/nowhere/gone.so\", was not found");
    EXPECT_EQ(plugins.load("gone").error, "Plug-in, \"gone\", was not found on MAYA_PLUG_IN_PATH");
    EXPECT_EQ(plugins.unload("gone").error, "Plug-in, \"gone\", is not loaded");
}

struct RefusedStep {
    const char* name;
    std::vector<std::string> left; // names that the plug-in had registered before
};

class RefusedStepTest : public PluginsTest, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedStepTest, endsTheInitialisationAndTheLoading) {
    plugins.refusedNames = {GetParam()};
    const PluginResult result = plugins.load(kRecorder);
    EXPECT_EQ(result.error, "Plug-in, \"recorder\", cannot be loaded: initializePlugin failed");
    EXPECT_THAT(errors, ElementsAre(std::string("register ") + GetParam()));
    EXPECT_THAT(plugins.loaded(), IsEmpty());
    EXPECT_EQ(plugins.findTranslator("Record"), nullptr);
    EXPECT_EQ(host.interpreter().commands().find("recordEcho"), nullptr);
    EXPECT_EQ(host.interpreter().commands().find("recordRun"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Steps, RefusedStepTest, testing::Values("Record", "recordEcho", "recordRun"));

TEST_F(PluginsTest, whatItSaysOfItselfIsKept) {
    ASSERT_TRUE(plugins.load(kRecorder).ok());
    const Plugin* plugin = plugins.find("recorder");
    ASSERT_NE(plugin, nullptr);
    EXPECT_EQ(plugin->vendor, "Tests");
    EXPECT_EQ(plugin->version, "1.2");
    EXPECT_EQ(plugin->apiVersion, "20200000");
    EXPECT_EQ(plugin->path, kRecorder);
    const TranslatorEntry* translator = plugins.findTranslator("Record");
    ASSERT_NE(translator, nullptr);
    EXPECT_EQ(translator->optionsScript, "recordOptions");
    EXPECT_EQ(translator->defaultOptions, "default=1;");
    EXPECT_FALSE(translator->requiresFullMel);
}

TEST_F(PluginsTest, loadingTwiceIsOneLoading) {
    EXPECT_FALSE(plugins.load(kRecorder).wasLoaded);
    EXPECT_TRUE(plugins.load(kRecorder).wasLoaded);
    EXPECT_TRUE(plugins.load("recorder").wasLoaded);
    EXPECT_EQ(plugins.loaded().size(), 1U);
}

TEST_F(PluginsTest, unloadingTakesEverythingAwayAndLoadingAgainBringsItBack) {
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(plugins.load(kRecorder).ok());
        EXPECT_NE(host.interpreter().commands().find("recordEcho"), nullptr);
        ASSERT_TRUE(plugins.unload("recorder").ok());
        EXPECT_EQ(host.interpreter().commands().find("recordEcho"), nullptr);
        EXPECT_EQ(plugins.findTranslator("Record"), nullptr);
    }
}

TEST_F(PluginsTest, aRefusedDeregistrationKeepsItLoaded) {
    ASSERT_TRUE(plugins.load(kRecorder).ok());
    plugins.refusedNames = {"recordEcho"};
    EXPECT_EQ(plugins.unload("recorder").error, "Plug-in, \"recorder\", cannot be unloaded: uninitializePlugin failed");
    EXPECT_NE(plugins.find("recorder"), nullptr);
    plugins.refusedNames.clear();
    // What went before the refusal is gone, so the plug-in fails at its first step now; it must not stay for ever.
    ASSERT_EQ(plugins.findTranslator("Record"), nullptr);
    Plugin& plugin = *plugins.find("recorder");
    TranslatorEntry again;
    again.name = "Record";
    again.create = [] { return static_cast<void*>(nullptr); };
    ASSERT_TRUE(plugins.registerTranslator(plugin, again));
}

TEST_F(PluginsTest, twoPluginsCannotRegisterTheSameName) {
    ASSERT_TRUE(plugins.load(kRecorder).ok());
    Plugin& plugin = *plugins.find("recorder");
    const auto create = [] { return static_cast<void*>(nullptr); };
    EXPECT_FALSE(plugins.registerCommand(plugin, {"recordEcho", create, nullptr}));
    EXPECT_FALSE(plugins.registerCommand(plugin, {"file", create, nullptr}));
    EXPECT_FALSE(plugins.registerCommand(plugin, {"not a name", create, nullptr}));
    EXPECT_FALSE(plugins.registerCommand(plugin, {"noCreator", nullptr, nullptr}));
    EXPECT_FALSE(plugins.registerTranslator(plugin, *plugins.findTranslator("Record")));
    EXPECT_FALSE(plugins.registerTranslator(plugin, TranslatorEntry()));
    EXPECT_FALSE(plugins.deregisterCommand(plugin, "file"));
    EXPECT_FALSE(plugins.deregisterTranslator(plugin, "Other"));
}

TEST_F(PluginsTest, plainEntryNamesServeAndForgottenCommandsGo) {
    ASSERT_TRUE(plugins.load(kFolder + "/plainNames" + kSuffix).ok());
    EXPECT_EQ(run("plainCommand").toInt(), 0) << "a plug-in object outlives its entry point";
    ASSERT_TRUE(plugins.unload("plainNames").ok());
    EXPECT_EQ(host.interpreter().commands().find("plainCommand"), nullptr);
}

TEST_F(PluginsTest, aPluginCannotBeUnloadedByItsOwnCommand) {
    ASSERT_TRUE(plugins.load(kRecorder).ok());
    EXPECT_EQ(failure("recordRun \"text\" \"unloadPlugin recorder\""), "recordRun failed");
    EXPECT_THAT(errors, ElementsAre("unloadPlugin: Plug-in, \"recorder\", cannot be unloaded while it runs"));
}

class SearchPath {
public:
    explicit SearchPath(const std::string& value) { setenv("MAYA_PLUG_IN_PATH", value.c_str(), 1); }
    ~SearchPath() { unsetenv("MAYA_PLUG_IN_PATH"); }
};

TEST_F(PluginsTest, bareNamesAreSearched) {
    const SearchPath path("/nowhere" + std::string(1, SharedLibrary::pathSeparator()) + kFolder);
    for (const std::string& name : {std::string("recorder"), "recorder" + kSuffix}) {
        EXPECT_EQ(plugins.load(name).name, "recorder") << name;
        ASSERT_TRUE(plugins.unload("recorder").ok());
    }
}

} // namespace
} // namespace host
