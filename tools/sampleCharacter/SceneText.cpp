#include "sampleCharacter/SceneText.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace tvk::samples {
namespace {

constexpr std::size_t kPerStatement = 200;

// An array attribute in statements as short as the host's own; its type stands in the first.
template <typename Element>
std::string arrayText(const std::string& attribute, const std::string& type, std::size_t count, Element element) {
    std::string text;
    for (std::size_t first = 0; first < count; first += kPerStatement) {
        const std::size_t last = std::min(count, first + kPerStatement) - 1;
        text += "\tsetAttr " + (first == 0 ? "-s " + std::to_string(count) + " " : std::string()) + "\"." + attribute +
                "[" + std::to_string(first) + ":" + std::to_string(last) + "]\" " + (first == 0 ? type : std::string());
        for (std::size_t i = first; i <= last; ++i) {
            text += (i - first) % 6 == 0 ? "\n\t\t" : " ";
            text += element(i);
        }
        text += ";\n";
    }
    return text;
}

std::string placeText(const Place& place) {
    return thousandths(place[0]) + " " + thousandths(place[1]) + " " + thousandths(place[2]);
}

// Numbers edges in the order in which faces first need them; one walked backwards is -number - 1.
class EdgeNumbers {
public:
    int of(int a, int b) {
        if (const auto back = numbers.find({b, a}); back != numbers.end()) {
            return -back->second - 1;
        }
        const auto [place, isNew] = numbers.try_emplace({a, b}, static_cast<int>(ends.size()));
        if (isNew) {
            ends.emplace_back(a, b);
        }
        return place->second;
    }

    std::vector<std::pair<int, int>> ends;

private:
    std::map<std::pair<int, int>, int> numbers;
};

std::string faceText(const std::vector<int>& edges, const std::vector<int>& uvs) {
    std::string text = "f " + std::to_string(edges.size());
    for (const int edge : edges) {
        text += " " + std::to_string(edge);
    }
    text += " mu 0 " + std::to_string(uvs.size());
    for (const int uv : uvs) {
        text += " " + std::to_string(uv);
    }
    return text;
}

std::string connectText(const std::string& from, const std::string& to) {
    return "connectAttr \"" + from + "\" \"" + to + "\";\n";
}

} // namespace

std::string thousandths(long value) {
    const std::string digits = std::to_string(1000 + std::labs(value) % 1000).substr(1);
    const std::string sign = value < 0 ? "-" : "";
    const std::string whole = sign + std::to_string(std::labs(value) / 1000);
    const std::size_t used = digits.find_last_not_of('0');
    return used == std::string::npos ? whole : whole + "." + digits.substr(0, used + 1);
}

std::string jointText(const std::vector<Bone>& skeleton, std::size_t bone) {
    const Bone& joint = skeleton[bone];
    Place place = joint.place;
    std::string parent;
    if (joint.parent >= 0) {
        const Bone& above = skeleton[static_cast<std::size_t>(joint.parent)];
        parent = " -p \"" + above.name + "\"";
        for (std::size_t i = 0; i < 3; ++i) {
            place[i] -= above.place[i];
        }
    }
    return "createNode joint -n \"" + joint.name + "\"" + parent + ";\n\tsetAttr \".t\" -type \"double3\" " +
           placeText(place) + " ;\n";
}

std::string keysText(const std::string& node, const std::string& attribute, const std::vector<long>& keys) {
    const std::string name = node + "_" + attribute;
    const std::string count = std::to_string(keys.size() / 2);
    std::string text = "createNode animCurveTA -n \"" + name + "\";\n\tsetAttr \".tan\" 2;\n\tsetAttr \".wgt\" no;\n" +
                       "\tsetAttr -s " + count + " \".ktv[0:" + std::to_string(keys.size() / 2 - 1) + "]\" ";
    for (std::size_t i = 0; i < keys.size(); i += 2) {
        text += " " + std::to_string(keys[i]) + " " + thousandths(keys[i + 1]);
    }
    return text + ";\n" + connectText(name + ".o", node + "." + attribute);
}

std::string meshText(const std::string& name, const SkinnedTubes& mesh) {
    EdgeNumbers edges;
    std::vector<std::string> faces;
    for (std::size_t f = 0; f < mesh.faces.size(); ++f) {
        const std::vector<int>& corners = mesh.faces[f];
        std::vector<int> around;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            around.push_back(edges.of(corners[i], corners[(i + 1) % corners.size()]));
        }
        faces.push_back(faceText(around, mesh.faceUvs[f]));
    }
    return "createNode mesh -n \"" + name + "ShapeOrig\" -p \"" + name + "\";\n\tsetAttr \".io\" yes;\n" +
           "\tsetAttr \".uvst[0].uvsn\" -type \"string\" \"map1\";\n" +
           arrayText("uvst[0].uvsp", "-type \"float2\"", mesh.uvs.size(),
                     [&](std::size_t i) { return thousandths(mesh.uvs[i][0]) + " " + thousandths(mesh.uvs[i][1]); }) +
           "\tsetAttr \".cuvs\" -type \"string\" \"map1\";\n" +
           arrayText("vt", "", mesh.vertices.size(), [&](std::size_t i) { return placeText(mesh.vertices[i].place); }) +
           arrayText("ed", "", edges.ends.size(),
                     [&](std::size_t i) {
                         return std::to_string(edges.ends[i].first) + " " + std::to_string(edges.ends[i].second) + " 1";
                     }) +
           arrayText("fc", "-type \"polyFaces\"", faces.size(), [&](std::size_t i) { return faces[i]; });
}

std::string skinText(const std::string& name, const SkinnedTubes& mesh, const std::vector<Bone>& skeleton) {
    const std::string skin = name + "Skin";
    std::string text =
        "createNode skinCluster -n \"" + skin + "\";\n" + arrayText("wl", "", mesh.vertices.size(), [&](std::size_t i) {
            std::string row = std::to_string(mesh.vertices[i].weights.size());
            for (const auto& [bone, weight] : mesh.vertices[i].weights) {
                row += " " + std::to_string(bone) + " " + thousandths(weight * 10L);
            }
            return row;
        });
    std::size_t place = 0;
    while ((place = text.find(".wl[", place)) != std::string::npos) {
        text.insert(text.find(']', place) + 1, ".w");
        place += 4;
    }
    for (std::size_t i = 0; i < skeleton.size(); ++i) {
        const Place& at = skeleton[i].place;
        text += "\tsetAttr \".pm[" + std::to_string(i) + "]\" -type \"matrix\" 1 0 0 0 0 1 0 0 0 0 1 0 " +
                placeText({-at[0], -at[1], -at[2]}) + " 1 ;\n";
    }
    text += "\tsetAttr \".gm\" -type \"matrix\" 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 ;\n";
    for (std::size_t i = 0; i < skeleton.size(); ++i) {
        text += connectText(skeleton[i].name + ".wm", skin + ".ma[" + std::to_string(i) + "]");
    }
    return text + connectText(name + "ShapeOrig.w", skin + ".ip[0].ig") +
           connectText(skin + ".og[0]", name + "Shape.i");
}

std::vector<std::string> faceRanges(const std::vector<bool>& isSecond, bool second) {
    std::vector<std::string> ranges;
    for (std::size_t i = 0; i < isSecond.size(); ++i) {
        if (isSecond[i] != second) {
            continue;
        }
        const std::size_t first = i;
        while (i + 1 < isSecond.size() && isSecond[i + 1] == second) {
            ++i;
        }
        ranges.push_back("f[" + std::to_string(first) + ":" + std::to_string(i) + "]");
    }
    return ranges;
}

} // namespace tvk::samples
