#pragma once

#include "host/api/Host.h"

#include <maya/MDagPath.h>
#include <maya/MIOStream.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

/// So that failures tell what a status or text was.
inline void PrintTo(const MStatus& status, std::ostream* stream) {
    *stream << status;
}
inline void PrintTo(const MString& text, std::ostream* stream) {
    *stream << text;
}

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

    static MObject node(const char* name) {
        MObject object;
        first(name).getDependNode(0, object);
        return object;
    }

    static MDagPath path(const char* name) {
        MDagPath path;
        first(name).getDagPath(0, path);
        return path;
    }

    static MPlug plug(const char* name) {
        MPlug plug;
        first(name).getPlug(0, plug);
        return plug;
    }

    Host& host = Host::instance();
    std::vector<std::string> infos, warnings, errors;
    std::string prints;

private:
    static MSelectionList first(const char* name) {
        MSelectionList list;
        EXPECT_EQ(list.add(name), MStatus::kSuccess) << name;
        return list;
    }
};

} // namespace host
