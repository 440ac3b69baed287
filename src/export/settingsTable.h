#pragma once

#include "scene/OutputKind.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace tvk {

/// How a settings file spells a value.
enum class SettingType {
    kText,   // passed on as it stands
    kSwitch, // "on" is 1, anything else 0
    kWords,  // one of the row's words
};

/// One key of a settings file.
struct SettingRow {
    std::string_view key;       // case-sensitive
    std::string_view optionKey; // of the option string
    std::string_view defaultText;
    SettingType type;
    std::array<std::string_view, 5> words{}; // the option's values from 0 on; fewer leave empty ones at the end
    std::optional<OutputKind> output{};      // of a switch that turns an output on
};

// In the order of the option string. The defaults are those of studios' settings files, some of which differ from those
// of the option string itself.
inline constexpr std::array<SettingRow, 26> kSettingRows{{
    {"magnify", "magnify", "1.0", SettingType::kText},
    {"compress_node", "optimize_node", "0", SettingType::kWords, {"none", "cull", "merge", "unite", "unite_combine"}},
    {"compress_material", "compress_material", "0", SettingType::kSwitch},
    {"frame_range", "frame_range", "0", SettingType::kWords, {"all", "playback", "range"}},
    {"start_frame", "start_frame", "1", SettingType::kText},
    {"end_frame", "end_frame", "9999", SettingType::kText},
    {"output_imd", "imd_file_out", "1", SettingType::kSwitch, {}, OutputKind::kImd},
    {"output_ica", "ica_file_out", "0", SettingType::kSwitch, {}, OutputKind::kIca},
    {"output_iva", "iva_file_out", "0", SettingType::kSwitch, {}, OutputKind::kIva},
    {"output_ima", "ima_file_out", "0", SettingType::kSwitch, {}, OutputKind::kIma},
    {"output_itp", "itp_file_out", "0", SettingType::kSwitch, {}, OutputKind::kItp},
    {"output_ita", "ita_file_out", "0", SettingType::kSwitch, {}, OutputKind::kIta},
    {"vertex_style", "vertex_table_flag", "0", SettingType::kWords, {"direct", "index"}},
    {"output_texture", "out_all_tex", "0", SettingType::kWords, {"used", "all"}},
    {"force_full_weight", "force_full_weight", "0", SettingType::kSwitch},
    {"use_primitive_strip", "use_primitive_strip", "1", SettingType::kSwitch},
    {"interpolation", "anime_interp", "1", SettingType::kWords, {"frame", "linear"}},
    {"interp_end_to_start", "loop_interp", "0", SettingType::kSwitch},
    // The words are frames, the option's values are not: "4" is 3.
    {"frame_step_mode", "frame_step_mode", "1", SettingType::kWords, {"auto", "1", "2", "4"}},
    {"tolerance_translate", "anime_tol_t", "0.01", SettingType::kText},
    {"tolerance_rotate", "anime_tol_r", "0.1", SettingType::kText},
    {"tolerance_scale", "anime_tol_s", "0.1", SettingType::kText},
    {"tolerance_color", "anime_tol_c", "2", SettingType::kText},
    {"tolerance_tex_translate", "anime_tol_uv_t", "0.01", SettingType::kText},
    {"tolerance_tex_rotate", "anime_tol_uv_r", "0.1", SettingType::kText},
    {"tolerance_tex_scale", "anime_tol_uv_s", "0.1", SettingType::kText},
}};

} // namespace tvk
