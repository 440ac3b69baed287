#include "sampleTextures/picFile.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tvk::samples {

namespace {

constexpr uint8_t kColorChannels = 0xE0, kAlphaChannel = 0x10;
constexpr uint8_t kMixedRuns = 2;
constexpr std::string_view kMark = "TVK_Pic Ver 1.0";
constexpr std::size_t kOffsetAt = 24, kCommentAt = 8, kCommentSize = 80;

void addBigWord(FileBytes& file, std::size_t word) {
    file.push_back(static_cast<uint8_t>(word >> 8));
    file.push_back(static_cast<uint8_t>(word & 0xFF));
}

std::vector<FileBytes> lineEntries(const Picture& picture, int row, uint8_t channels) {
    std::vector<FileBytes> entries;
    for (int column = 0; column < picture.width; ++column) {
        const Pixel& pixel = picture.at(column, row);
        entries.push_back(channels == kAlphaChannel ? FileBytes{pixel.alpha}
                                                    : FileBytes{pixel.red, pixel.green, pixel.blue});
    }
    return entries;
}

std::size_t runAt(const std::vector<FileBytes>& entries, std::size_t at) {
    std::size_t length = 1;
    while (at + length < entries.size() && entries[at + length] == entries[at]) {
        ++length;
    }
    return length;
}

// A count below 128 is followed by one pixel more than it says; above 128 it repeats a pixel 127 times less; 128 itself
// is followed by a count in 16 bits. Lines of samples are too short for that last form.
void addLine(FileBytes& file, const std::vector<FileBytes>& entries) {
    for (std::size_t at = 0; at < entries.size();) {
        const std::size_t run = runAt(entries, at);
        if (run > 1) {
            file.push_back(static_cast<uint8_t>(run + 127));
            file.insert(file.end(), entries[at].begin(), entries[at].end());
            at += run;
            continue;
        }
        std::size_t end = at;
        while (end < entries.size() && runAt(entries, end) == 1) {
            ++end;
        }
        file.push_back(static_cast<uint8_t>(end - at - 1));
        for (; at < end; ++at) {
            file.insert(file.end(), entries[at].begin(), entries[at].end());
        }
    }
}

void addPacket(FileBytes& file, bool isChained, uint8_t channels) {
    file.insert(file.end(), {static_cast<uint8_t>(isChained ? 1 : 0), 8, kMixedRuns, channels});
}

} // namespace

FileBytes writePic(const Picture& picture, const FileBytes& block) {
    const bool hasAlpha = std::any_of(picture.pixels.begin(), picture.pixels.end(),
                                      [](const Pixel& pixel) { return pixel.alpha != 255; });
    FileBytes file{0x53, 0x80, 0xF6, 0x34};
    file.insert(file.end(), {0x40, 0x70, 0x00, 0x00}); // version 3.75, as a real number
    file.resize(kCommentAt + kCommentSize);
    if (!block.empty()) {
        std::copy(kMark.begin(), kMark.end(), file.begin() + kCommentAt);
    }
    file.insert(file.end(), {'P', 'I', 'C', 'T'});
    addBigWord(file, static_cast<std::size_t>(picture.width));
    addBigWord(file, static_cast<std::size_t>(picture.height));
    file.insert(file.end(), {0x3F, 0x80, 0x00, 0x00}); // square pixels
    addBigWord(file, 3);                               // both fields
    addBigWord(file, 0);
    addPacket(file, hasAlpha, kColorChannels);
    if (hasAlpha) {
        addPacket(file, false, kAlphaChannel);
    }
    for (int row = 0; row < picture.height; ++row) {
        addLine(file, lineEntries(picture, row, kColorChannels));
        if (hasAlpha) {
            addLine(file, lineEntries(picture, row, kAlphaChannel));
        }
    }
    if (!block.empty()) {
        for (std::size_t byte = 0; byte < 4; ++byte) {
            file[kOffsetAt + byte] = static_cast<uint8_t>(file.size() >> 8 * byte & 0xFF);
        }
        file.insert(file.end(), block.begin(), block.end());
    }
    return file;
}

} // namespace tvk::samples
