#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// A file's bytes, read-only, mapped into memory: nothing is copied, and the system drops pages that are not needed.
class MappedFile {
public:
    MappedFile() = default;
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    /// "" or one line that says why the file cannot be read: missing, a folder, no regular file, empty, no permission.
    /// To be called once.
    [[nodiscard]] std::string open(const std::string& path);

    std::string_view bytes() const { return {static_cast<const char*>(address_), size_}; }

private:
    void* address_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace host
