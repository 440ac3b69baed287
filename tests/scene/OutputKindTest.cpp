#include "scene/OutputKind.h"

#include <gtest/gtest.h>

#include <string>

namespace tvk {
namespace {

TEST(OutputKind, AnUnknownKindHasUnknownTexts) {
    for (const int index : {6, -1, 100}) {
        const OutputKindRow row = outputKindRow(static_cast<OutputKind>(index));
        EXPECT_EQ(row.extension, "unknown");
        EXPECT_EQ(row.infoElement, "unknown");
        EXPECT_EQ(row.titleWord, "");
    }
}

TEST(OutputKind, StandsInOneOrderEverywhere) {
    struct Row {
        const char *extension, *title, *info;
        bool ExportOptions::*output;
    };
    const Row rows[] = {
        {"imd", "Model", "model_info", &ExportOptions::outImd},
        {"ica", "Character Animation", "node_anm_info", &ExportOptions::outIca},
        {"ima", "Material Color Animation", "mat_color_info", &ExportOptions::outIma},
        {"itp", "Texture Pattern Animation", "tex_pattern_info", &ExportOptions::outItp},
        {"iva", "Visibility Animation", "visibility_info", &ExportOptions::outIva},
        {"ita", "Texture SRT Animation", "tex_srt_info", &ExportOptions::outIta},
    };
    ASSERT_EQ(kOutputKinds.size(), std::size(rows));
    for (std::size_t i = 0; i < kOutputKinds.size(); ++i) {
        const OutputKindRow row = outputKindRow(static_cast<OutputKind>(i));
        EXPECT_EQ(row.kind, static_cast<OutputKind>(i));
        EXPECT_EQ(row.extension, rows[i].extension);
        EXPECT_EQ(row.titleWord, rows[i].title);
        EXPECT_EQ(row.infoElement, rows[i].info);
        EXPECT_EQ(row.enabled, rows[i].output);
    }
}

} // namespace
} // namespace tvk
