#include "host/api/pluginCommands.h"

#include "host/api/Host.h"
#include "host/api/pluginCalls.h"
#include "host/mel/FlagSyntax.h"

#include <maya/MPxFileTranslator.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagSyntax;
using mel::Invocation;
using mel::StringArray;
using mel::Value;

CommandResult failure(std::string text) {
    return CommandResult::failure(std::move(text));
}

CommandResult loadPlugin(Host& host, const Invocation& call) {
    static const FlagSyntax syntax(std::vector<mel::FlagSpec>{{"qt", "quiet"}});
    const FlagSyntax::Result parsed = syntax.parse(call);
    const std::vector<std::string> names = parsed.flags.objectNames();
    if (parsed.error || names.empty()) {
        return failure("loadPlugin: " + parsed.error.value_or("No plug-in was named"));
    }
    StringArray loaded;
    for (const std::string& name : names) {
        const PluginResult result = host.plugins().load(name);
        if (!result.ok()) {
            return failure("loadPlugin: " + result.error);
        }
        if (result.wasLoaded && !parsed.flags.has("qt")) {
            host.warning("Plug-in, \"" + result.name + "\", is already loaded");
        }
        loaded.push_back(result.name);
    }
    return Value(std::move(loaded));
}

CommandResult unloadPlugin(Host& host, const Invocation& call) {
    static const FlagSyntax syntax(std::vector<mel::FlagSpec>{{"f", "force"}});
    const FlagSyntax::Result parsed = syntax.parse(call);
    const std::vector<std::string> names = parsed.flags.objectNames();
    if (parsed.error || names.empty()) {
        return failure("unloadPlugin: " + parsed.error.value_or("No plug-in was named"));
    }
    for (const std::string& name : names) {
        const PluginResult result = host.plugins().unload(name);
        if (!result.ok()) {
            return failure("unloadPlugin: " + result.error);
        }
    }
    return {};
}

template <class Entries>
StringArray namesOf(const Entries& entries) {
    StringArray names;
    for (const auto& entry : entries) {
        names.push_back(entry.name);
    }
    return names;
}

StringArray loadedNames(Host& host) {
    StringArray names;
    for (const auto& plugin : host.plugins().loaded()) {
        names.push_back(plugin->name);
    }
    return names;
}

/// What a flag asks of a plug-in.
struct PluginQuestion {
    const char* flag;
    Value (*answer)(const Plugin&);
};

constexpr PluginQuestion kPluginQuestions[] = {
    {"p", [](const Plugin& plugin) { return Value(plugin.path); }},
    {"vd", [](const Plugin& plugin) { return Value(plugin.vendor); }},
    {"v", [](const Plugin& plugin) { return Value(plugin.version); }},
    {"av", [](const Plugin& plugin) { return Value(plugin.apiVersion); }},
    {"n", [](const Plugin& plugin) { return Value(plugin.name); }},
    {"c", [](const Plugin& plugin) { return Value(namesOf(plugin.commands)); }},
    {"t", [](const Plugin& plugin) { return Value(namesOf(plugin.translators)); }},
};

CommandResult pluginInfo(Host& host, const Invocation& call) {
    static const FlagSyntax syntax({{"l", "loaded"},
                                    {"p", "path"},
                                    {"vd", "vendor"},
                                    {"v", "version"},
                                    {"av", "apiVersion"},
                                    {"n", "name"},
                                    {"c", "command"},
                                    {"t", "translator"},
                                    {"ls", "listPlugins"}},
                                   FlagSyntax::kQuery);
    const FlagSyntax::Result parsed = syntax.parse(call);
    if (parsed.error || !parsed.flags.isQuery) {
        return failure("pluginInfo: " + parsed.error.value_or("Only queries are supported"));
    }
    if (parsed.flags.has("ls")) {
        return Value(loadedNames(host));
    }
    const std::vector<std::string> names = parsed.flags.objectNames();
    if (names.size() != 1) {
        return failure("pluginInfo: One plug-in must be named");
    }
    const Plugin* plugin = host.plugins().find(names.front());
    if (parsed.flags.has("l")) {
        return Value(plugin != nullptr);
    }
    if (plugin == nullptr) {
        return failure("pluginInfo: Plug-in, \"" + names.front() + "\", is not loaded");
    }
    for (const PluginQuestion& question : kPluginQuestions) {
        if (parsed.flags.has(question.flag)) {
            return question.answer(*plugin);
        }
    }
    return failure("pluginInfo: Nothing was asked");
}

/// What a flag asks of a file type: of its entry and of an object of it.
struct TranslatorQuestion {
    const char* flag;
    Value (*answer)(const TranslatorEntry&, const MPxFileTranslator&);
};

constexpr TranslatorQuestion kTranslatorQuestions[] = {
    {"ext", [](const TranslatorEntry&, const MPxFileTranslator& t) { return Value(t.defaultExtension().asChar()); }},
    {"flt", [](const TranslatorEntry&, const MPxFileTranslator& t) { return Value(t.filter().asChar()); }},
    {"rs", [](const TranslatorEntry&, const MPxFileTranslator& t) { return Value(t.haveReadMethod()); }},
    {"ws", [](const TranslatorEntry&, const MPxFileTranslator& t) { return Value(t.haveWriteMethod()); }},
    {"os", [](const TranslatorEntry& entry, const MPxFileTranslator&) { return Value(entry.optionsScript); }},
    {"do", [](const TranslatorEntry& entry, const MPxFileTranslator&) { return Value(entry.defaultOptions); }},
};

CommandResult askTranslator(Host& host, const TranslatorEntry& entry, const mel::ParsedFlags& flags) {
    CommandResult answer = failure("translator: Nothing was asked");
    const auto thrown = runPluginCode(host, *host.plugins().ownerOf(entry), [&] {
        const std::unique_ptr<MPxFileTranslator> translator(static_cast<MPxFileTranslator*>(entry.create()));
        for (const TranslatorQuestion& question : kTranslatorQuestions) {
            if (translator && flags.has(question.flag)) {
                answer = question.answer(entry, *translator);
                return;
            }
        }
    });
    return thrown ? failure("translator: " + *thrown) : answer;
}

CommandResult translator(Host& host, const Invocation& call) {
    static const FlagSyntax syntax({{"ext", "ext"},
                                    {"flt", "filter"},
                                    {"rs", "readSupport"},
                                    {"ws", "writeSupport"},
                                    {"os", "optionsScript"},
                                    {"do", "defaultOptions"},
                                    {"ld", "loaded"},
                                    {"l", "list"}},
                                   FlagSyntax::kQuery);
    const FlagSyntax::Result parsed = syntax.parse(call);
    if (parsed.error || !parsed.flags.isQuery) {
        return failure("translator: " + parsed.error.value_or("Only queries are supported"));
    }
    if (parsed.flags.has("l")) {
        StringArray names = {"mayaAscii"};
        for (const TranslatorEntry* entry : host.plugins().translators()) {
            names.push_back(entry->name);
        }
        return Value(std::move(names));
    }
    const std::vector<std::string> names = parsed.flags.objectNames();
    if (names.size() != 1) {
        return failure("translator: One file type must be named");
    }
    const TranslatorEntry* entry = host.plugins().findTranslator(names.front());
    if (parsed.flags.has("ld")) {
        return Value(entry != nullptr);
    }
    return entry == nullptr ? failure("translator: Unknown file type: " + names.front())
                            : askTranslator(host, *entry, parsed.flags);
}

struct Command {
    const char* name;
    CommandResult (*run)(Host&, const Invocation&);
};

constexpr Command kCommands[] = {
    {"loadPlugin", loadPlugin},
    {"unloadPlugin", unloadPlugin},
    {"pluginInfo", pluginInfo},
    {"translator", translator},
};

} // namespace

void registerPluginCommands(mel::CommandTable& commands, Host& host) {
    for (const Command& command : kCommands) {
        const auto run = command.run;
        const bool isNew = commands.add(
            command.name, [&host, run](mel::Interpreter&, const Invocation& call) { return run(host, call); });
        static_cast<void>(isNew); // a table that has the name already keeps its own
    }
}

} // namespace host
