#pragma once

#include "scene/MaterialLookup.h"
#include "scene/MaterialRecord.h"

namespace tvk {

/// Two materials are equal, and one of them will do, exactly when their keys are. Names, shaders, priorities and how a
/// colour came about do not count. An animated texture counts by its source, which no two materials share.
MergeKey mergeKeyOf(const MaterialRecord& record);

/// Neither protected by its attribute nor animated by itself.
bool mayMerge(const MaterialRecord& record);

} // namespace tvk
