#pragma once

#include "host/api/Host.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace host {

/// A host with an empty scene, whose messages are kept.
class HostTest : public testing::Test {
protected:
    HostTest() {
        host.scene().newScene();
        Messages& messages = host.messages();
        messages.info = [this](const std::string& text) { infos.push_back(text); };
        messages.warning = [this](const std::string& text) { warnings.push_back(text); };
        messages.error = [this](const std::string& text) { errors.push_back(text); };
        messages.print = [this](const std::string& text) { prints += text; };
    }

    ~HostTest() override { host.messages() = {}; }

    /// Runs MEL that must not fail.
    mel::Value run(const std::string& script) {
        const mel::EvalResult result = host.interpreter().eval(script);
        EXPECT_TRUE(result.ok()) << script << ": " << result.error.value_or(mel::ScriptError()).text;
        return result.value;
    }

    /// The text of the error that MEL must end in.
    std::string failure(const std::string& script) {
        const mel::EvalResult result = host.interpreter().eval(script);
        return result.ok() ? "(no error)" : result.error->text;
    }

    Host& host = Host::instance();
    std::vector<std::string> infos, warnings, errors;
    std::string prints;
};

} // namespace host
