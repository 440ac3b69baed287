#include "host/app/report/reportJson.h"

#include "host/app/report/makeReport.h"
#include "host/app/report/reportText.h"

#include "SmallFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <clocale>
#include <locale>

namespace host::app::report {
namespace {

using testing::ElementsAre;
using Json = nlohmann::ordered_json;

std::string smallJson() {
    const SmallFolder folder;
    folder.writeAll();
    return reportJson(makeReport(folder.read()));
}

std::vector<std::string> keysOf(const Json& object) {
    std::vector<std::string> keys;
    for (const auto& item : object.items()) {
        keys.push_back(item.key());
    }
    return keys;
}

TEST(ReportJson, KeysStandInTheirOrder) {
    const Json json = Json::parse(smallJson());
    EXPECT_THAT(keysOf(json),
                ElementsAre("format", "base", "files", "within_limits", "limits", "model", "textures", "animations"));
    EXPECT_THAT(keysOf(json["files"][0]), ElementsAre("name", "kind", "present", "bytes"));
    EXPECT_THAT(keysOf(json["limits"][0]), ElementsAre("name", "used", "limit", "over"));
    EXPECT_THAT(keysOf(json["model"]),
                ElementsAre("nodes", "nodes_with_polygons", "materials", "polygons", "matrix_groups", "triangles",
                            "quads", "vertices", "polygon_cost", "matrices", "matrix_loads", "matrix_switches",
                            "strips", "faces_in_strips", "primitives", "most_expensive_nodes",
                            "most_expensive_materials"));
    EXPECT_THAT(keysOf(json["model"]["primitives"][0]), ElementsAre("type", "count", "faces", "vertices"));
    EXPECT_THAT(keysOf(json["model"]["most_expensive_nodes"][0]),
                ElementsAre("name", "vertices", "polygon_cost", "matrix_loads", "matrix_switches"));
    EXPECT_THAT(keysOf(json["model"]["most_expensive_materials"][0]), ElementsAre("name", "vertices", "texture_bytes"));
    EXPECT_THAT(keysOf(json["textures"]), ElementsAre("texel_bytes", "index_bytes", "palette_bytes", "bytes", "images",
                                                      "palettes", "most_expensive_images"));
    EXPECT_THAT(keysOf(json["textures"]["images"][0]), ElementsAre("name", "format", "width", "height", "texel_bytes",
                                                                   "index_bytes", "palette", "palette_bytes", "bytes"));
    EXPECT_THAT(keysOf(json["textures"]["palettes"][0]), ElementsAre("name", "colors", "bytes", "images"));
    EXPECT_THAT(keysOf(json["animations"][0]),
                ElementsAre("kind", "frames", "stored", "without_sharing", "saved", "pools"));
    EXPECT_THAT(keysOf(json["animations"][0]["pools"][0]),
                ElementsAre("name", "unit", "channels", "moving", "stored", "without_sharing", "saved"));
}

TEST(ReportJson, ValuesAreThoseOfTheFiles) {
    const Json json = Json::parse(smallJson());
    EXPECT_EQ(json["format"], 1);
    EXPECT_EQ(json["base"], "out/small");
    EXPECT_EQ(json["files"].size(), 6U);
    EXPECT_EQ(json["files"][0],
              Json({{"name", "small.imd"}, {"kind", "imd"}, {"present", true}, {"bytes", smallModel().size()}}));
    EXPECT_EQ(json["within_limits"], true);
    EXPECT_EQ(json["limits"][1], Json({{"name", "polygon_cost"}, {"used", 216}, {"limit", 40960}, {"over", 0}}));
    EXPECT_EQ(json["model"]["vertices"], 24);
    EXPECT_EQ(json["model"]["faces_in_strips"], 7);
    EXPECT_EQ(json["model"]["primitives"][1],
              Json({{"type", "triangle_strip"}, {"count", 1}, {"faces", 4}, {"vertices", 6}}));
    EXPECT_EQ(json["model"]["most_expensive_nodes"][0]["name"], "\xE3\x83\x86\xE3\x82\xB9");
    EXPECT_EQ(json["textures"]["bytes"], 248);
    EXPECT_EQ(json["textures"]["images"][0]["palette"], nullptr);
    EXPECT_EQ(json["textures"]["images"][2]["index_bytes"], 8);
    EXPECT_EQ(json["textures"]["most_expensive_images"], Json({"sky", "grass", "tiles", "leaf"}));
    EXPECT_EQ(json["animations"].size(), 5U);
    EXPECT_EQ(json["animations"][0]["stored"], 1 + 3 + 1);
    EXPECT_EQ(json["animations"][0]["without_sharing"], 9 + 13 + 9);
    EXPECT_EQ(json["animations"][0]["saved"], 26);
    EXPECT_EQ(json["animations"][0]["pools"][1]["saved"], 10);
    EXPECT_EQ(json["animations"][4]["pools"], Json::array());
}

TEST(ReportJson, WhatIsNotThereIsNull) {
    const SmallFolder folder;
    folder.write("ita", smallPlacementAnimation());
    const Json json = Json::parse(reportJson(makeReport(folder.read())));
    EXPECT_EQ(json["files"][0], Json({{"name", "small.imd"}, {"kind", "imd"}, {"present", false}, {"bytes", 0}}));
    EXPECT_EQ(json["within_limits"], nullptr);
    EXPECT_EQ(json["limits"], Json::array());
    EXPECT_EQ(json["model"], nullptr);
    EXPECT_EQ(json["textures"], nullptr);
}

// Groups digits, as streams do in a country that does.
class GroupingDigits : public std::numpunct<char> {
protected:
    char do_thousands_sep() const override { return '.'; }
    char do_decimal_point() const override { return ','; }
    std::string do_grouping() const override { return "\1"; }
};

TEST(ReportJson, NumbersAndTextAreTheSameInEveryLocale) {
    const SmallFolder folder;
    folder.writeAll();
    const std::string plain = reportJson(makeReport(folder.read())) + reportText(makeReport(folder.read()));
    const std::string oldC = std::setlocale(LC_ALL, nullptr);
    const std::locale oldStreams = std::locale::global(std::locale(std::locale(), new GroupingDigits));
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // stays as it is where the system lacks it
    const std::string foreign = reportJson(makeReport(folder.read())) + reportText(makeReport(folder.read()));
    std::locale::global(oldStreams);
    std::setlocale(LC_ALL, oldC.c_str());
    EXPECT_EQ(foreign, plain);
    EXPECT_THAT(plain, testing::HasSubstr("216"));
}

TEST(ReportJson, BytesThatAreNoTextDoNotSpoilIt) {
    Report report;
    report.base = "out/\xFF";
    EXPECT_EQ(Json::parse(reportJson(report))["base"], "out/\xEF\xBF\xBD");
}

} // namespace
} // namespace host::app::report
