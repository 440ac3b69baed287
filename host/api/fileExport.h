#pragma once

#include "host/scene/Scene.h"

#include <string>

namespace host {

class Host;

/// Writes a file through a translator, as `file -exportAll` and `-exportSelected` ask for it: see Scene::exportHandler.
/// A type that is not named is found by the extension of the path. Errors begin with the subject, without "Error:".
ExportOutcome exportFile(Host& host, const ExportRequest& request);

/// The absolute path that is written for a path that was asked for: the extension is appended unless the name ends in
/// it already.
std::string exportPath(const std::string& path, const std::string& extension, bool defaultExtensions);

} // namespace host
