// One value at a time is changed by the least that its format can tell apart, in every part of all six files: the proof
// must see each.
#include "ChangedFiles.h"
#include "VerifiedExport.h"
#include "meshScene.h"
#include "sceneText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tvk {
namespace {

struct ChangedPart {
    const char* kind;
    const char* element;
    const char* attribute; // "" for the element's text
    By by;
    const char* says; // a part of the finding, when it can only be one
};

struct ChangedSet {
    const char* name;
    const char* sample; // "" for a square of four colours
    std::string options;
    std::vector<ChangedPart> parts;
};

void PrintTo(const ChangedSet& set, std::ostream* out) {
    *out << set.name;
}

class ChangedFiles : public testing::TestWithParam<ChangedSet> {
protected:
    void SetUp() override {
        if (*GetParam().sample != '\0') {
            session.exportSample(GetParam().sample, GetParam().options);
        } else {
            MeshSpec mesh = square();
            mesh.colors = {{1, 0, 0, 1}, {0, 0.5, 1, 1}};
            mesh.faceColors = {{0, 1, 0, 1}};
            session.open(meshNode("a", mesh));
            session.exportOpen(GetParam().options);
        }
        ASSERT_EQ(session.firstFinding(), "");
    }

    void expectSeen(const ChangedPart& part) {
        const std::string& text = session.texts.at(part.kind);
        const std::vector<Change> changes = changesOf(text, part.element, part.attribute, part.by, 5);
        EXPECT_FALSE(changes.empty());
        for (const Change& change : changes) {
            const std::string finding = session.findingWith(part.kind, change.in(text));
            EXPECT_THAT(finding, testing::HasSubstr(part.says));
            EXPECT_NE(finding, "") << text.substr(change.begin, change.length) << " at byte " << change.begin
                                   << " became " << change.value;
        }
    }

    VerifiedExport session;
};

TEST_P(ChangedFiles, AreSeen) {
    for (const ChangedPart& part : GetParam().parts) {
        SCOPED_TRACE(std::string(part.kind) + ": " + part.element + " " + part.attribute);
        expectSeen(part);
    }
    EXPECT_EQ(session.firstFinding(), "");
}

const std::string kRange = VerifiedExport::kAllFiles + "frame_range=2;start_frame=1;end_frame=24";

const std::vector<ChangedPart> kBoxes = {{"imd", "box_test", "pos_scale", By::kOne, "imd: box_test: pos_scale is"},
                                         {"imd", "box_test", "xyz", By::kStep, "imd: box_test: corner"},
                                         {"imd", "box_test", "whd", By::kStep, "imd: box_test: extent"},
                                         {"imd", "polygon", "volume_min", By::kStep, "volume_min"},
                                         {"imd", "polygon", "volume_max", By::kStep, "volume_max"},
                                         {"imd", "polygon", "volume_r", By::kStep, "volume_r"},
                                         {"imd", "node", "volume_min", By::kStep, "volume_min"},
                                         {"imd", "node", "volume_max", By::kStep, "volume_max"},
                                         {"imd", "node", "volume_r", By::kStep, "volume_r"}};

INSTANTIATE_TEST_SUITE_P(
    Samples, ChangedFiles,
    testing::Values(
        ChangedSet{
            "model",
            "walk",
            "",
            {ChangedPart{"imd", "node", "scale", By::kStep, "scale"},
             ChangedPart{"imd", "node", "rotate", By::kStep, "rotate"},
             ChangedPart{"imd", "node", "translate", By::kStep, "translate"},
             ChangedPart{"imd", "node", "visibility", By::kSwitch, "visibility"},
             ChangedPart{"imd", "node", "scale_compensate", By::kSwitch, ""},
             ChangedPart{"imd", "node", "name", By::kOne, ""}, ChangedPart{"imd", "node", "parent", By::kOne, ""},
             ChangedPart{"imd", "node", "child", By::kOne, ""},
             ChangedPart{"imd", "node", "brother_next", By::kOne, ""},
             ChangedPart{"imd", "display", "polygon", By::kOne, ""},
             ChangedPart{"imd", "display", "material", By::kOne, ""},
             ChangedPart{"imd", "model_info", "pos_scale", By::kOne, ""},
             ChangedPart{"imd", "model_info", "magnify", By::kStep, ""},
             ChangedPart{"imd", "pos_xyz", "xyz", By::kStep, "draws what is no face"},
             ChangedPart{"imd", "pos_xz", "xz", By::kStep, "draws what is no face"},
             ChangedPart{"imd", "nrm", "xyz", By::kNormalStep, "draws what is no face"},
             ChangedPart{"imd", "tex", "st", By::kSixteenth, "draws what is no face"},
             ChangedPart{"imd", "matrix", "node_idx", By::kOne, ""}, ChangedPart{"imd", "mtx_list", "", By::kOne, ""}}},
        ChangedSet{"boxes", "walk", "", kBoxes}, ChangedSet{"boxesOfSkins", "golem", "", kBoxes},
        ChangedSet{"boxesOfUnited", "walk", "optimize_node=3", kBoxes},
        ChangedSet{"choices",
                   "materials",
                   "",
                   {ChangedPart{"imd", "node", "billboard", By::kSwitch, "billboard is"},
                    ChangedPart{"imd", "display", "priority", By::kOne, "priority is"},
                    ChangedPart{"imd", "material", "tex_gen_st_src", By::kOne, "tex_gen_st_src is"},
                    ChangedPart{"imd", "material", "tex_effect_mtx", By::kStep, "tex_effect_mtx row"}}},
        ChangedSet{"materials",
                   "walk",
                   "",
                   {ChangedPart{"imd", "bitmap", "", By::kBit, ""}, ChangedPart{"imd", "tex_palette", "", By::kBit, ""},
                    ChangedPart{"imd", "tex_image", "original_width", By::kOne, ""},
                    ChangedPart{"imd", "material", "diffuse", By::kOne, "diffuse"},
                    ChangedPart{"imd", "material", "ambient", By::kOne, "ambient"},
                    ChangedPart{"imd", "material", "specular", By::kOne, "specular"},
                    ChangedPart{"imd", "material", "emission", By::kOne, "emission"},
                    ChangedPart{"imd", "material", "alpha", By::kOne, "alpha"},
                    ChangedPart{"imd", "material", "light1", By::kSwitch, "light1"},
                    ChangedPart{"imd", "material", "far_clipping", By::kSwitch, "far_clipping"},
                    ChangedPart{"imd", "material", "polygon_id", By::kOne, "polygon_id"},
                    ChangedPart{"imd", "material", "tex_image_idx", By::kOne, ""},
                    ChangedPart{"imd", "material", "tex_scale", By::kStep, "tex_scale"},
                    ChangedPart{"imd", "material", "tex_rotate", By::kStep, "tex_rotate"},
                    ChangedPart{"imd", "material", "tex_translate", By::kStep, "tex_translate"}}},
        ChangedSet{"nodes",
                   "walk",
                   kRange,
                   {ChangedPart{"ica", "node_scale_data", "", By::kStep, "ica: node"},
                    ChangedPart{"ica", "node_rotate_data", "", By::kStep, "ica: node"},
                    ChangedPart{"ica", "node_translate_data", "", By::kStep, "ica: node"},
                    ChangedPart{"ica", "rotate_x", "data_head", By::kOne, ""},
                    ChangedPart{"ica", "node_anm_info", "frame_size", By::kOne, ""},
                    ChangedPart{"ica", "node_anm_info", "tool_start_frame", By::kOne, "frames"}}},
        ChangedSet{
            "others",
            "walk",
            kRange,
            {ChangedPart{"ima", "mat_color_data", "", By::kOne, "ima: material"},
             ChangedPart{"ima", "diffuse_r", "data_head", By::kOne, ""},
             ChangedPart{"itp", "frame_idx", "", By::kOne, ""}, ChangedPart{"itp", "image_idx", "", By::kOne, ""},
             ChangedPart{"itp", "palette_idx", "", By::kOne, ""}, ChangedPart{"iva", "frame_idx", "", By::kOne, ""},
             ChangedPart{"iva", "visibility", "", By::kOne, ""},
             ChangedPart{"iva", "visibility_anm", "data_head", By::kOne, "iva"},
             ChangedPart{"ita", "tex_scale_data", "", By::kStep, "ita: material"},
             ChangedPart{"ita", "tex_rotate_data", "", By::kStep, "ita: material"},
             ChangedPart{"ita", "tex_translate_data", "", By::kStep, "ita: material"}}},
        ChangedSet{"skins",
                   "golem",
                   "",
                   {ChangedPart{"imd", "weight", "", By::kOne, "draws what is no face"},
                    ChangedPart{"imd", "node_idx", "", By::kOne, "draws what is no face"},
                    ChangedPart{"imd", "matrix", "envelope_head", By::kOne, ""},
                    ChangedPart{"imd", "matrix", "node_idx", By::kOne, ""},
                    ChangedPart{"imd", "mtx", "idx", By::kOne, ""}, ChangedPart{"imd", "mtx_list", "", By::kOne, ""},
                    ChangedPart{"imd", "pos_xyz", "xyz", By::kStep, "draws what is no face"},
                    ChangedPart{"imd", "pos_diff", "xyz", By::kStep, "draws what is no face"},
                    ChangedPart{"imd", "nrm", "xyz", By::kNormalStep, "draws what is no face"},
                    ChangedPart{"imd", "tex", "st", By::kSixteenth, "draws what is no face"}}},
        ChangedSet{"blocks",
                   "materials",
                   "",
                   {ChangedPart{"imd", "bitmap", "", By::kBit, "texture"},
                    ChangedPart{"imd", "tex4x4_palette_idx", "", By::kBit, ""},
                    ChangedPart{"imd", "material", "tex_tiling", By::kOne, "tex_tiling"}}},
        ChangedSet{"colors", "", "", {ChangedPart{"imd", "clr", "rgb", By::kOne, "draws what is no face"}}}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace tvk
