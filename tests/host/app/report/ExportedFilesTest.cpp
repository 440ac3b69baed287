#include "host/app/report/ExportedFiles.h"

#include "SmallFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace host::app::report {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string errorOf(const SmallFolder& folder) {
    try {
        folder.read();
    } catch (const ReportError& error) {
        return error.what();
    }
    return "";
}

TEST(ExportedFiles, NothingIsNoExport) {
    EXPECT_EQ(errorOf(SmallFolder()), "there are no exported files: out/small.imd, .ica, .ima, .itp, .iva, .ita");
}

TEST(ExportedFiles, AFolderIsNoFile) {
    const SmallFolder folder;
    std::filesystem::create_directory(folder.base() + ".imd");
    EXPECT_EQ(errorOf(folder), "out/small.imd is no file");
}

struct DamageRow {
    const char* kind;
    std::string from, to;
    int line;             // where the reader stumbles
    const char* mentions; // in UTF-8
};

class DamagedFile : public testing::TestWithParam<DamageRow> {};

TEST_P(DamagedFile, IsToldByNameAndLine) {
    const DamageRow& row = GetParam();
    const SmallFolder folder;
    folder.writeAll();
    folder.write(row.kind, changed(folder.text(row.kind), row.from, row.to));
    const std::string error = errorOf(folder);
    EXPECT_THAT(error, StartsWith(std::string("out/small.") + row.kind + ": line " + std::to_string(row.line) + ": "));
    EXPECT_THAT(error, HasSubstr(row.mentions));
    EXPECT_EQ(error.find('\n'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(All, DamagedFile,
                         testing::Values(DamageRow{"imd", "</body>", "", 236, "body"},
                                         DamageRow{"imd", "vertex_size=\"8\"", "vertex_size=\"9\"", 176, "vertex_size"},
                                         DamageRow{"imd", "0000\n0000", "0000", 14, "bitmap"},
                                         DamageRow{"ica", "data_size=\"3\"", "data_size=\"4\"", 40, "rotate_x"},
                                         DamageRow{"ima", "31.000000", "\x83\x65", 12, "\xE3\x83\x86"},
                                         DamageRow{"ita", "<ita", "<ica", 14, "ita"},
                                         DamageRow{"itp", "0 1 2", "0 2 1", 27, "tex_pattern_anm"},
                                         DamageRow{"iva", "1 0 1", "1 1 1", 20, "visibility_anm"}));

struct MixRow {
    const char* kind;
    std::string from, to;
    const char* error;
};

class MixedFiles : public testing::TestWithParam<MixRow> {};

TEST_P(MixedFiles, AreToldByWhatDoesNotAgree) {
    const MixRow& row = GetParam();
    const SmallFolder folder;
    folder.writeAll();
    folder.write(row.kind, changed(folder.text(row.kind), row.from, row.to));
    EXPECT_EQ(errorOf(folder), row.error);
}

INSTANTIATE_TEST_SUITE_P(
    All, MixedFiles,
    testing::Values(MixRow{"iva",
                           "<visibility_anm_array size=\"3\">\n<visibility_anm index=\"0\" data_size=\"1\" "
                           "data_head=\"0\"/>\n<visibility_anm index=\"1\" data_size=\"1\" data_head=\"0\"/>\n"
                           "<visibility_anm index=\"2\"",
                           "<visibility_anm_array size=\"1\">\n<visibility_anm index=\"0\"",
                           "small.iva and small.imd are of different exports: it has 1 nodes, the model has 3"},
                    MixRow{
                        "ima", "\"ground\"", "\"\x83\x65\"",
                        "small.ima and small.imd are of different exports: the model has no material '\xE3\x83\x86'"},
                    MixRow{"itp", "name=\"leaf\"", "name=\"lea\"",
                           "small.itp and small.imd are of different exports: the model has no image 'lea'"},
                    MixRow{"itp", "\"ground\"", "\"groun\"",
                           "small.itp and small.imd are of different exports: the model has no material 'groun'"},
                    MixRow{"itp", "tool_start_frame=\"1\"", "tool_start_frame=\"2\"",
                           "small.itp and small.ima are of different exports: 3 frames from 2, and 3 frames from 1"}));

TEST(ExportedFiles, NodesMustBeAsManyAsTheModelHas) {
    const SmallFolder folder;
    folder.writeAll();
    const std::string whole = smallNodeAnimation();
    const std::size_t last = whole.find("<node_anm index=\"2\"");
    const std::string cut = whole.substr(0, last) + whole.substr(whole.find("</node_anm_array>"));
    folder.write("ica", changed(cut, "<node_anm_array size=\"3\"", "<node_anm_array size=\"2\""));
    EXPECT_EQ(errorOf(folder), "small.ica and small.imd are of different exports: it has 2 nodes, the model has 3");
}

TEST(ExportedFiles, AreReadWhenTheyAreThereAndAskedFor) {
    const SmallFolder folder;
    folder.writeAll();
    const ExportedFiles all = folder.read();
    EXPECT_EQ(all.sizes.size(), 6U);
    EXPECT_TRUE(all.model && all.nodes && all.colors && all.patterns && all.visibilities && all.placements);
    EXPECT_EQ(all.sizes.front().bytes, smallModel().size());
    EXPECT_EQ(all.nameOf("iva"), "small.iva");
    const ExportedFiles some = folder.read({"imd", "iva"});
    EXPECT_TRUE(some.bytesOf("imd") && some.bytesOf("iva") && !some.bytesOf("ica"));
    EXPECT_FALSE(some.nodes || some.colors || some.patterns || some.placements);
}

TEST(ExportedFiles, AFileOfAnotherKindIsToldByName) {
    const SmallFolder folder;
    folder.write("ica", smallPlacementAnimation());
    EXPECT_EQ(errorOf(folder), "out/small.ica: line 3: ita: is no ica file");
}

TEST(ExportedFiles, APatternFileBringsItsOwnImagesWhenThereIsNoModel) {
    const SmallFolder folder;
    folder.write("itp", smallPatternAnimation());
    EXPECT_TRUE(folder.read().textures.images.empty());
    const std::string model = smallModel();
    const std::size_t begin = model.find("<tex_image_array");
    const std::string arrays = model.substr(begin, model.find("<material_array") - begin);
    folder.write("itp", changed(smallPatternAnimation(), "<tex_pattern_list_data", arrays + "<tex_pattern_list_data"));
    EXPECT_EQ(folder.read().textures.images.size(), 4U);
}

} // namespace
} // namespace host::app::report
