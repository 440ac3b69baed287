#pragma once

namespace tvk {

// Shown as errors by the host.
inline constexpr const char* kRegisterTranslator = "register KALDERA ZEPHRA-System file translator";
inline constexpr const char* kRegisterCheckCommand = "register TVK_CheckElementNameCmd";
inline constexpr const char* kRegisterBatchCommand = "register TVK_BatchExportCmd";
inline constexpr const char* kDeregisterTranslator = "deregister KALDERA ZEPHRA-System file translator";
inline constexpr const char* kDeregisterCheckCommand = "deregister TVK_CheckElementNameCmd";
inline constexpr const char* kDeregisterBatchCommand = "deregister TVK_BatchExportCmd";

inline constexpr const char* kUnexpectedFailureOf = "TVK_Export failed unexpectedly: "; // what was thrown follows

inline constexpr const char* kCantGetTarget = "Can't get target";
inline constexpr const char* kInvalidTarget = "Invalid target: "; // what was given follows

} // namespace tvk
