#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace tvk {

/// Checks of what shades which faces, and of what shaders and textures say. Each returns "" or what differs.

/// Members of the shading groups by group name: the set members that the scene stores, or face numbers after history.
std::string checkFaceSets(const nlohmann::json& check);
/// Surface colour and opacity, of the whole object or by face.
std::string checkFaceMaterials(const nlohmann::json& check);
/// The texture of a shader's colour, and how it repeats and wraps.
std::string checkMaterial(const nlohmann::json& check);
/// A texture placement as one scale, rotation and translation.
std::string checkUvTransform(const nlohmann::json& check);

} // namespace tvk
