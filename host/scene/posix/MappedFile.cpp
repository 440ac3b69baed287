#include "host/scene/MappedFile.h"

#include "host/scene/sceneMessages.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {

namespace {

std::string describeError(const std::string& path, int code) {
    if (code == ENOENT || code == ENOTDIR) {
        return messages::text(messages::kFileMissing, {path});
    }
    return messages::text(messages::kFileUnreadable, {path, std::generic_category().message(code)});
}

std::string refuseKind(const std::string& path, const struct stat& status) {
    if (S_ISDIR(status.st_mode)) {
        return messages::text(messages::kFileIsDirectory, {path});
    }
    if (!S_ISREG(status.st_mode)) {
        return messages::text(messages::kFileIsNoFile, {path});
    }
    return status.st_size == 0 ? messages::text(messages::kFileEmpty, {path}) : std::string();
}

} // namespace

MappedFile::~MappedFile() {
    if (address_ != nullptr) {
        ::munmap(address_, size_);
    }
}

std::string MappedFile::open(const std::string& path) {
    // Opening a pipe for reading would wait for a writer without O_NONBLOCK.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return describeError(path, errno);
    }
    struct stat status = {};
    std::string error = ::fstat(file, &status) != 0 ? describeError(path, errno) : refuseKind(path, status);
    if (error.empty()) {
        const auto size = static_cast<std::size_t>(status.st_size);
        void* address = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
        if (address == MAP_FAILED) {
            error = describeError(path, errno);
        } else {
            ::madvise(address, size, MADV_SEQUENTIAL);
            address_ = address;
            size_ = size;
        }
    }
    ::close(file);
    return error;
}

} // namespace host
