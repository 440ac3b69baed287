#pragma once

#include "scene/Run.h"

namespace tvk {

/// Marks the run as under way; frees its data, whichever way it ended.
struct RunGuard {
    RunGuard() { run().underWay = true; }
    ~RunGuard() {
        run().clearScene();
        run().underWay = false;
    }
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;
};

} // namespace tvk
