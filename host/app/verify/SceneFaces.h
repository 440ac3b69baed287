#pragma once

#include "decode/ModelGeometry.h"

#include <maya/MDagPath.h>

#include <ImathMatrix.h>
#include <ImathVec.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace host::app::verify {

/// A corner of a face of the scene, in the world.
struct SceneCorner {
    int vertex = 0; // of the mesh
    Imath::V3d position;
    Imath::V3d normal;                       // unit length; 0 0 0 where the face has no area
    std::optional<Imath::V2d> uv;            // of the shape's first set
    std::optional<std::array<int, 3>> color; // 0 to 31 each
};

/// A face as one sees it: its corners wind counter-clockwise around the side that is shown.
struct SceneFace {
    std::string mesh; // path of the shape
    int number = 0;
    bool inGroup = false; // belongs to a shading group
    std::string shader;   // of that group; "" when it has none
    std::vector<SceneCorner> corners;
};

/// The faces of a mesh as the host evaluates it now, asked through the API.
///   world   brings object space to the world, in units of `magnify`; null: the path's own, where it stands now
std::vector<SceneFace> sceneFaces(const MDagPath& shape, const Imath::M44d* world = nullptr, double magnify = 1.0);
/// Those of several lists, on end.
std::vector<SceneFace> operator+(std::vector<SceneFace> a, const std::vector<SceneFace>& b);

/// The area that a face turns to each axis: its plane's normal times its area, however it is cut into triangles.
Imath::V3d vectorArea(const std::vector<Imath::V3d>& outline);
std::vector<Imath::V3d> outlineOf(const decode::DrawnFace& face);
std::vector<Imath::V3d> outlineOf(const SceneFace& face);

} // namespace host::app::verify
