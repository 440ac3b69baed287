#pragma once

#include "writers/Picture.h"
#include "writers/tgaWriter.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

// Image files and textured scenes, as an artist's project has them.

void writeBytes(const std::string& path, const std::vector<std::uint8_t>& bytes);

/// A Truevision file as paint programs save it: 24 bits, or 32 with alpha when some pixel is not opaque.
void writeImage(const std::string& path, const Picture& picture);

/// A picture of `count` opaque colours, which take turns along the rows. No two are equal in five bits a channel; up to
/// 4096 of them.
Picture pictureOfColors(std::size_t width, std::size_t height, std::size_t count);

/// A file texture of an image. `attributes` are statements such as `setAttr ".wu" no;`.
std::string fileTextureText(const std::string& name, const std::string& image, const std::string& attributes = "");

/// The same with a placement node NAME_placement, connected as the host does it.
std::string placedTextureText(const std::string& name, const std::string& image,
                              const std::string& placementAttributes = "", const std::string& attributes = "");

/// A lambert shader in a shading group SHADER_group, coloured by a file texture; "" for one without.
std::string shaderText(const std::string& shader, const std::string& fileTexture);

/// A transform with a square of texture coordinates 0 to 1 in the shader's group.
std::string texturedSquareText(const std::string& name, const std::string& shader);

/// File texture, shader NAME_shader and square NAME_square.
std::string texturedText(const std::string& name, const std::string& image, const std::string& attributes = "");

/// A curve over time with stepped keys, "frame value frame value ...", `count` of them.
std::string steppedCurveText(const std::string& name, const std::string& keys, int count);

/// Frame extensions that a curve NAME_curve with such keys flips.
std::string flippedText(const std::string& fileTexture, const std::string& keys, int count);

} // namespace tvk
