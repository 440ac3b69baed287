#pragma once

#include "scene/AnimTrack.h"

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

using Vector3 = std::array<double, 3>;

/// What a node of the model is. The numbers index the words that the files use.
enum class NodeKind { kNull, kRoot, kMesh, kJoint, kError, kNone };

enum class Billboard { kOff, kOn, kYOn };

/// Scale factors, rotation in degrees (XYZ order), translation in scene units times `magnify`.
struct TransformSet {
    Vector3 scale{1.0, 1.0, 1.0};
    Vector3 rotate{};
    Vector3 translate{};
};

/// One polygon group that a node draws.
struct DisplayEntry {
    int32_t material = 0; // output index
    int32_t polygon = 0;  // index in the polygon array
    int32_t priority = 0; // 0 to 255; 0 means that none is asked for
    bool written = true;  // false for a group that was dropped after gathering
};

struct NodeRecord;

/// Where a node hangs in a hierarchy; null where there is nobody.
struct NodeLinks {
    NodeRecord* parent = nullptr;
    NodeRecord* child = nullptr; // the first child
    NodeRecord* brotherNext = nullptr;
    NodeRecord* brotherPrev = nullptr;
    int32_t childCount = 0;
    int32_t depth = 0; // ancestors above it
};

/// One node of the model: a transform of the scene by one of its DAG paths, or the synthetic root.
struct NodeRecord {
    int32_t index = 0;     // position in the sorted scene list; once the output list stands, position there
    int32_t listPlace = 0; // position in the sorted scene list, SceneData::nodes
    std::string name;      // unique in the list; UTF-8
    NodeKind kind = NodeKind::kNull;
    bool isJoint = false; // also of a joint that carries a mesh, whose kind is kMesh
    bool isRoot = false;  // first of the output list

    NodeLinks scene;  // the hierarchy as the artist made it
    NodeLinks output; // the hierarchy that is written

    bool hasDagNode = true; // false for the synthetic root, which has no transform of its own
    MDagPath path;          // to the transform
    MDagPath shape;         // to the kept mesh shape; not valid when kind is not kMesh
    MDagPath originalShape; // the shape before deformation, as the walk met it; often not valid

    bool skipOutput = false; // stays in the list and is not written
    bool hasFaces = false;   // some polygon with faces was made of its shape
    bool keep = false;       // node compression leaves it
    bool removed = false;    // node compression took it out of the output hierarchy
    int32_t foldedCount = 0; // nearest scene ancestors in a row whose transforms are folded into its own
    bool drawMtx = false;    // a matrix of the palette or an envelope names the node
    bool noCut = false;      // protected from node compression by its attribute
    Billboard billboard = Billboard::kOff;
    bool visibility = true; // effective at the start of the range: own test and that of every ancestor

    bool scaleCompensate = false;    // a joint below a joint that undoes its parent's scale
    bool bindPoseExempt = true;      // no deformer is driven by it: exported as it stands now
    TransformSet own;                // relative to scene.parent
    TransformSet united;             // relative to the model, for united nodes
    TransformSet written;            // relative to output.parent: own, united, or own with folded ancestors
    bool writesCompensation = false; // scaleCompensate as far as it still holds below output.parent
    bool shearTold = false;          // the warning of lost shear comes once
    Vector3 pivotOffset{};           // where the exported origin lies in the node's own space, times `magnify`
    MMatrix local;                   // own as a matrix, scale compensation included
    MMatrix exportedWorld;           // what a reader of the file computes: product of the *quantised* locals

    /// Scale x y z, rotate x y z, translate x y z.
    std::array<AnimTrack, 9> channels;
    AnimTrack visibilityTrack; // samples are 0 or 1

    // Of a mesh node, once its polygons are written.
    std::vector<DisplayEntry> displayList;
    int32_t vertexSize = 0;
    int32_t polygonSize = 0;
    int32_t triangleSize = 0;
    int32_t quadSize = 0;
    Vector3 volumeMin{};
    Vector3 volumeMax{};
    double volumeRadius = 0.0;
};

} // namespace tvk
