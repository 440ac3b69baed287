#pragma once

#include "scene/ExportOptions.h"
#include "scene/SceneData.h"

#include <iosfwd>

namespace tvk {

/// The state of the one export run that can be under way: there is a single one in the library, and all its rooms read
/// it. Not thread-safe, as the host calls plug-ins on one thread only.
struct Run {
    ExportOptions options; // lives on between runs; reset at the start of each
    SceneData scene;
    std::ostream* messages = nullptr; // never null outside construction: standard error, or the batch log
    bool warningRaised = false;
    bool lossyText = false; // some written text had characters without a Shift_JIS code
    bool underWay = false;  // guards against a run that is started from inside a run

    /// Frees everything gathered.
    void clearScene();
    /// Messages to standard error, no warning yet.
    void resetMessages();
};

/// The library's run.
Run& run();

} // namespace tvk
