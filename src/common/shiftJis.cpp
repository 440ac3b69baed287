#include "common/shiftJis.h"

#include <cstddef>

namespace tvk {

namespace {

bool isSeparator(std::string_view name, size_t at) {
    if (name[at] == '/')
        return true;
    if (name[at] != '\\')
        return false;
    return at == 0 || !isShiftJisLead(static_cast<unsigned char>(name[at - 1]));
}

size_t lastComponentStart(std::string_view name) {
    size_t start = name.size();
    while (start > 0 && !isSeparator(name, start - 1))
        --start;
    return start;
}

// Position of the '.' before the extension, or npos. '.' is below every second byte, so it is always itself.
size_t extensionDot(std::string_view name) {
    const size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot < lastComponentStart(name) ? std::string_view::npos : dot;
}

} // namespace

std::string_view fileExtension(std::string_view name) {
    const size_t dot = extensionDot(name);
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

std::string_view withoutExtension(std::string_view name) {
    return name.substr(0, extensionDot(name));
}

std::string_view lastPathComponent(std::string_view name) {
    return name.substr(lastComponentStart(name));
}

} // namespace tvk
