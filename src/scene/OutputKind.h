#pragma once

#include "scene/ExportOptions.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tvk {

/// The six intermediate files, in the order in which they are tabulated, written and counted everywhere.
enum class OutputKind { kImd, kIca, kIma, kItp, kIva, kIta };

struct OutputKindRow {
    OutputKind kind;
    std::string_view extension;   // of the file; also its root element and what the progress line calls it
    std::string_view titleWord;   // what the data is, in the file's title
    std::string_view infoElement; // the element that lists the export settings
    bool ExportOptions::*enabled; // its output switch
};

inline constexpr std::array<OutputKindRow, 6> kOutputKinds{{
    {OutputKind::kImd, "imd", "Model", "model_info", &ExportOptions::outImd},
    {OutputKind::kIca, "ica", "Character Animation", "node_anm_info", &ExportOptions::outIca},
    {OutputKind::kIma, "ima", "Material Color Animation", "mat_color_info", &ExportOptions::outIma},
    {OutputKind::kItp, "itp", "Texture Pattern Animation", "tex_pattern_info", &ExportOptions::outItp},
    {OutputKind::kIva, "iva", "Visibility Animation", "visibility_info", &ExportOptions::outIva},
    {OutputKind::kIta, "ita", "Texture SRT Animation", "tex_srt_info", &ExportOptions::outIta},
}};
static_assert(kOutputKinds.size() == static_cast<std::size_t>(OutputKind::kIta) + 1);

/// The row of a kind; a number outside the enumeration (only a caller's mistake) gives "unknown" texts.
constexpr OutputKindRow outputKindRow(OutputKind kind) {
    const auto index = static_cast<std::size_t>(kind);
    return index < kOutputKinds.size() ? kOutputKinds[index] : OutputKindRow{kind, "unknown", "", "unknown", nullptr};
}

} // namespace tvk
