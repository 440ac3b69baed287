#pragma once

#include "host/app/verify/SceneFaces.h"

#include "decode/ModelGeometry.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace host::app::verify {

// What a model draws, held against the faces of the scene.

/// What a polygon's material says.
struct DrawnMaterial {
    std::string name;
    std::optional<Imath::V2d> textureSize; // of the picture's file
};

/// The materials of a model file, in its order.
std::vector<DrawnMaterial> drawnMaterials(const decode::ModelFile& file);

struct FaceTolerance {
    double position = 1.0 / 2048;
    double normal = 0.01; // between ends of unit vectors
    bool compareMaterials = true;
    double texel = 0.032; // half a sixteenth, and what single precision has of a coordinate far out
    /// When given, a vertex must fit the corner by this too.
    std::function<bool(const decode::DrawnPolygon&, const decode::DrawnVertex&, const SceneCorner&)> fits = {};
    /// When given, this tells whether a material of that name may be the face's, instead of its shader's name.
    std::function<bool(const std::string&, const SceneFace&)> isMaterialOf = {};
};

/// Largest errors of what was found.
struct FaceErrors {
    std::size_t faces = 0; // of the scene that are drawn whole
    std::size_t corners = 0, normals = 0, texCoords = 0, colors = 0;
    double position = 0.0, normal = 0.0, texCoord = 0.0; // in units, of unit vectors, in texels
};

struct FaceDifference {
    std::string what,
        details; // one line each, but for the corners of what is drawn: those follow on lines of their own
};

/// No more texts are kept; the rest is only counted.
inline constexpr std::size_t kToldDifferences = 20;

struct FaceDifferences {
    std::vector<FaceDifference> texts;
    std::size_t count = 0;
    FaceErrors errors;
    std::vector<int> polygonOfFace; // index of a polygon that draws each face of the scene; -1 for none
};

/// The polygons should be the faces, each once: every drawn triangle and quad has corners of one face, in their order
/// round it, with their normals, texture coordinates and colours where the polygon has such, and the face's material;
/// what is drawn of a face makes up its whole area. Faces thinner than the tolerance may be missing.
FaceDifferences compareFaces(const std::vector<DrawnMaterial>& materials,
                             const std::vector<const decode::DrawnPolygon*>& polygons,
                             const std::vector<SceneFace>& faces, const FaceTolerance& tolerance);

} // namespace host::app::verify
