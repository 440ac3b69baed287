#include "PluginSession.h"

#include "host/api/Host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const kTranslator = "KALDERA_ZEPHRA_System";
const char* const kCheck = "TVK_CheckElementNameCmd";
const char* const kBatch = "TVK_BatchExportCmd";

class PluginMain : public testing::Test {
protected:
    PluginSession session;
};

// --- hosts that refuse

struct RefusalCase {
    const char* refused;
    const char* registering;             // what is shown when it is refused at loading
    const char* deregistering;           // and at unloading
    std::vector<std::string> stillThere; // after the refused unloading
};

class Refusal : public PluginMain, public testing::WithParamInterface<RefusalCase> {};

TEST_P(Refusal, AtLoadingIsShownAndNothingMoreIsTried) {
    // With all later names refused as well, a second error would show that they were tried.
    std::vector<std::string> refused{kTranslator, kCheck, kBatch};
    while (refused.front() != GetParam().refused) {
        refused.erase(refused.begin());
    }
    session.refuse(refused);
    EXPECT_NE(session.load(), "");
    EXPECT_THAT(session.errors, ElementsAre(GetParam().registering));
    EXPECT_EQ(session.plugin(), nullptr);
}

TEST_P(Refusal, AtUnloadingIsShownAndNothingMoreIsTried) {
    ASSERT_EQ(session.load(), "");
    std::vector<std::string> refused{kTranslator, kCheck, kBatch};
    while (refused.front() != GetParam().refused) {
        refused.erase(refused.begin());
    }
    session.refuse(refused);
    EXPECT_NE(session.unload(), "");
    EXPECT_THAT(session.errors, ElementsAre(GetParam().deregistering));
    EXPECT_EQ(session.registered(), GetParam().stillThere);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, Refusal,
    testing::Values(
        RefusalCase{kTranslator,
                    "register KALDERA ZEPHRA-System file translator",
                    "deregister KALDERA ZEPHRA-System file translator",
                    {kTranslator, kCheck, kBatch}},
        RefusalCase{kCheck, "register TVK_CheckElementNameCmd", "deregister TVK_CheckElementNameCmd", {kCheck, kBatch}},
        RefusalCase{kBatch, "register TVK_BatchExportCmd", "deregister TVK_BatchExportCmd", {kBatch}}));

// The error sink throws once, as a host might when it shows the error.
TEST_F(PluginMain, WhatIsThrownWhileLoadingBecomesAnError) {
    session.refuse({kTranslator});
    int calls = 0;
    std::vector<std::string> shown;
    host::Host::instance().messages().error = [&](const std::string& line) {
        if (calls++ == 0) {
            throw std::runtime_error("no window");
        }
        shown.push_back(line);
    };
    EXPECT_NE(session.load(), "");
    EXPECT_THAT(shown, ElementsAre("TVK_Export failed unexpectedly: no window"));
    EXPECT_EQ(session.plugin(), nullptr);
}

// --- a host that takes everything

TEST_F(PluginMain, RegistersTheTranslatorAndThenTheCommands) {
    EXPECT_EQ(session.load(), "");
    EXPECT_THAT(session.errors, IsEmpty());
    EXPECT_THAT(session.registered(), ElementsAre(kTranslator, kCheck, kBatch));
    EXPECT_TRUE(session.hasCommand(kCheck) && session.hasCommand(kBatch));
}

TEST_F(PluginMain, SaysWhoMadeIt) {
    ASSERT_EQ(session.load(), "");
    const host::Plugin& plugin = *session.plugin();
    EXPECT_EQ(plugin.name, "tvk_export");
    EXPECT_EQ(plugin.vendor, "KALDERA ZEPHRA-System");
    EXPECT_EQ(plugin.version, "1.6.0.20061003 (Release)");
    EXPECT_NE(plugin.library.find("MApiVersion"), nullptr);
}

TEST_F(PluginMain, DescribesItsTranslator) {
    ASSERT_EQ(session.load(), "");
    const host::TranslatorEntry& translator = session.plugin()->translators.at(0);
    EXPECT_EQ(translator.optionsScript, "TVK_ExportOpts");
    EXPECT_EQ(translator.defaultOptions, "");
    EXPECT_EQ(translator.pixmap, "");
    EXPECT_TRUE(translator.requiresFullMel);
}

TEST_F(PluginMain, LeavesNothingBehind) {
    ASSERT_EQ(session.load(), "");
    EXPECT_EQ(session.unload(), "");
    EXPECT_THAT(session.errors, IsEmpty());
    EXPECT_EQ(session.plugin(), nullptr);
    EXPECT_EQ(session.plugins().findTranslator(kTranslator), nullptr);
    EXPECT_FALSE(session.hasCommand(kCheck) || session.hasCommand(kBatch));
}

TEST_F(PluginMain, CanBeLoadedAgain) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(session.load(), "");
        EXPECT_EQ(session.unload(), "");
    }
    EXPECT_EQ(session.load(), "");
    EXPECT_THAT(session.registered(), ElementsAre(kTranslator, kCheck, kBatch));
}

} // namespace
} // namespace tvk
