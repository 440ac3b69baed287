#pragma once

#include "plugin/pluginMessages.h"
#include "scene/guarded.h"

#include <maya/MGlobal.h>
#include <maya/MString.h>

namespace tvk {

/// A call that comes from the host, outside of exports: what is thrown in it becomes one error line of the host.
template <typename Call>
[[nodiscard]] MStatus hostCall(Call call) {
    return guarded(call, [](const char* what) { MGlobal::displayError(MString(kUnexpectedFailureOf) + what); });
}

} // namespace tvk
