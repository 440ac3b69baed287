#include "host/api/Host.h"

#include "host/api/fileExport.h"
#include "host/api/filePaths.h"
#include "host/api/pluginCommands.h"
#include "host/api/uiUnitNames.h"
#include "host/scene/sceneCommands.h"

namespace host {

Host& Host::instance() {
    static Host host;
    return host;
}

Host::Host()
    : scene_(std::make_unique<Scene>()), interpreter_(std::make_unique<mel::Interpreter>()),
      plugins_(std::make_unique<Plugins>(*this)) {
    connect();
    showUnits();
}

Host::~Host() = default;

void Host::connect() {
    registerSceneCommands(interpreter_->commands(), *scene_);
    registerPluginCommands(interpreter_->commands(), *this);
    scene_->onWarning = [this](const std::string& text) { warning(text); };
    scene_->exportHandler = [this](const ExportRequest& request) { return exportFile(*this, request); };
    interpreter_->setScriptLoader(mel::folderScriptLoader([] { return searchPath("MAYA_SCRIPT_PATH"); }));
    mel::MessageSinks& sinks = interpreter_->sinks();
    sinks.info = [this](const std::string& text) { info(text); };
    sinks.warning = [this](const std::string& text) { warning(text); };
    sinks.error = [this](const std::string& text) { error(text); };
    sinks.print = [this](const std::string& text) {
        if (messages_.print) {
            messages_.print(text);
        }
    };
}

void Host::info(const std::string& text) const {
    if (messages_.info) {
        messages_.info(text);
    }
}

void Host::warning(const std::string& text) const {
    if (messages_.warning) {
        messages_.warning(text);
    }
}

void Host::error(const std::string& text) const {
    if (messages_.error) {
        messages_.error(text);
    }
}

mel::EvalResult Host::execute(std::string_view script, std::string_view sourceName) {
    takeUnits();
    mel::EvalResult result = interpreter_->eval(script, sourceName);
    showUnits();
    if (!result.ok()) {
        error(sourceName.empty() ? result.error->text : result.error->describe());
    }
    return result;
}

void Host::showUnits() {
    shownUnits_ = uiUnitsOf(scene_->units());
    api::uiUnits() = shownUnits_;
}

void Host::takeUnits() {
    if (!sameUnits(api::uiUnits(), shownUnits_)) {
        scene_->setUnits(unitsOf(api::uiUnits()));
        shownUnits_ = api::uiUnits();
    }
}

void Host::setCurrentTime(Ticks time) {
    if (normalTime_) {
        normalTime_ = time;
    } else {
        graph().setTime(time);
    }
}

void Host::setContextTime(std::optional<Ticks> time) {
    const Ticks normal = currentTime();
    if (time) {
        normalTime_ = normal;
        graph().setTime(*time);
    } else if (normalTime_) {
        normalTime_.reset();
        graph().setTime(normal);
    }
}

} // namespace host
