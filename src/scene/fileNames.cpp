#include "scene/fileNames.h"

#include "common/shiftJis.h"
#include "platform/codePage.h"

namespace tvk {
namespace {

// Where the last '.' of the last path component stands; npos when there is none. In UTF-8 the bytes of '.', '/' and
// '\\' are always those characters.
std::string::size_type dotOfUtf8(const std::string& name) {
    const auto at = name.find_last_of("./\\");
    return at != std::string::npos && name[at] == '.' ? at : std::string::npos;
}

// Shift_JIS already, plain ASCII included.
bool isShiftJis(const std::string& name) {
    bool lossy = false;
    return toShiftJis(name, lossy) == name;
}

} // namespace

std::string baseNameOf(const std::string& name) {
    return isShiftJis(name) ? std::string(withoutExtension(name)) : name.substr(0, dotOfUtf8(name));
}

std::string extensionOf(const std::string& name) {
    if (isShiftJis(name)) {
        return std::string(fileExtension(name));
    }
    const auto dot = dotOfUtf8(name);
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string lastComponentOf(const std::string& name) {
    if (isShiftJis(name)) {
        return std::string(lastPathComponent(name));
    }
    const auto separator = name.find_last_of("/\\");
    return separator == std::string::npos ? name : name.substr(separator + 1);
}

} // namespace tvk
