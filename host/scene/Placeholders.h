#pragma once

#include "host/scene/StatementContext.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// A node or plug as an edit of a reference names it, as it is called now: when nothing has its path, because edits
/// moved it or something above it, its own name counts.
std::string placedName(const Scene& scene, const std::string& name);

/// The connections between a file and what it refers to. While a reference may be missing, the file connects its own
/// plugs to places on the reference node, and edits tell which plug of the reference each place stands for.
class Placeholders {
public:
    explicit Placeholders(StatementContext& context) : context_(context) {}

    /// An edit that connects, without its numbers: the reference node, then a plug and its placeholder, or two plugs
    /// and their placeholders, then what the edit says besides: three texts or more.
    Outcome connect(const std::vector<std::string>& texts);
    /// Connects what the file has connected to placeholders.
    void replace();

private:
    struct Place {
        Plug holder, real;
    };
    using Key = std::pair<const Node*, PlugAddress>;

    Outcome connectBoth(const std::vector<std::string>& texts);
    Plug realOf(const Plug& plug) const;
    Outcome join(const Plug& source, Plug destination);

    StatementContext& context_;
    std::vector<Place> places_;
    std::map<Key, Plug> reals_;
};

} // namespace host
