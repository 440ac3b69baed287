#include "sampleTextures/tgaFile.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tvk::samples {

namespace {

using Entry = std::vector<uint8_t>; // one pixel as the file has it

struct KindRow {
    uint8_t imageType;
    uint8_t bits;
    bool hasRuns;
    bool isTopDown;
};

KindRow rowOf(TgaKind kind) {
    constexpr KindRow kRows[] = {
        {9, 8, true, true}, {2, 24, false, false}, {2, 32, false, false}, {10, 24, true, true}, {10, 32, true, true}};
    return kRows[static_cast<std::size_t>(kind)];
}

bool isSameColor(const Pixel& a, const Pixel& b) {
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

void addWord(FileBytes& file, int word) {
    file.push_back(static_cast<uint8_t>(word & 0xFF));
    file.push_back(static_cast<uint8_t>(word >> 8));
}

std::vector<Pixel> colorsOf(const Picture& picture) {
    std::vector<Pixel> colors;
    for (const Pixel& pixel : picture.pixels) {
        const auto isIt = [&](const Pixel& color) { return isSameColor(color, pixel); };
        if (std::none_of(colors.begin(), colors.end(), isIt)) {
            colors.push_back(pixel);
        }
    }
    return colors;
}

Entry entryOf(const Pixel& pixel, const KindRow& row, const std::vector<Pixel>& map) {
    if (!map.empty()) {
        const auto found =
            std::find_if(map.begin(), map.end(), [&](const Pixel& color) { return isSameColor(color, pixel); });
        return {static_cast<uint8_t>(found - map.begin())};
    }
    Entry entry{pixel.blue, pixel.green, pixel.red};
    if (row.bits == 32) {
        entry.push_back(pixel.alpha);
    }
    return entry;
}

std::vector<Entry> entriesOf(const Picture& picture, const KindRow& row, const std::vector<Pixel>& map) {
    std::vector<Entry> entries;
    for (int line = 0; line < picture.height; ++line) {
        for (int column = 0; column < picture.width; ++column) {
            const int from = row.isTopDown ? line : picture.height - 1 - line;
            entries.push_back(entryOf(picture.at(column, from), row, map));
        }
    }
    return entries;
}

// Length of the run of equal entries that begins at `at`, at most 128.
std::size_t runAt(const std::vector<Entry>& entries, std::size_t at) {
    std::size_t length = 1;
    while (length < 128 && at + length < entries.size() && entries[at + length] == entries[at]) {
        ++length;
    }
    return length;
}

void addRuns(FileBytes& file, const std::vector<Entry>& entries) {
    for (std::size_t at = 0; at < entries.size();) {
        const std::size_t run = runAt(entries, at);
        if (run > 1) {
            file.push_back(static_cast<uint8_t>(0x80 | (run - 1)));
            file.insert(file.end(), entries[at].begin(), entries[at].end());
            at += run;
            continue;
        }
        std::size_t end = at;
        while (end < entries.size() && end - at < 128 && runAt(entries, end) == 1) {
            ++end;
        }
        file.push_back(static_cast<uint8_t>(end - at - 1));
        for (; at < end; ++at) {
            file.insert(file.end(), entries[at].begin(), entries[at].end());
        }
    }
}

// Identification field of a file with a block: the mark, a zero byte, and the block's place in the file.
constexpr std::string_view kMark("TVK_Tga Ver 1.0\0", 16);
constexpr std::size_t kOffsetAt = 18 + kMark.size();

} // namespace

FileBytes writeTga(const Picture& picture, TgaKind kind, const FileBytes& block) {
    const KindRow row = rowOf(kind);
    const std::vector<Pixel> map = kind == TgaKind::kColorMapped ? colorsOf(picture) : std::vector<Pixel>();
    const std::size_t idLength = block.empty() ? 0 : kMark.size() + 4;
    FileBytes file{static_cast<uint8_t>(idLength), static_cast<uint8_t>(map.empty() ? 0 : 1), row.imageType};
    addWord(file, 0); // first entry of the map
    addWord(file, static_cast<int>(map.size()));
    file.push_back(map.empty() ? 0 : 24);
    addWord(file, 0); // origin
    addWord(file, 0);
    addWord(file, picture.width);
    addWord(file, picture.height);
    file.push_back(row.bits);
    file.push_back(static_cast<uint8_t>((row.bits == 32 ? 8 : 0) | (row.isTopDown ? 0x20 : 0)));
    if (!block.empty()) {
        file.insert(file.end(), kMark.begin(), kMark.end());
        file.resize(file.size() + 4); // the offset, once it is known
    }
    for (const Pixel& color : map) {
        file.insert(file.end(), {color.blue, color.green, color.red});
    }
    const std::vector<Entry> entries = entriesOf(picture, row, map);
    if (row.hasRuns) {
        addRuns(file, entries);
    } else {
        for (const Entry& entry : entries) {
            file.insert(file.end(), entry.begin(), entry.end());
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
