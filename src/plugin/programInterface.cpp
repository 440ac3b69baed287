#include "plugin/programInterface.h"

#include "export/BatchExport.h"
#include "export/exportSettings.h"
#include "export/optionTable.h"
#include "plugin/hostCall.h"
#include "scene/Run.h"
#include "scene/messages.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace tvk {
namespace {

BatchPlan& lastPlan() {
    static BatchPlan plan;
    return plan;
}

constexpr std::array<std::pair<std::string_view, std::string BatchJob::*>, 7> kJobTexts{{
    {"project", &BatchJob::project},
    {"scene", &BatchJob::scene},
    {"settings", &BatchJob::settings},
    {"output", &BatchJob::output},
    {"roots", &BatchJob::roots},
    {"title", &BatchJob::title},
    {"head", &BatchJob::head},
}};

} // namespace
} // namespace tvk

const char* tvkOptionKeys() {
    static std::string keys;
    keys.clear();
    for (const tvk::OptionRow& row : tvk::kOptionRows) {
        keys.append(row.key).append(";");
    }
    return keys.c_str();
}

const char* tvkSettingsOptions(const char* path) {
    static std::string options;
    const MStatus status = tvk::hostCall([&] {
        MString text;
        bool outputs[6] = {};
        const MStatus read = tvk::readExportSettings(text, outputs, path);
        options = tvk::textOf(text);
        return read;
    });
    return status ? options.c_str() : nullptr;
}

int tvkReadBatch(const char* list, int beginsLog) {
    const MStatus status = tvk::hostCall([&] {
        tvk::run().resetMessages();
        tvk::lastPlan() = {};
        return tvk::BatchExport().plan(list, beginsLog != 0, tvk::lastPlan());
    });
    return status ? static_cast<int>(tvk::lastPlan().jobs.size()) : -1;
}

const char* tvkBatchText(int scene, const char* what) {
    static std::string end;
    const tvk::BatchPlan& plan = tvk::lastPlan();
    const std::string_view name = what;
    if (name == "log") {
        return plan.log.c_str();
    }
    if (name == "end") {
        end = tvk::batchEnd(static_cast<int64_t>(plan.jobs.size()));
        return end.c_str();
    }
    for (const auto& [known, text] : tvk::kJobTexts) {
        if (known == name && scene >= 0 && static_cast<std::size_t>(scene) < plan.jobs.size()) {
            return (plan.jobs[static_cast<std::size_t>(scene)].*text).c_str();
        }
    }
    return nullptr;
}

int tvkWarningRaised() {
    return tvk::warningRaised() ? 1 : 0;
}
