#pragma once

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <iosfwd>
#include <string>
#include <vector>

namespace tvk {

/// A scene that the real host wrote, with values that it evaluated for it.
struct RecordedScene {
    std::string name; // of its folder
    std::string path;
    std::vector<nlohmann::json> checks; // empty when nothing is recorded
};

/// How GoogleTest shows one.
void PrintTo(const RecordedScene& scene, std::ostream* out);

/// All scenes of the corpus, by name.
std::vector<RecordedScene> recordedScenes();

/// The scene's name as GoogleTest allows it.
std::string testName(const testing::TestParamInfo<RecordedScene>& parameter);

} // namespace tvk
