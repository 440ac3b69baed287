#include "host/app/verify/checkMaterials.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/checkMaterialSettings.h"
#include "host/app/verify/sceneValues.h"

#include <maya/MFnLambertShader.h>
#include <maya/MFnReflectShader.h>

#include <algorithm>
#include <cmath>

namespace host::app::verify {
namespace {

constexpr double kDegrees = 180.0 / 3.14159265358979323846;
constexpr double kBrightest = 31.0;
// Half a step, and what single precision makes of a colour just at the middle.
constexpr double kHalfStep = 0.5001;

const char* colorPlugOf(const MObject& shader) {
    switch (shader.apiType()) {
    case MFn::kSurfaceShader:
        return "outColor";
    case MFn::kShadingMap:
        return "shadingMapColor";
    default:
        return "color";
    }
}

bool reflects(const MObject& shader) {
    const MFn::Type type = shader.apiType();
    return type == MFn::kBlinn || type == MFn::kPhong || type == MFn::kPhongExplorer || type == MFn::kAnisotropy;
}

// The node that drives a colour, or else the first of its parts that is driven.
MPlug colorDriver(const MPlug& plug) {
    MPlug source = driverOf(plug);
    for (unsigned int i = 0; source.isNull() && plug.isCompound() && i < plug.numChildren(); ++i) {
        source = driverOf(plug.child(i));
    }
    return source;
}

std::array<double, 3> partsOf(const MPlug& color) {
    std::array<double, 3> parts{};
    for (unsigned int i = 0; !color.isNull() && color.isCompound() && i < parts.size(); ++i) {
        float part = 0.0F;
        color.child(i).getValue(part);
        parts.at(i) = part;
    }
    return parts;
}

double alphaOf(const MObject& shader) {
    const bool isSurface = shader.apiType() == MFn::kSurfaceShader;
    const MPlug color = MFnDependencyNode(shader).findPlug(isSurface ? "outTransparency" : "transparency", false);
    const MPlug source = driverOf(color);
    if (!source.isNull() && source.node().apiType() == MFn::kFileTexture) {
        return attributeOf<float>(source.node(), "alphaGain").value_or(1.0F);
    }
    return 1.0 - partsOf(color)[0];
}

double steps(double part) {
    return std::clamp(part * kBrightest, 0.0, kBrightest);
}

std::string wordOf(std::size_t channel) {
    static const char* const kColors[] = {"diffuse", "ambient", "specular", "emission"};
    return channel == 12 ? "alpha" : std::string(kColors[channel / 3]) + " " + "rgb"[channel % 3];
}

} // namespace

MObject fileTextureOf(const MObject& shader) {
    const MPlug source = colorDriver(MFnDependencyNode(shader).findPlug(colorPlugOf(shader), false));
    if (source.isNull() || source.node().apiType() != MFn::kLayeredTexture) {
        return source.isNull() || source.node().apiType() != MFn::kFileTexture ? MObject() : source.node();
    }
    const MPlug layers = MFnDependencyNode(source.node()).findPlug("inputs", false);
    for (unsigned int i = 0; i < layers.numElements(); ++i) {
        const MPlug layer = colorDriver(layers.elementByPhysicalIndex(i).child(0));
        if (!layer.isNull() && layer.node().apiType() == MFn::kFileTexture) {
            return layer.node();
        }
    }
    return {};
}

std::array<double, 13> consoleColors(const MObject& shader, bool isSampled) {
    const MFnLambertShader lambert(shader);
    const MObject texture = fileTextureOf(shader);
    const MFnDependencyNode painted(texture.isNull() ? shader : texture);
    const auto diffuse = partsOf(painted.findPlug(texture.isNull() ? colorPlugOf(shader) : "colorGain", false));
    const auto ambient = partsOf(lambert.findPlug("ambientColor", false));
    const auto specular =
        reflects(shader) ? partsOf(lambert.findPlug("specularColor", false)) : std::array<double, 3>{};
    const auto emission = partsOf(lambert.findPlug("incandescence", false));
    const double coefficient = lambert.diffuseCoeff();
    std::array<double, 13> colors{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double part = isSampled ? std::clamp(diffuse.at(i), 0.0, 1.0) : diffuse.at(i);
        colors.at(i) = steps(part * coefficient);
        colors.at(3 + i) = steps(ambient.at(i));
        colors.at(6 + i) = steps(specular.at(i));
        colors.at(9 + i) = steps(emission.at(i));
    }
    colors[12] = steps(alphaOf(shader));
    return colors;
}

std::array<double, 5> placementOf(const MObject& fileTexture) {
    const MPlug source = driverOf(MFnDependencyNode(fileTexture).findPlug("wrapU", false));
    if (source.isNull() || source.node().apiType() != MFn::kPlace2dTexture) {
        return {1.0, 1.0, 0.0, 0.0, 0.0};
    }
    const MObject node = source.node();
    return {attributeOf<double>(node, "repeatU").value_or(1.0), attributeOf<double>(node, "repeatV").value_or(1.0),
            attributeOf<double>(node, "rotateFrame").value_or(0.0) * kDegrees,
            attributeOf<double>(node, "translateFrameU").value_or(0.0),
            attributeOf<double>(node, "translateFrameV").value_or(0.0)};
}

namespace {

std::array<double, 13> writtenColors(const decode::FileElement& material) {
    std::array<double, 13> written{};
    std::size_t at = 0;
    for (const char* const name : {"diffuse", "ambient", "specular", "emission"}) {
        for (const double part : material.reals(name, 3)) {
            written.at(at++) = part;
        }
    }
    written[12] = material.integer("alpha");
    return written;
}

void checkPlacement(const decode::FileElement& material, const MObject& shader, const std::string& place,
                    Verification& result) {
    if (material.attribute("tex_scale") == nullptr) {
        return;
    }
    const std::array<double, 5> expected = placementOf(fileTextureOf(shader));
    const std::vector<double> scale = material.reals("tex_scale", 2);
    const std::vector<double> translate = material.reals("tex_translate", 2);
    const std::array<double, 5> written{scale[0], scale[1], material.reals("tex_rotate", 1)[0], translate[0],
                                        translate[1]};
    static const char* const kWords[] = {"tex_scale s", "tex_scale t", "tex_rotate", "tex_translate s",
                                         "tex_translate t"};
    for (std::size_t i = 0; i < written.size(); ++i) {
        const double off = written.at(i) - expected.at(i);
        const double error = std::abs(i == 2 ? std::remainder(off, 360.0) : off);
        const double allowed = 0.55 / 4096 + 4e-7 * std::abs(expected.at(i));
        if (!(error <= allowed)) {
            result.find(place + ": " + kWords[i] + " is off by " + decimals(error, 6) + ", allowed are " +
                        decimals(allowed, 6));
        }
    }
}

// Each display line has the priority of its material's shader, 0 when that asks for none.
void checkPriorities(const report::ExportedModel& model, const std::vector<int>& priorities, Verification& result) {
    const auto& nodes = model.file.root.child("body").child("node_array").children;
    for (const decode::FileElement& node : nodes) {
        for (const decode::FileElement& display : node.children) {
            const auto material = static_cast<std::size_t>(display.integer("material"));
            const int written = display.integer("priority");
            if (material < priorities.size() && written != priorities[material]) {
                result.find("imd: node " + report::utf8Name(node.value("name")) + ": priority is " +
                            std::to_string(written) + " instead of " + std::to_string(priorities[material]));
            }
        }
    }
}

int priorityOf(const MObject& shader) {
    if (shader.isNull() || !isOn(shader, "tvk_use_render_priority")) {
        return 0;
    }
    return std::clamp(attributeOf<int>(shader, "tvk_render_priority").value_or(0), 1, 255);
}

} // namespace

void checkMaterials(const report::ExportedFiles& files, const MaterialNames& names, Verification& result) {
    const decode::FileElement* const array = files.model->file.root.child("body").find("material_array");
    if (array == nullptr) {
        return;
    }
    std::vector<int> priorities;
    for (const decode::FileElement& material : array->children) {
        const std::string name = report::utf8Name(material.value("name"));
        const MObject shader = names.shaderOf(material.value("name"));
        priorities.push_back(priorityOf(shader));
        const std::string place = "imd: material " + name;
        std::array<double, 13> expected{31, 31, 31};
        expected[12] = 31;
        if (!shader.isNull()) {
            expected = consoleColors(shader);
        } else if (name.compare(0, 14, "dummy_material") != 0) {
            result.find(place + " is not in the scene");
            continue;
        }
        const std::array<double, 13> written = writtenColors(material);
        for (std::size_t i = 0; i < written.size(); ++i) {
            result.check(Part::kMaterials, std::abs(written.at(i) - expected.at(i)), kHalfStep,
                         place + ": " + wordOf(i));
        }
        checkMaterialSettings(material, shader, files.textures, place, result);
        if (!shader.isNull()) {
            checkPlacement(material, shader, place, result);
        }
    }
    checkPriorities(*files.model, priorities, result);
}

} // namespace host::app::verify
