#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tvk {

// Bytes of a file that a test writes, in the order of the calls.
class ByteList {
public:
    ByteList& byte(unsigned int value) {
        bytes.push_back(static_cast<std::uint8_t>(value));
        return *this;
    }
    ByteList& little16(unsigned int value) { return byte(value & 0xFFU).byte(value >> 8U & 0xFFU); }
    ByteList& little32(std::uint32_t value) { return little16(value & 0xFFFFU).little16(value >> 16U); }
    ByteList& big16(unsigned int value) { return byte(value >> 8U & 0xFFU).byte(value & 0xFFU); }
    ByteList& text(std::string_view characters) {
        bytes.insert(bytes.end(), characters.begin(), characters.end());
        return *this;
    }
    ByteList& all(const std::vector<std::uint8_t>& others) {
        bytes.insert(bytes.end(), others.begin(), others.end());
        return *this;
    }
    ByteList& zeros(std::size_t count) {
        bytes.insert(bytes.end(), count, std::uint8_t{0});
        return *this;
    }

    std::vector<std::uint8_t> bytes;
};

} // namespace tvk
