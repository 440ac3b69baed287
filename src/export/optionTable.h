#pragma once

#include "scene/ExportOptions.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

namespace tvk {

/// Where an option's value is stored; its alternative is the option's type.
using OptionField = std::variant<double ExportOptions::*, float ExportOptions::*, int32_t ExportOptions::*,
                                 bool ExportOptions::*, std::string ExportOptions::*>;

/// One key of the option string.
struct OptionRow {
    std::string_view key;         // case-sensitive
    OptionField field;            // double and float: real; int32_t: integer; bool: boolean; string: text as it stands
    std::string_view defaultText; // as it would stand in an option string
    double lowest;                // smaller values become this one
    double highest;               // larger values become this one
    std::string_view help;
};

inline constexpr double kNoLimit = std::numeric_limits<double>::infinity();

// One row per option, in the order in which keys are matched. Parsing, defaults, help and tests all go by it.
inline constexpr std::array<OptionRow, 31> kOptionRows{{
    {"magnify", &ExportOptions::magnify, "1.0", -kNoLimit, kNoLimit, "factor on positions and translations"},
    {"optimize_node", &ExportOptions::optimizeNode, "0", -kNoLimit, kNoLimit,
     "node compression: 0 none, 1 cull, 2 merge, 3 unite, 4 unite and combine polygons"},
    {"compress_material", &ExportOptions::compressMaterial, "0", 0, 1, "merge equal materials"},
    {"frame_range", &ExportOptions::frameRange, "0", -kNoLimit, kNoLimit,
     "0 animation range, 1 playback range, 2 start_frame to end_frame"},
    {"start_frame", &ExportOptions::requestedStartFrame, "1", -kNoLimit, kNoLimit, "first frame for frame_range 2"},
    {"end_frame", &ExportOptions::requestedEndFrame, "9999", -kNoLimit, kNoLimit, "last frame for frame_range 2"},
    {"imd_file_out", &ExportOptions::outImd, "1", 0, 1, "write the model"},
    {"ica_file_out", &ExportOptions::outIca, "0", 0, 1, "write the node animation"},
    {"ima_file_out", &ExportOptions::outIma, "0", 0, 1, "write the material colour animation"},
    {"itp_file_out", &ExportOptions::outItp, "0", 0, 1, "write the texture pattern animation"},
    {"iva_file_out", &ExportOptions::outIva, "0", 0, 1, "write the visibility animation"},
    {"ita_file_out", &ExportOptions::outIta, "0", 0, 1, "write the texture SRT animation"},
    {"vertex_table_flag", &ExportOptions::vertexTableFlag, "0", 0, 1, "vertex style: 0 direct, 1 indexed tables"},
    {"out_all_tex", &ExportOptions::outAllTex, "0", 0, 1, "write all textures of the scene, not only used ones"},
    {"force_full_weight", &ExportOptions::forceFullWeight, "0", 0, 1, "bind each vertex to its strongest influence"},
    {"use_primitive_strip", &ExportOptions::usePrimitiveStrip, "1", 0, 1, "build strips"},
    {"anime_interp", &ExportOptions::animeInterp, "0", -kNoLimit, kNoLimit, "interpolation: 0 frame, 1 linear, 2 key"},
    {"loop_interp", &ExportOptions::loopInterp, "0", 0, 1, "interpolate from the last frame back to the first"},
    {"frame_step_mode", &ExportOptions::frameStepMode, "1", -kNoLimit, kNoLimit,
     "0 automatic, 1 every frame, 2 every second, 3 every fourth"},
    {"anime_tol_t", &ExportOptions::animeTolT, "0.1", 0, kNoLimit, "tolerance of translations, scene units"},
    {"anime_tol_r", &ExportOptions::animeTolR, "0.1", 0, kNoLimit, "tolerance of rotations, degrees"},
    {"anime_tol_s", &ExportOptions::animeTolS, "0.1", 0, kNoLimit, "tolerance of scales"},
    {"anime_tol_c", &ExportOptions::animeTolC, "3", 0, 31, "tolerance of colours, steps of 31"},
    {"anime_tol_uv_t", &ExportOptions::animeTolUvT, "0.1", 0, kNoLimit, "tolerance of texture translations"},
    {"anime_tol_uv_r", &ExportOptions::animeTolUvR, "0.1", 0, kNoLimit, "tolerance of texture rotations, degrees"},
    {"anime_tol_uv_s", &ExportOptions::animeTolUvS, "0.1", 0, kNoLimit, "tolerance of texture scales"},
    {"use_mtworkbench", &ExportOptions::useMtworkbench, "0", 0, 1, "start Material Workbench afterwards"},
    {"merge_imd_flag", &ExportOptions::mergeImdFlag, "0", 0, 1, "let Material Workbench merge a model"},
    {"merge_imd_path", &ExportOptions::mergeImdPath, "", -kNoLimit, kNoLimit, "the model to merge"},
    {"batch_flag", &ExportOptions::batchFlag, "0", 0, 1, "messages go to the batch log"},
    {"batch_log_path", &ExportOptions::batchLogPath, "", -kNoLimit, kNoLimit, "the batch log"},
}};

/// The row of a key; null when there is no such key.
const OptionRow* findOption(std::string_view key);

/// Reads a value as the row's type and stores it within the row's range. Text that is no number ("nan" is none) reads
/// as 0; a boolean is on for any integer but 0; what is too large for its type becomes the largest that it holds.
void storeOption(const OptionRow& row, std::string_view value, ExportOptions& options);

/// The option string's settings alone: every keyed field gets its default.
void setDefaults(ExportOptions& options);

} // namespace tvk
