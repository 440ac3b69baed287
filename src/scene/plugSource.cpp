#include "scene/plugSource.h"

#include <maya/MPlugArray.h>

namespace tvk {

MPlug sourceOf(const MPlug& plug) {
    MPlugArray sources;
    if (plug.isNull() || !plug.connectedTo(sources, true, false) || sources.length() == 0) {
        return MPlug();
    }
    return sources[0];
}

MObject firstSourceNode(const MPlug& plug) {
    MPlug source = sourceOf(plug);
    const unsigned int children = plug.isNull() || !plug.isCompound() ? 0 : plug.numChildren();
    for (unsigned int i = 0; i < children && source.isNull(); ++i) {
        source = sourceOf(plug.child(i));
    }
    return source.isNull() ? MObject() : source.node();
}

} // namespace tvk
