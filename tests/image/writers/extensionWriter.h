#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tvk {

// One chunk: tag, size of the whole, payload.
std::vector<std::uint8_t> chunk(std::string_view tag, const std::vector<std::uint8_t>& payload);
std::vector<std::uint8_t> chunk(std::string_view tag, std::string_view payload);
// A chunk that claims another size than it has.
std::vector<std::uint8_t> chunkOfSize(std::string_view tag, std::uint32_t size,
                                      const std::vector<std::uint8_t>& payload = {});

// Several chunks after each other.
std::vector<std::uint8_t> joined(const std::vector<std::vector<std::uint8_t>>& chunks);

// 16-bit words, low byte first.
std::vector<std::uint8_t> wordBytes(const std::vector<std::uint16_t>& words);

// The identification field of a Truevision file, and the comment of a PIC file, that announce an extension block at an
// offset.
std::string tgaMark(std::uint32_t offset);
std::string picMark(std::uint32_t offset);

// A file of one grey pixel a byte with a block behind it: what the console's texture converter leaves.
std::vector<std::uint8_t> tgaWithBlock(std::uint16_t width, std::uint16_t height,
                                       const std::vector<std::uint8_t>& block);
std::vector<std::uint8_t> picWithBlock(std::uint16_t width, std::uint16_t height,
                                       const std::vector<std::uint8_t>& block);

} // namespace tvk
