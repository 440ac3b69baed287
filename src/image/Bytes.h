#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tvk {

/// Bytes of a file in memory. Reading beyond the end is the caller's mistake unless a function says otherwise.
struct Bytes {
    const uint8_t* data = nullptr;
    size_t size = 0;

    uint8_t operator[](size_t at) const { return data[at]; }
    bool holds(size_t offset, size_t count) const { return offset <= size && count <= size - offset; }
    /// What follows an offset; empty when that lies behind the end.
    Bytes from(size_t offset) const { return offset < size ? Bytes{data + offset, size - offset} : Bytes{}; }
    Bytes first(size_t count) const { return {data, count < size ? count : size}; }
    std::string_view text() const { return {reinterpret_cast<const char*>(data), size}; }
    bool startsWith(std::string_view prefix) const { return first(prefix.size()).text() == prefix; }

    uint16_t little16(size_t at) const { return static_cast<uint16_t>(data[at] | data[at + 1] << 8U); }
    uint16_t big16(size_t at) const { return static_cast<uint16_t>(data[at] << 8U | data[at + 1]); }
    uint32_t little32(size_t at) const { return little16(at) | static_cast<uint32_t>(little16(at + 2)) << 16U; }
};

} // namespace tvk
