#include "host/mel/Interpreter.h"
#include "host/scene/ControlPanel.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <memory>
#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSpec;
using mel::FlagSyntax;
using mel::Interpreter;
using mel::ParsedFlags;
using Control = ControlPanel::Control;

/// A command that makes, edits and queries one kind of control.
struct ControlKind {
    const char* command;
    const char* valueFlag;       // that holds what the user enters; "" when nothing
    const char* reactionFlag;    // that holds what runs when the user is done; "" when nothing
    std::vector<FlagSpec> flags; // of this kind alone
    bool isLayout = false;
};

std::vector<ControlKind> controlKinds() {
    const std::vector<FlagArgument> text{FlagArgument::kString};
    const std::vector<FlagArgument> whole{FlagArgument::kInt};
    const std::vector<FlagArgument> real{FlagArgument::kFloat};
    const std::vector<FlagArgument> truth{FlagArgument::kBool};
    const FlagSpec change{"cc", "changeCommand", text};
    return {
        {"window", "", "", {{"t", "title", text}}, true},
        {"columnLayout", "", "", {{"adj", "adjustableColumn", truth}, {"rs", "rowSpacing", whole}}, true},
        {"frameLayout", "", "", {{"cll", "collapsable", truth}, {"cl", "collapse", truth}}, true},
        {"scrollLayout", "", "", {{"cr", "childResizable", truth}}, true},
        {"rowLayout", "", "", {{"nc", "numberOfColumns", whole}}, true},
        {"checkBoxGrp",
         "value1",
         "changeCommand",
         {{"ncb", "numberOfCheckBoxes", whole}, {"v1", "value1", truth}, change}},
        {"floatFieldGrp",
         "value1",
         "changeCommand",
         {{"nf", "numberOfFields", whole}, {"pre", "precision", whole}, {"v1", "value1", real}, change}},
        {"intFieldGrp", "value1", "changeCommand", {{"nf", "numberOfFields", whole}, {"v1", "value1", whole}, change}},
        {"optionMenuGrp", "select", "changeCommand", {{"sl", "select", whole}, change}},
        {"menu", "", "", {{"p", "parent", text}, {"to", "tearOff", truth}}},
        {"menuItem", "", "command", {{"c", "command", text}}},
        {"textFieldButtonGrp",
         "text",
         "changeCommand",
         {{"tx", "text", text}, {"bl", "buttonLabel", text}, {"bc", "buttonCommand", text}, change}},
        {"button", "", "command", {{"c", "command", text}}},
    };
}

FlagSyntax syntaxOf(const ControlKind& kind) {
    std::vector<FlagSpec> flags{{"l", "label", {FlagArgument::kString}},
                                {"ann", "annotation", {FlagArgument::kString}},
                                {"en", "enable", {FlagArgument::kBool}},
                                {"ex", "exists"}};
    flags.insert(flags.end(), kind.flags.begin(), kind.flags.end());
    return FlagSyntax(std::move(flags), FlagSyntax::kQueryAndEdit);
}

std::vector<std::string> settingNames(const ControlKind& kind) {
    std::vector<std::string> names{"label", "annotation", "enable"};
    for (const FlagSpec& flag : kind.flags) {
        names.push_back(flag.longName);
    }
    return names;
}

void store(Control& control, const ControlKind& kind, const ParsedFlags& flags) {
    for (const std::string& name : settingNames(kind)) {
        if (flags.has(name)) {
            control.settings[name] = flags.value(name);
        }
    }
}

// What a control holds that nobody gave a value.
void storeDefaults(Control& control, const ControlKind& kind) {
    for (const FlagSpec& flag : kind.flags) {
        const FlagArgument type = flag.arguments[0];
        control.settings[flag.longName] = type == FlagArgument::kString  ? mel::Value("")
                                          : type == FlagArgument::kFloat ? mel::Value(0.0)
                                                                         : mel::Value(0);
    }
    control.settings["label"] = mel::Value("");
    control.settings["annotation"] = mel::Value("");
    control.settings["enable"] = mel::Value(true);
}

CommandResult make(ControlPanel& panel, const ControlKind& kind, const ParsedFlags& flags, std::string name) {
    Control* const control = panel.add(kind.command, name.empty() ? panel.freshName(kind.command) : std::move(name));
    if (control == nullptr) {
        return failure(messages::kControlExists, {flags.objectNames()[0]});
    }
    storeDefaults(*control, kind);
    store(*control, kind, flags);
    const std::string made = control->name;
    if (flags.has("parent")) {
        control->parent = flags.text("parent");
    }
    if (kind.isLayout) {
        panel.setCurrentLayout(made);
    }
    return CommandResult(made);
}

CommandResult query(const Control& control, const ControlKind& kind, const ParsedFlags& flags) {
    for (const std::string& name : settingNames(kind)) {
        if (flags.has(name)) {
            return CommandResult(control.settings.at(name));
        }
    }
    return failure(messages::kNeedsObjects, {kind.command, "a flag that says what is asked"});
}

// A menu holds a choice of the items that it has.
bool isChoice(const ControlPanel& panel, const Control& control, std::int64_t choice) {
    return choice >= 1 && static_cast<std::size_t>(choice) <= panel.children(control.name).size();
}

CommandResult run(ControlPanel& panel, const ControlKind& kind, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    const std::string name = names.empty() ? std::string() : names[0];
    Control* const control = panel.find(name);
    const bool isThere = control != nullptr && control->command == kind.command;
    if (flags.has("exists")) {
        return CommandResult(isThere);
    }
    if (!flags.isEdit && !flags.isQuery) {
        return make(panel, kind, flags, name);
    }
    if (!isThere) {
        return failure(messages::kNoControl, {name});
    }
    if (flags.isQuery) {
        return query(*control, kind, flags);
    }
    if (flags.has("select") && !isChoice(panel, *control, flags.value("select").toInt())) {
        return failure(messages::kNoChoice, {name, flags.text("select")});
    }
    store(*control, kind, flags);
    return {};
}

// Items belong to the menu that was made last.
CommandResult addItem(ControlPanel& panel, const ControlKind& kind, const ParsedFlags& flags, const std::string& menu) {
    if (panel.find(menu) == nullptr) {
        return failure(messages::kNeedsObjects, {"menuItem", "a menu"});
    }
    const std::string layout = panel.currentLayout();
    panel.setCurrentLayout(menu);
    CommandResult result = run(panel, kind, flags);
    panel.setCurrentLayout(layout);
    const auto choice = panel.find(menu)->settings.find("select");
    if (choice != panel.find(menu)->settings.end() && choice->second.toInt() == 0) {
        choice->second = mel::Value(1);
    }
    return result;
}

CommandResult setParent(ControlPanel& panel, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (flags.isQuery) {
        return CommandResult(panel.currentLayout());
    }
    if (names.size() != 1) {
        return failure(messages::kNeedsObjects, {"setParent", "the name of a layout"});
    }
    const Control* const wanted = panel.find(names[0] == ".." ? panel.currentLayout() : names[0]);
    if (wanted == nullptr) {
        return failure(messages::kNoControl, {names[0]});
    }
    panel.setCurrentLayout(names[0] == ".." ? wanted->parent : wanted->name);
    return CommandResult(panel.currentLayout());
}

CommandResult deleteControls(ControlPanel& panel, const ParsedFlags& flags) {
    for (const std::string& name : flags.objectNames()) {
        if (!panel.remove(name)) {
            return failure(messages::kNoControl, {name});
        }
    }
    return {};
}

// The user enters a value, or presses a button: `useControl NAME [VALUE]`. What is greyed out cannot be used.
CommandResult useControl(ControlPanel& panel, const std::vector<ControlKind>& kinds, Interpreter& interpreter,
                         const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    Control* const control = panel.find(names.empty() ? std::string() : names[0]);
    if (control == nullptr) {
        return failure(messages::kNoControl, {names.empty() ? std::string() : names[0]});
    }
    if (!control->settings["enable"].toBool()) {
        return failure(messages::kControlDisabled, {names[0]});
    }
    for (const ControlKind& kind : kinds) {
        if (kind.command != control->command || *kind.reactionFlag == '\0') {
            continue;
        }
        if (*kind.valueFlag != '\0' && names.size() == 2) {
            mel::Value& held = control->settings[kind.valueFlag];
            const mel::Value entered = flags.objects[1].value.convertedTo(held.type()).value_or(held);
            if (kind.valueFlag == std::string_view("select") && !isChoice(panel, *control, entered.toInt())) {
                return failure(messages::kNoChoice, {names[0], names[1]});
            }
            held = entered;
        }
        const mel::EvalResult result = interpreter.eval(control->settings[kind.reactionFlag].toText());
        return result.ok() ? CommandResult() : CommandResult::failure(result.error->text);
    }
    return failure(messages::kNeedsObjects, {"useControl", "a control that the user can change"});
}

CommandResult fileDialog(ControlPanel& panel) {
    mel::StringArray chosen;
    if (panel.answer) {
        chosen.push_back(*std::exchange(panel.answer, std::nullopt));
    }
    return CommandResult(std::move(chosen));
}

CommandResult answerDialog(ControlPanel& panel, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (names.size() != 1) {
        return failure(messages::kNeedsObjects, {"answerFileDialog", "a path"});
    }
    panel.answer = names[0];
    return {};
}

template <typename Command>
void add(mel::CommandTable& commands, std::string name, FlagSyntax syntax, Command command) {
    (void)commands.add(std::move(name), [syntax = std::move(syntax), command = std::move(command)](
                                            Interpreter& interpreter, const mel::Invocation& invocation) {
        const FlagSyntax::Result parsed = syntax.parse(invocation);
        return parsed.error ? CommandResult::failure(*parsed.error) : command(interpreter, parsed.flags);
    });
}

} // namespace

void registerControlCommands(mel::CommandTable& commands) {
    const auto panel = std::make_shared<ControlPanel>();
    const auto menu = std::make_shared<std::string>();
    const std::vector<ControlKind> kinds = controlKinds();
    for (const ControlKind& kind : kinds) {
        add(commands, kind.command, syntaxOf(kind), [=](Interpreter&, const ParsedFlags& flags) {
            const bool makes = !flags.isEdit && !flags.isQuery && !flags.has("exists");
            if (makes && kind.command == std::string_view("menuItem")) {
                return addItem(*panel, kind, flags, *menu);
            }
            CommandResult result = run(*panel, kind, flags);
            const bool holdsItems =
                kind.command == std::string_view("optionMenuGrp") || kind.command == std::string_view("menu");
            if (holdsItems && result.ok() && result.value.isString()) {
                *menu = result.value.text();
            }
            return result;
        });
    }
    add(commands, "setParent", FlagSyntax({}, FlagSyntax::kQuery),
        [panel](Interpreter&, const ParsedFlags& flags) { return setParent(*panel, flags); });
    add(commands, "showWindow", FlagSyntax({}), [panel](Interpreter&, const ParsedFlags& flags) {
        const std::vector<std::string> names = flags.objectNames();
        const bool isThere = names.size() == 1 && panel->find(names[0]) != nullptr;
        return isThere ? CommandResult() : failure(messages::kNeedsObjects, {"showWindow", "the name of a window"});
    });
    add(commands, "deleteUI", FlagSyntax({}),
        [panel](Interpreter&, const ParsedFlags& flags) { return deleteControls(*panel, flags); });
    add(commands, "useControl", FlagSyntax({}), [panel, kinds](Interpreter& interpreter, const ParsedFlags& flags) {
        return useControl(*panel, kinds, interpreter, flags);
    });
    const std::vector<FlagArgument> text{FlagArgument::kString};
    add(commands, "fileDialog2",
        FlagSyntax({{"fm", "fileMode", {FlagArgument::kInt}},
                    {"ff", "fileFilter", text},
                    {"cap", "caption", text},
                    {"okc", "okCaption", text},
                    {"dir", "startingDirectory", text}}),
        [panel](Interpreter&, const ParsedFlags&) { return fileDialog(*panel); });
    add(commands, "answerFileDialog", FlagSyntax({}),
        [panel](Interpreter&, const ParsedFlags& flags) { return answerDialog(*panel, flags); });
}

} // namespace host
