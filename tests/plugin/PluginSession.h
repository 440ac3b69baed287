#pragma once

#include "HostSession.h"

#include "host/api/Plugins.h"

#include <string>
#include <vector>

namespace tvk {

/// A host session that can load the exporter as users do. Unloads it at the end.
class PluginSession : public HostSession {
public:
    PluginSession() = default;
    /// Also unloads a plug-in that was refused to deregister: what it had deregistered by then is given back to it
    /// first, so that it finds everything as it left it.
    ~PluginSession();

    host::Plugins& plugins();
    /// The result of loading: "" or the host's error.
    std::string load();
    std::string unload();
    /// The loaded plug-in; null when it is not.
    host::Plugin* plugin();
    /// What it has registered: names of translators, then of commands.
    std::vector<std::string> registered();
    void refuse(const std::vector<std::string>& names) { plugins().refusedNames = names; }
    bool hasCommand(const std::string& name);

private:
    std::vector<host::TranslatorEntry> translators; // as they were after loading
    std::vector<host::CommandEntry> commands;
};

} // namespace tvk
