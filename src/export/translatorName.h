#pragma once

namespace tvk {

/// The file type that users choose in the host's export dialog, and scripts name.
inline constexpr const char* kTranslatorName = "KALDERA_ZEPHRA_System";

} // namespace tvk
