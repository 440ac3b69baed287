#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

constexpr const char* kSystem = "linux64";
constexpr const char* kProduct = "Embedded host";

CommandResult aboutCommand(const HostFacts& facts, const ParsedFlags& flags) {
    const std::pair<const char*, mel::Value> rows[] = {
        {"version", facts.version},
        {"apiVersion", facts.apiVersion},
        {"batch", facts.isBatch},
        {"operatingSystem", kSystem},
        {"product", kProduct},
        {"linux64", true},
        {"windows", false},
        {"macOS", false},
        {"installedVersion", facts.version},
    };
    for (const auto& [flag, value] : rows) {
        if (flags.has(flag)) {
            return CommandResult(value);
        }
    }
    return failure(messages::kNeedsObjects, {"about", "a flag that says what is asked"});
}

// --- optionVar

/// A flag that sets or appends, and the type of the values.
struct StoreRow {
    const char* shortName;
    const char* longName;
    FlagArgument argument;
    bool appends;
};

constexpr StoreRow kStores[] = {
    {"iv", "intValue", FlagArgument::kInt, false},           {"fv", "floatValue", FlagArgument::kFloat, false},
    {"sv", "stringValue", FlagArgument::kString, false},     {"iva", "intValueAppend", FlagArgument::kInt, true},
    {"fva", "floatValueAppend", FlagArgument::kFloat, true}, {"sva", "stringValueAppend", FlagArgument::kString, true},
};

// An array that goes on from what is there, if that is of the same type.
void append(mel::Value& stored, const mel::Value& value) {
    const mel::ValueType arrayType = mel::arrayTypeOf(value.type());
    if (stored.type() == value.type()) {
        const mel::Value first = stored;
        stored = mel::Value::defaultOf(arrayType);
        append(stored, first);
    } else if (stored.type() != arrayType) {
        stored = mel::Value::defaultOf(arrayType);
    }
    if (value.isString()) {
        stored.editStrings().push_back(value.text());
    } else if (value.type() == mel::ValueType::kInt) {
        stored.editInts().push_back(value.toInt());
    } else {
        stored.editFloats().push_back(value.toFloat());
    }
}

void removeElement(mel::Value& stored, std::int64_t index) {
    const auto at = static_cast<std::ptrdiff_t>(index);
    if (index < 0 || static_cast<std::size_t>(index) >= stored.size()) {
        return;
    }
    switch (stored.type()) {
    case mel::ValueType::kIntArray:
        stored.editInts().erase(stored.editInts().begin() + at);
        break;
    case mel::ValueType::kFloatArray:
        stored.editFloats().erase(stored.editFloats().begin() + at);
        break;
    case mel::ValueType::kStringArray:
        stored.editStrings().erase(stored.editStrings().begin() + at);
        break;
    default:
        break;
    }
}

CommandResult optionVarQuery(const OptionVars& variables, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    const std::string name = names.empty() ? std::string() : names[0];
    const auto found = variables.find(name);
    if (flags.has("arraySize")) {
        return CommandResult(found != variables.end() && found->second.isArray() ? found->second.size() : 0);
    }
    return found == variables.end() ? CommandResult(0) : CommandResult(found->second);
}

CommandResult optionVarCommand(Scene& scene, const ParsedFlags& flags) {
    OptionVars& variables = scene.optionVars();
    if (flags.has("exists")) {
        return CommandResult(variables.count(flags.text("exists")) != 0);
    }
    if (flags.has("list")) {
        mel::StringArray names;
        for (const auto& variable : variables) {
            names.push_back(variable.first);
        }
        return CommandResult(std::move(names));
    }
    if (flags.isQuery) {
        return optionVarQuery(variables, flags);
    }
    for (const StoreRow& row : kStores) {
        for (std::size_t use = 0; use < flags.uses(row.longName); ++use) {
            mel::Value& stored = variables[flags.value(row.longName, 0, use).toText()];
            const mel::Value& value = flags.value(row.longName, 1, use);
            if (row.appends) {
                append(stored, value);
            } else {
                stored = value;
            }
        }
    }
    if (flags.has("remove")) {
        variables.erase(flags.text("remove"));
    }
    const auto array = variables.find(flags.text(flags.has("clearArray") ? "clearArray" : "removeFromArray"));
    if (array != variables.end() && array->second.isArray()) {
        if (flags.has("clearArray")) {
            array->second = mel::Value::defaultOf(array->second.type());
        } else {
            removeElement(array->second, flags.value("removeFromArray", 1).toInt());
        }
    }
    return {};
}

} // namespace

void registerHostCommands(mel::CommandTable& commands, Scene& scene, const HostFacts& facts) {
    addCommand(commands, scene, "about",
               FlagSyntax({{"v", "version"},
                           {"api", "apiVersion"},
                           {"b", "batch"},
                           {"os", "operatingSystem"},
                           {"p", "product"},
                           {"l64", "linux64"},
                           {"win", "windows"},
                           {"mac", "macOS"},
                           {"iv", "installedVersion"}}),
               [facts](Scene&, const ParsedFlags& flags) { return aboutCommand(facts, flags); });
    const std::vector<FlagArgument> name{FlagArgument::kString};
    std::vector<mel::FlagSpec> flags{
        {"ex", "exists", name},     {"l", "list"},
        {"as", "arraySize"},        {"rm", "remove", name},
        {"ca", "clearArray", name}, {"rfa", "removeFromArray", {FlagArgument::kString, FlagArgument::kInt}}};
    for (const StoreRow& row : kStores) {
        flags.push_back({row.shortName, row.longName, {FlagArgument::kString, row.argument}, true});
    }
    addCommand(commands, scene, "optionVar", FlagSyntax(std::move(flags), FlagSyntax::kQuery), optionVarCommand);
}

} // namespace host
