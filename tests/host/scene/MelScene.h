#pragma once

#include "OpenedScene.h"

#include "host/mel/Interpreter.h"
#include "host/scene/sceneCommands.h"

#include <string>

namespace host {

// A scene with MEL over it.
struct MelScene : OpenedScene {
    explicit MelScene(const std::string& statements = "") : OpenedScene(statements) {
        registerSceneCommands(interpreter.commands(), scene);
    }

    // The result as text: arrays with '|' between their elements, "()" around them; errors as "ERROR: text".
    std::string run(const std::string& script) {
        const mel::EvalResult ran = interpreter.eval(script);
        if (!ran.ok()) {
            return "ERROR: " + ran.error->text;
        }
        if (!ran.value.isArray()) {
            return ran.value.toText();
        }
        std::string text;
        for (std::size_t at = 0; at < ran.value.size(); ++at) {
            text += (at == 0 ? "" : "|") + ran.value.element(at).toText();
        }
        return "(" + text + ")";
    }
    mel::ValueType typeOf(const std::string& script) { return interpreter.eval(script).value.type(); }

    mel::Interpreter interpreter;
};

// A script and what the last command of it gives.
struct MelRow {
    const char* script;
    const char* result;
};

inline void expectRows(MelScene& mel, const std::vector<MelRow>& rows) {
    for (const MelRow& row : rows) {
        EXPECT_EQ(mel.run(row.script), row.result) << row.script;
    }
}

} // namespace host
