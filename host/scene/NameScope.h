#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace host {

/// What the names of a file, or of commands behind `namespace -set`, become in the scene.
struct NameScope {
    std::string fileSpace;    // "" or "a:b:": the namespace that a file as a whole is read into
    std::string space;        // the current namespace: fileSpace, or one below it
    std::string prefix;       // "" or "Old_": goes before the name behind the namespaces
    bool isReference = false; // nodes that are made come from a file that the scene refers to
    /// Names as they would be, had another file's node not borne them before, and those that were given instead.
    std::unordered_map<std::string, std::string> renamed;

    /// Whether names are taken as they are written.
    bool isPlain() const { return space.empty() && prefix.empty() && renamed.empty(); }
    /// "a" as "space:prefix_a"; ":a" is "a".
    std::string nameOf(std::string_view name) const;
    /// The same for each part between the '|' of a path, with the names that were given instead.
    std::string pathOf(std::string_view path) const;
};

} // namespace host
