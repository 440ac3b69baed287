#pragma once

#include <cstddef>
#include <string>

namespace tvk {

// Maya ASCII text of the shape that the host writes, made for measuring.

// One mesh whose vertices, edges, texture coordinates and faces fill about `bytes` bytes: a bumpy grid of quads, its
// long arrays cut into statements as the host cuts them.
std::string meshScene(std::size_t bytes);

// A bumpy ground of about `count` smooth triangles with texture coordinates, in the group that new scenes shade with.
std::string triangleScene(std::size_t count);

// `count` transforms and joints below one group: chains of ten, with translations and rotations of their own.
std::string hierarchyScene(std::size_t count);

// `count` triangles, each with a shader of its own colour. Each shader has its own file texture, image "tN.tga" of a
// folder, unless that is empty.
std::string shadedScene(std::size_t count, const std::string& imageFolder);

// Writes text to a file; ends the program with a message when the disk refuses.
void writeScene(const std::string& path, const std::string& text);

} // namespace tvk
