#pragma once

#include "scene/OutputKind.h"

#include <array>
#include <cstdint>
#include <string>

namespace tvk {

/// What the batch command itself writes into its log, beside what the exports do.

/// One export of a batch.
struct BatchScene {
    int64_t number = 1;                                    // in the batch
    std::string inputFolder, settingsFolder, outputFolder; // as the list names them, without '/' at the end
    std::string settings;                                  // file name
    std::string scene;                                     // file name
    std::string roots;                                     // as the list has them; empty for the whole scene
    std::string base;                                      // base name of the output files
    std::array<bool, kOutputKinds.size()> outputs{};       // that the settings switch on
};

/// Where a scene's messages begin: "[2] -----".
std::string sceneRule(int64_t number);

/// The first lines of a log: who exports, where, when and from which list.
std::string batchLogHead(const std::string& listPath);

/// What comes before a scene's messages in the log.
std::string batchSceneHead(const BatchScene& scene);

/// What is said when all of so many scenes were exported.
std::string batchEnd(int64_t scenes);

} // namespace tvk
