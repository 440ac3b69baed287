#pragma once

#include "host/mel/CommandTable.h"

namespace host {

class Host;

/// Adds loadPlugin, unloadPlugin, pluginInfo and translator.
///
///   loadPlugin [-quiet] NAME…   names of what is loaded now; a plug-in that was loaded already gives a warning
///   unloadPlugin [-force] NAME…
///   pluginInfo -q -loaded|-path|-vendor|-version|-apiVersion|-name|-command|-translator NAME, pluginInfo -q
///              -listPlugins
///   translator -q -list, translator -q -ext|-optionsScript|-defaultOptions|-readSupport|-writeSupport|-loaded|-filter
///              TYPE
void registerPluginCommands(mel::CommandTable& commands, Host& host);

} // namespace host
