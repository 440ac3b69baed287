#include "host/scene/ControlPanel.h"

#include <algorithm>
#include <utility>

namespace host {

ControlPanel::Control* ControlPanel::add(std::string command, std::string name) {
    if (find(name) != nullptr) {
        return nullptr;
    }
    controls_.push_back({std::move(command), std::move(name), currentLayout_, {}});
    return &controls_.back();
}

std::string ControlPanel::freshName(std::string_view command) const {
    for (std::size_t number = 1;; ++number) {
        const std::string name = std::string(command) + std::to_string(number);
        const auto hasIt = [&](const Control& control) { return control.name == name; };
        if (std::none_of(controls_.begin(), controls_.end(), hasIt)) {
            return name;
        }
    }
}

ControlPanel::Control* ControlPanel::find(std::string_view name) {
    for (Control& control : controls_) {
        if (control.name == name) {
            return &control;
        }
    }
    return nullptr;
}

std::vector<const ControlPanel::Control*> ControlPanel::children(std::string_view parent) const {
    std::vector<const Control*> inside;
    for (const Control& control : controls_) {
        if (control.parent == parent) {
            inside.push_back(&control);
        }
    }
    return inside;
}

// What lies in a control was made after it, so one walk finds all.
bool ControlPanel::remove(const std::string& name) {
    if (find(name) == nullptr) {
        return false;
    }
    std::vector<std::string> gone{name};
    for (const Control& control : controls_) {
        if (std::find(gone.begin(), gone.end(), control.parent) != gone.end()) {
            gone.push_back(control.name);
        }
    }
    const auto isGone = [&](const Control& control) {
        return std::find(gone.begin(), gone.end(), control.name) != gone.end();
    };
    controls_.erase(std::remove_if(controls_.begin(), controls_.end(), isGone), controls_.end());
    if (std::find(gone.begin(), gone.end(), currentLayout_) != gone.end()) {
        currentLayout_.clear();
    }
    return true;
}

} // namespace host
