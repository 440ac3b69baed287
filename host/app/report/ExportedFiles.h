#pragma once

#include "decode/AnimationFile.h"
#include "decode/ModelFile.h"
#include "decode/ModelGeometry.h"
#include "decode/ModelTextures.h"
#include "decode/PatternFile.h"
#include "decode/VisibilityFile.h"

#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace host::app::report {

/// Why there is no report: one line that names the file.
class ReportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The kinds of file in the order in which they are reported, and what each holds.
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
    decode::ModelFile file;
    decode::ModelGeometry geometry;
};

/// The files of one base path, each read when it is there. Moved, never copied: parts point into each other.
struct ExportedFiles {
    struct Size {
        std::string kind; // ending
        std::uint64_t bytes = 0;
    };

    std::string base;        // as messages show it
    std::vector<Size> sizes; // of the files that were read, in the order of the kinds
    std::optional<ExportedModel> model;
    decode::ModelTextures textures; // of the model file, else of the pattern file, which has its own then
    std::optional<decode::AnimationFile> nodes, colors, placements;
    std::optional<decode::PatternFile> patterns;
    std::optional<decode::VisibilityFile> visibilities;

    bool has(const std::string& kind) const;
    /// "walk.imd": how a report names a file.
    std::string nameOf(const std::string& kind) const;
};

/// Reads files of a base path. Throws a ReportError when none of them is there, when one cannot be read or does not
/// decode, and when they are not of one model: other numbers of nodes, or materials or images that the model lacks.
///   base     path without ending
///   shown    the base as messages show it
///   kinds    endings of the files to look for; one that is not there is left out
ExportedFiles readExportedFiles(const std::string& base, const std::string& shown,
                                const std::vector<std::string>& kinds);

} // namespace host::app::report
