#pragma once

#include "scene/Run.h"

#include <sstream>
#include <string>

namespace tvk {

/// The library's run as it is before the first export, with its messages collected; so again afterwards.
class FreshRun {
public:
    FreshRun() {
        forget();
        run().messages = &stream;
    }
    ~FreshRun() { forget(); }
    FreshRun(const FreshRun&) = delete;
    FreshRun& operator=(const FreshRun&) = delete;

    std::string messages() const { return stream.str(); }

private:
    static void forget() {
        run().options = ExportOptions{};
        run().clearScene();
        run().resetMessages();
        run().lossyText = false;
    }

    std::ostringstream stream;
};

} // namespace tvk
