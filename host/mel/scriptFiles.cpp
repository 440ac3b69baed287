#include "host/mel/Interpreter.h"

#include "host/mel/filePath.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace host::mel {

namespace {

std::optional<ScriptFile> readScript(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return std::nullopt;
    }
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream) {
        return std::nullopt;
    }
    return ScriptFile{path.generic_u8string(), text.str()};
}

std::optional<ScriptFile> readScriptOrMel(const std::filesystem::path& path) {
    std::optional<ScriptFile> script = readScript(path);
    if (!script.has_value()) {
        std::filesystem::path withEnding = path;
        withEnding += ".mel";
        script = readScript(withEnding);
    }
    return script;
}

} // namespace

ScriptLoader folderScriptLoader(std::function<std::vector<std::string>()> folders) {
    return [folders = std::move(folders)](const std::string& name) -> std::optional<ScriptFile> {
        if (name.empty() || name.find('\0') != std::string::npos) {
            return std::nullopt;
        }
        const std::filesystem::path path = filePath(name);
        if (path.has_parent_path()) {
            std::optional<ScriptFile> script = readScriptOrMel(path);
            if (script.has_value() || path.is_absolute()) {
                return script;
            }
        }
        for (const std::string& folder : folders()) {
            std::optional<ScriptFile> script = readScriptOrMel(filePath(folder) / path);
            if (script.has_value()) {
                return script;
            }
        }
        return std::nullopt;
    };
}

} // namespace host::mel
