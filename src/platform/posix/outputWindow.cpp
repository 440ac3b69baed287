#include "platform/outputWindow.h"

namespace tvk {

void showOutputWindow() {
    // The host writes to the terminal here, which is in view already.
}

} // namespace tvk
