#pragma once

#include "host/api/FeedbackLine.h"
#include "host/api/Plugins.h"
#include "host/api/values/UiUnits.h"
#include "host/graph/Units.h"
#include "host/mel/Interpreter.h"
#include "host/scene/Scene.h"

#include <maya/MPxFileTranslator.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace host {

/// Receivers of what the host and its plug-ins say; an empty one drops it. Lines come bare, without "Warning:",
/// "Error:" or a line end; `print` gets the very bytes that MEL prints.
struct Messages {
    std::function<void(const std::string&)> info, warning, error, print;
};

/// How MEL and plug-ins see the program that runs the host.
inline constexpr const char* kHostVersion = "2020-embedded";

/// The one owner of the running host: scene, MEL, plug-ins, messages. Everything behind the API classes is reached
/// through it, from the thread that uses it; nothing else of the host is global.
class Host {
public:
    /// Made at the first call, with an empty scene, all native commands, and messages that go nowhere.
    static Host& instance();

    Scene& scene() { return *scene_; }
    Graph& graph() { return scene_->graph(); }
    mel::Interpreter& interpreter() { return *interpreter_; }
    Plugins& plugins() { return *plugins_; }
    FeedbackLine& feedbackLine() { return feedbackLine_; }
    Messages& messages() { return messages_; }

    void info(const std::string& text) const;
    void warning(const std::string& text) const;
    void error(const std::string& text) const;

    /// Runs MEL; a failure is shown as an error as well.
    mel::EvalResult execute(std::string_view script, std::string_view sourceName = {});

    // --- units. The API has its own copy of how the user counts (MTime::uiUnit …); a plug-in may change it there, a
    // script in the scene. The copy is renewed when code of a plug-in begins to run and after each script, and brought
    // into the scene before one.
    void showUnits();
    void takeUnits();

    // --- time. Plugs may be evaluated at another time than the current one (MDGContext); the current time is the
    // user's.
    Ticks currentTime() const { return normalTime_.value_or(scene_->graph().time()); }
    void setCurrentTime(Ticks time);
    /// Time at which plugs are evaluated instead of the current one; none in the normal context.
    std::optional<Ticks> contextTime() const {
        return normalTime_ ? std::optional(scene_->graph().time()) : std::nullopt;
    }
    void setContextTime(std::optional<Ticks> time);

    // --- what runs now
    /// Results of the plug-in command that runs; null when none does. Calls nest.
    mel::Value* commandResult = nullptr;
    /// How the translator that runs uses its file, and the file it writes ("" when none runs).
    MPxFileTranslator::FileAccessMode fileAccessMode = MPxFileTranslator::kUnknownAccessMode;
    std::string exportPath;

private:
    Host();
    ~Host();

    void connect();

    Messages messages_;
    FeedbackLine feedbackLine_;
    std::unique_ptr<Scene> scene_;
    std::unique_ptr<mel::Interpreter> interpreter_;
    std::unique_ptr<Plugins> plugins_;
    api::UiUnits shownUnits_;
    std::optional<Ticks> normalTime_; // the current time while a context holds another one
};

} // namespace host
