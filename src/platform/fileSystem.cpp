#include "platform/fileSystem.h"

namespace tvk {

bool openForWriting(std::ofstream& out, const std::string& path, WriteMode mode) {
    // The C library would open the part before a NUL, which is another file.
    if (path.empty() || path.find('\0') != std::string::npos)
        return false;
    out.open(systemPath(path), mode == WriteMode::kAppend ? std::ios_base::app : std::ios_base::trunc);
    return out.is_open();
}

} // namespace tvk
