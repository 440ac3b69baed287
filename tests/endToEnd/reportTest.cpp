// What --report and --report-of tell, held against counts of the files' own words, which need no reader of the format.

#include "FinishedProgram.h"
#include "guidePages.h"
#include "sceneText.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Json = nlohmann::json;

std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::int64_t countOf(const std::string& text, const std::string& words) {
    std::int64_t count = 0;
    for (std::size_t at = text.find(words); at != std::string::npos; at = text.find(words, at + words.size())) {
        ++count;
    }
    return count;
}

// What stands in the first group of each match.
std::vector<std::string> allOf(const std::string& text, const std::string& pattern) {
    std::vector<std::string> found;
    const std::regex expression(pattern);
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        found.push_back((*at)[1].str());
    }
    return found;
}

std::int64_t sumOf(const std::vector<std::string>& numbers) {
    std::int64_t sum = 0;
    for (const std::string& number : numbers) {
        sum += std::stoll(number);
    }
    return sum;
}

// Words of hexadecimal digits in all elements of a name, in bytes.
std::int64_t wordBytes(const std::string& text, const std::string& element) {
    std::int64_t digits = 0;
    for (std::size_t at = text.find("<" + element + " "); at != std::string::npos;
         at = text.find("<" + element + " ", at)) {
        at = text.find('>', at) + 1;
        const std::size_t end = text.find("</" + element + ">", at);
        for (; at < end; ++at) {
            digits += text[at] > ' ' ? 1 : 0;
        }
    }
    return digits / 2;
}

struct SampleRow {
    const char* name;
    std::vector<std::string> arguments;
};

class ReportedSample : public testing::TestWithParam<SampleRow> {
protected:
    // The sample exported in a folder of its own, and what the report says.
    void SetUp() override {
        std::vector<std::string> arguments = {std::string(TVK_SAMPLES "/") + GetParam().name + ".ma",
                                              "-o",
                                              "sample",
                                              "--report",
                                              "--report-json",
                                              "report.json"};
        arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
        run = program.run(arguments);
        ASSERT_EQ(run.status, 0) << run.error;
        model = program.bytes("sample.imd");
        report = Json::parse(program.bytes("report.json"));
    }

    FinishedProgram program;
    ProgramRun run;
    std::string model;
    Json report;
};

TEST_P(ReportedSample, WhatIsSentIsWhatTheFileSends) {
    const Json& counts = report["model"];
    EXPECT_EQ(counts["vertices"], countOf(model, "<pos_"));
    EXPECT_EQ(counts["matrix_switches"], countOf(model, "<mtx idx="));
    EXPECT_EQ(counts["polygons"], countOf(model, "<polygon index="));
    EXPECT_EQ(counts["matrix_groups"], countOf(model, "<mtx_prim index="));
    EXPECT_EQ(counts["matrices"], countOf(model, "<matrix index="));
    EXPECT_EQ(counts["materials"], countOf(model, "<material index="));
    EXPECT_EQ(counts["nodes"], countOf(model, "<node index="));
    std::int64_t loads = 0;
    for (const std::string& list : allOf(model, "<mtx_list size=\"[0-9]+\">([-0-9 ]*)</mtx_list>")) {
        loads += static_cast<std::int64_t>(allOf(list + " ", "(?:^| )([0-9]+)(?= )").size());
    }
    EXPECT_EQ(counts["matrix_loads"], loads);
    const std::int64_t triangles = sumOf(allOf(model, "output_info[^/]*triangle_size=\"([0-9]+)\""));
    const std::int64_t quads = sumOf(allOf(model, "output_info[^/]*quad_size=\"([0-9]+)\""));
    EXPECT_EQ(counts["triangles"], triangles);
    EXPECT_EQ(counts["quads"], quads);
    EXPECT_EQ(counts["polygon_cost"], triangles * 20 + quads * 24);
}

TEST_P(ReportedSample, StripsAreThoseOfTheFile) {
    std::int64_t faces = 0;
    struct Row {
        const char* type;
        int behindFirst, each; // vertices
    };
    for (const Row& row : {Row{"quad_strip", 2, 2}, Row{"triangle_strip", 2, 1}}) {
        for (const std::string& size :
             allOf(model, std::string("type=\"") + row.type + "\" vertex_size=\"([0-9]+)\"")) {
            faces += (std::stoll(size) - row.behindFirst) / row.each;
        }
    }
    EXPECT_EQ(report["model"]["strips"], countOf(model, "_strip\" vertex_size="));
    EXPECT_EQ(report["model"]["faces_in_strips"], faces);
}

TEST_P(ReportedSample, TextureMemoryIsThatOfTheWordsInTheFile) {
    EXPECT_EQ(report["textures"]["texel_bytes"], wordBytes(model, "bitmap"));
    EXPECT_EQ(report["textures"]["index_bytes"], wordBytes(model, "tex4x4_palette_idx"));
    EXPECT_EQ(report["textures"]["palette_bytes"], wordBytes(model, "tex_palette"));
    EXPECT_EQ(report["textures"]["images"].size(), static_cast<std::size_t>(countOf(model, "<tex_image index=")));
}

TEST_P(ReportedSample, AnimationDataIsWhatTheFilesHold) {
    std::size_t files = 0;
    for (const char* kind : {"ica", "ima", "itp", "iva", "ita"}) {
        const std::string path = program.path(std::string("sample.") + kind);
        if (!std::filesystem::exists(path)) {
            continue;
        }
        const std::string text = bytesOf(path);
        ASSERT_LT(files, report["animations"].size()) << kind;
        const Json& found = report["animations"][files++];
        EXPECT_EQ(found["kind"], kind);
        EXPECT_EQ(found["frames"], sumOf(allOf(text, "frame_size=\"([0-9]+)\""))) << kind;
        EXPECT_EQ(found["stored"], sumOf(allOf(text, "<(?:[a-z_]*_data|frame_idx) size=\"([0-9]+)\""))) << kind;
        EXPECT_EQ(found["without_sharing"], sumOf(allOf(text, "data_size=\"([0-9]+)\""))) << kind;
    }
    EXPECT_EQ(files, report["animations"].size());
}

TEST_P(ReportedSample, TextAndJsonAgree) {
    EXPECT_THAT(run.out, HasSubstr("Report of sample\n"));
    EXPECT_THAT(run.out, EndsWith("  within\n"));
    EXPECT_EQ(countOf(run.out, "  within\n"), 3);
    EXPECT_EQ(report["within_limits"], true);
    // The same files tell the same again, without the scene.
    const ProgramRun again = program.run({"--report-of", "sample", "--report-json", "again.json"});
    EXPECT_EQ(again.status, 0) << again.error;
    EXPECT_EQ(program.bytes("again.json"), program.bytes("report.json"));
    EXPECT_THAT(run.out, EndsWith(again.out.substr(again.out.find("Report of "))));
}

INSTANTIATE_TEST_SUITE_P(Samples, ReportedSample,
                         testing::Values(SampleRow{"walk",
                                                   {"--kinds", "imd,ica,ima,itp,iva,ita", "--set", "anime_interp=1",
                                                    "--set", "frame_step_mode=0"}},
                                         SampleRow{"golem", {"--kinds", "imd,ica"}},
                                         SampleRow{"materials", {"--set", "compress_material=1"}}),
                         [](const testing::TestParamInfo<SampleRow>& row) { return std::string(row.param.name); });

TEST(Report, IsWhatThePageAboutItShows) {
    const FinishedProgram program;
    ASSERT_EQ(program.run({TVK_SAMPLES "/golem.ma", "-o", "golem", "--kinds", "imd,ica"}).status, 0);
    EXPECT_EQ(program.run({"--report-of", "golem"}).out, guideBlock("report.md", "Report of golem\n"));
}

TEST(Report, ThePageNamesEveryKeyOfTheJson) {
    const FinishedProgram program;
    ASSERT_EQ(
        program.run({TVK_SAMPLES "/walk.ma", "-o", "walk", "--kinds", "imd,ica", "--report-json", "r.json"}).status, 0);
    const std::string page = guidePage("report.md");
    std::vector<Json> objects = {Json::parse(program.bytes("r.json"))};
    while (!objects.empty()) {
        const Json object = objects.back();
        objects.pop_back();
        for (const auto& item : object.items()) {
            if (object.is_object()) {
                EXPECT_THAT(page, HasSubstr("`" + item.key() + "`"));
            }
            if (item.value().is_structured()) {
                objects.push_back(item.value());
            }
        }
    }
}

// A model of `count` lone triangles on each of several nodes: 3 vertices and 20 of polygon cost a triangle.
std::string trianglesScene(int nodes, int count) {
    std::string text;
    for (int node = 0; node < nodes; ++node) {
        const std::string name = "n" + std::to_string(node);
        const std::string n = std::to_string(count);
        const std::string last = std::to_string(count * 3 - 1);
        text += "createNode transform -n \"" + name + "\" -p \"all\";\ncreateNode mesh -n \"" + name + "Shape\" -p \"" +
                name + "\";\n\tsetAttr -s " + std::to_string(count * 3) + " \".vt[0:" + last + "]\"";
        for (int i = 0; i < count; ++i) {
            const std::string y = std::to_string(i);
            text += " 0 " + y + " 0 1 " + y + " 0 0 " + y + " 1\n";
        }
        text += ";\n\tsetAttr -s " + std::to_string(count * 3) + " \".ed[0:" + last + "]\"";
        for (int i = 0; i < count * 3; i += 3) {
            const std::string a = std::to_string(i), b = std::to_string(i + 1), c = std::to_string(i + 2);
            text += " " + a + " " + b + " 0 " + b + " " + c + " 0 " + c + " " + a + " 0\n";
        }
        text += ";\n\tsetAttr -s " + n + " \".fc[0:" + std::to_string(count - 1) + "]\" -type \"polyFaces\"";
        for (int i = 0; i < count * 3; i += 3) {
            text += "\n\tf 3 " + std::to_string(i) + " " + std::to_string(i + 1) + " " + std::to_string(i + 2);
        }
        text += ";\nconnectAttr \"" + name + "Shape.iog\" \":initialShadingGroup.dsm\" -na;\n";
    }
    return sceneOf("createNode transform -n \"all\";\n" + text);
}

TEST(Report, LimitsThatArePassedAreWarningsAndVerdicts) {
    const FinishedProgram program;
    program.write("many.ma", trianglesScene(32, 65)); // 2080 triangles: 6240 vertices, 41600, 32 matrices
    const std::vector<std::string> report = {"--report-of", "many"};
    ASSERT_EQ(program.run({"many.ma"}).status, 0);
    const ProgramRun run = program.run(report);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errorLines(), ElementsAre("Warning: many.imd: vertices 6240, over the limit of 6144 by 96",
                                              "Warning: many.imd: polygon cost 41600, over the limit of 40960 by 640",
                                              "Warning: many.imd: matrices 32, over the limit of 31 by 1"));
    EXPECT_THAT(run.out, EndsWith("\nLimits\n"
                                  "  vertices       6240  of   6144  over by 96\n"
                                  "  polygon cost  41600  of  40960  over by 640\n"
                                  "  matrices         32  of     31  over by 1\n"));
    EXPECT_EQ(program.run({"--report-of", "many", "--strict", "-q"}).status, 2);
    EXPECT_EQ(program.run({"--report-of", "many", "-q"}).out, "");
    const ProgramRun exported = program.run({"many.ma", "--report-json", "r.json", "--strict"});
    EXPECT_EQ(exported.status, 2);
    EXPECT_THAT(exported.out, Not(HasSubstr("Report of")));
    EXPECT_EQ(Json::parse(program.bytes("r.json"))["within_limits"], false);
}

TEST(Report, AModelWithinItsLimitsIsNoWarning) {
    const FinishedProgram program;
    program.write("few.ma", trianglesScene(1, 65));
    const ProgramRun run = program.run({"few.ma", "--report", "--strict"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, HasSubstr("  vertices       195  of   6144  within\n"));
    EXPECT_THAT(run.errorLines(), IsEmpty());
}

TEST(Report, OnlyWhatTheExportWroteIsReported) {
    const FinishedProgram program;
    program.write("few.ma", trianglesScene(1, 2));
    program.write("few.iva", "of something else");
    const ProgramRun run = program.run({"few.ma", "--report"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, HasSubstr("  files: few.imd\n  not there: few.ica (node animation), "));
    const ProgramRun all = program.run({"--report-of", "few.imd"});
    EXPECT_EQ(all.status, 1);
    EXPECT_THAT(all.error, StartsWith("Error: few.iva: line 1: "));
    EXPECT_EQ(all.errorLines().size(), 1U);
    EXPECT_EQ(all.out, "");
}

TEST(Report, FilesOfDifferentModelsAreToldByName) {
    const FinishedProgram program;
    program.write("one.ma", trianglesScene(1, 2));
    program.write("two.ma", trianglesScene(2, 2));
    ASSERT_EQ(program.run({"one.ma", "-o", "base"}).status, 0);
    ASSERT_EQ(program.run({"two.ma", "-o", "base", "--kinds", "ica"}).status, 0);
    const ProgramRun run = program.run({"--report-of", "base", "--report-json", "r.json"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: base.ica and base.imd are of different exports: it has 3 nodes, the model has 2\n");
    EXPECT_FALSE(std::filesystem::exists(program.path("r.json")));
}

TEST(Report, WhatCannotBeReadOrWrittenIsTold) {
    const FinishedProgram program;
    ProgramRun run = program.run({"--report-of", "none"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: there are no exported files: none.imd, .ica, .ima, .itp, .iva, .ita\n");
    std::filesystem::create_directory(program.path("folder.imd"));
    run = program.run({"--report-of", "folder"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: folder.imd is no file\n");
    program.write("few.ma", trianglesScene(1, 2));
    run = program.run({"few.ma", "--report-json", "nowhere/r.json"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: the report cannot be written: nowhere/r.json\n");
}

TEST(Report, AFileCutOffAnywhereIsToldInOneLine) {
    const FinishedProgram program;
    ASSERT_EQ(program.run({TVK_SAMPLES "/walk.ma", "-o", "walk", "--kinds", "imd,ica,itp,iva"}).status, 0);
    for (const char* kind : {"imd", "ica", "itp", "iva"}) {
        const std::string name = std::string("walk.") + kind;
        const std::string whole = program.bytes(name);
        for (const std::size_t share : {0U, 1U, 50U, 99U}) {
            program.write(name, whole.substr(0, whole.size() * share / 100));
            const ProgramRun run = program.run({"--report-of", "walk"});
            EXPECT_EQ(run.status, 1) << name << ' ' << share;
            EXPECT_THAT(run.error, StartsWith("Error: " + name + ": line ")) << share;
            EXPECT_EQ(run.errorLines().size(), 1U) << run.error;
        }
        program.write(name, whole);
    }
    EXPECT_EQ(program.run({"--report-of", "walk"}).status, 0);
}

} // namespace
} // namespace tvk
