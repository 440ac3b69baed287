#pragma once

#include "scene/NodeRecord.h"

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

using FloatVector3 = std::array<float, 3>;

/// A node that drives vertices of a shape.
struct Influence {
    NodeRecord* node = nullptr;
    MMatrix bindInverse; // undoes the node's world at binding; translation times `magnify`
};

/// One mesh instance. Matrices are the host's, translations times `magnify`.
struct ShapeRecord {
    NodeRecord* node = nullptr;
    MDagPath path;
    std::string name;
    int32_t vertexCount = 0;
    int32_t faceCount = 0;
    bool hasOriginalMesh = false; // it is deformed, and the mesh before that was found
    bool isSkinned = false;       // an effective skin, joint cluster or cluster drives its vertices
    bool isFlipped = false;       // its normals point to the other side

    MMatrix world;                     // of the mesh now
    MMatrix bindWorld;                 // of the mesh when it was bound; `world` unless skinned
    MMatrix outerWorld;                // of what lies above the exported nodes
    std::vector<Influence> influences; // of a skinned shape
    std::vector<MObject> deformers;    // that a skeleton drives, nearest first

    int32_t firstVertex = 0; // place of its first vertex in SceneData::vertexMatrices

    std::vector<Vector3> points;         // as read, times `magnify`, counted from the node's pivot
    std::vector<Vector3> boundingPoints; // in the node's own frame; in the model's for united nodes
    std::vector<Vector3> outputPoints;   // in the frame of the matrix that the vertex is on
    std::vector<int32_t> positions;      // of each vertex in the model's table, once that is filled

    std::vector<FloatVector3> normals;           // with deformers working
    std::vector<FloatVector3> undeformedNormals; // without; empty when there is no difference
    std::string uvSet = "map1";

    std::vector<int32_t> polygons; // in SceneData::polygons

    bool isDeformed() const { return !deformers.empty(); }

    /// The normals of the pose that is exported.
    const std::vector<FloatVector3>& exportedNormals() const {
        return undeformedNormals.empty() ? normals : undeformedNormals;
    }
};

} // namespace tvk
