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

/// Reads a batch list without exporting anything, but makes its output folders, and begins its log if `beginsLog` is
/// not 0. The number of its scenes, or -1 when a line cannot be followed, which has been told on standard error.
PLUGIN_EXPORT int tvkReadBatch(const char* list, int beginsLog);

/// What the list that was read last says of a scene, counted from 0. By `what`, paths being absolute:
///   "project", "scene", "settings"   what to open and take
///   "output"                         base path of the files
///   "roots"                          nodes to export, between commas; "" for the whole scene
///   "title", "head"                  lines that a batch has before the scene on standard error and in the log
/// and, whatever the scene:
///   "log"                            path as the list has it; "" for none
///   "end"                            the line that a batch ends with when all went well
/// Null for anything else.
PLUGIN_EXPORT const char* tvkBatchText(int scene, const char* what);

/// 1 when the last export, or some export of the last batch, was warned of; else 0.
PLUGIN_EXPORT int tvkWarningRaised();
}
