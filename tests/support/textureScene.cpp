#include "textureScene.h"

#include "sceneText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tvk {
namespace {

std::string connection(const std::string& from, const std::string& to) {
    return "connectAttr \"" + from + "\" \"" + to + "\";\n";
}

} // namespace

void writeBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream file(std::filesystem::u8path(path), std::ios_base::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(file.good()) << path;
}

void writeImage(const std::string& path, const Picture& picture) {
    const bool isOpaque =
        std::all_of(picture.pixels.begin(), picture.pixels.end(), [](const Rgba& pixel) { return pixel.a == 255; });
    TgaOptions options;
    options.bits = isOpaque ? 24 : 32;
    options.alphaBits = isOpaque ? 0 : 8;
    writeBytes(path, writeTga(picture, options));
}

Picture pictureOfColors(std::size_t width, std::size_t height, std::size_t count) {
    Picture picture(width, height);
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const std::size_t color = i % count;
        // Four bits a channel, of which each value is another one in five bits.
        const auto channel = [&](std::size_t shift) { return static_cast<std::uint8_t>((color >> shift & 15U) * 17U); };
        picture.pixels[i] = {channel(0), channel(4), channel(8)};
    }
    return picture;
}

std::string fileTextureText(const std::string& name, const std::string& image, const std::string& attributes) {
    const std::string path = image.empty() ? "" : "setAttr \".ftn\" -type \"string\" \"" + image + "\";\n\t";
    return nodeText("file", name, "", path + attributes);
}

std::string placedTextureText(const std::string& name, const std::string& image, const std::string& placementAttributes,
                              const std::string& attributes) {
    const std::string placement = name + "_placement";
    std::string text =
        fileTextureText(name, image, attributes) + nodeText("place2dTexture", placement, "", placementAttributes);
    for (const char* attribute : {"c", "tf", "rf", "mu", "mv", "s", "wu", "wv", "re", "of", "n", "vt1", "vt2"}) {
        text += connection(placement + "." + attribute, name + "." + attribute);
    }
    return text + connection(placement + ".r", name + ".ro") + connection(placement + ".o", name + ".uv") +
           connection(placement + ".ofs", name + ".fs");
}

std::string shaderText(const std::string& shader, const std::string& fileTexture) {
    const std::string group = shader + "_group";
    return nodeText("lambert", shader) + nodeText("shadingEngine", group, "", "setAttr \".ihi\" 0;") +
           (fileTexture.empty() ? "" : connection(fileTexture + ".oc", shader + ".c")) +
           connection(shader + ".oc", group + ".ss");
}

std::string texturedSquareText(const std::string& name, const std::string& shader) {
    return nodeText("transform", name) +
           nodeText("mesh", name + "Shape", name,
                    "setAttr \".uvst[0].uvsn\" -type \"string\" \"map1\";\n"
                    "\tsetAttr -s 4 \".uvst[0].uvsp[0:3]\" -type \"float2\" 0 0 1 0 1 1 0 1;\n"
                    "\tsetAttr \".cuvs\" -type \"string\" \"map1\";\n"
                    "\tsetAttr -s 4 \".vt[0:3]\" 0 0 0 1 0 0 1 1 0 0 1 0;\n"
                    "\tsetAttr -s 4 \".ed[0:3]\" 0 1 0 1 2 0 2 3 0 3 0 0;\n"
                    "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 4 0 1 2 3 mu 0 4 0 1 2 3 ;") +
           "connectAttr \"" + name + "Shape.iog\" \"" + shader + "_group.dsm\" -na;\n";
}

std::string texturedText(const std::string& name, const std::string& image, const std::string& attributes) {
    return fileTextureText(name, image, attributes) + shaderText(name + "_shader", name) +
           texturedSquareText(name + "_square", name + "_shader");
}

std::string steppedCurveText(const std::string& name, const std::string& keys, int count) {
    const std::string places = "[0:" + std::to_string(count - 1) + "]\" ";
    std::string steps;
    for (int i = 0; i < count; ++i) {
        steps += " 5";
    }
    const std::string size = std::to_string(count);
    return nodeText("animCurveTU", name, "",
                    "setAttr \".tan\" 9;\n\tsetAttr \".wgt\" no;\n\tsetAttr -s " + size + " \".ktv" + places + keys +
                        ";\n\tsetAttr -s " + size + " \".kot" + places + steps + ";");
}

std::string flippedText(const std::string& fileTexture, const std::string& keys, int count) {
    const std::string curve = fileTexture + "_curve";
    return steppedCurveText(curve, keys, count) + connection(curve + ".o", fileTexture + ".fe");
}

} // namespace tvk
