#include "export/optionTable.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

namespace tvk {
namespace {

constexpr float kLargestFloat = std::numeric_limits<float>::max();

template <typename T>
T stored(T ExportOptions::*field, const char* key, const char* value) {
    ExportOptions options;
    const OptionRow* const row = findOption(key);
    EXPECT_NE(row, nullptr) << key;
    if (row != nullptr) {
        storeOption(*row, value, options);
    }
    return options.*field;
}

TEST(OptionTable, KnowsNoOtherKeys) {
    for (const char* key : {"", " ", "magnif", "magnify ", "Magnify", "MAGNIFY", "raw_values", "batch-flag"}) {
        EXPECT_EQ(findOption(key), nullptr) << key;
    }
}

TEST(OptionTable, HasEachKeyOnceAndExplainsIt) {
    std::set<std::string_view> keys;
    for (const OptionRow& row : kOptionRows) {
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
        EXPECT_EQ(findOption(row.key), &row);
        EXPECT_FALSE(row.help.empty()) << row.key;
    }
    EXPECT_EQ(keys.size(), 31U);
}

// In the order in which keys are matched, with the defaults that the options dialog documents.
TEST(OptionTable, HasTheDocumentedKeysAndDefaults) {
    const std::pair<const char*, const char*> expected[] = {
        {"magnify", "1.0"},         {"optimize_node", "0"},    {"compress_material", "0"}, {"frame_range", "0"},
        {"start_frame", "1"},       {"end_frame", "9999"},     {"imd_file_out", "1"},      {"ica_file_out", "0"},
        {"ima_file_out", "0"},      {"itp_file_out", "0"},     {"iva_file_out", "0"},      {"ita_file_out", "0"},
        {"vertex_table_flag", "0"}, {"out_all_tex", "0"},      {"force_full_weight", "0"}, {"use_primitive_strip", "1"},
        {"anime_interp", "0"},      {"loop_interp", "0"},      {"frame_step_mode", "1"},   {"anime_tol_t", "0.1"},
        {"anime_tol_r", "0.1"},     {"anime_tol_s", "0.1"},    {"anime_tol_c", "3"},       {"anime_tol_uv_t", "0.1"},
        {"anime_tol_uv_r", "0.1"},  {"anime_tol_uv_s", "0.1"}, {"use_mtworkbench", "0"},   {"merge_imd_flag", "0"},
        {"merge_imd_path", ""},     {"batch_flag", "0"},       {"batch_log_path", ""},
    };
    ASSERT_EQ(kOptionRows.size(), std::size(expected));
    for (std::size_t i = 0; i < kOptionRows.size(); ++i) {
        EXPECT_EQ(kOptionRows[i].key, expected[i].first);
        EXPECT_EQ(kOptionRows[i].defaultText, expected[i].second) << kOptionRows[i].key;
    }
}

TEST(OptionTable, DefaultsReachEveryField) {
    ExportOptions options;
    for (const OptionRow& row : kOptionRows) {
        storeOption(row, "17", options);
    }
    setDefaults(options);
    EXPECT_EQ(options.magnify, 1.0);
    EXPECT_EQ(options.optimizeNode, 0);
    EXPECT_FALSE(options.compressMaterial);
    EXPECT_EQ(options.frameRange, 0);
    EXPECT_EQ(options.requestedStartFrame, 1);
    EXPECT_EQ(options.requestedEndFrame, 9999);
    EXPECT_TRUE(options.outImd);
    EXPECT_FALSE(options.outIca || options.outIma || options.outItp || options.outIva || options.outIta);
    EXPECT_FALSE(options.vertexTableFlag || options.outAllTex || options.forceFullWeight);
    EXPECT_TRUE(options.usePrimitiveStrip);
    EXPECT_EQ(options.animeInterp, 0);
    EXPECT_FALSE(options.loopInterp);
    EXPECT_EQ(options.frameStepMode, 1);
    for (const float tolerance : {options.animeTolT, options.animeTolR, options.animeTolS, options.animeTolUvT,
                                  options.animeTolUvR, options.animeTolUvS}) {
        EXPECT_EQ(tolerance, 0.1F);
    }
    EXPECT_EQ(options.animeTolC, 3);
    EXPECT_FALSE(options.useMtworkbench || options.mergeImdFlag || options.batchFlag);
    EXPECT_EQ(options.mergeImdPath + options.batchLogPath, "");
}

TEST(OptionTable, IntegersReadAsFarAsTheyGo) {
    const auto read = [](const char* value) {
        return stored(&ExportOptions::requestedStartFrame, "start_frame", value);
    };
    EXPECT_EQ(read("12"), 12);
    EXPECT_EQ(read("  -12abc"), -12);
    EXPECT_EQ(read("+7.9"), 7);
    EXPECT_EQ(read("abc"), 0);
    EXPECT_EQ(read(""), 0);
    EXPECT_EQ(read("99999999999"), 2147483647);
    EXPECT_EQ(read("-99999999999"), -2147483647 - 1);
}

TEST(OptionTable, SwitchesAreOnForAnyIntegerButZero) {
    const auto read = [](const char* value) { return stored(&ExportOptions::outIca, "ica_file_out", value); };
    EXPECT_TRUE(read("1") && read("-1") && read("2") && read("10"));
    EXPECT_FALSE(read("0") || read("on") || read("true") || read("") || read("0.9"));
}

TEST(OptionTable, ChoicesAreStoredAsGiven) {
    EXPECT_EQ(stored(&ExportOptions::optimizeNode, "optimize_node", "17"), 17);
    EXPECT_EQ(stored(&ExportOptions::optimizeNode, "optimize_node", "-1"), -1);
    EXPECT_EQ(stored(&ExportOptions::animeInterp, "anime_interp", "9"), 9);
    EXPECT_EQ(stored(&ExportOptions::frameStepMode, "frame_step_mode", "-4"), -4);
}

TEST(OptionTable, ColourToleranceIsClamped) {
    const auto read = [](const char* value) { return stored(&ExportOptions::animeTolC, "anime_tol_c", value); };
    EXPECT_EQ(read("40"), 31);
    EXPECT_EQ(read("-2"), 0);
    EXPECT_EQ(read("31"), 31);
    EXPECT_EQ(read("x"), 0);
}

TEST(OptionTable, TolerancesAreNeverNegative) {
    const std::pair<const char*, float ExportOptions::*> rows[] = {
        {"anime_tol_t", &ExportOptions::animeTolT},      {"anime_tol_r", &ExportOptions::animeTolR},
        {"anime_tol_s", &ExportOptions::animeTolS},      {"anime_tol_uv_t", &ExportOptions::animeTolUvT},
        {"anime_tol_uv_r", &ExportOptions::animeTolUvR}, {"anime_tol_uv_s", &ExportOptions::animeTolUvS},
    };
    for (const auto& [key, field] : rows) {
        EXPECT_EQ(stored(field, key, "-1"), 0.0F) << key;
        EXPECT_EQ(stored(field, key, "nan"), 0.0F) << key;
        EXPECT_EQ(stored(field, key, "abc"), 0.0F) << key;
        EXPECT_EQ(stored(field, key, "0.25"), 0.25F) << key;
        EXPECT_EQ(stored(field, key, "1e300"), kLargestFloat) << key;
        EXPECT_EQ(stored(field, key, "inf"), kLargestFloat) << key;
    }
}

TEST(OptionTable, MagnifyIsStoredAsItIs) {
    const auto read = [](const char* value) { return stored(&ExportOptions::magnify, "magnify", value); };
    EXPECT_EQ(read("2.5"), 2.5);
    EXPECT_EQ(read("-3"), -3.0);
    EXPECT_EQ(read("1e-3x"), 1e-3);
    EXPECT_EQ(read("nan"), 0.0);
    EXPECT_EQ(read("1,5"), 1.0); // a comma ends the number whatever the locale
}

TEST(OptionTable, TextsAreTakenAsTheyStand) {
    EXPECT_EQ(stored(&ExportOptions::mergeImdPath, "merge_imd_path", " C:\\a b.imd "), " C:\\a b.imd ");
    EXPECT_EQ(stored(&ExportOptions::batchLogPath, "batch_log_path", "\xE3\x82\xBD"), "\xE3\x82\xBD");
}

} // namespace
} // namespace tvk
