#pragma once

#include "host/geometry/MeshTopology.h"

#include <cstdint>
#include <vector>

namespace host {

/// Per face, the shell that it belongs to: faces that are connected by edges are of one shell. Shells are numbered by
/// their lowest face.
std::vector<std::int32_t> shellsOfFaces(const MeshTopology& topology);

/// How faces that are wound unlike are made alike.
enum class WindingRule {
    kAsChosen,     // like the chosen face that is reached first from them
    kAsMost,       // like most faces of the shell
    kUnlikeChosen, // chosen faces turn round, then all like them
};

/// Per face, whether it must turn round so that all faces of its shell are wound alike; only shells with a chosen face.
/// Faces follow each other across edges where two meet.
std::vector<bool> facesToReverse(const MeshTopology& topology, const std::vector<bool>& chosen, WindingRule rule);

} // namespace host
