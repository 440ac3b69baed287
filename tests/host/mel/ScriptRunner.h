#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "host/mel/Interpreter.h"

namespace host::mel {

// An interpreter whose output a test can read.
struct ScriptRunner {
    Interpreter interpreter;
    std::string printed;
    std::vector<std::string> infos;
    std::vector<std::string> warnings;
    std::vector<std::string> errors;

    ScriptRunner() {
        interpreter.sinks().print = [this](const std::string& text) { printed += text; };
        interpreter.sinks().info = [this](const std::string& text) { infos.push_back(text); };
        interpreter.sinks().warning = [this](const std::string& text) { warnings.push_back(text); };
        interpreter.sinks().error = [this](const std::string& text) { errors.push_back(text); };
    }

    // "TYPE VALUE" of the text's result, or "line:column text" of its error.
    std::string run(std::string_view script) {
        const EvalResult result = interpreter.eval(script);
        if (result.ok()) {
            return std::string(typeName(result.value.type())) + " " + result.value.printText();
        }
        const ScriptError& error = *result.error;
        return std::to_string(error.line) + ":" + std::to_string(error.column) + " " + error.text;
    }
};

// A script and what ScriptRunner::run gives for it in a fresh interpreter.
struct ScriptCase {
    std::string_view script;
    std::string_view result;
};

inline void expectResults(const std::vector<ScriptCase>& cases) {
    for (const ScriptCase& row : cases) {
        SCOPED_TRACE(row.script);
        ScriptRunner runner;
        EXPECT_EQ(runner.run(row.script), row.result);
    }
}

// A script and what it prints; it must not fail.
inline void expectPrints(const std::vector<ScriptCase>& cases) {
    for (const ScriptCase& row : cases) {
        SCOPED_TRACE(row.script);
        ScriptRunner runner;
        const EvalResult result = runner.interpreter.eval(row.script);
        EXPECT_TRUE(result.ok()) << (result.ok() ? "" : result.error->describe());
        EXPECT_EQ(runner.printed, row.result);
    }
}

} // namespace host::mel
