#include "host/app/verify/materialNames.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/sceneValues.h"

#include <maya/MItDependencyNodes.h>

namespace host::app::verify {
namespace {

constexpr const char* kDummy = "dummy_material";

std::string withoutNumber(const std::string& name) {
    const std::size_t digits = name.find_last_not_of("0123456789");
    const bool isNumbered = digits != std::string::npos && digits + 1 < name.size() && name[digits] == '_';
    return isNumbered ? name.substr(0, digits) : std::string();
}

} // namespace

bool hasConsoleColors(const MObject& shader) {
    switch (shader.apiType()) {
    case MFn::kLayeredShader:
    case MFn::kUseBackground:
    case MFn::kRampShader:
    case MFn::kOceanShader:
        return false;
    default:
        return shader.hasFn(MFn::kLambert);
    }
}

MaterialNames::MaterialNames(bool merges) : merges_(merges) {
    for (MItDependencyNodes it(MFn::kShadingEngine); !it.isDone(); it.next()) {
        const MObject group = it.thisNode();
        const MPlug source = driverOf(MFnDependencyNode(group).findPlug("surfaceShader", false));
        if (!source.isNull()) {
            shaders_.emplace(nameOf(source.node()), source.node());
        }
    }
}

bool MaterialNames::mayBeOf(const std::string& material, const std::string& shader) const {
    const auto found = shaders_.find(shader);
    if (found == shaders_.end() || !hasConsoleColors(found->second)) {
        return material == kDummy || withoutNumber(material) == kDummy;
    }
    const std::string name = report::utf8Name(material);
    if (name == shader || withoutNumber(name) == shader) {
        return true;
    }
    // Merged materials have the smallest of their names.
    return merges_ && name < shader && !shaderOf(material).isNull();
}

MObject MaterialNames::shaderOf(const std::string& material) const {
    const std::string name = report::utf8Name(material);
    for (const std::string& wanted : {name, withoutNumber(name)}) {
        const auto found = shaders_.find(wanted);
        if (found != shaders_.end() && hasConsoleColors(found->second)) {
            return found->second;
        }
    }
    return {};
}

} // namespace host::app::verify
