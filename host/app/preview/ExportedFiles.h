#pragma once

#include "decode/AnimationFile.h"
#include "decode/ModelFile.h"
#include "decode/ModelGeometry.h"
#include "decode/ModelTextures.h"
#include "decode/PatternFile.h"
#include "decode/VisibilityFile.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace host::app::preview {

/// The kinds of files of an export.
enum class FileKind : unsigned char { kImd, kIca, kIma, kItp, kIva, kIta };
inline constexpr std::size_t kFileKinds = 6;
inline constexpr std::array<const char*, kFileKinds> kFileEndings = {"imd", "ica", "ima", "itp", "iva", "ita"};

/// What one export wrote, as far as it is there, read from nothing but its files. They belong together: the node lists
/// are as long as each other, every material, image and palette that an animation names is the model's, and all
/// animations have the same frames.
struct ExportedFiles {
    std::string name;                                         // of the files, without folder and ending
    std::array<std::optional<std::size_t>, kFileKinds> bytes; // nothing for a file that is not there

    decode::ModelFile model;
    decode::ModelGeometry geometry;
    decode::ModelTextures textures;
    std::optional<decode::AnimationFile> nodes, colors, placements;
    std::optional<decode::PatternFile> patterns;
    std::optional<decode::VisibilityFile> visibility;

    int frameCount = 1, firstFrame = 0; // 1 without animation

    std::optional<std::size_t> bytesOf(FileKind kind) const { return bytes.at(static_cast<std::size_t>(kind)); }
};

/// Reads BASE.imd and those of the other five that are there.
///   base   path without ending, in UTF-8
/// Throws a std::runtime_error of one line, with the file's name, for a model that is not there, a file that cannot be
/// read, is larger than 1 GB or damaged, and files of different exports.
ExportedFiles readExportedFiles(const std::string& base);

} // namespace host::app::preview
