#pragma once

#include "HostSession.h"

#include "scene/Run.h"

namespace tvk {

/// The embedded host and the library's run as it is before an export gathers anything. The workspace is the test's
/// folder.
class MaterialSession : public HostSession {
public:
    MaterialSession() {
        forget();
        run().options.workspaceRoot = folder.path() + "/";
    }
    ~MaterialSession() { forget(); }
    MaterialSession(const MaterialSession&) = delete;
    MaterialSession& operator=(const MaterialSession&) = delete;

private:
    static void forget() {
        run().options = ExportOptions{};
        run().clearScene();
        run().resetMessages();
    }
};

} // namespace tvk
