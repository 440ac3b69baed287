#include "meshScene.h"

#include "sceneText.h"
#include "shadingText.h"

#include <locale>
#include <map>
#include <sstream>
#include <utility>

namespace tvk {
namespace {

std::ostringstream classicStream() {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out.precision(17);
    return out;
}

template <typename Rows>
std::string rowsText(const std::string& attribute, const std::string& flags, const Rows& rows) {
    std::ostringstream out = classicStream();
    if (rows.empty()) {
        return "";
    }
    out << "\tsetAttr -s " << rows.size() << " \"." << attribute << "[0:" << rows.size() - 1 << "]\"" << flags;
    for (const auto& row : rows) {
        for (const double value : row) {
            out << ' ' << value;
        }
    }
    out << ";\n";
    return out.str();
}

// Numbers edges in the order in which faces first need them.
class EdgeList {
public:
    // As a face's line names the edge from a to b.
    int add(int a, int b) {
        const auto found = numbers.find({b, a});
        if (found != numbers.end()) {
            return -found->second - 1;
        }
        const auto [place, isNew] = numbers.try_emplace({a, b}, static_cast<int>(edges.size()));
        if (isNew) {
            edges.push_back({a, b});
        }
        return place->second;
    }

    std::string text(bool hard) const {
        std::ostringstream out = classicStream();
        out << "\tsetAttr -s " << edges.size() << " \".ed[0:" << edges.size() - 1 << "]\"";
        for (const auto& [a, b] : edges) {
            out << ' ' << a << ' ' << b << (hard ? " 0" : " 1");
        }
        out << ";\n";
        return out.str();
    }

private:
    std::map<std::pair<int, int>, int> numbers;
    std::vector<std::pair<int, int>> edges;
};

void writeLoop(std::ostream& out, char kind, const std::vector<int>& loop, EdgeList& edges) {
    out << "\n\t\t" << kind << ' ' << loop.size();
    for (std::size_t i = 0; i < loop.size(); ++i) {
        out << ' ' << edges.add(loop[i], loop[(i + 1) % loop.size()]);
    }
}

void writeNumbers(std::ostream& out, const char* kind, const std::vector<std::vector<int>>& rows, std::size_t face) {
    if (face >= rows.size() || rows[face].empty()) {
        return;
    }
    out << "\n\t\t" << kind << " 0 " << rows[face].size();
    for (const int number : rows[face]) {
        out << ' ' << number;
    }
}

std::string facesText(const MeshSpec& mesh, EdgeList& edges) {
    std::ostringstream out = classicStream();
    if (mesh.faces.empty()) {
        return "";
    }
    out << "\tsetAttr -s " << mesh.faces.size() << " \".fc[0:" << mesh.faces.size() - 1 << "]\" -type \"polyFaces\"";
    for (std::size_t i = 0; i < mesh.faces.size(); ++i) {
        writeLoop(out, 'f', mesh.faces[i], edges);
        if (i < mesh.holes.size() && !mesh.holes[i].empty()) {
            writeLoop(out, 'h', mesh.holes[i], edges);
        }
        writeNumbers(out, "mu", mesh.faceUvs, i);
        writeNumbers(out, "mc", mesh.faceColors, i);
    }
    out << ";\n";
    return out.str();
}

std::string geometryText(const MeshSpec& mesh) {
    std::string text;
    if (!mesh.uvs.empty()) {
        text += "\tsetAttr \".uvst[0].uvsn\" -type \"string\" \"" + mesh.uvSet + "\";\n" +
                rowsText("uvst[0].uvsp", " -type \"float2\"", mesh.uvs) + "\tsetAttr \".cuvs\" -type \"string\" \"" +
                mesh.uvSet + "\";\n";
    }
    if (!mesh.colors.empty()) {
        text += "\tsetAttr \".ccls\" -type \"string\" \"colorSet1\";\n"
                "\tsetAttr \".clst[0].clsn\" -type \"string\" \"colorSet1\";\n" +
                rowsText("clst[0].clsp", "", mesh.colors);
    }
    EdgeList edges;
    const std::string faces = facesText(mesh, edges);
    text += rowsText("vt", "", mesh.points);
    return text + (mesh.faces.empty() ? "" : edges.text(mesh.hard)) + faces;
}

} // namespace

MeshSpec square() {
    MeshSpec mesh;
    mesh.points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    mesh.faces = {{0, 1, 2, 3}};
    return mesh;
}

MeshSpec row(int squares) {
    MeshSpec mesh;
    for (int i = 0; i <= squares; ++i) {
        mesh.points.push_back({static_cast<double>(i), 0, 0});
        mesh.points.push_back({static_cast<double>(i), 1, 0});
    }
    for (int i = 0; i < squares; ++i) {
        mesh.faces.push_back({2 * i, 2 * i + 2, 2 * i + 3, 2 * i + 1});
    }
    return mesh;
}

MeshSpec withUvs(MeshSpec mesh) {
    for (const auto& point : mesh.points) {
        mesh.uvs.push_back({point[0], point[1]});
    }
    mesh.faceUvs = mesh.faces;
    return mesh;
}

std::string meshShape(const std::string& name, const std::string& parent, const MeshSpec& mesh) {
    return "createNode mesh -n \"" + name + "\" -p \"" + parent + "\";\n" + geometryText(mesh) +
           (mesh.attributes.empty() ? "" : "\t" + mesh.attributes + "\n");
}

std::string meshNode(const std::string& name, const MeshSpec& mesh, const std::string& attributes,
                     const std::string& shadingGroup) {
    return nodeText("transform", name, "", attributes) + meshShape(name + "Shape", name, mesh) +
           (shadingGroup.empty() ? "" : shadeWhole(name + "Shape", shadingGroup));
}

std::string shadeWhole(const std::string& shape, const std::string& shadingGroup) {
    return "connectAttr \"" + shape + ".iog\" \"" + (shadingGroup == "initialShadingGroup" ? ":" : "") + shadingGroup +
           ".dsm\" -na;\n";
}

std::string shadeFaces(const std::string& shape, const std::string& shadingGroup, int slot, const std::string& faces) {
    const std::string group = shape + "_group" + std::to_string(slot);
    const std::string place = ".iog[0].og[" + std::to_string(slot) + "]";
    const std::string owner = (shadingGroup == "initialShadingGroup" ? ":" : "") + shadingGroup;
    return nodeText("groupId", group) + "select -ne \"" + shape + "\";\n\tsetAttr \"" + place +
           ".gcl\" -type \"componentList\" " + (faces.empty() ? "0" : "1 \"" + faces + "\"") + ";\n" +
           connectText(group + ".id", shape + place + ".gid") + connectText(owner + ".mwc", shape + place + ".gco") +
           "connectAttr \"" + shape + place + "\" \"" + owner + ".dsm\" -na;\n" + "connectAttr \"" + group +
           ".msg\" \"" + owner + ".gn\" -na;\n";
}

std::string movedMatrix(double x, double y, double z) {
    std::ostringstream out = classicStream();
    out << "1 0 0 0 0 1 0 0 0 0 1 0 " << x << ' ' << y << ' ' << z << " 1";
    return out.str();
}

std::string deformedNode(const std::string& name, const MeshSpec& mesh, const std::string& attributes) {
    MeshSpec original = mesh;
    original.attributes += " setAttr \".io\" yes;";
    return nodeText("transform", name, "", attributes) + "createNode mesh -n \"" + name + "Shape\" -p \"" + name +
           "\";\n" + shadeWhole(name + "Shape", "initialShadingGroup") + meshShape(name + "ShapeOrig", name, original);
}

std::string skinText(const SkinSpec& skin) {
    std::ostringstream out = classicStream();
    out << "createNode skinCluster -n \"" << skin.name << "\";\n";
    out << "\tsetAttr -s " << skin.weights.size() << " \".wl\";\n";
    for (std::size_t v = 0; v < skin.weights.size(); ++v) {
        out << "\tsetAttr \".wl[" << v << "].w[0:" << skin.weights[v].size() - 1 << "]\"";
        for (const double weight : skin.weights[v]) {
            out << ' ' << weight;
        }
        out << ";\n";
    }
    for (std::size_t i = 0; i < skin.bindInverses.size(); ++i) {
        out << "\tsetAttr \".pm[" << i << "]\" -type \"matrix\" " << skin.bindInverses[i] << ";\n";
    }
    out << "\tsetAttr -s " << skin.influences.size() << " \".ma\";\n\t" << skin.attributes << '\n';
    for (std::size_t i = 0; i < skin.influences.size(); ++i) {
        out << connectText(skin.influences[i] + ".wm", skin.name + ".ma[" + std::to_string(i) + "]");
    }
    if (!skin.from.empty()) {
        out << connectText(skin.from, skin.name + ".ip[0].ig");
    }
    if (!skin.to.empty()) {
        out << connectText(skin.name + ".og[0]", skin.to);
    }
    return out.str();
}

std::string deformerText(const std::string& type, const std::string& name, const std::string& from,
                         const std::string& to, const std::string& attributes) {
    return nodeText(type, name, "", attributes) + connectText(from, name + ".ip[0].ig") +
           connectText(name + ".og[0]", to);
}

std::string deformerSet(const std::string& deformer, const std::string& shape, int slot, const std::string& vertices) {
    const std::string set = deformer + "Set";
    const std::string group = deformer + "GroupId";
    const std::string place = ".iog[0].og[" + std::to_string(slot) + "]";
    return nodeText("objectSet", set, "", "setAttr \".vo\" yes;") + nodeText("groupId", group) + "select -ne \"" +
           shape + "\";\n\tsetAttr \"" + place + ".gcl\" -type \"componentList\" 1 \"" + vertices + "\";\n" +
           connectText(group + ".id", shape + place + ".gid") + connectText(set + ".mwc", shape + place + ".gco") +
           connectText(group + ".id", deformer + ".ip[0].gi") + "connectAttr \"" + shape + place + "\" \"" + set +
           ".dsm\" -na;\n" + "connectAttr \"" + group + ".msg\" \"" + set + ".gn\" -na;\n" + "connectAttr \"" +
           deformer + ".msg\" \"" + set + ".ub[0]\";\n";
}

} // namespace tvk
