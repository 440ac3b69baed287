#pragma once

#include "scene/hostCompatibility.h"

// What a program that loads the library, as an embedded host does, may ask it directly: things that people at the
// host's windows see, and a command line cannot. None of it is needed for an export. Texts stay until the next call of
// the same function.

extern "C" {

/// The keys of the option string, each followed by ';'.
PLUGIN_EXPORT const char* tvkOptionKeys();

/// The option string of a settings file; null when there is none at that path.
PLUGIN_EXPORT const char* tvkSettingsOptions(const char* path);

/// 1 when the last export, or some export of the last batch, was warned of; else 0.
PLUGIN_EXPORT int tvkWarningRaised();
}
