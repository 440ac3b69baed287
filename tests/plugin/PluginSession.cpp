#include "PluginSession.h"

#include "host/api/Host.h"

namespace tvk {

PluginSession::~PluginSession() {
    refuse({});
    if (plugin() == nullptr) {
        return;
    }
    for (const host::TranslatorEntry& entry : translators) {
        plugins().registerTranslator(*plugin(), entry);
    }
    for (const host::CommandEntry& entry : commands) {
        plugins().registerCommand(*plugin(), entry);
    }
    (void)unload();
}

host::Plugins& PluginSession::plugins() {
    return host::Host::instance().plugins();
}

std::string PluginSession::load() {
    std::string error = plugins().load(TVK_PLUGIN).error;
    if (const host::Plugin* const loaded = plugin()) {
        translators = loaded->translators;
        commands = loaded->commands;
    }
    return error;
}

std::string PluginSession::unload() {
    return plugins().unload(TVK_PLUGIN).error;
}

host::Plugin* PluginSession::plugin() {
    return plugins().find(TVK_PLUGIN);
}

std::vector<std::string> PluginSession::registered() {
    std::vector<std::string> names;
    if (const host::Plugin* const loaded = plugin()) {
        for (const host::TranslatorEntry& translator : loaded->translators) {
            names.push_back(translator.name);
        }
        for (const host::CommandEntry& command : loaded->commands) {
            names.push_back(command.name);
        }
    }
    return names;
}

bool PluginSession::hasCommand(const std::string& name) {
    return mel("whatIs \"" + name + "\"") != "Unknown";
}

} // namespace tvk
