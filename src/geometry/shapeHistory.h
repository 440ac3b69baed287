#pragma once

#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <cstdint>
#include <vector>

namespace tvk {

/// Deformers that a skeleton drives. Modelling deformers (lattices, blend shapes, tweaks …) go on shaping the mesh that
/// is exported and are none of these.
enum class DeformerKind : uint8_t { kSkinCluster, kJointCluster, kCluster, kJointLattice, kBoneLattice };

struct Deformer {
    MObject node;
    DeformerKind kind = DeformerKind::kSkinCluster;
    uint32_t geometry = 0; // by which of its geometries the shape comes
};

/// What a shape is made from.
struct ShapeHistory {
    std::vector<Deformer> deformers; // nearest to the shape first
    MObject origin;                  // where the chain begins; null when the shape has no history
};

/// Follows the geometry upstream from a shape, through deformers by the geometry that the shape comes by, until a node
/// that has no input geometry or no connection to it. Ends on cyclic graphs.
ShapeHistory findShapeHistory(const MDagPath& shape);

/// The mesh that is deformed: the chain's beginning when that is a mesh, else the shape that the scene keeps as the
/// original; null when there is neither, and for a shape that nothing deforms.
///   recorded   as NodeRecord::originalShape
MObject findOriginalMesh(const ShapeHistory& history, const MDagPath& recorded);

/// Neither switched off by its state nor by an envelope of 0.
bool isDeformerEffective(const MObject& deformer);

} // namespace tvk
