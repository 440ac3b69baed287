#pragma once

#include "geometry/shapeHistory.h"

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>

#include <string>
#include <vector>

namespace tvk {

/// Whose work binds the vertices of a shape to nodes.
struct SkinSource {
    bool exists = false;
    bool isEffective = false;
    DeformerKind kind = DeformerKind::kSkinCluster; // or kJointCluster, kCluster
    /// The skin cluster, or all clusters of that kind that have an effect, nearest to the shape first.
    std::vector<Deformer> deformers;
    MObject nearest;               // also when it has no effect
    std::vector<MObject> noEffect; // others of that kind
    std::vector<MObject> ignored;  // effective ones of the three kinds that the nearest hides
};

/// Takes the nearest of the three kinds. It decides the kind and, by itself, whether the shape is skinned at all.
SkinSource findSkinSource(const ShapeHistory& history);

/// A node that drives vertices, in the host's units.
struct InfluenceObject {
    MDagPath path;       // not valid when nothing drives the cluster
    MMatrix bindInverse; // "bindPreMatrix"
    std::string subject; // names it in messages
};

/// The influences of a skin: of a skin cluster in its own order, with and without weight; of clusters one each.
std::vector<InfluenceObject> findInfluenceObjects(const SkinSource& source);

/// The shape's world matrix at binding, in the host's units, as the deformer has it; false when it has none that could
/// be undone.
bool readBindWorld(const SkinSource& source, MMatrix& world);

} // namespace tvk
