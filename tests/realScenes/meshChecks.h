#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace tvk {

/// Checks of meshes as they are evaluated. Each returns "" or what differs.

/// All points in order.
std::string checkPoints(const nlohmann::json& check);
/// Numbers of vertices, faces and texture coordinates.
std::string checkMeshCounts(const nlohmann::json& check);
/// Numbers of triangles, distinct points and texture coordinates, their bounds, and where recorded the sets of distinct
/// points, texture coordinates and corner normals.
std::string checkEvaluatedMesh(const nlohmann::json& check);
std::string checkUvsByCorner(const nlohmann::json& check);
std::string checkUvOfCorner(const nlohmann::json& check);
std::string checkUvCount(const nlohmann::json& check);
std::string checkUvSetNames(const nlohmann::json& check);
std::string checkColorsByCorner(const nlohmann::json& check);

} // namespace tvk
