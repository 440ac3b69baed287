#pragma once

#include <string>

namespace tvk {

// Texts of shaded scenes, as the host's own files have them (see sceneText.h; textures: textureScene.h).

// connectAttr FROM TO;
std::string connectText(const std::string& from, const std::string& to);

// A shader, and its shading group NAME + "SG". Attributes are lines such as `setAttr ".dc" 1;`.
std::string shadingText(const std::string& type, const std::string& name, const std::string& attributes = "");

// An attribute that an artist added, with its value: of -at "long", "bool", "enum" ….
std::string addedAttribute(const std::string& name, const std::string& type, const std::string& value);

// A matrix that an artist added: 16 numbers.
std::string addedMatrix(const std::string& name, const std::string& numbers);

// A transform with a mesh of one triangle with texture coordinates, NAME + "Shape", that belongs to a shading group as
// a whole.
std::string shadedMesh(const std::string& name, const std::string& shadingGroup);

// The shape belongs to the group that new scenes have, as a whole; `instance` tells its DAG paths apart.
std::string inDefaultGroup(const std::string& shape, int instance = 0);

// Linear keys of two frames and values, such as "1 0 10 1", on a plug.
std::string keysText(const std::string& plug, const std::string& name, const std::string& keys = "1 0 10 1");

} // namespace tvk
