#include "scene/messages.h"

#include "scene/Run.h"
#include "scene/hostCompatibility.h"

#include <maya/MGlobal.h>

#include <ostream>

namespace tvk {

void say(const Message& message, std::string_view subject) {
    const bool isWarning = message.severity == Severity::kWarning;
    *run().messages << (isWarning ? "Warning: " : "Error: ") << message.text << subject << std::endl;
    if (isWarning) {
        raiseWarning();
    }
}

void showInformation(std::string_view text) {
    if (!run().options.batchFlag) {
        MGlobal::displayInfo(hostText(std::string(text)));
    }
}

void raiseWarning() {
    run().warningRaised = true;
}

bool warningRaised() {
    return run().warningRaised;
}

void clearWarning() {
    run().warningRaised = false;
}

} // namespace tvk
