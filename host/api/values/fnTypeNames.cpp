#include "host/api/values/fnTypeNames.h"

#include <unordered_map>

namespace host::api {

const std::vector<std::pair<MFn::Type, const char*>>& fnTypeNames() {
    static const std::vector<std::pair<MFn::Type, const char*>> names = {
// The list names its macro itself. NOLINTNEXTLINE(readability-identifier-naming,bugprone-macro-parentheses)
#define HOST_FN_TYPE(name, code) {MFn::name, #name},
#include <maya/detail/fnTypes.inc>
#undef HOST_FN_TYPE
    };
    return names;
}

const char* fnTypeName(MFn::Type type) {
    static const std::unordered_map<int, const char*> byType(fnTypeNames().begin(), fnTypeNames().end());
    const auto found = byType.find(type);
    return found == byType.end() ? "kInvalid" : found->second;
}

} // namespace host::api
