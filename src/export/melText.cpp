#include "export/melText.h"

#include "scene/hostCompatibility.h"

#include <maya/MGlobal.h>

namespace tvk {

std::string melQuoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '\\' || c == '"') {
            quoted += '\\';
        }
        quoted += c;
    }
    return quoted + '"';
}

bool runsInHost(const std::string& mel) {
    return static_cast<bool>(MGlobal::executeCommand(hostText(mel)));
}

} // namespace tvk
