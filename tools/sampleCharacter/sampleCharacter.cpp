#include "sampleCharacter/sampleCharacter.h"

#include "sampleCharacter/SceneText.h"
#include "sampleCharacter/SkinnedTubes.h"

namespace tvk::samples {
namespace {

// Two units high with its arms held out.
std::vector<Bone> makeSkeleton() {
    std::vector<Bone> bones{{"hips", -1, {0, 1000, 0}}, {"belly", 0, {0, 1200, 0}}, {"chest", 1, {0, 1400, 0}},
                            {"neck", 2, {0, 1620, 0}},  {"head", 3, {0, 1750, 0}},  {"crown", 4, {0, 2000, 0}}};
    for (const long side : {1L, -1L}) {
        const std::string end = side > 0 ? "_l" : "_r";
        const auto first = static_cast<int>(bones.size());
        bones.push_back({"shoulder" + end, 2, {side * 120, 1560, 0}});
        bones.push_back({"arm" + end, first, {side * 220, 1560, 0}});
        bones.push_back({"forearm" + end, first + 1, {side * 520, 1560, 0}});
        bones.push_back({"hand" + end, first + 2, {side * 800, 1560, 0}});
        bones.push_back({"thigh" + end, 0, {side * 110, 960, 0}});
        bones.push_back({"shin" + end, first + 4, {side * 110, 520, 10}});
        bones.push_back({"foot" + end, first + 5, {side * 110, 90, 0}});
        bones.push_back({"toes" + end, first + 6, {side * 110, 40, 140}});
    }
    return bones;
}

SkinnedTubes makeBody(const std::vector<Bone>& skeleton) {
    SkinnedTubes body(skeleton);
    body.add({{0, 1, 2}, {150, 140, 170, 110}, {0, 1600, 0}, 11, false});
    body.add({{3, 4}, {60, 110, 60}, {0, 2000, 0}, 11, true});
    for (const int first : {6, 14}) {
        const long side = first == 6 ? 1 : -1;
        body.add({{first + 1, first + 2}, {80, 60, 45}, {side * 800, 1560, 0}, 12, true});
        body.add({{first + 3}, {45, 20}, {side * 950, 1560, 0}, 3, true});
        body.add({{first + 4, first + 5}, {110, 80, 60}, {side * 110, 90, 0}, 13, false});
        body.add({{first + 6}, {60, 40}, {side * 110, 50, 160}, 4, false});
    }
    return body;
}

// A shader, its texture and its shading group.
std::string materialText(const std::string& name, const std::string& image) {
    const std::string file = name + "_file";
    return "createNode lambert -n \"" + name + "\";\n\tsetAttr \".dc\" 1;\n" + "createNode shadingEngine -n \"" + name +
           "SG\";\n\tsetAttr \".ro\" yes;\n" + "createNode file -n \"" + file +
           "\";\n\tsetAttr \".ftn\" -type \"string\" \"sourceimages/" + image + "\";\n" + "connectAttr \"" + name +
           ".oc\" \"" + name + "SG.ss\";\n" + "connectAttr \"" + file + ".oc\" \"" + name + ".c\";\n";
}

// Some faces of the body to a shading group.
std::string faceGroupText(const std::string& material, int slot, const std::vector<std::string>& ranges) {
    const std::string number = std::to_string(slot);
    const std::string place = ".iog[0].og[" + number + "]";
    const std::string id = "body_group" + number;
    std::string text = "createNode groupId -n \"" + id + "\";\nselect -ne \"bodyShape\";\n\tsetAttr \"" + place +
                       ".gcl\" -type \"componentList\" " + std::to_string(ranges.size());
    for (const std::string& range : ranges) {
        text += " \"" + range + "\"";
    }
    return text + ";\nconnectAttr \"" + id + ".id\" \"bodyShape" + place + ".gid\";\nconnectAttr \"" + material +
           "SG.mwc\" \"bodyShape" + place + ".gco\";\nconnectAttr \"bodyShape" + place + "\" \"" + material +
           "SG.dsm\" -na;\nconnectAttr \"" + id + ".msg\" \"" + material + "SG.gn\" -na;\n";
}

// One step of a walk of 24 frames; the other side half a step later.
std::string walkText() {
    std::string text = keysText("hips", "ry", {1, 6000, 13, -6000, 25, 6000});
    text += keysText("belly", "rz", {1, -3000, 13, 3000, 25, -3000});
    for (const long side : {1L, -1L}) {
        const std::string end = side > 0 ? "_l" : "_r";
        text += keysText("thigh" + end, "rx", {1, -25000 * side, 13, 25000 * side, 25, -25000 * side});
        text += keysText("shin" + end, "rx",
                         {1, 5000, 7, 20000 + 15000 * side, 13, 5000, 19, 20000 - 15000 * side, 25, 5000});
        text += keysText("arm" + end, "rz", {1, -70000 * side, 25, -70000 * side});
        text += keysText("forearm" + end, "ry", {1, -20000 * side, 13, -5000 * side, 25, -20000 * side});
    }
    return text;
}

} // namespace

std::string sampleCharacter() {
    const std::vector<Bone> skeleton = makeSkeleton();
    const SkinnedTubes body = makeBody(skeleton);
    std::string text = "//Maya ASCII 2020 scene\n//Name: golem.ma\n//Last modified: Sat, Nov 21, 2026 12:00:00 PM\n"
                       "//Codeset: UTF-8\nrequires maya \"2020\";\ncurrentUnit -l centimeter -a degree -t ntsc;\n";
    for (std::size_t i = 0; i < skeleton.size(); ++i) {
        text += jointText(skeleton, i);
    }
    text += "createNode transform -n \"body\";\ncreateNode mesh -n \"bodyShape\" -p \"body\";\n" +
            meshText("body", body) + skinText("body", body, skeleton) + materialText("stone", "bricks.tga") +
            materialText("band", "checker.tga") + faceGroupText("stone", 0, faceRanges(body.isSecondMaterial, false)) +
            faceGroupText("band", 1, faceRanges(body.isSecondMaterial, true)) + walkText() +
            "createNode script -n \"sceneConfigurationScriptNode\";\n"
            "\tsetAttr \".b\" -type \"string\" \"playbackOptions -min 1 -max 24 -ast 1 -aet 24 \";\n"
            "\tsetAttr \".st\" 6;\n";
    return text + "// End of golem.ma\n";
}

} // namespace tvk::samples
