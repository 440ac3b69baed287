#include "export/batchHeadings.h"

#include "common/numberText.h"
#include "export/batchMessages.h"
#include "platform/userEnvironment.h"

namespace tvk {
namespace {

std::string entry(const char* word, const std::string& value) {
    return std::string("# ") + word + ": " + value + "\n";
}

std::string outputNames(const BatchScene& scene) {
    std::string names;
    for (const OutputKindRow& row : kOutputKinds) {
        if (scene.outputs.at(static_cast<std::size_t>(row.kind))) {
            names += names.empty() ? "" : "  ";
            names.append(scene.base).append(".").append(row.extension);
        }
    }
    return names;
}

} // namespace

std::string sceneRule(int64_t number) {
    return "[" + integerText(number).str() + "] --------------------------------------------------\n";
}

std::string batchLogHead(const std::string& listPath) {
    return "# Log of TVK_Batch_Export\n" + entry("user", userName()) + entry("host", hostName()) +
           entry("date", localTimeText(localTime())) + entry("z3be", listPath) + "\n";
}

std::string batchSceneHead(const BatchScene& scene) {
    const std::string roots = scene.roots.empty() ? "" : " (root: " + scene.roots + ")";
    return sceneRule(scene.number) + entry("input_folder", scene.inputFolder) +
           entry("z3es_folder", scene.settingsFolder) + entry("z3es", scene.settings) +
           entry("scene", scene.scene + roots) + entry("output_folder", scene.outputFolder) +
           entry("output", outputNames(scene)) + "\n";
}

std::string batchEnd(int64_t scenes) {
    return std::string(kBatchFinished).append(integerText(scenes).view()) + (scenes == 1 ? " scene.\n" : " scenes.\n");
}

} // namespace tvk
