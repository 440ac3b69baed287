#include "material/textureGraph.h"

#include "scene/hostCompatibility.h"
#include "scene/plugSource.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MPlugArray.h>

namespace tvk {
namespace {

MPlug sourceBehindConversion(const MPlug& plug) {
    const MPlug source = sourceOf(plug);
    if (source.isNull()) {
        return source;
    }
    const MObject node = source.node();
    const bool isConversion = node.apiType() == MFn::kUnitConversion || node.apiType() == MFn::kTimeToUnitConversion;
    return isConversion ? sourceOf(findPlug(MFnDependencyNode(node), "input")) : source;
}

MPlug firstInputOf(const MObject& node) {
    MPlugArray plugs;
    if (!MFnDependencyNode(node).getConnections(plugs)) {
        return {};
    }
    for (unsigned int i = 0; i < plugs.length(); ++i) {
        if (!sourceOf(plugs[i]).isNull()) {
            return plugs[i];
        }
    }
    return {};
}

} // namespace

MObject sourceNodeOf(const MObject& node, const char* attribute, MFn::Type type) {
    const MPlug source = sourceOf(findPlug(MFnDependencyNode(node), attribute));
    const MObject found = source.isNull() ? MObject() : source.node();
    return found.apiType() == type ? found : MObject();
}

MPlug driverThroughCharacter(const MPlug& plug) {
    const MPlug source = sourceBehindConversion(plug);
    if (source.isNull() || source.node().apiType() != MFn::kCharacter) {
        return source;
    }
    const MPlug ofElement = sourceBehindConversion(source);
    return ofElement.isNull() ? sourceBehindConversion(firstInputOf(source.node())) : ofElement;
}

} // namespace tvk
