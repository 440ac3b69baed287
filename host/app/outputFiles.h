#pragma once

#include "host/app/commandLine.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace host::app {

/// The absolute base path of the files to write: what the user gave, or the scene's name without ending in the current
/// folder. A base that is a folder, or ends in '/', takes the scene's name within it.
std::string outputBase(const std::string& output, const std::string& scene);

/// The base without the ending of a kind, which users may write as well.
std::string withoutKind(const std::string& base);

/// A path as messages show it: relative to the current folder when the file is in it or below.
std::string shownPath(const std::string& path);

/// The folder that files go to. Made when its parent exists, and removed at the end if it was made and is still empty.
class OutputFolder {
public:
    /// `path` with a '/' at its end.
    explicit OutputFolder(std::string path) : path_(std::move(path)) {}
    ~OutputFolder();
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    /// "" on success, else one line without "Error:".
    [[nodiscard]] std::string prepare();

private:
    std::string path_;
    bool made_ = false;
};

struct WrittenFile {
    std::string path;
    std::uintmax_t lengthBytes = 0;
};

/// Tells which of the files that an export may write it did write.
class OutputFiles {
public:
    /// Remembers the files as they are, for a base path without kind ending.
    explicit OutputFiles(std::string base);

    /// Those that are new or were written since, in the order of the kinds.
    std::vector<WrittenFile> written() const;

private:
    std::string base_;
    std::map<std::string, std::filesystem::file_time_type> before_;
};

} // namespace host::app
