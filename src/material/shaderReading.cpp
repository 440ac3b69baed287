#include "material/shaderReading.h"

#include "common/fixedPoint.h"
#include "material/color5.h"
#include "material/materialAttributes.h"
#include "material/shaderTypes.h"
#include "scene/plugReading.h"
#include "scene/plugSource.h"

#include <maya/MColor.h>
#include <maya/MFnLambertShader.h>
#include <maya/MFnReflectShader.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace tvk {
namespace {

MPlug plugOf(MObject node, const char* name) {
    return findPlug(MFnDependencyNode(node), name);
}

MPlug childOf(const MPlug& compound, unsigned int index) {
    return !compound.isNull() && compound.isCompound() ? compound.child(index) : MPlug();
}

// With its alpha at 1, as colours have it by default.
MColor readColor(const MPlug& plug) {
    std::array<float, 3> parts{};
    for (unsigned int i = 0; i < parts.size(); ++i) {
        static_cast<void>(readPlug(childOf(plug, i), parts[i])); // 0 when it cannot be read
    }
    return MColor(parts[0], parts[1], parts[2]);
}

// A textured shader is tinted by the gain of its texture; its own colour is what the texture replaces.
MPlug diffusePlug(const MObject& shader, const MObject& fileTexture) {
    return fileTexture.isNull() ? plugOf(shader, shaderTypeOf(shader).colorPlug) : plugOf(fileTexture, "colorGain");
}

void readColors(MObject shader, const MPlug& diffuse, MaterialRecord& record) {
    const MFnLambertShader lambert(shader);
    record.diffuseCoeff = lambert.diffuseCoeff();
    record.diffuse = toColor5(readColor(diffuse) * record.diffuseCoeff);
    record.ambient = toColor5(lambert.ambientColor());
    record.emission = toColor5(lambert.incandescence());
    record.hasSpecular = shaderTypeOf(shader).hasSpecular;
    if (record.hasSpecular) {
        record.specular = toColor5(MFnReflectShader(shader).specularColor());
    }
}

// Of a transparency that is a file texture the texture's gain; it is no transparency then, but an opacity.
MPlug alphaPlug(const MObject& shader, MaterialRecord& record) {
    const MPlug red = plugOf(shader, shaderTypeOf(shader).transparencyPlug);
    const MPlug source = red.isNull() || !red.isChild() ? MPlug() : sourceOf(red.parent());
    if (source.isNull() || source.node().apiType() != MFn::kFileTexture) {
        return red;
    }
    record.alphaFromTransparency = false;
    return plugOf(source.node(), "alphaGain");
}

void readAlpha(const MPlug& plug, MaterialRecord& record) {
    float value = record.alphaFromTransparency ? 0.0F : 1.0F;
    static_cast<void>(readPlug(plug, value)); // opaque when it cannot be read
    record.alpha = toComponent5(record.alphaFromTransparency ? 1.0F - value : value);
}

void setChannel(MaterialRecord& record, std::size_t channel, const MPlug& plug) {
    ColorChannelRecord& target = record.channels.at(channel);
    target.plug = plug;
    target.driver = findDriver(plug);
    record.colorAnimated = record.colorAnimated || target.driver.isAnimated();
}

void setColorChannels(MaterialRecord& record, ColorChannel red, const MPlug& color) {
    for (unsigned int i = 0; i < 3; ++i) {
        setChannel(record, static_cast<std::size_t>(red) + i, childOf(color, i));
    }
}

void findChannels(const MObject& shader, const MPlug& diffuse, const MPlug& alpha, MaterialRecord& record) {
    setColorChannels(record, ColorChannel::kDiffuseR, diffuse);
    setColorChannels(record, ColorChannel::kAmbientR, plugOf(shader, "ambientColor"));
    if (record.hasSpecular) {
        setColorChannels(record, ColorChannel::kSpecularR, plugOf(shader, "specularColor"));
    }
    setColorChannels(record, ColorChannel::kEmissionR, plugOf(shader, "incandescence"));
    setChannel(record, static_cast<std::size_t>(ColorChannel::kAlpha), alpha);
}

} // namespace

void readShader(const MObject& shader, const MObject& fileTexture, MaterialRecord& record) {
    readConsoleAttributes(shader, record);
    const MPlug diffuse = diffusePlug(shader, fileTexture);
    readColors(shader, diffuse, record);
    const MPlug alpha = alphaPlug(shader, record);
    readAlpha(alpha, record);
    findChannels(shader, diffuse, alpha, record);
}

} // namespace tvk
