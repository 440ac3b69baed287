#include "platform/fileSystem.h"

#include <system_error>

namespace tvk {

bool openForWriting(std::ofstream& out, const std::string& path, WriteMode mode) {
    // The C library would open the part before a NUL, which is another file.
    if (path.empty() || path.find('\0') != std::string::npos)
        return false;
    out.open(systemPath(path), mode == WriteMode::kAppend ? std::ios_base::app : std::ios_base::trunc);
    return out.is_open();
}

std::string absolutePath(const std::string& path) {
    const std::filesystem::path given = systemPath(path);
    std::error_code error;
    const std::filesystem::path whole = given.is_relative() ? std::filesystem::absolute(given, error) : given;
    return error || !given.is_relative() ? path : whole.generic_u8string();
}

} // namespace tvk
