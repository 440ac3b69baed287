#include "host/mel/Interpreter.h"
#include "host/scene/AttributeEditor.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::Interpreter;
using mel::Invocation;
using mel::ParsedFlags;

/// The hook that the attribute editor runs after a node's own template.
constexpr const char* kTemplateHook = "AETemplateCustomContent";

struct Callback {
    std::string hook, owner, script;
};

/// What the commands of this group share.
struct Interface {
    AttributeEditor editor;
    std::vector<Callback> callbacks;
};

CommandResult execute(Interface& shown, Interpreter& interpreter, const std::string& hook,
                      const std::vector<mel::Value>& arguments) {
    const std::vector<Callback> callbacks = shown.callbacks; // one of them may change the list
    for (const Callback& callback : callbacks) {
        if (callback.hook != hook) {
            continue;
        }
        const mel::EvalResult result = interpreter.call(callback.script, arguments);
        if (!result.ok()) {
            return CommandResult::failure(result.error->text);
        }
    }
    return {};
}

// Whether a callback is one of those that the flags name; a flag that is not given lets every one through.
bool isMeant(const Callback& callback, const ParsedFlags& flags) {
    return callback.hook == flags.text("hook", callback.hook) &&
           callback.owner == flags.text("owner", callback.owner) &&
           callback.script == flags.text("removeCallback", callback.script);
}

CommandResult callbacksCommand(Interface& shown, Interpreter& interpreter, const ParsedFlags& flags) {
    std::vector<Callback>& callbacks = shown.callbacks;
    if (flags.has("executeCallbacks")) {
        std::vector<mel::Value> arguments;
        for (const mel::Argument& object : flags.objects) {
            arguments.push_back(object.value);
        }
        return execute(shown, interpreter, flags.text("hook"), arguments);
    }
    if (flags.has("listCallbacks")) {
        mel::StringArray scripts;
        for (const Callback& callback : callbacks) {
            if (isMeant(callback, flags)) {
                scripts.push_back(callback.script);
            }
        }
        return CommandResult(std::move(scripts));
    }
    if (flags.has("addCallback")) {
        if (!flags.has("hook") || !flags.has("owner")) {
            return failure(messages::kNeedsObjects, {"callbacks -addCallback", "-hook and -owner"});
        }
        callbacks.push_back({flags.text("hook"), flags.text("owner"), flags.text("addCallback")});
        return {};
    }
    if (!flags.has("removeCallback") && !flags.has("clearCallbacks")) {
        return failure(messages::kNeedsObjects, {"callbacks", "a flag that says what to do"});
    }
    callbacks.erase(std::remove_if(callbacks.begin(), callbacks.end(),
                                   [&](const Callback& callback) { return isMeant(callback, flags); }),
                    callbacks.end());
    return {};
}

// Rows of attributes that the node lacks are not shown.
CommandResult queryControl(const Scene& scene, const Interface& shown, const ParsedFlags& flags) {
    const NodeMatch asked = scene.find(flags.text("queryControl"));
    const std::string attribute = flags.value("queryControl", 1).toText();
    const NodeMatch edited = scene.find(shown.editor.nodeName());
    const bool isShown =
        asked.ok() && edited.ok() && asked.node == edited.node && asked.node->findAttribute(attribute) != kNoAttr;
    return CommandResult(isShown ? shown.editor.controlPath(attribute) : std::string());
}

CommandResult editorTemplateCommand(const Scene& scene, Interface& shown, const ParsedFlags& flags) {
    if (flags.has("queryControl")) {
        return queryControl(scene, shown, flags);
    }
    if (flags.has("beginLayout")) {
        shown.editor.beginLayout(flags.text("beginLayout"));
        return {};
    }
    if (flags.has("endLayout")) {
        return shown.editor.endLayout() ? CommandResult() : failure(messages::kNoOpenLayout);
    }
    for (const char* flag : {"addControl", "addDynamicControl"}) {
        if (flags.has(flag)) {
            shown.editor.addControl(flags.text(flag));
            return {};
        }
    }
    return failure(messages::kNeedsObjects, {"editorTemplate", "a flag that says what to do"});
}

CommandResult build(const Scene& scene, Interface& shown, Interpreter& interpreter, const std::string& name) {
    NodeMatch match = scene.find(name);
    if (!match.ok()) {
        return CommandResult::failure(std::move(match.error));
    }
    shown.editor.show(name);
    CommandResult result = execute(shown, interpreter, kTemplateHook, {mel::Value(name)});
    if (result.ok() && shown.editor.hasOpenLayout()) {
        return failure(messages::kOpenLayout);
    }
    return result;
}

CommandResult showEditorCommand(const Scene& scene, Interface& shown, Interpreter& interpreter,
                                const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    return names.size() == 1 ? build(scene, shown, interpreter, names[0])
                             : failure(messages::kNeedsObjects, {"showEditor", "the name of one node"});
}

CommandResult refreshCommand(const Scene& scene, Interface& shown, Interpreter& interpreter) {
    const std::string name = shown.editor.nodeName();
    return scene.find(name).ok() ? build(scene, shown, interpreter, name) : CommandResult();
}

using InterfaceCommand = std::function<CommandResult(Interpreter&, const ParsedFlags&)>;

void add(mel::CommandTable& commands, std::string name, FlagSyntax syntax, InterfaceCommand command) {
    auto run = [syntax = std::move(syntax), command = std::move(command)](Interpreter& interpreter,
                                                                          const Invocation& invocation) {
        const FlagSyntax::Result parsed = syntax.parse(invocation);
        return parsed.error ? CommandResult::failure(*parsed.error) : command(interpreter, parsed.flags);
    };
    (void)commands.add(std::move(name), std::move(run));
}

} // namespace

void registerInterfaceCommands(mel::CommandTable& commands, Scene& scene) {
    const auto shown = std::make_shared<Interface>();
    const std::vector<FlagArgument> text{FlagArgument::kString};
    add(commands, "callbacks",
        FlagSyntax({{"ac", "addCallback", text},
                    {"rc", "removeCallback", text},
                    {"cc", "clearCallbacks"},
                    {"lc", "listCallbacks"},
                    {"ec", "executeCallbacks"},
                    {"h", "hook", text},
                    {"o", "owner", text}}),
        [shown](Interpreter& interpreter, const ParsedFlags& flags) {
            return callbacksCommand(*shown, interpreter, flags);
        });
    add(commands, "editorTemplate",
        FlagSyntax({{"bl", "beginLayout", text},
                    {"cl", "collapse", {FlagArgument::kBool}},
                    {"el", "endLayout"},
                    {"l", "label", text},
                    {"ac", "addControl", text},
                    {"adc", "addDynamicControl", text},
                    {"qc", "queryControl", {FlagArgument::kString, FlagArgument::kString}}}),
        [shown, &scene](Interpreter&, const ParsedFlags& flags) {
            return editorTemplateCommand(scene, *shown, flags);
        });
    add(commands, "showEditor", FlagSyntax({}), [shown, &scene](Interpreter& interpreter, const ParsedFlags& flags) {
        return showEditorCommand(scene, *shown, interpreter, flags);
    });
    add(commands, "refreshEditorTemplates", FlagSyntax({}),
        [shown, &scene](Interpreter& interpreter, const ParsedFlags&) {
            return refreshCommand(scene, *shown, interpreter);
        });
}

} // namespace host
