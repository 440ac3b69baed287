#pragma once

#include <maya/MObject.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace host {

/// One node of a DAG path and the way that leads down to it. A path that was made by stepping down from another shares
/// that one's links: holding the paths to all nodes of a scene takes one link per node, however deep it is.
struct PathLink {
    PathLink(const MObject& end, std::shared_ptr<const PathLink> way);
    ~PathLink();
    PathLink(const PathLink&) = delete;
    PathLink& operator=(const PathLink&) = delete;

    MObject node;
    mutable std::shared_ptr<const PathLink> above; // null for a top node; a link that nobody holds loses it
    std::size_t length = 1;                        // nodes of the path that ends here
    mutable std::uint64_t foundWhole = 0; // Graph::lossOfParents when this was last seen to be a way; 0 for never
};

/// Whether both name the same nodes in the same order.
bool isSameWay(const PathLink* a, const PathLink* b);

/// Whether all nodes of a way are there and each is still a child of the one above it.
bool isWhole(const PathLink& end);

} // namespace host
