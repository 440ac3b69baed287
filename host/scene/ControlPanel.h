#pragma once

#include "host/mel/Value.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// The controls and layouts of dialogs without their windows: objects with a name, a place and settings. Scripts make,
/// edit and query them; whoever plays the user sets their values.
class ControlPanel {
public:
    struct Control {
        std::string command; // that made it: "checkBoxGrp"
        std::string name;
        std::string parent;                                      // the layout or menu that it lies in; "" at the top
        std::map<std::string, mel::Value, std::less<>> settings; // by long flag name
    };

    /// Null when the name is taken. It lies in the current layout.
    Control* add(std::string command, std::string name);
    /// A name that is not taken: "button3".
    std::string freshName(std::string_view command) const;
    /// Null when there is none.
    Control* find(std::string_view name);
    /// The controls that lie in one, in the order of their making.
    std::vector<const Control*> children(std::string_view parent) const;
    /// Removes a control and all that lies in it. False when there is none.
    bool remove(const std::string& name);

    const std::string& currentLayout() const { return currentLayout_; }
    void setCurrentLayout(std::string name) { currentLayout_ = std::move(name); }

    /// The path that the next file dialog is closed with; nothing when the user cancels it, which is the rule.
    std::optional<std::string> answer;

private:
    std::vector<Control> controls_;
    std::string currentLayout_;
};

} // namespace host
