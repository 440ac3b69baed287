#include "host/scene/NameScope.h"

#include <algorithm>
#include <cstddef>

namespace host {

std::string NameScope::nameOf(std::string_view name) const {
    if (name.substr(0, 1) == ":") {
        return std::string(name.substr(1));
    }
    const std::size_t colon = name.rfind(':');
    const std::size_t own = colon == std::string_view::npos ? 0 : colon + 1;
    return space + std::string(name.substr(0, own)) + prefix + std::string(name.substr(own));
}

std::string NameScope::pathOf(std::string_view path) const {
    std::string whole;
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t bar = std::min(path.find('|', at), path.size());
        if (bar > at) {
            const std::string name = nameOf(path.substr(at, bar - at));
            const auto given = renamed.find(name);
            whole += given == renamed.end() ? name : given->second;
        }
        whole += bar < path.size() ? "|" : "";
        at = bar + 1;
    }
    return whole;
}

} // namespace host
