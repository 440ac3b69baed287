#include "host/app/prepareHost.h"

#include "host/api/melText.h"
#include "host/app/exporterPlugin.h"
#include "host/mel/environment.h"

#include <filesystem>
#include <system_error>

namespace host::app {

namespace fs = std::filesystem;

namespace {

/// "" when it can be opened, as far as that shows from outside.
std::string checkScene(const std::string& scene) {
    std::error_code error;
    const fs::path path = fs::u8path(scene);
    if (!fs::exists(path, error)) {
        return "the scene does not exist: " + scene;
    }
    if (fs::is_directory(path, error)) {
        return "the scene is a folder: " + scene;
    }
    return path.extension() == ".mb" ? "only Maya ASCII scenes (.ma) can be read: " + scene : "";
}

// Scenes name their images from the project on. Nobody sets a project on a build farm, so it is the nearest folder
// around the scene that says it is one; what the user set wins.
void openProjectOf(Host& host, const fs::path& scene) {
    if (environmentValue("MAYA_PROJECT")) {
        return;
    }
    std::error_code ignored;
    fs::path folder = scene.parent_path();
    while (!fs::is_regular_file(folder / "workspace.mel", ignored)) {
        if (folder == folder.parent_path()) {
            return;
        }
        folder = folder.parent_path();
    }
    (void)host.scene().workspace().open(folder.generic_u8string());
}

bool openProject(Host& host, Console& console, const std::string& project) {
    std::error_code error;
    const fs::path folder = fs::absolute(fs::u8path(project), error);
    if (!fs::is_directory(folder, error)) {
        console.error("the project is no folder: " + project);
        return false;
    }
    return runMel(host, console, "workspace -o " + melString(folder.generic_u8string())).has_value();
}

} // namespace

std::optional<mel::Value> runMel(Host& host, Console& console, const std::string& script) {
    const std::size_t errorsBefore = console.errors();
    const mel::EvalResult result = host.interpreter().eval(script);
    if (result.ok()) {
        return result.value;
    }
    if (console.errors() == errorsBefore) {
        console.error(result.error->text);
    }
    return std::nullopt;
}

bool loadExporter(Host& host, Console& console, const CommandLine& commandLine) {
    const std::string exporter = findExporter(commandLine.plugin);
    // Scripts need not export anything.
    const bool isNeeded = !exporter.empty() || !commandLine.runsScripts();
    const std::string problem = isNeeded ? loadExporter(host, exporter) : "";
    if (!problem.empty()) {
        console.error(problem);
    }
    return problem.empty();
}

bool openScene(Host& host, Console& console, const CommandLine& commandLine) {
    const std::string& scene = commandLine.scene;
    if (scene.empty()) {
        return true;
    }
    if (const std::string problem = checkScene(scene); !problem.empty()) {
        console.error(problem);
        return false;
    }
    std::error_code error;
    const fs::path path = fs::absolute(fs::u8path(scene), error);
    if (commandLine.project.empty()) {
        openProjectOf(host, path.lexically_normal());
    } else if (!openProject(host, console, commandLine.project)) {
        return false;
    }
    return runMel(host, console, "file -f -o " + melString(path.generic_u8string())).has_value();
}

bool selectNodes(Host& host, Console& console, const std::vector<std::string>& nodes) {
    if (!runMel(host, console, "select -cl")) {
        return false;
    }
    for (const std::string& node : nodes) {
        if (!runMel(host, console, "select -add " + melString(node))) {
            return false;
        }
    }
    return true;
}

} // namespace host::app
