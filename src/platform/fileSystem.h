#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace tvk {

// Files and folders by their UTF-8 path (on POSIX, by whatever bytes the path has). '/' separates everywhere; Windows
// takes '\\' as well. Nothing here throws; a path that is empty or holds a NUL names nothing.

// The path in the system's own form, to open streams with: wide characters on Windows (text that is not valid UTF-8 is
// taken from the user's code page), the same bytes elsewhere.
std::filesystem::path systemPath(const std::string& path);

// Text of a file that names files, as paths are spelled here: on Windows, text that is not valid UTF-8 is brought from
// the user's code page to UTF-8; elsewhere it stays as it is.
std::string pathText(const std::string& text);

// The path from the root on: one that is relative is seen from where the program runs. Others stay as they are.
std::string absolutePath(const std::string& path);

// Something of that name exists that is not a folder.
bool fileExists(const std::string& path);

// A folder of that name exists; separators at the end do not matter.
bool folderExists(const std::string& path);

// Creates one level. True when the folder exists afterwards.
[[nodiscard]] bool createFolder(const std::string& path);

// True when there was such a file and it is gone.
[[nodiscard]] bool deleteFile(const std::string& path);

enum class WriteMode { kReplace, kAppend };

// Opens `out` for writing text, with the system's line ends. False, with `out` closed, when the system refuses.
[[nodiscard]] bool openForWriting(std::ofstream& out, const std::string& path, WriteMode mode);

// Where short-lived files go, without a separator at the end: the variable TEMP; when it is not set or empty, on POSIX
// TMPDIR, else "/tmp", and on Windows nothing (the root of the current drive).
std::string tempFolder();

// '\\' on Windows, '/' elsewhere.
extern const char kPathSeparator;

} // namespace tvk
