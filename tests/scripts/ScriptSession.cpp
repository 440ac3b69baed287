#include "ScriptSession.h"

#include "textFiles.h"

#include "host/api/Host.h"

#include <utility>

namespace tvk {

const std::vector<ExpectedAttribute> kExpectedAttributes = {
    {"shader", "tvk_lighting", "bool 1 - - Light 0", "Lighting"},
    {"shader", "tvk_lighting1", "bool 0 - - Light 1", "Lighting"},
    {"shader", "tvk_lighting2", "bool 0 - - Light 2", "Lighting"},
    {"shader", "tvk_lighting3", "bool 0 - - Light 3", "Lighting"},
    {"shader", "tvk_shininess_table", "bool 0 - - Shininess Table", "Lighting"},
    {"shader", "tvk_disp_face", "enum 0 - front:back:both Displayed Face", "Polygons"},
    {"shader", "tvk_poly_mode", "enum 0 - modulate:decal:toon_highlight:shadow Polygon Mode", "Polygons"},
    {"shader", "tvk_poly_id", "long 0 [0, 63] - Polygon ID", "Polygons"},
    {"shader", "tvk_wire_mode", "bool 0 - - Wire Mode", "Polygons"},
    {"shader", "tvk_fog", "bool 0 - - Fog", "Polygons"},
    {"shader", "tvk_depth_test_decal", "bool 0 - - Depth Test Decal", "Polygons"},
    {"shader", "tvk_xlu_update_depth", "bool 0 - - Translucent Update Depth", "Polygons"},
    {"shader", "tvk_render_1_pixel", "bool 0 - - Render 1 Pixel", "Polygons"},
    {"shader", "tvk_far_clip", "bool 0 - - Far Clipping", "Polygons"},
    {"shader", "tvk_use_render_priority", "bool 0 - - Use Render Priority", "Polygons"},
    {"shader", "tvk_render_priority", "long 1 [1, 255] - Render Priority", "Polygons"},
    {"shader", "tvk_tex_gen_mode", "enum 0 - none:tex:nrm:pos Generation Mode", "Texture Coordinates"},
    {"shader", "tvk_tex_gen_st_src", "enum 1 - polygon:material Generation Source", "Texture Coordinates"},
    {"shader", "tvk_tex_effect_mtx", "matrix - - - Effect Matrix", "Texture Coordinates"},
    {"shader", "tvk_no_compress", "bool 0 - - Never Merge", "Export"},
    {"transform", "tvk_billboard", "enum 0 - off:on:y_on Billboard", "Export"},
    {"transform", "tvk_no_cut", "bool 0 - - Never Remove", "Export"},
    {"texture", "tvk_fe_list", "string - - - Frame Extension List", "Export"},
};

ScriptSession::ScriptSession() {
    host::Host::instance().messages().print = [this](const std::string& text) { printed += text; };
    mel("source \"" + sourcePath("scripts/TVK_Attributes.mel") + "\";");
}

std::string ScriptSession::takePrinted() {
    return std::exchange(printed, "");
}

std::string ScriptSession::describe(const std::string& node, const std::string& attribute) {
    const std::string query = "attributeQuery -node \"" + node + "\" ";
    const auto ask = [&](const std::string& flag) { return mel(query + flag + " " + attribute + ";"); };
    const auto first = [&](const std::string& flag) {
        return mel("float $numbers[] = `" + query + flag + " " + attribute + "`; $numbers[0];");
    };
    if (ask("-exists") != "1") {
        return "missing";
    }
    const std::string type = mel("getAttr -type \"" + node + "." + attribute + "\";");
    const bool isNumber = type != "matrix" && type != "string";
    const std::string range =
        ask("-rangeExists") == "1" ? "[" + first("-minimum") + ", " + first("-maximum") + "]" : "-";
    const std::string words =
        ask("-enum") == "1" ? mel("string $words[] = `" + query + "-listEnum " + attribute + "`; $words[0];") : "-";
    return type + " " + (isNumber ? first("-listDefault") : "-") + " " + range + " " + words + " " + ask("-niceName");
}

} // namespace tvk
