#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The attribute editor without its windows: which rows the templates asked for, in which layouts. It is built for one
/// node at a time.
class AttributeEditor {
public:
    /// Empties the editor for another node.
    void show(std::string nodeName);
    /// "" while it shows none.
    const std::string& nodeName() const { return nodeName_; }

    void beginLayout(const std::string& label);
    /// False when none is open.
    bool endLayout();
    bool hasOpenLayout() const { return !open_.empty(); }

    void addControl(std::string attribute);
    /// The labels of the layouts around a row and the attribute's name, with '|' between them; "" when there is no such
    /// row.
    std::string controlPath(std::string_view attribute) const;

private:
    struct Control {
        std::string attribute;
        std::string layout;
    };

    std::string nodeName_;
    std::vector<std::string> open_; // the path of each open layout, the outermost first
    std::vector<Control> controls_;
};

} // namespace host
