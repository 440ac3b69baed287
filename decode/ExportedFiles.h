#pragma once

#include "decode/AnimationFile.h"
#include "decode/ModelFile.h"
#include "decode/ModelGeometry.h"
#include "decode/ModelTextures.h"
#include "decode/PatternFile.h"
#include "decode/VisibilityFile.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace decode {

/// Why files of an export were not read: one line, which begins with the files that it is about. Their names are UTF-8;
/// behind them may stand bytes of the files, Shift_JIS, so that what() as a whole may be no text of either.
class ExportedFilesError : public std::runtime_error {
public:
    ExportedFilesError(const std::string& place, const std::string& reason)
        : std::runtime_error(place + reason), placeSize_(place.size()) {}

    /// "out/walk.ica: ", in UTF-8.
    std::string_view place() const { return std::string_view(what()).substr(0, placeSize_); }
    /// What stands behind it, as bytes of the files.
    std::string_view reason() const { return std::string_view(what()).substr(placeSize_); }

private:
    std::size_t placeSize_;
};

/// The kinds of file in the order in which they are told, and what each holds.
struct FileKind {
    const char* ending;
    const char* contents;
};
inline constexpr std::array<FileKind, 6> kFileKinds{{{"imd", "model"},
                                                     {"ica", "node animation"},
                                                     {"ima", "material colour animation"},
                                                     {"itp", "texture pattern animation"},
                                                     {"iva", "visibility animation"},
                                                     {"ita", "texture placement animation"}}};

/// A model file and what its parts say.
struct ExportedModel {
    ModelFile file;
    ModelGeometry geometry;
};

/// The files of one base path, each read when it is there, from nothing but the files. They belong together: the node
/// lists are as long as each other, every material, image and palette that an animation names is the model's, and all
/// animations have the same frames. Moved, never copied: parts point into each other.
struct ExportedFiles {
    struct Size {
        std::string kind; // ending
        std::uint64_t bytes = 0;
    };
    struct Frames {
        int count = 1, first = 0;
    };

    std::string base;        // as messages show it
    std::vector<Size> sizes; // of the files that were read, in the order of the kinds
    std::optional<ExportedModel> model;
    ModelTextures textures; // of the model file, else of the pattern file, which may bring its own then
    std::optional<AnimationFile> nodes, colors, placements;
    std::optional<PatternFile> patterns;
    std::optional<VisibilityFile> visibilities;
    std::optional<Frames> frames; // of all animations; nothing without any

    /// Nothing for a file that was not read.
    std::optional<std::uint64_t> bytesOf(std::string_view kind) const;
    /// "walk": the base without folder.
    std::string name() const;
    /// "walk.imd".
    std::string nameOf(std::string_view kind) const;
};

/// Reads files of a base path; none at all when there are none. Throws an ExportedFilesError for a file that cannot be
/// read, is no regular one, is larger than 1 GB or does not decode, and for files that do not belong together.
///   base     path without ending, in UTF-8
///   shown    the base as messages show it, in UTF-8
///   kinds    endings of the files to look for; one that is not there is left out
ExportedFiles readExportedFiles(const std::string& base, const std::string& shown,
                                const std::vector<std::string>& kinds);

} // namespace decode
