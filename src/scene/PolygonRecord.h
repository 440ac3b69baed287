#pragma once

#include "scene/Corner.h"
#include "scene/ModelTables.h"
#include "scene/NodeRecord.h"

#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

/// A face-vertex as it was read.
struct CornerSource {
    int32_t vertex = 0;       // of the shape
    int32_t normal = -1;      // in the shape's normals; -1 when the polygon needs none
    FixedTexCoord texCoord{}; // meaningless when the polygon has none
    ColorWord color = 0;      // black where the mesh has none
};

/// The faces that a polygon has from one shape, until the tables are filled.
struct PolygonPart {
    int32_t shape = 0;                 // in SceneData::shapes; its node is the node of these faces
    std::vector<int32_t> faceSizes;    // corners per face
    std::vector<CornerSource> corners; // of all faces, as the mesh winds
};

/// The faces of one shape instance and shading group: what the file calls a polygon.
struct PolygonRecord {
    MDagPath shape;
    MObject shadingGroup;
    std::string name;           // the shape's
    NodeRecord* node = nullptr; // that draws it
    int32_t nodeIndex = -1;     // its output index, once the output list stands
    bool dropped = false;       // merged into another, or without any face that can be drawn: no writer sees it

    int32_t material = 0;       // in SceneData::materials
    int32_t textureSource = -1; // in SceneData::textureSources; -1 when untextured
    int32_t renderPriority = 0;
    bool nrmFlag = false;
    bool clrFlag = false;
    bool texFlag = false;
    bool resetNormalAfterTexture = false; // the console makes texture coordinates from the normal that follows them

    int64_t triangleCount = 0; // of all faces as read, a face of n corners counting n - 2; for progress

    /// What was read: one part, several once polygons are combined, none once the tables are filled.
    std::vector<PolygonPart> parts;

    // Once the tables are filled, all divided by 2^SceneData::positionScale. Of the corners' bounding points; 0 without
    // corners. The radius is the largest distance from the middle of the box.
    FaceList faces; // with indices into SceneData::tables and ::matrices
    Vector3 volumeMin{};
    Vector3 volumeMax{};
    double volumeRadius = 0.0;
};

} // namespace tvk
