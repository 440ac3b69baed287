#pragma once

#include <array>
#include <string>
#include <vector>

namespace tvk {

// Texts of scenes with meshes and what deforms and shades them, as the host's own files have them (see sceneText.h).

/// A mesh shape. What is left empty the mesh does not have.
struct MeshSpec {
    std::vector<std::array<double, 3>> points;
    std::vector<std::vector<int>> faces; // vertices, as they wind
    std::vector<std::vector<int>> holes; // per face one loop, empty for none
    std::vector<std::array<double, 2>> uvs;
    std::vector<std::vector<int>> faceUvs; // per face numbers of uvs, empty for a face without
    std::string uvSet = "map1";
    std::vector<std::array<double, 4>> colors;
    std::vector<std::vector<int>> faceColors; // per face numbers of colors, -1 for none; empty for a face without
    bool hard = true;                         // edges
    std::string attributes;                   // lines such as `setAttr ".op" yes;`
};

/// A unit square in the xy plane whose face points to +z; corners (0,0) (1,0) (1,1) (0,1) in this order.
MeshSpec square();
/// A row of unit squares along x: vertices 2i and 2i + 1 are (i, 0) and (i, 1).
MeshSpec row(int squares);
/// The texture coordinates of a mesh's points, u = x and v = y, on all its faces.
MeshSpec withUvs(MeshSpec mesh);

std::string meshShape(const std::string& name, const std::string& parent, const MeshSpec& mesh);

/// A transform NAME with the shape NAMEShape, which belongs to `shadingGroup` as a whole; to none when that is empty.
std::string meshNode(const std::string& name, const MeshSpec& mesh, const std::string& attributes = "",
                     const std::string& shadingGroup = "initialShadingGroup");

/// The whole shape, and some of its faces ("f[0:2]"), to a shading group. `slot` tells groups of faces apart.
std::string shadeWhole(const std::string& shape, const std::string& shadingGroup);
std::string shadeFaces(const std::string& shape, const std::string& shadingGroup, int slot, const std::string& faces);

/// 16 numbers of a matrix that moves.
std::string movedMatrix(double x, double y, double z);

/// A mesh NAME/NAMEShape with the original NAMEShapeOrig, between which deformers are to be put: connect
/// NAMEShapeOrig.w to the first and the last to NAMEShape.i.
std::string deformedNode(const std::string& name, const MeshSpec& mesh, const std::string& attributes = "");

/// One vertex's weights by influence.
using WeightRow = std::vector<double>;

/// A skin cluster of a deformedNode. Influence i is connected at index i, with the inverse of its world at binding.
struct SkinSpec {
    std::string name = "skin";
    std::string from = "bodyShapeOrig.w"; // plugs of nodes that stand already; empty: not connected
    std::string to = "bodyShape.i";
    std::vector<std::string> influences;
    std::vector<std::string> bindInverses; // movedMatrix each; identity when missing
    std::vector<WeightRow> weights;
    std::string attributes;
};
std::string skinText(const SkinSpec& skin);

/// A deformer of one geometry between two plugs.
std::string deformerText(const std::string& type, const std::string& name, const std::string& from,
                         const std::string& to, const std::string& attributes = "");
/// The set of a deformer: vertices ("vtx[0:3]") of a shape.
std::string deformerSet(const std::string& deformer, const std::string& shape, int slot, const std::string& vertices);

} // namespace tvk
