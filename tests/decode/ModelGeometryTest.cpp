#include "decode/ModelGeometry.h"

#include "fileTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace decode {
namespace {

// One node with one quad in a strip and, behind it, a triangle that names positions of the table.
const std::string kBoard = kDeclarationLine + R"(<imd><body>
<model_info pos_scale="1"/>
<vtx_pos_data pos_size="1">0 0 1</vtx_pos_data>
<envelope><weight size="2">60 40</weight><node_idx size="2">0 0</node_idx></envelope>
<matrix_array size="2">
<matrix index="0" mtx_weight="1" node_idx="0"/>
<matrix index="1" mtx_weight="2" envelope_head="0"/>
</matrix_array>
<polygon_array size="1">
<polygon index="0" name="board" vertex_size="7" polygon_size="2" triangle_size="1" quad_size="1" volume_min="0 0 0" volume_max="1 1 1" volume_r="1" mtx_prim_size="1" nrm_flag="on" clr_flag="off" tex_flag="off">
<mtx_prim>
<mtx_list size="1">0</mtx_list>
<primitive_array size="2">
<primitive index="0" type="quad_strip" vertex_size="4">
<nrm xyz="0 0 1"/><pos_xyz xyz="0 0 0"/>
<pos_xy xy="0 1"/>
<pos_diff xyz="1 -1 0"/>
<pos_yz yz="1 0"/>
</primitive>
<primitive index="1" type="triangles" vertex_size="3">
<pos_idx idx="0"/>
<pos_s xyz="1 0 1"/>
<pos_xz xz="0 0"/>
</primitive>
</primitive_array>
</mtx_prim>
</polygon>
</polygon_array>
<node_array size="1">
<node index="0" name="n" kind="mesh" parent="-1" child="-1" brother_next="-1" brother_prev="-1" draw_mtx="on" billboard="off" scale="1 1 1" rotate="0 0 0" translate="0 0 5" visibility="on" display_size="1">
<display index="0" material="0" polygon="0" priority="0"/>
</node></node_array></body></imd>)";

std::string complaint(const std::string& text) {
    return complaintOf([](const std::string& whole) { readModelGeometry(readModelFile(whole)); }, text);
}

TEST(ModelGeometry, RefusesWhatAConsoleWouldShowWrong) {
    ASSERT_EQ(complaint(kBoard), "");
    for (const Damage& row : {
             Damage{"pos_scale=\"1\"", "pos_scale=\"900\"", "line 3: model_info: pos_scale is 900"},
             {"pos_size=\"1\"", "pos_size=\"1000000000\"",
              "line 4: vtx_pos_data: pos_size is 1000000000, but there are 3 numbers"},
             {"mtx_weight=\"2\"", "mtx_weight=\"3\"", "line 8: matrix: the weights 0 to 3 are not there"},
             {"mtx_weight=\"2\"", "mtx_weight=\"2147483647\"", "line 8: matrix: mtx_weight is 2147483647"},
             {"envelope_head=\"0\"", "envelope_head=\"-1\"", "line 8: matrix: the weights -1 to 1 are not there"},
             {"60 40", "60 0", "line 8: matrix: a weight is not above zero"},
             {"node_idx=\"0\"", "node_idx=\"4\"", "line 7: matrix: there is no node 4"},
             {"<mtx_list size=\"1\">0", "<mtx_list size=\"1\">7", "line 13: mtx_list: there is no matrix 7"},
             {"<mtx_list size=\"1\">0", "<mtx_list size=\"1\">-1",
              "line 13: mtx_list: slot 0 is in use and was never loaded"},
             {"<mtx_list size=\"1\">0", "<mtx_list size=\"2\">0 1", "line 16: pos_xyz: a vertex on no known matrix"},
             {"<nrm xyz=\"0 0 1\"/>", "", "line 16: pos_xyz: a vertex without its normal"},
             {"clr_flag=\"off\"", "clr_flag=\"on\"", "line 16: pos_xyz: a vertex without its colour"},
             {"tex_flag=\"off\"", "tex_flag=\"on\"", "line 16: pos_xyz: a vertex without its texture coordinate"},
             {"<pos_xyz xyz=\"0 0 0\"/>", "<pos_diff xyz=\"0 0 0\"/>", "line 16: pos_diff: is relative to nothing"},
             {"<pos_idx idx=\"0\"/>", "<pos_idx idx=\"1\"/>", "line 22: pos_idx: there is no entry 1"},
             {"<pos_idx idx=\"0\"/>", "<mtx idx=\"31\"/>", "line 22: mtx: there is no slot 31"},
             {"<pos_idx idx=\"0\"/>", "<clr rgb=\"0 32 0\"/>", "line 22: clr: a colour that is not between 0 and 31"},
             {"<pos_idx idx=\"0\"/>", "<pos_w/>", "line 22: pos_w: is an unknown command"},
             {"type=\"quad_strip\"", "type=\"triangles\"",
              "line 15: primitive: 4 vertices make no whole number of faces"},
             {"type=\"quad_strip\"", "type=\"fan\"", "line 15: primitive: is of unknown type fan"},
             {"type=\"triangles\" vertex_size=\"3\"", "type=\"triangles\" vertex_size=\"4\"",
              "line 21: primitive: vertex_size is 4, but 3 vertices are sent"},
             {"quad_size=\"1\"", "quad_size=\"2\"", "line 11: polygon: quad_size is 2, but there are 1"},
             {"polygon=\"0\"", "polygon=\"1\"", "line 32: display: there is no polygon 1"},
         }) {
        EXPECT_EQ(complaint(damaged(kBoard, row)), row.message) << row.with;
    }
}

TEST(ModelGeometry, SendsVerticesAsTheConsoleDoes) {
    const ModelFile file = readModelFile(kBoard);
    ModelGeometry model = readModelGeometry(file);
    ASSERT_EQ(model.polygon("board").faces.size(), 2U);
    // The strip's second pair is exchanged, positions are twice as far, and the node stands at z 5.
    std::vector<Imath::V3d> places;
    for (const DrawnFace& face : model.allFaces()) {
        for (const DrawnVertex& vertex : face) {
            places.push_back(vertex.world);
        }
    }
    EXPECT_THAT(places,
                testing::ElementsAre(Imath::V3d(0, 0, 5), Imath::V3d(0, 2, 5), Imath::V3d(2, 2, 5), Imath::V3d(2, 0, 5),
                                     Imath::V3d(0, 0, 7), Imath::V3d(2, 0, 7), Imath::V3d(0, 0, 5)));
    Imath::M44d raised;
    raised[3][1] = 10.0;
    poseModel(file, {raised}, model);
    EXPECT_EQ(model.polygons.front().faces.front().front().world, Imath::V3d(0, 10, 0));
    EXPECT_THROW(poseModel(file, {}, model), FileError);
}

} // namespace
} // namespace decode
