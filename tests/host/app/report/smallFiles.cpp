#include "smallFiles.h"

#include <gtest/gtest.h>

namespace host::app::report {

namespace {

std::string file(const std::string& kind, const std::string& body) {
    return "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n\n<" + kind + " version=\"1.6.0\">\n\n<head>\n</head>\n\n" +
           "<body>\n\n" + body + "</body>\n\n</" + kind + ">\n";
}

// A name and a value for each attribute.
std::string with(const std::string& name, const std::string& value) {
    return " " + name + "=\"" + value + "\"";
}

std::string words(int count, const std::string& word) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += word + "\n";
    }
    return text;
}

// Vertices, each moved away from the one before.
std::string vertices(int count) {
    return words(count, R"(<pos_xyz xyz="1.000000 0.000000 0.000000"/>)");
}

std::string primitive(int index, const std::string& type, int size, const std::string& commands) {
    return "<primitive" + with("index", std::to_string(index)) + with("type", type) +
           with("vertex_size", std::to_string(size)) + ">\n" + commands + "</primitive>\n";
}

std::string polygon(int index, const std::string& counts, const std::string& matrices, const std::string& primitives) {
    return "<polygon" + with("index", std::to_string(index)) + with("name", "p" + std::to_string(index)) + counts +
           R"( volume_min="0.000000 0.000000 0.000000" volume_max="1.000000 0.000000 0.000000" volume_r="1.000000")"
           R"( mtx_prim_size="1" nrm_flag="off" clr_flag="off" tex_flag="off">)"
           "\n<mtx_prim index=\"0\">\n" +
           matrices + "\n<primitive_array size=\"2\">\n" + primitives + "</primitive_array>\n</mtx_prim>\n</polygon>\n";
}

std::string polygons() {
    const std::string ofBox = primitive(0, "quad_strip", 8, vertices(8)) + primitive(1, "quads", 4, vertices(4));
    const std::string ofFan =
        primitive(0, "triangle_strip", 6, "<mtx idx=\"0\"/>\n" + vertices(3) + "<mtx idx=\"1\"/>\n" + vertices(3)) +
        primitive(1, "triangles", 6, "<mtx idx=\"0\"/>\n" + vertices(6));
    return "<polygon_array size=\"2\">\n" +
           polygon(0, R"( vertex_size="12" polygon_size="4" triangle_size="0" quad_size="4")",
                   R"(<mtx_list size="1">0</mtx_list>)", ofBox) +
           polygon(1, R"( vertex_size="12" polygon_size="6" triangle_size="6" quad_size="0")",
                   R"(<mtx_list size="2">1 2</mtx_list>)", ofFan) +
           "</polygon_array>\n\n";
}

std::string node(int index, const std::string& name, const std::string& links, const std::string& displays) {
    return "<node" + with("index", std::to_string(index)) + with("name", name) +
           with("kind", displays.empty() ? "null" : "mesh") + links +
           R"( draw_mtx="off" billboard="off" scale="1.000000 1.000000 1.000000" rotate="0.000000 0.000000 0.000000")"
           R"( translate="0.000000 0.000000 0.000000" visibility="on")" +
           with("display_size", displays.empty() ? "0" : "1") + ">\n" + displays + "</node>\n";
}

std::string nodes() {
    return "<node_array size=\"3\">\n" +
           node(0, "root", R"( parent="-1" child="1" brother_next="-1" brother_prev="-1")", "") +
           node(1, "box", R"( parent="0" child="-1" brother_next="2" brother_prev="-1")",
                "<display index=\"0\" material=\"1\" polygon=\"0\" priority=\"0\"/>\n") +
           node(2, "\x83\x65\x83\x58", R"( parent="0" child="-1" brother_next="-1" brother_prev="1")",
                "<display index=\"0\" material=\"0\" polygon=\"1\" priority=\"0\"/>\n") +
           "</node_array>\n\n";
}

std::string image(int index, const std::string& name, const std::string& format, const std::string& lines,
                  const std::string& texels) {
    return "<tex_image" + with("index", std::to_string(index)) + with("name", name) +
           R"( width="8" height="8" original_width="8" original_height="8")" + with("format", format) + lines +
           with("path", "images/" + name + ".tga") + ">\n" + texels + "</tex_image>\n";
}

std::string bitmap(int size, const std::string& word) {
    return "<bitmap" + with("size", std::to_string(size)) + ">\n" + words(size, word) + "</bitmap>\n";
}

std::string textures() {
    return "<tex_image_array size=\"4\">\n" +
           image(0, "grass", "palette16", R"( color0_mode="color" palette_name="grass")", bitmap(16, "0000")) +
           image(1, "leaf", "palette4", R"( color0_mode="color" palette_name="shared")", bitmap(8, "0000")) +
           image(2, "sky", "direct", "", bitmap(64, "8000")) +
           image(3, "tiles", "tex4x4", R"( palette_name="shared")",
                 bitmap(4, "00000000") + "<tex4x4_palette_idx size=\"4\">\n" + words(4, "8000") +
                     "</tex4x4_palette_idx>\n") +
           "</tex_image_array>\n\n<tex_palette_array size=\"2\">\n" +
           R"(<tex_palette index="0" name="grass" color_size="16">)" + "\n" + words(16, "0000") + "</tex_palette>\n" +
           R"(<tex_palette index="1" name="shared" color_size="8">)" + "\n" + words(8, "0000") + "</tex_palette>\n" +
           "</tex_palette_array>\n\n";
}

std::string materials() {
    return "<material_array size=\"2\">\n"
           R"(<material index="0" name="air" tex_image_idx="-1" tex_palette_idx="-1"/>)"
           "\n"
           R"(<material index="1" name="ground" tex_image_idx="0" tex_palette_idx="0" tex_tiling="clamp clamp"/>)"
           "\n</material_array>\n\n";
}

std::string channel(const std::string& word, int size, int head) {
    return "<" + word + R"( frame_step="1")" + with("data_size", std::to_string(size)) +
           with("data_head", std::to_string(head)) + "/>\n";
}

// A node whose rotation about one axis takes all that is in the pool; -1 for none.
std::string nodeChannels(int index, int turningAxis) {
    std::string text = "<node_anm" + with("index", std::to_string(index)) + ">\n";
    for (const char* group : {"scale_", "rotate_", "translate_"}) {
        for (int axis = 0; axis < 3; ++axis) {
            const bool isTurning = group == std::string("rotate_") && axis == turningAxis;
            text += channel(group + std::string(1, "xyz"[axis]), isTurning ? 3 : 1, 0);
        }
    }
    return text + "</node_anm>\n";
}

} // namespace

std::string smallModel() {
    return file("imd", "<model_info pos_scale=\"0\"/>\n\n" + textures() + materials() +
                           "<matrix_array size=\"3\">\n"
                           R"(<matrix index="0" mtx_weight="1" node_idx="1"/>)"
                           "\n"
                           R"(<matrix index="1" mtx_weight="1" node_idx="2"/>)"
                           "\n"
                           R"(<matrix index="2" mtx_weight="1" node_idx="0"/>)"
                           "\n</matrix_array>\n\n" +
                           polygons() + nodes());
}

std::string smallNodeAnimation() {
    return file("ica", "<node_anm_info frame_size=\"3\" tool_start_frame=\"1\" interpolation=\"frame\"/>\n\n"
                       "<node_scale_data size=\"1\">\n1.000000\n</node_scale_data>\n\n"
                       "<node_rotate_data size=\"3\">\n0.000000 1.000000 2.000000\n</node_rotate_data>\n\n"
                       "<node_translate_data size=\"1\">\n0.000000\n</node_translate_data>\n\n"
                       "<node_anm_array size=\"3\">\n" +
                           nodeChannels(0, -1) + nodeChannels(1, 0) + nodeChannels(2, 1) + "</node_anm_array>\n\n");
}

std::string smallColorAnimation() {
    std::string channels;
    for (const char* word : {"diffuse_r", "diffuse_g", "diffuse_b", "ambient_r", "ambient_g", "ambient_b", "specular_r",
                             "specular_g", "specular_b", "emission_r", "emission_g", "emission_b", "polygon_alpha"}) {
        channels += channel(word, 2, 0);
    }
    return file("ima", "<mat_color_info frame_size=\"3\" tool_start_frame=\"1\" interpolation=\"key\" "
                       "interp_end_to_start=\"off\"/>\n\n"
                       "<mat_color_data size=\"8\">\n0.000000 31.000000 0.000000 0.000000 2.000000 31.000000 0.000000 "
                       "0.000000\n</mat_color_data>\n\n<mat_color_anm_array size=\"1\">\n"
                       "<mat_color_anm index=\"0\" material_name=\"ground\">\n" +
                           channels + "</mat_color_anm>\n</mat_color_anm_array>\n\n");
}

std::string smallPatternAnimation() {
    return file("itp", R"(<tex_pattern_info frame_size="3" tool_start_frame="1"/>

<tex_pattern_list_data image_size="3" palette_size="2">
<image_name index="0" name="grass"/>
<image_name index="1" name="leaf"/>
<image_name index="2" name="tiles"/>
<palette_name index="0" name="grass"/>
<palette_name index="1" name="shared"/>
</tex_pattern_list_data>

<tex_pattern_data>
<frame_idx size="3">0 1 2</frame_idx>
<image_idx size="3">0 1 2</image_idx>
<palette_idx size="3">0 1 1</palette_idx>
</tex_pattern_data>

<tex_pattern_anm_array size="1">
<tex_pattern_anm index="0" material_name="ground" data_size="3" data_head="0"/>
</tex_pattern_anm_array>

)");
}

std::string smallVisibilityAnimation() {
    return file("iva", R"(<visibility_info frame_size="3" tool_start_frame="1"/>

<visibility_data>
<frame_idx size="3">0 1 2</frame_idx>
<visibility size="3">1 0 1</visibility>
</visibility_data>

<visibility_anm_array size="3">
<visibility_anm index="0" data_size="1" data_head="0"/>
<visibility_anm index="1" data_size="1" data_head="0"/>
<visibility_anm index="2" data_size="3" data_head="0"/>
</visibility_anm_array>

)");
}

std::string smallPlacementAnimation() {
    return file("ita", "<tex_srt_info frame_size=\"3\" tool_start_frame=\"1\" interpolation=\"frame\"/>\n\n");
}

std::string changed(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

} // namespace host::app::report
