#include "scene/messages.h"

#include "scene/Run.h"

#include <maya/MGlobal.h>
#include <maya/MString.h>

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
        MString line;
        line.setUTF8(std::string(text).c_str());
        MGlobal::displayInfo(line);
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
