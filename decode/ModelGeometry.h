#pragma once

#include "decode/ModelFile.h"

#include <ImathMatrix.h>
#include <ImathVec.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace decode {

/// One vertex as the console would draw it.
struct DrawnVertex {
    int matrix = -1;                         // in ModelGeometry::matrices
    Imath::V3d position;                     // as sent, times 2^pos_scale: in the space of the matrix
    std::optional<Imath::V3d> normal;        // as sent
    std::optional<Imath::V2d> texCoord;      // texels
    std::optional<std::array<int, 3>> color; // 0 to 31 each
    Imath::V3d world;                        // where it stands with the nodes as the file has them
    std::optional<Imath::V3d> worldNormal;   // of any length
};

/// A triangle or a quad, its corners as they wind.
using DrawnFace = std::vector<DrawnVertex>;

struct DrawnPolygon {
    int index = -1;
    std::string name;
    bool hasNormals = false, hasColors = false, hasTexCoords = false;
    Imath::V3d volumeMin, volumeMax;
    double volumeRadius = 0.0;
    int verticesSent = 0;
    int matricesLoaded = 0;
    std::vector<std::vector<int>> matrixLists; // per group the loaded matrices and -1
    std::vector<std::string> primitiveTypes;
    std::vector<DrawnFace> faces;
    int material = -1, node = -1; // by the one display line that names it; -1 when there is none
};

/// One way in which vertices follow nodes: nodes with their weights, which add up to about 1.
using DrawnMatrix = std::vector<std::pair<int, double>>;

/// The polygons of a model file, sent through a console of 31 matrix slots.
struct ModelGeometry {
    int positionScale = 0;
    std::vector<DrawnMatrix> matrices;
    std::vector<DrawnPolygon> polygons;

    /// Throws a FileError when there is none.
    const DrawnPolygon& polygon(std::string_view name) const;
    std::vector<DrawnFace> allFaces() const;
};

/// Reads them. Throws a FileError for everything that a console would show wrong: a vertex on a slot that was never
/// loaded, or whose matrix is unknown because slots were loaded since; a normal that is older than its matrix or its
/// colour; a position relative to nothing; counts, sizes and indices that do not agree with what follows; vertices that
/// are no whole number of faces; a matrix list or an envelope that leads nowhere; a polygon that no node draws, or that
/// two do.
ModelGeometry readModelGeometry(const ModelFile& file);

/// Places all vertices anew, as a console does when nodes move: those of one node with it, blends as each of their
/// nodes carries them away from where the file has it.
///   worlds   world matrices by node index, one for each node
void poseModel(const ModelFile& file, const std::vector<Imath::M44d>& worlds, ModelGeometry& model);

} // namespace decode
