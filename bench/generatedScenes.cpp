#include "bench/generatedScenes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace tvk {
namespace {

constexpr std::size_t kBytesPerVertex = 130; // of a grid's arrays together, measured on the text below

void append(std::string& text, double value) {
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    text.append(digits, end);
    text += ' ';
}

void append(std::string& text, long value) {
    text.append(std::to_string(value)) += ' ';
}

// One array attribute in statements of at most `perStatement` elements.
template <typename Element>
void appendArray(std::string& text, const std::string& name, const char* type, long count, long perStatement,
                 Element element) {
    for (long first = 0; first < count; first += perStatement) {
        const long last = std::min(count, first + perStatement) - 1;
        text += "\tsetAttr ";
        if (first == 0) {
            text += "-s " + std::to_string(count) + " ";
        }
        text += "\"" + name + "[" + std::to_string(first) + ":" + std::to_string(last) + "]\" ";
        text += first == 0 ? type : "";
        for (long i = first; i <= last; ++i) {
            element(i);
            text += (i - first) % 4 == 3 ? "\n\t\t" : "";
        }
        text += ";\n";
    }
}

const char* const kHead = "//Maya ASCII 2020 scene\n//Codeset: UTF-8\nrequires maya \"2020\";\n"
                          "currentUnit -l centimeter -a degree -t film;\n";

} // namespace

std::string meshScene(std::size_t bytes) {
    const long side = std::max(2L, std::lround(std::sqrt(static_cast<double>(bytes) / kBytesPerVertex)));
    const long quads = (side - 1) * (side - 1);
    const long across = side * (side - 1); // edges along one axis; those along the other follow
    std::string text = kHead;
    text.reserve(bytes + bytes / 4);
    text += "createNode transform -n \"ground\";\ncreateNode mesh -n \"groundShape\" -p \"ground\";\n"
            "\tsetAttr -k off \".v\";\n\tsetAttr \".uvst[0].uvsn\" -type \"string\" \"map1\";\n";
    appendArray(text, ".uvst[0].uvsp", "-type \"float2\" ", side * side, 250, [&](long i) {
        append(text, static_cast<double>(static_cast<float>(i % side) / static_cast<float>(side)));
        append(text, static_cast<double>(static_cast<float>(i / side) / static_cast<float>(side)));
    });
    appendArray(text, ".vt", "", side * side, 166, [&](long i) {
        append(text, 0.37 * static_cast<double>(i % side));
        append(text, std::round(1e6 * std::sin(0.01 * static_cast<double>(i))) / 1e6);
        append(text, -0.37 * static_cast<double>(i / side));
    });
    appendArray(text, ".ed", "", 2 * across, 166, [&](long e) {
        const long k = e % across;
        const long from = e < across ? k / (side - 1) * side + k % (side - 1) : k;
        append(text, from);
        append(text, e < across ? from + 1 : from + side);
        append(text, 1L);
    });
    appendArray(text, ".fc", "-type \"polyFaces\" ", quads, 500, [&](long f) {
        const long row = f / (side - 1);
        const long column = f % (side - 1);
        const long corner = row * side + column;
        const long bottom = row * (side - 1) + column;
        text += "\n\t\tf 4 ";
        append(text, bottom);
        append(text, across + corner + 1);
        append(text, -(bottom + side - 1) - 1);
        append(text, -(across + corner) - 1);
        text += "\n\t\tmu 0 4 ";
        for (const long uv : {corner, corner + 1, corner + side + 1, corner + side}) {
            append(text, uv);
        }
    });
    return text + "// End of ground.ma\n";
}

// A square of the grid is two triangles; its edges are numbered by kind: across, up, diagonal.
std::string triangleScene(std::size_t count) {
    const long side = std::max(1L, std::lround(std::sqrt(static_cast<double>(count) / 2))); // squares along one side
    const long points = side + 1;
    const long across = points * side;
    const double step = 8.0 / static_cast<double>(side);
    std::string text = kHead;
    text += "createNode transform -n \"ground\";\ncreateNode mesh -n \"groundShape\" -p \"ground\";\n"
            "\tsetAttr \".uvst[0].uvsn\" -type \"string\" \"map1\";\n";
    appendArray(text, ".uvst[0].uvsp", "-type \"float2\" ", points * points, 250, [&](long i) {
        append(text, static_cast<double>(static_cast<float>(i % points) / static_cast<float>(points)));
        append(text, static_cast<double>(static_cast<float>(i / points) / static_cast<float>(points)));
    });
    appendArray(text, ".vt", "", points * points, 166, [&](long i) {
        append(text, std::round(1e6 * step * static_cast<double>(i % points)) / 1e6);
        append(text,
               std::round(1e6 * std::sin(9.0 * static_cast<double>(i % points) / static_cast<double>(points))) / 1e6);
        append(text, std::round(-1e6 * step * static_cast<double>(i / points)) / 1e6);
    });
    appendArray(text, ".ed", "", 2 * across + side * side, 166, [&](long e) {
        const bool isAcross = e < across;
        const long k = isAcross ? e : (e - across) % across;
        const long square = e - 2 * across;
        const long corner =
            square < 0 ? (isAcross ? k / side * points + k % side : k) : square / side * points + square % side;
        append(text, corner);
        append(text, square >= 0 ? corner + points + 1 : isAcross ? corner + 1 : corner + points);
        append(text, 1L);
    });
    appendArray(text, ".fc", "-type \"polyFaces\" ", 2 * side * side, 500, [&](long f) {
        const long square = f / 2;
        const long corner = square / side * points + square % side;
        const long diagonal = 2 * across + square;
        const bool isLower = f % 2 == 0;
        text += "\n\t\tf 3 ";
        append(text, isLower ? square : diagonal);
        append(text, isLower ? across + corner + 1 : -(square + side) - 1);
        append(text, isLower ? -diagonal - 1 : -(across + corner) - 1);
        text += "mu 0 3 ";
        append(text, corner);
        append(text, isLower ? corner + 1 : corner + points + 1);
        append(text, isLower ? corner + points + 1 : corner + points);
    });
    return text + "connectAttr \"groundShape.iog\" \":initialShadingGroup.dsm\" -na;\n// End of ground.ma\n";
}

std::string hierarchyScene(std::size_t count) {
    constexpr std::size_t kChain = 10;
    std::string text = kHead;
    text += "createNode transform -n \"everything\";\n";
    std::string parent;
    for (std::size_t i = 1; i < count; ++i) {
        const bool startsChain = i % kChain == 1;
        const std::string name = "part" + std::to_string(i);
        text += startsChain ? "createNode transform -n \"" : "createNode joint -n \"";
        text += name + "\" -p \"" + (startsChain ? "everything" : parent) + "\";\n";
        text += "\tsetAttr \".t\" -type \"double3\" 1.25 " + std::to_string(i % 7) + " -0.5 ;\n";
        text += "\tsetAttr \".r\" -type \"double3\" 10 " + std::to_string(i % 90) + " 0 ;\n";
        parent = name;
    }
    return text + "// End of everything.ma\n";
}

std::string shadedScene(std::size_t count, const std::string& imageFolder) {
    std::string text = kHead;
    text += "createNode transform -n \"everything\";\n";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        text += "createNode transform -n \"m" + number + "\" -p \"everything\";\n";
        text += "createNode mesh -n \"s" + number + "\" -p \"m" + number + "\";\n";
        text += "\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;\n\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0;\n"
                "\tsetAttr \".uvst[0].uvsn\" -type \"string\" \"map1\";\n"
                "\tsetAttr -s 3 \".uvst[0].uvsp[0:2]\" -type \"float2\" 0 0 1 0 0 1;\n"
                "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2 mu 0 3 0 1 2 ;\n";
        text += "createNode blinn -n \"b" + number + "\";\n\tsetAttr \".ambc\" -type \"float3\" ";
        append(text, static_cast<double>(i % 32) / 31.0);
        append(text, static_cast<double>(i / 32 % 32) / 31.0);
        append(text, static_cast<double>(i / 1024 % 32) / 31.0);
        text += ";\ncreateNode shadingEngine -n \"g" + number + "\";\n";
        text += "connectAttr \"b" + number + ".oc\" \"g" + number + ".ss\";\n";
        text += "connectAttr \"s" + number + ".iog\" \"g" + number + ".dsm\" -na;\n";
        if (!imageFolder.empty()) {
            text += "createNode file -n \"f" + number + "\";\n\tsetAttr \".ftn\" -type \"string\" \"" + imageFolder +
                    "/t" + number + ".tga\";\n";
            text += "connectAttr \"f" + number + ".oc\" \"b" + number + ".c\";\n";
        }
    }
    return text + "// End of everything.ma\n";
}

void writeScene(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file) {
        std::cerr << "bench: cannot write " << path << '\n';
        std::exit(1);
    }
}

} // namespace tvk
