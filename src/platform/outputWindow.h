#pragma once

namespace tvk {

// Brings the host's message window forward: the first enabled top-level window whose title begins with
// "Output Window" is shown in its normal state and made the foreground window. Does nothing when there is none, and on
// systems where the host has no such window.
void showOutputWindow();

} // namespace tvk
