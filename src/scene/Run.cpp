#include "scene/Run.h"

#include <iostream>

namespace tvk {

void Run::clearScene() {
    scene = SceneData{};
}

void Run::resetMessages() {
    messages = &std::cerr;
    warningRaised = false;
}

Run& run() {
    static Run theRun = [] {
        Run fresh;
        fresh.resetMessages();
        return fresh;
    }();
    return theRun;
}

} // namespace tvk
