#pragma once

#include "host/scene/Workspace.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Where the file of a reference may be, best place first: as it is written (backslashes as '/', $VARIABLES replaced,
/// a copy number "{1}" at the end left out); behind the root of the project for "//" in the middle; then below the
/// folder of the file that refers to it, the project and the project's folder for scenes: the path, and what is left
/// of it with its first folders taken off, down to the file's name alone. Whether anything is there is not asked.
std::vector<std::string> referencePlaces(std::string_view written, std::string_view fromFile,
                                         const Workspace& workspace);

} // namespace host
