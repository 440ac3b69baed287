#include "RecordedScene.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tvk {
namespace {

RecordedScene readFolder(const std::filesystem::path& folder) {
    RecordedScene scene;
    scene.name = folder.filename().string();
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".ma") {
            scene.path = entry.path().generic_string();
        }
    }
    std::ifstream recorded(folder / "expected.json");
    if (recorded) {
        scene.checks = nlohmann::json::parse(recorded).at("checks").get<std::vector<nlohmann::json>>();
    }
    return scene;
}

} // namespace

std::vector<RecordedScene> recordedScenes() {
    std::vector<RecordedScene> scenes;
    for (const auto& entry : std::filesystem::directory_iterator(TVK_SCENES)) {
        RecordedScene scene = entry.is_directory() ? readFolder(entry.path()) : RecordedScene{};
        if (!scene.path.empty()) {
            scenes.push_back(std::move(scene));
        }
    }
    std::sort(scenes.begin(), scenes.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    return scenes;
}

void PrintTo(const RecordedScene& scene, std::ostream* out) {
    *out << scene.name;
}

std::string testName(const testing::TestParamInfo<RecordedScene>& parameter) {
    std::string name = parameter.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

} // namespace tvk
