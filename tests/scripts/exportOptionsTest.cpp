#include "ScriptSession.h"

#include "textFiles.h"

#include "export/exportOptions.h"
#include "export/exportSettings.h"
#include "export/optionTable.h"
#include "export/settingsTable.h"
#include "scene/Run.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

namespace tvk {
namespace {

using Values = std::map<std::string, std::string>;

// The pieces of an option string; a test failure when one is no key and value.
Values valuesOf(const std::string& options) {
    Values values;
    std::istringstream pieces(options);
    for (std::string piece; std::getline(pieces, piece, ';');) {
        const std::size_t equals = piece.find('=');
        EXPECT_NE(equals, std::string::npos) << piece;
        EXPECT_TRUE(values.emplace(piece.substr(0, equals), piece.substr(equals + 1)).second) << piece;
    }
    return values;
}

// What the exporter makes of an option string, key by key.
Values meaningOf(const std::string& options) {
    run().options = {};
    setDefaults(run().options);
    EXPECT_TRUE(parseOptions(MString(options.c_str())));
    Values meaning;
    for (const OptionRow& row : kOptionRows) {
        std::ostringstream text;
        std::visit([&](auto field) { text << testing::PrintToString(run().options.*field); }, row.field);
        meaning[std::string(row.key)] = text.str();
    }
    return meaning;
}

/// The options dialog, open in a window of its own, with nothing stored from before.
class Dialog : public ScriptSession {
public:
    explicit Dialog(const std::string& initial = "") {
        mel("source \"" + sourcePath("scripts/TVK_ExportOpts.mel") +
            "\";"
            "global string $received = \"\";"
            "global proc receive(string $options) { global string $received; $received = $options; }");
        mel("if (`window -exists \"host\"`) { deleteUI \"host\"; }");
        forget();
        open(initial);
    }
    ~Dialog() { forget(); }

    void open(const std::string& initial) {
        mel("window \"host\"; columnLayout \"place\"; TVK_ExportOpts(\"place\", \"post\", \"" + initial +
            "\", \"receive\");");
    }
    void close() { mel("deleteUI \"host\";"); }
    // The host lives on from test to test.
    void forget() { mel("string $name; for ($name in `optionVar -list`) { optionVar -remove $name; }"); }

    std::string query() {
        mel("TVK_ExportOpts(\"place\", \"query\", \"\", \"receive\");");
        return mel("$received;");
    }
    static std::string use(const std::string& key, const std::string& value) {
        return "useControl \"TVK_ExportOpts_" + key + "\" \"" + value + "\";";
    }
    void save(const std::string& path) {
        mel("answerFileDialog \"" + path + "\"; useControl \"TVK_ExportOpts_save\";");
    }
    void load(const std::string& path) {
        mel("answerFileDialog \"" + path + "\"; useControl \"TVK_ExportOpts_load\";");
    }
    std::string write(const std::string& text) const {
        std::ofstream(folder.path("a.z3es"), std::ios_base::binary) << text;
        return folder.path("a.z3es");
    }
};

/// What a user enters, menus by the place of the item from 1 on, and the value that the option string has then. In an
/// order in which each control can be used.
struct Entry {
    const char* key;
    const char* entered;
    const char* value;
};

constexpr Entry kEntries[] = {
    {"ica_file_out", "1", "1"},
    {"ima_file_out", "1", "1"},
    {"itp_file_out", "1", "1"},
    {"iva_file_out", "1", "1"},
    {"ita_file_out", "1", "1"},
    {"magnify", "2.5", "2.5"},
    {"optimize_node", "4", "3"},
    {"force_full_weight", "1", "1"},
    {"use_primitive_strip", "0", "0"},
    {"vertex_table_flag", "2", "1"},
    {"compress_material", "1", "1"},
    {"out_all_tex", "2", "1"},
    {"frame_range", "3", "2"},
    {"start_frame", "-7", "-7"},
    {"end_frame", "120", "120"},
    {"frame_step_mode", "4", "3"},
    {"anime_interp", "2", "1"},
    {"loop_interp", "1", "1"},
    {"anime_tol_t", "0.25", "0.25"},
    {"anime_tol_r", "0.015", "0.015"},
    {"anime_tol_s", "-1", "0"},
    {"anime_tol_c", "40", "31"},
    {"anime_tol_uv_t", "1.5", "1.5"},
    {"anime_tol_uv_r", "12", "12"},
    {"anime_tol_uv_s", "0.001", "0.001"},
    {"use_mtworkbench", "1", "1"},
    {"merge_imd_flag", "1", "1"},
    {"merge_imd_path", "C:/models/a b.imd", "C:/models/a b.imd"},
    {"batch_flag", "1", "1"},
    {"batch_log_path", "/logs/day.log", "/logs/day.log"},
    {"imd_file_out", "0", "0"}, // last: it puts others out of use, and their values stay
};

Values enterAll(Dialog& dialog) {
    Values expected;
    for (const Entry& entry : kEntries) {
        dialog.mel(Dialog::use(entry.key, entry.entered));
        expected[entry.key] = entry.value;
    }
    return expected;
}

// --- the settings files that are none

TEST(ExportOptionsDialog, SaysWhyASettingsFileCannotBeLoaded) {
    Dialog dialog;
    const std::string before = dialog.query();
    const std::string missing = dialog.folder.path("missing.z3es");
    EXPECT_FALSE(dialog.melRuns("TVK_ExportOptsReadSettings(\"" + missing + "\");"));
    ASSERT_FALSE(dialog.errors.empty());
    EXPECT_EQ(dialog.errors.back(), "The settings file cannot be read: " + missing);
    for (const char* text :
         {"", "magnify=\"2\"\n", " # TVK_Export settings\nmagnify=\"2\"\n", "\n# TVK_Export settings\n"}) {
        const std::string path = dialog.write(text);
        EXPECT_FALSE(dialog.melRuns("TVK_ExportOptsReadSettings(\"" + path + "\");")) << text;
        EXPECT_EQ(dialog.errors.back(),
                  "This is no settings file, its first line is not \"# TVK_Export settings\": " + path);
    }
    EXPECT_EQ(dialog.query(), before);
}

TEST(ExportOptionsDialog, SaysWhenASettingsFileCannotBeWritten) {
    Dialog dialog;
    const std::string path = dialog.folder.path("none/a.z3es");
    EXPECT_FALSE(dialog.melRuns("TVK_ExportOptsWriteSettings(\"" + path + "\");"));
    ASSERT_FALSE(dialog.errors.empty());
    EXPECT_EQ(dialog.errors.back(), "The settings file cannot be written: " + path);
}

TEST(ExportOptionsDialog, WarnsOfAPathThatAnOptionCannotHold) {
    for (const char* path : {"/a;b.log", "/a=b.log"}) {
        Dialog dialog("batch_flag=1;");
        dialog.mel(Dialog::use("batch_log_path", path));
        EXPECT_EQ(valuesOf(dialog.query())["batch_log_path"], "");
        ASSERT_EQ(dialog.warnings.size(), 1u);
        EXPECT_EQ(dialog.warnings[0], std::string("A path with ';' or '=' cannot be used: ") + path);
    }
}

// --- the option string

TEST(ExportOptionsDialog, BeginsWithTheDefaultsOfEveryKey) {
    Dialog dialog;
    const std::string options = dialog.query();
    EXPECT_EQ(valuesOf(options).size(), kOptionRows.size());
    for (const OptionRow& row : kOptionRows) {
        EXPECT_EQ(valuesOf(options).count(std::string(row.key)), 1u) << row.key;
    }
    EXPECT_EQ(meaningOf(options), meaningOf(""));
}

TEST(ExportOptionsDialog, EveryControlReachesTheOptionString) {
    static_assert(std::size(kEntries) == kOptionRows.size());
    Dialog dialog;
    const Values before = valuesOf(dialog.query());
    const Values expected = enterAll(dialog);
    ASSERT_EQ(expected.size(), kOptionRows.size());
    EXPECT_EQ(valuesOf(dialog.query()), expected);
    for (const auto& [key, value] : before) {
        EXPECT_NE(expected.at(key), value) << key;
    }
}

TEST(ExportOptionsDialog, OpensWithAnOptionString) {
    Dialog dialog;
    enterAll(dialog);
    const std::string options = dialog.query();
    dialog.close();
    dialog.forget();
    dialog.open(options);
    EXPECT_EQ(dialog.query(), options);
}

TEST(ExportOptionsDialog, OpensWithTheValuesOfTheLastTime) {
    Dialog dialog;
    enterAll(dialog);
    const std::string options = dialog.query();
    dialog.close();
    dialog.open("");
    EXPECT_EQ(dialog.query(), options);
}

TEST(ExportOptionsDialog, AnswersWhileItIsClosed) {
    Dialog dialog("magnify=3;");
    dialog.close();
    EXPECT_EQ(valuesOf(dialog.query())["magnify"], "3");
}

TEST(ExportOptionsDialog, TakesOptionStringsAsTheExporterDoes) {
    for (const std::string options :
         {"optimize_node=2;unknown=1;magnify", "anime_tol_c=40;anime_tol_t=-1;", "frame_range=7;start_frame=abc;",
          "imd_file_out=0;imd_file_out=5;", "merge_imd_path=/a=b;magnify=0.5=2", ";;=3;magnify=;ica_file_out=1"}) {
        Dialog dialog(options);
        Values expected = meaningOf(options);
        if (options.find("frame_range=7") == 0) {
            expected["frame_range"] = "2"; // any number but 0 and 1 means the same
        }
        EXPECT_EQ(meaningOf(dialog.query()), expected) << options;
    }
}

TEST(ExportOptionsDialog, PassesQuotesAndBackslashes) {
    Dialog dialog("batch_flag=1;");
    dialog.mel(Dialog::use("batch_log_path", "C:\\\\new \\\"a\\\".log"));
    EXPECT_EQ(valuesOf(dialog.query())["batch_log_path"], "C:\\new \"a\".log");
}

TEST(ExportOptionsDialog, RefusesActionsThatItDoesNotKnow) {
    Dialog dialog;
    EXPECT_EQ(dialog.mel("TVK_ExportOpts(\"place\", \"dance\", \"\", \"receive\");"), "0");
    EXPECT_EQ(dialog.mel("TVK_ExportOpts(\"\", \"post\", \"\", \"receive\");"), "0");
}

// --- controls that matter

struct Dependence {
    const char* key;
    const char* without;
    const char* with;
};

TEST(ExportOptionsDialog, OnlyWhatMattersIsEnabled) {
    constexpr Dependence kRows[] = {
        {"force_full_weight", "imd_file_out=0;", ""},
        {"use_primitive_strip", "imd_file_out=0;", ""},
        {"vertex_table_flag", "imd_file_out=0;", ""},
        {"out_all_tex", "imd_file_out=0;", ""},
        {"start_frame", "frame_range=1;", "frame_range=2;"},
        {"end_frame", "", "frame_range=2;"},
        {"anime_interp", "iva_file_out=1;", "ima_file_out=1;"},
        {"loop_interp", "ica_file_out=1;", "ica_file_out=1;anime_interp=2;"},
        {"loop_interp", "anime_interp=1;", "ita_file_out=1;anime_interp=1;"},
        {"frame_step_mode", "ica_file_out=1;anime_interp=2;", "ica_file_out=1;"},
        {"anime_tol_t", "ima_file_out=1;", "ica_file_out=1;"},
        {"anime_tol_c", "ica_file_out=1;", "ima_file_out=1;"},
        {"anime_tol_uv_s", "ica_file_out=1;", "ita_file_out=1;"},
        {"merge_imd_flag", "", "use_mtworkbench=1;"},
        {"merge_imd_path", "merge_imd_flag=1;", "use_mtworkbench=1;merge_imd_flag=1;"},
        {"batch_log_path", "", "batch_flag=1;"},
    };
    for (const Dependence& row : kRows) {
        Dialog without(row.without);
        EXPECT_FALSE(without.melRuns(Dialog::use(row.key, "1"))) << row.key << " " << row.without;
        without.close();
        Dialog with(row.with);
        EXPECT_TRUE(with.melRuns(Dialog::use(row.key, "1"))) << row.key << " " << row.with;
    }
}

// --- settings files

TEST(ExportOptionsDialog, SavesSettingsThatBatchesRead) {
    Dialog dialog;
    Values expected = enterAll(dialog);
    const std::string path = dialog.folder.path("a.z3es");
    dialog.save(path);
    MString options;
    bool outputs[6];
    ASSERT_TRUE(readExportSettings(options, outputs, MString(path.c_str())));
    const Values read = valuesOf(options.asChar());
    EXPECT_EQ(read.size(), kSettingRows.size());
    for (const auto& [key, value] : read) {
        EXPECT_EQ(value, expected[key]) << key;
    }
}

TEST(ExportOptionsDialog, LoadsWhatItSaved) {
    Dialog dialog;
    enterAll(dialog);
    const Values saved = valuesOf(dialog.query());
    const std::string path = dialog.folder.path("a.z3es");
    dialog.save(path);
    dialog.close();
    dialog.forget();
    dialog.open("");
    dialog.load(path);
    const Values loaded = valuesOf(dialog.query());
    for (const SettingRow& row : kSettingRows) {
        EXPECT_EQ(loaded.at(std::string(row.optionKey)), saved.at(std::string(row.optionKey))) << row.key;
    }
    EXPECT_EQ(loaded.at("batch_flag"), "0"); // has no setting
}

TEST(ExportOptionsDialog, SaysThatKeyInterpolationHasNoSetting) {
    Dialog dialog("ica_file_out=1;anime_interp=2;");
    dialog.save(dialog.folder.path("a.z3es"));
    ASSERT_EQ(dialog.warnings.size(), 1u);
    EXPECT_EQ(dialog.warnings[0], "Key interpolation has no setting: the file says \"linear\"");
    EXPECT_NE(dialog.fileText("a.z3es").find("\ninterpolation=\"linear\"\n"), std::string::npos);
}

TEST(ExportOptionsDialog, BrowsesForAPath) {
    Dialog dialog("batch_flag=1;");
    dialog.mel("answerFileDialog \"/logs/a.log\"; TVK_ExportOptsBrowse \"batch_log_path\";");
    EXPECT_EQ(valuesOf(dialog.query())["batch_log_path"], "/logs/a.log");
    dialog.mel("TVK_ExportOptsBrowse \"batch_log_path\";");
    EXPECT_EQ(valuesOf(dialog.query())["batch_log_path"], "/logs/a.log"); // cancelled
}

TEST(ExportOptionsDialog, CancellingAFileDialogChangesNothing) {
    Dialog dialog("magnify=3;");
    const std::string before = dialog.query();
    dialog.mel("useControl \"TVK_ExportOpts_load\"; useControl \"TVK_ExportOpts_save\";");
    EXPECT_EQ(dialog.query(), before);
}

TEST(ExportOptionsDialog, LoadsSettingsAsBatchesReadThem) {
    const std::string header = "# TVK_Export settings";
    const std::string texts[] = {
        header,
        header + " of the hero\r\nmagnify=\"2\"\r\noutput_ica=\"on\"\r\n",
        "\xEF\xBB\xBF" + header + "\nmagnify=\"4\"",
        header + "\nmagnify=2\nstart_frame = \"5\"\nend_frame=\t \"7\" later\n",
        header + "\nmagnify =\"2\"\n#magnify=\"3\"\n=\"4\"\nfoo=\"5\"\n\nmagnify\n",
        header + "\ncompress_node=\"unite\"\ncompress_node=\"Cull\"\nframe_step_mode=\"4\"\ninterpolation=\"key\"\n",
        header + "\noutput_imd=\"ON\"\noutput_iva=\"on\"\nvertex_style=\"index\"\noutput_texture=\"all\"\n",
        header +
            "\ntolerance_color=\"99\"\ntolerance_rotate=\"-1\"\ntolerance_scale=\"x\"\nmagnify=\"2\nend_frame=\"8\"",
        header + "\nmagnify=" + std::string(2037, ' ') + "\"3\"\nmagnify=\"2\"x\n",
        header + "\nmagnify=\"2\"\nmagnify=" + std::string(2038, ' ') + "\"3\"\n",
        header + "\nmagnify=\"a\" \"3\"\nstart_frame=\"\"\nend_frame=\"12;3\"\n",
    };
    for (const std::string& text : texts) {
        Dialog dialog;
        dialog.load(dialog.write(text));
        std::istringstream in(text);
        ExportSettings settings;
        ASSERT_TRUE(parseExportSettings(in, settings)) << text;
        EXPECT_EQ(meaningOf(dialog.query()), meaningOf(settings.optionString)) << text;
    }
}

} // namespace
} // namespace tvk
