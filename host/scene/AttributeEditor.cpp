#include "host/scene/AttributeEditor.h"

#include <utility>

namespace host {

void AttributeEditor::show(std::string nodeName) {
    nodeName_ = std::move(nodeName);
    open_.clear();
    controls_.clear();
}

void AttributeEditor::beginLayout(const std::string& label) {
    open_.push_back(open_.empty() ? label : open_.back() + "|" + label);
}

bool AttributeEditor::endLayout() {
    if (open_.empty()) {
        return false;
    }
    open_.pop_back();
    return true;
}

void AttributeEditor::addControl(std::string attribute) {
    controls_.push_back({std::move(attribute), open_.empty() ? std::string() : open_.back()});
}

std::string AttributeEditor::controlPath(std::string_view attribute) const {
    for (const Control& control : controls_) {
        if (control.attribute == attribute) {
            return control.layout.empty() ? control.attribute : control.layout + "|" + control.attribute;
        }
    }
    return "";
}

} // namespace host
