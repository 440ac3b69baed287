#include "export/exportSettings.h"

#include "TemporaryFolder.h"
#include "export/optionTable.h"
#include "export/settingsTable.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

const char* const kHeader = "# TVK_Export settings\n";

// What studios' files get for the keys that they leave out.
const char* const kDefaults = "magnify=1.0;optimize_node=0;compress_material=0;frame_range=0;start_frame=1;"
                              "end_frame=9999;imd_file_out=1;ica_file_out=0;iva_file_out=0;ima_file_out=0;"
                              "itp_file_out=0;ita_file_out=0;vertex_table_flag=0;out_all_tex=0;force_full_weight=0;"
                              "use_primitive_strip=1;anime_interp=1;loop_interp=0;frame_step_mode=1;anime_tol_t=0.01;"
                              "anime_tol_r=0.1;anime_tol_s=0.1;anime_tol_c=2;anime_tol_uv_t=0.01;anime_tol_uv_r=0.1;"
                              "anime_tol_uv_s=0.1;";

bool parses(const std::string& text, ExportSettings& settings) {
    std::istringstream in(text);
    return parseExportSettings(in, settings);
}

ExportSettings settingsOf(const std::string& lines) {
    ExportSettings settings;
    EXPECT_TRUE(parses(kHeader + lines, settings));
    return settings;
}

// The value in the option string; the key must stand there once.
std::string option(const ExportSettings& settings, const std::string& key) {
    const std::string text = ";" + settings.optionString;
    const std::size_t at = text.find(";" + key + "=");
    EXPECT_NE(at, std::string::npos) << key;
    EXPECT_EQ(text.find(";" + key + "=", at + 1), std::string::npos) << key;
    const std::size_t value = at + key.size() + 2;
    return text.substr(value, text.find(';', value) - value);
}

// --- what is no settings file

TEST(ExportSettings, AFileWithoutTheHeaderIsRefused) {
    const std::string header = kHeader;
    const std::vector<std::string> refused = {"",
                                              "\n",
                                              "magnify=\"2\"\n",
                                              "\n" + header,
                                              " " + header,
                                              "# TVK_Export setting\n",
                                              "# tvk_export settings\n",
                                              "#TVK_Export settings\n",
                                              "# TVK_Batch_Export\n",
                                              std::string("\0\x01\x02\xFF", 4),
                                              std::string(100000, 'x')};
    for (const std::string& text : refused) {
        ExportSettings settings;
        settings.outputs.fill(true);
        EXPECT_FALSE(parses(text, settings)) << text.substr(0, 40);
        EXPECT_THAT(settings.outputs, Each(false)) << text.substr(0, 40);
    }
}

TEST(ExportSettings, WhatIsNoFileIsRefusedInSilence) {
    const TemporaryFolder folder;
    for (const std::string& path : {folder.path("none.z3es"), folder.path(), std::string()}) {
        MString options = "as before";
        bool outputs[6] = {true, true, true, true, true, true};
        testing::internal::CaptureStderr();
        EXPECT_FALSE(readExportSettings(options, outputs, path.c_str()));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(options, "as before");
        EXPECT_THAT(outputs, Each(false));
    }
}

// --- values

TEST(ExportSettings, ABareHeaderGivesAllDefaultsAndNoOutput) {
    for (const char* text :
         {"# TVK_Export settings", "# TVK_Export settings\n", "# TVK_Export settings of the town, version 3\r\n",
          "\xEF\xBB\xBF# TVK_Export settings\n"}) {
        ExportSettings settings;
        ASSERT_TRUE(parses(text, settings)) << text;
        EXPECT_EQ(settings.optionString, kDefaults) << text;
        EXPECT_THAT(settings.outputs, Each(false)) << text;
    }
}

TEST(ExportSettings, EveryKeyFeedsItsOption) {
    struct Row {
        const char* line;
        const char* option;
        const char* value;
    };
    const Row rows[] = {
        {"magnify=\"2.5\"", "magnify", "2.5"},
        {"compress_node=\"none\"", "optimize_node", "0"},
        {"compress_node=\"cull\"", "optimize_node", "1"},
        {"compress_node=\"merge\"", "optimize_node", "2"},
        {"compress_node=\"unite\"", "optimize_node", "3"},
        {"compress_node=\"unite_combine\"", "optimize_node", "4"},
        {"compress_material=\"on\"", "compress_material", "1"},
        {"frame_range=\"all\"", "frame_range", "0"},
        {"frame_range=\"playback\"", "frame_range", "1"},
        {"frame_range=\"range\"", "frame_range", "2"},
        {"start_frame=\"-5\"", "start_frame", "-5"},
        {"end_frame=\"120\"", "end_frame", "120"},
        {"output_imd=\"off\"", "imd_file_out", "0"},
        {"output_ica=\"on\"", "ica_file_out", "1"},
        {"output_iva=\"on\"", "iva_file_out", "1"},
        {"output_ima=\"on\"", "ima_file_out", "1"},
        {"output_itp=\"on\"", "itp_file_out", "1"},
        {"output_ita=\"on\"", "ita_file_out", "1"},
        {"vertex_style=\"direct\"", "vertex_table_flag", "0"},
        {"vertex_style=\"index\"", "vertex_table_flag", "1"},
        {"output_texture=\"used\"", "out_all_tex", "0"},
        {"output_texture=\"all\"", "out_all_tex", "1"},
        {"force_full_weight=\"on\"", "force_full_weight", "1"},
        {"use_primitive_strip=\"off\"", "use_primitive_strip", "0"},
        {"interpolation=\"frame\"", "anime_interp", "0"},
        {"interpolation=\"linear\"", "anime_interp", "1"},
        {"interp_end_to_start=\"on\"", "loop_interp", "1"},
        {"frame_step_mode=\"auto\"", "frame_step_mode", "0"},
        {"frame_step_mode=\"1\"", "frame_step_mode", "1"},
        {"frame_step_mode=\"2\"", "frame_step_mode", "2"},
        {"frame_step_mode=\"4\"", "frame_step_mode", "3"},
        {"tolerance_translate=\"0.5\"", "anime_tol_t", "0.5"},
        {"tolerance_rotate=\"0.6\"", "anime_tol_r", "0.6"},
        {"tolerance_scale=\"0.7\"", "anime_tol_s", "0.7"},
        {"tolerance_color=\"4\"", "anime_tol_c", "4"},
        {"tolerance_tex_translate=\"0.8\"", "anime_tol_uv_t", "0.8"},
        {"tolerance_tex_rotate=\"0.9\"", "anime_tol_uv_r", "0.9"},
        {"tolerance_tex_scale=\"1.1\"", "anime_tol_uv_s", "1.1"},
    };
    for (const Row& row : rows) {
        const ExportSettings settings = settingsOf(std::string(row.line) + "\n");
        EXPECT_EQ(option(settings, row.option), row.value) << row.line;
        // Nothing else changes: with its default back in place it is the string of all defaults.
        EXPECT_EQ(settingsOf("").optionString.size() - option(settingsOf(""), row.option).size(),
                  settings.optionString.size() - option(settings, row.option).size())
            << row.line;
    }
}

// Each in turn, so that a flag of a neighbour would show. The flags' order is not the file's.
TEST(ExportSettings, AnOutputKeySetsItsOwnFlagOnly) {
    const std::vector<std::string> kinds = {"imd", "ica", "ima", "itp", "iva", "ita"};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        std::vector<bool> expected(6, false);
        expected[i] = true;
        const auto outputs = settingsOf("output_" + kinds[i] + "=\"on\"").outputs;
        EXPECT_EQ(std::vector<bool>(outputs.begin(), outputs.end()), expected) << kinds[i];
    }
}

TEST(ExportSettings, OnlyOnIsTrue) {
    for (const char* word :
         {"\"off\"", "\"On\"", "\"ON\"", "\"1\"", "\"true\"", "\" on\"", "\"on \"", "\"\"", "on", ""}) {
        const ExportSettings settings = settingsOf(std::string("output_ica=\"on\"\noutput_ica=") + word + "\n");
        EXPECT_EQ(option(settings, "ica_file_out"), "0") << word;
        EXPECT_FALSE(settings.outputs[1]) << word;
    }
}

TEST(ExportSettings, TheLaterOfTwoLinesCounts) {
    const ExportSettings settings =
        settingsOf("magnify=\"2\"\noutput_ica=\"off\"\nmagnify=\"3\"\noutput_ica=\"on\"\ncompress_node=\"unite\"\n"
                   "compress_node=\"merge\"");
    EXPECT_EQ(option(settings, "magnify"), "3");
    EXPECT_EQ(option(settings, "ica_file_out"), "1");
    EXPECT_TRUE(settings.outputs[1]);
    EXPECT_EQ(option(settings, "optimize_node"), "2");
}

TEST(ExportSettings, AnUnknownWordLeavesWhatIsThere) {
    for (const char* word : {"Cull", "1", "", "cull ", "nonsense"}) {
        EXPECT_EQ(option(settingsOf(std::string("compress_node=\"") + word + "\""), "optimize_node"), "0") << word;
        EXPECT_EQ(
            option(settingsOf(std::string("compress_node=\"merge\"\ncompress_node=\"") + word + "\""), "optimize_node"),
            "2")
            << word;
    }
    EXPECT_EQ(option(settingsOf("interpolation=\"key\""), "anime_interp"), "1");
    EXPECT_EQ(option(settingsOf("frame_step_mode=\"3\""), "frame_step_mode"), "1");
}

// A line that sets something else than the default.
std::string otherLine(const SettingRow& row) {
    std::string value = "77";
    if (row.type == SettingType::kSwitch) {
        value = row.defaultText == "1" ? "off" : "on";
    } else if (row.type == SettingType::kWords) {
        value = row.words.at(row.defaultText == "0" ? 1 : 0);
    }
    return std::string(row.key) + "=\"" + value + "\"\n";
}

// Each in turn: what is left out has its default, and the others keep what the file says.
TEST(ExportSettings, AKeyThatIsMissingHasItsDefault) {
    const auto without = [](std::string_view missing) {
        std::string lines;
        for (const SettingRow& row : kSettingRows) {
            lines += row.key == missing ? "" : otherLine(row);
        }
        return settingsOf(lines);
    };
    const ExportSettings all = without("");
    for (const SettingRow& missing : kSettingRows) {
        const ExportSettings settings = without(missing.key);
        for (const SettingRow& row : kSettingRows) {
            const std::string key(row.optionKey);
            if (row.key == missing.key) {
                EXPECT_EQ(option(settings, key), row.defaultText) << key;
                EXPECT_NE(option(all, key), row.defaultText) << key;
            } else {
                EXPECT_EQ(option(settings, key), option(all, key)) << key << " without " << missing.key;
            }
        }
    }
}

// --- lines

TEST(ExportSettings, AValueStandsBetweenQuotes) {
    struct Case {
        const char* line;
        const char* magnify;
    };
    const Case cases[] = {
        {"magnify=\"2\"", "2"},      {"magnify= \t\"2\"", "2"}, {"magnify=\"2\" # really", "2"},
        {"magnify=\"2\"\"3\"", "2"}, {"magnify=2", ""},         {"magnify=", ""},
        {"magnify=x\"2\"", ""},      {"magnify=\"2", ""},       {"magnify==\"2\"", ""},
        {"magnify=\" 2 \"", " 2 "},  {"magnify =\"2\"", "1.0"}, {" magnify=\"2\"", "1.0"},
        {"Magnify=\"2\"", "1.0"},    {"magnify \"2\"", "1.0"},  {"magnify", "1.0"},
        {"=\"2\"", "1.0"},           {"#magnify=\"2\"", "1.0"}, {"magnification=\"2\"", "1.0"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(option(settingsOf(c.line), "magnify"), c.magnify) << c.line;
    }
    EXPECT_THAT(settingsOf("magnify=2\n").optionString, testing::StartsWith("magnify=;optimize_node=0;"));
}

// The option parser cuts there, as it does with what people type.
TEST(ExportSettings, SemicolonsAndEqualSignsArePassedOn) {
    EXPECT_THAT(settingsOf("magnify=\"2;batch_flag=1\"").optionString,
                testing::StartsWith("magnify=2;batch_flag=1;optimize_node=0;"));
}

TEST(ExportSettings, FilesFromElsewhereAreRead) {
    const std::string text = "# a comment\n\nmagnify=\"2\"\noutput_ica=\"on\"";
    const std::string plain = settingsOf(text).optionString;
    std::string windows = "\xEF\xBB\xBF" + std::string(kHeader) + text;
    for (std::size_t at = windows.find('\n'); at != std::string::npos; at = windows.find('\n', at + 2)) {
        windows.insert(at, "\r");
    }
    ExportSettings settings;
    ASSERT_TRUE(parses(windows, settings));
    EXPECT_EQ(settings.optionString, plain);
    EXPECT_EQ(option(settings, "magnify"), "2");
}

TEST(ExportSettings, LongLinesCountUpToTheLimitAndTheNextIsRead) {
    const std::string key = "start_frame=\"";
    for (const std::size_t length : {std::size_t{2046}, std::size_t{2047}, std::size_t{2048}, std::size_t{100000}}) {
        const std::string line = key + std::string(length - key.size() - 1, '7') + '"';
        ASSERT_EQ(line.size(), length);
        const ExportSettings settings = settingsOf(line + "\nmagnify=\"2\"\n");
        // The closing quote of a longer line lies behind the limit, which makes the value empty.
        EXPECT_EQ(option(settings, "start_frame").size(), length > 2047 ? 0 : length - key.size() - 1) << length;
        EXPECT_EQ(option(settings, "magnify"), "2") << length;
    }
}

TEST(ExportSettings, BinaryLinesArePassedOver) {
    std::string noise;
    for (int i = 0; i < 256; ++i) {
        noise += static_cast<char>(i);
    }
    const ExportSettings settings = settingsOf(noise + "\n" + noise + noise + "\nmagnify=\"2\"\n");
    EXPECT_EQ(option(settings, "magnify"), "2");
    EXPECT_EQ(settingsOf(std::string("start_frame=\"1\0\"\n", 17)).optionString,
              settingsOf("start_frame=\n").optionString)
        << "a closing quote behind a NUL does not count";
}

TEST(ExportSettings, ManyThousandLinesAreRead) {
    std::string lines;
    for (int i = 0; i < 200000; ++i) {
        lines += i % 2 == 0 ? "# a comment\n" : "key_of_the_future=\"x\"\n";
    }
    EXPECT_EQ(option(settingsOf(lines + "magnify=\"2\"\n" + lines), "magnify"), "2");
}

// --- files and tables

TEST(ExportSettings, ReadsFiles) {
    const TemporaryFolder folder;
    const std::string path = folder.path("\xE3\x82\xBD set.z3es"); // "so" has 0x5C in Shift_JIS
    std::ofstream(std::filesystem::u8path(path)) << kHeader << "magnify=\"2\"\noutput_iva=\"on\"\n";
    MString options;
    bool outputs[6] = {};
    ASSERT_TRUE(readExportSettings(options, outputs, path.c_str()));
    EXPECT_THAT(options.asChar(), HasSubstr("magnify=2;"));
    EXPECT_THAT(outputs, ElementsAre(false, false, false, false, true, false));
}

TEST(ExportSettings, EveryRowFeedsAnOptionThatExists) {
    for (const SettingRow& row : kSettingRows) {
        EXPECT_NE(findOption(row.optionKey), nullptr) << row.key;
        EXPECT_EQ(row.type == SettingType::kWords, !row.words[0].empty()) << row.key;
    }
}

// Both sets are in use: one in files that studios have, one in option strings of old scripts.
TEST(ExportSettings, SomeDefaultsDifferFromThoseOfOptionStrings) {
    std::vector<std::string> different;
    for (const SettingRow& row : kSettingRows) {
        if (row.defaultText != findOption(row.optionKey)->defaultText) {
            different.emplace_back(row.key);
        }
    }
    EXPECT_THAT(different,
                ElementsAre("interpolation", "tolerance_translate", "tolerance_color", "tolerance_tex_translate"));
}

// The guide's table has the same rows in the same order.
TEST(ExportSettings, TheGuideNamesEveryKey) {
    std::ifstream in(TVK_SOURCE_DIR "/docs/settings.md");
    std::vector<std::string> rows;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("| `", 0) == 0) {
            rows.push_back(line);
        }
    }
    ASSERT_EQ(rows.size(), kSettingRows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const SettingRow& row = kSettingRows.at(i);
        EXPECT_THAT(rows[i], testing::StartsWith("| `" + std::string(row.key) + "` |"));
        EXPECT_THAT(rows[i], HasSubstr("| `" + std::string(row.optionKey) + "` |"));
        std::string shown(row.defaultText);
        if (row.type == SettingType::kSwitch) {
            shown = shown == "1" ? "on" : "off";
        } else if (row.type == SettingType::kWords) {
            shown = row.words.at(static_cast<std::size_t>(shown[0] - '0'));
        }
        EXPECT_THAT(rows[i], testing::EndsWith("| " + shown + " |"));
        for (const std::string_view word : row.words) {
            EXPECT_THAT(rows[i], HasSubstr(word));
        }
    }
}

} // namespace
} // namespace tvk
