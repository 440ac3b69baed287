#include "host/mel/builtins.h"

#include <array>

namespace host::mel {

namespace {

// Scripts write folders with '/' on every system.
std::string lastComponent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The file's name, without the given ending if it has it.
Value runBasename(BuiltinCall& call) {
    std::string name = lastComponent(call.text(0));
    const std::string ending = call.text(1);
    if (name.size() >= ending.size() && name.compare(name.size() - ending.size(), ending.size(), ending) == 0) {
        name.resize(name.size() - ending.size());
    }
    return name;
}

Value runBasenameEx(BuiltinCall& call) {
    const std::string name = lastComponent(call.text(0));
    return name.substr(0, name.rfind('.'));
}

// The folder without its last '/'; "" for a bare name.
Value runDirname(BuiltinCall& call) {
    const std::string path = call.text(0);
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

Value runFileExtension(BuiltinCall& call) {
    const std::string name = lastComponent(call.text(0));
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

constexpr std::array<Builtin, 4> kRows = {{
    {"basename", 2, 2, runBasename},
    {"basenameEx", 1, 1, runBasenameEx},
    {"dirname", 1, 1, runDirname},
    {"fileExtension", 1, 1, runFileExtension},
}};

} // namespace

BuiltinFamily pathFunctions() {
    return {kRows.data(), kRows.size()};
}

} // namespace host::mel
