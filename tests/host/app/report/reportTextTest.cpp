#include "host/app/report/reportText.h"

#include "host/app/report/makeReport.h"

#include "SmallFolder.h"

#include <gmock/gmock.h>

namespace host::app::report {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ReportText, TellsAllOfAllFiles) {
    const SmallFolder folder;
    folder.writeAll();
    EXPECT_EQ(reportText(makeReport(folder.read())), R"(Report of out/small
  files: small.imd, small.ica, small.ima, small.itp, small.iva, small.ita

Model
  nodes              3  2 with polygons
  materials          2
  polygons           2  2 matrix groups
  faces             10  6 triangles, 4 quads
  vertices          24  2.4 a face
  polygon cost     216  20 a triangle, 24 a quad
  matrices           3
  matrix loads       3
  matrix switches    3
  strips             2  3.5 faces each on average
  faces in strips    7  70%

Textures, the largest first
  name    format     size  texels  indices  palette  bytes
  sky     direct      8x8     128        0        0    128
  grass   palette16   8x8      32        0       32     64
  tiles   tex4x4      8x8      16        8       16     40
  leaf    palette4    8x8      16        0       16     32
  in all                      192        8       48    248
  Palettes that images share count once in all.

Animation, 3 frames
  file       data                 channels  moving  stored          without sharing  saved
  small.ica  node_scale_data             9       0       1  values                9      8  88%
  small.ica  node_rotate_data            9       2       3  values               13     10  76%
  small.ica  node_translate_data         9       0       1  values                9      8  88%
  small.ica  in all                     27       2       5  values               31     26  83%
  small.ima  mat_color_data             13       0       2  keys                 26     24  92%
  small.itp  tex_pattern_data            1       1       3  keys                  3      0   0%
  small.iva  visibility_data             3       1       3  keys                  5      2  40%
  small.ita  nothing is animated

Most expensive nodes
  name  vertices  polygon cost  matrix loads
)"
                                                     "  \xE3\x83\x86\xE3\x82\xB9        12           120             2"
                                                     R"(
  box         12            96             1

Most expensive materials
  name    vertices  texture bytes
  ground        12            120
  air           12              0

Limits
  vertices       24  of   6144  within
  polygon cost  216  of  40960  within
  matrices        3  of     31  within
)");
}

TEST(ReportText, WhatIsNotThereIsSaidInWords) {
    const SmallFolder folder;
    folder.write("ita", smallPlacementAnimation());
    EXPECT_EQ(reportText(makeReport(folder.read())), R"(Report of out/small
  files: small.ita
  not there: small.imd (model), small.ica (node animation), small.ima (material colour animation), small.itp (texture pattern animation), small.iva (visibility animation)

Animation, 3 frames
  file       data                 channels  moving  stored    without sharing  saved
  small.ita  nothing is animated

Limits: not known without small.imd
)");
}

TEST(ReportText, AModelOfNothingHasNoEmptyTables) {
    const SmallFolder folder;
    folder.write("imd",
                 "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n\n<imd version=\"1.6.0\">\n<body>\n"
                 "<model_info pos_scale=\"0\"/>\n<polygon_array size=\"0\">\n</polygon_array>\n</body>\n</imd>\n");
    EXPECT_EQ(reportText(makeReport(folder.read({"imd"}))), R"(Report of out/small
  files: small.imd
  not there: small.ica (node animation), small.ima (material colour animation), small.itp (texture pattern animation), small.iva (visibility animation), small.ita (texture placement animation)

Model
  nodes            0  0 with polygons
  materials        0
  polygons         0  0 matrix groups
  faces            0  0 triangles, 0 quads
  vertices         0
  polygon cost     0  20 a triangle, 24 a quad
  matrices         0
  matrix loads     0
  matrix switches  0
  strips           0
  faces in strips  0

Textures: none

Limits
  vertices      0  of   6144  within
  polygon cost  0  of  40960  within
  matrices      0  of     31  within
)");
}

TEST(ReportText, OnlyTheFiveMostExpensiveAreListed) {
    Report report;
    report.hasModel = true;
    for (const char* name : {"a", "b", "c", "d", "e", "f"}) {
        report.model.meshNodes.push_back({name, {}});
        report.model.drawn.push_back({std::string("of_") + name, 0, 0});
    }
    const std::string text = reportText(report);
    EXPECT_THAT(text, testing::HasSubstr("\n  e "));
    EXPECT_THAT(text, testing::HasSubstr("\n  of_e "));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("\n  f ")));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("\n  of_f ")));
}

TEST(LimitWarnings, NameWhatIsOverAndByHowMuch) {
    Report report;
    report.base = "out/small";
    report.hasModel = true;
    report.limits = {{"vertices", "vertices", 6145, 6144},
                     {"polygon_cost", "polygon cost", 40960, 40960},
                     {"matrices", "matrices", 40, 31}};
    EXPECT_THAT(limitWarnings(report), ElementsAre("out/small.imd: vertices 6145, over the limit of 6144 by 1",
                                                   "out/small.imd: matrices 40, over the limit of 31 by 9"));
    EXPECT_THAT(reportText(report), testing::EndsWith("\nLimits\n"
                                                      "  vertices       6145  of   6144  over by 1\n"
                                                      "  polygon cost  40960  of  40960  within\n"
                                                      "  matrices         40  of     31  over by 9\n"));
    report.limits.clear();
    EXPECT_THAT(limitWarnings(report), IsEmpty());
}

} // namespace
} // namespace host::app::report
