#include "shadingChecks.h"

#include "checkSupport.h"

#include <maya/MColor.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnLambertShader.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

#include <cmath>
#include <map>
#include <set>

namespace tvk {
namespace {

using Json = nlohmann::json;

constexpr double kColorTolerance = 1e-6; // they are recorded as people enter them, and floats inside

/// The faces of each shading group; a whole object is the face -1.
using FaceSets = std::map<std::string, std::set<int>>;
constexpr int kWhole = -1;

std::string nameOf(const MObject& node) {
    return MFnDependencyNode(node).name().asChar();
}

FaceSets foundSets(const MDagPath& shape) {
    MObjectArray groups;
    MObjectArray components;
    FaceSets result;
    MFnMesh(shape).getConnectedSetsAndMembers(shape.instanceNumber(), groups, components, true);
    for (unsigned int i = 0; i < groups.length(); ++i) {
        std::set<int>& faces = result[nameOf(groups[i])];
        if (components[i].isNull()) {
            faces.insert(kWhole);
            continue;
        }
        MIntArray elements;
        MFnSingleIndexedComponent(components[i]).getElements(elements);
        for (unsigned int element = 0; element < elements.length(); ++element) {
            faces.insert(elements[element]);
        }
    }
    return result;
}

/// 3, "f[3]", "f[0:5]" or "all".
void addMember(const Json& member, std::set<int>& faces) {
    if (member.is_number()) {
        faces.insert(member.get<int>());
        return;
    }
    const std::string text = member.get<std::string>();
    if (text == "all") {
        faces.insert(kWhole);
        return;
    }
    const std::size_t colon = text.find(':');
    const int first = std::stoi(text.substr(text.find('[') + 1));
    const int last = colon == std::string::npos ? first : std::stoi(text.substr(colon + 1));
    for (int face = first; face <= last; ++face) {
        faces.insert(face);
    }
}

FaceSets expectedSets(const Json& value) {
    FaceSets result;
    for (const auto& [group, members] : value.items()) {
        for (const Json& member : members) {
            addMember(member, result[group]);
        }
    }
    return result;
}

/// The node at the other end of an incoming connection; null when there is none.
MObject sourceOf(const MObject& node, const char* attribute) {
    MPlugArray sources;
    MStatus status;
    const MPlug plug = MFnDependencyNode(node).findPlug(attribute, true, &status);
    return status && plug.connectedTo(sources, true, false) ? sources[0].node() : MObject();
}

/// What a face is shaded with, as text.
std::string surfaceText(const MColor& color, double opacity) {
    const auto digits = [](double value) { return std::to_string(std::lround(value / kColorTolerance)); };
    return digits(color.r) + " " + digits(color.g) + " " + digits(color.b) + " opacity " + digits(opacity);
}

std::string foundSurface(const MObjectArray& groups, int place) {
    const MObject shader = place < 0 ? MObject() : sourceOf(groups[static_cast<unsigned int>(place)], "surfaceShader");
    MStatus status;
    const MFnLambertShader lambert(shader, &status);
    return status ? surfaceText(lambert.color(), 1.0 - static_cast<double>(lambert.transparency().r)) : "none";
}

/// A colour, null, or the name of the group whose shader it is.
std::string expectedSurface(const Json& color, const Json& opacity) {
    if (color.is_null()) {
        return "none";
    }
    if (color.is_string()) {
        MObjectArray group;
        group.append(nodeNamed(color.get<std::string>()));
        return foundSurface(group, 0);
    }
    const std::vector<float> rgb = color.get<std::vector<float>>();
    return surfaceText(MColor(rgb[0], rgb[1], rgb[2]), opacity.get<double>());
}

std::string fileName(const MObject& texture) {
    const std::string path = MFnDependencyNode(texture).findPlug("fileTextureName", true).asString().asChar();
    return path.substr(path.find_last_of("/\\") + 1);
}

std::vector<double> numbersOf(const MObject& node, std::initializer_list<const char*> attributes) {
    std::vector<double> result;
    for (const char* const attribute : attributes) {
        result.push_back(MFnDependencyNode(node).findPlug(attribute, true).asDouble());
    }
    return result;
}

std::string checkTextureUse(const Json& check, const MObject& texture) {
    std::string difference;
    if (check.contains("repeat")) {
        difference = compare(numbersOf(texture, {"repeatU", "repeatV"}), numbers(check["repeat"]), 0.0);
    }
    if (check.contains("wrap")) {
        const std::vector<bool> wrap = check["wrap"].get<std::vector<bool>>();
        difference += compare(numbersOf(texture, {"wrapU", "wrapV"}), {wrap.begin(), wrap.end()}, 0.0);
    }
    return difference;
}

} // namespace

std::string checkFaceSets(const Json& check) {
    const MDagPath shape = pathTo(check["shape"].get<std::string>());
    if (!shape.isValid()) {
        return "no such shape";
    }
    const FaceSets found = foundSets(shape);
    const FaceSets expected = expectedSets(check["value"]);
    return found == expected ? "" : "found " + Json(found).dump() + " expected " + Json(expected).dump();
}

std::string checkFaceMaterials(const Json& check) {
    const MDagPath shape = pathTo(check["shape"].get<std::string>());
    MObjectArray groups;
    MIntArray places;
    if (!shape.isValid() || !MFnMesh(shape).getConnectedShaders(shape.instanceNumber(), groups, places)) {
        return "no such mesh";
    }
    const bool whole = check.value("wholeObject", false);
    if (places.length() == 0 || (!whole && places.length() != check["colors"].size())) {
        return "found " + std::to_string(places.length()) + " faces";
    }
    std::string difference;
    for (unsigned int face = 0; face < places.length(); ++face) {
        const std::string found = foundSurface(groups, places[face]);
        const Json color = whole ? check["color"] : check["colors"][face];
        const Json opacity = whole ? check.value("opacity", Json(1.0))
                                   : check.value("opacities", Json(std::vector<double>(places.length(), 1.0)))[face];
        // Where no opacity is recorded, the found one stands.
        const std::string expected = expectedSurface(color, opacity);
        const bool hasOpacity = check.contains("opacity") || check.contains("opacities") || !color.is_array();
        const auto end = hasOpacity ? std::string::npos : found.find(" opacity");
        if (found.substr(0, end) != expected.substr(0, hasOpacity ? std::string::npos : expected.find(" opacity"))) {
            difference += "face " + std::to_string(face) + ": found " + found + " expected " + expected + " ";
        }
    }
    return difference;
}

std::string checkMaterial(const Json& check) {
    const MObject shader = nodeNamed(check["name"].get<std::string>());
    if (shader.isNull()) {
        return "no such shader";
    }
    const MObject texture = sourceOf(shader, "color");
    const Json expected = check.contains("texture") ? check["texture"] : check["colorTexture"];
    if (expected.is_null() != texture.isNull()) {
        return texture.isNull() ? "found no texture" : "found a texture";
    }
    if (texture.isNull()) {
        return "";
    }
    if (!texture.hasFn(MFn::kFileTexture) || fileName(texture) != expected.get<std::string>()) {
        return "found " + fileName(texture);
    }
    return checkTextureUse(check, texture);
}

std::string checkUvTransform(const Json& check) {
    const MObject node = nodeNamed(check["node"].get<std::string>());
    if (!node.hasFn(MFn::kPlace2dTexture)) {
        return "no such placement";
    }
    const std::vector<double> scale = numbersOf(node, {"repeatU", "repeatV"});
    const std::vector<double> offset = numbersOf(node, {"offsetU", "offsetV"});
    const double angle = numbersOf(node, {"rotateUV"})[0];
    // Repeat, then offset, then rotation about the middle.
    const double u = offset[0] - 0.5;
    const double v = offset[1] - 0.5;
    const std::vector<double> translate = {u * std::cos(angle) - v * std::sin(angle) + 0.5,
                                           u * std::sin(angle) + v * std::cos(angle) + 0.5};
    const double tolerance = check.value("tol", 0.0);
    return compare(scale, numbers(check["scale"]), tolerance) +
           compare({angle * 57.29577951308232}, numbers(check["rotateDegrees"]), tolerance) +
           compare(translate, numbers(check["translate"]), tolerance);
}

} // namespace tvk
