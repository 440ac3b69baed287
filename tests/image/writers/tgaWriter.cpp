#include "tgaWriter.h"

#include "ByteList.h"

#include <algorithm>

namespace tvk {
namespace {

void putColor(ByteList& out, const Rgba& color, std::uint8_t bits) {
    switch (bits) {
    case 8:
        out.byte(color.r);
        break;
    case 15:
    case 16: // the top bit is set to show that nobody takes it for something
        out.little16(0x8000U | unsigned{color.r} / 8 * 1024 | unsigned{color.g} / 8 * 32 | unsigned{color.b} / 8);
        break;
    case 24:
        out.byte(color.b).byte(color.g).byte(color.r);
        break;
    default:
        out.byte(color.b).byte(color.g).byte(color.r).byte(color.a);
    }
}

std::vector<Rgba> colorsOf(const Picture& picture) {
    std::vector<Rgba> colors;
    for (const Rgba& pixel : picture.pixels) {
        if (std::find(colors.begin(), colors.end(), pixel) == colors.end()) {
            colors.push_back(pixel);
        }
    }
    return colors;
}

// The picture's rows in the order in which the file has them.
std::vector<std::size_t> fileRows(const Picture& picture, const TgaOptions& options) {
    const std::size_t step = options.interleave == 1 ? 2 : options.interleave == 2 ? 4 : 1;
    std::vector<std::size_t> rows;
    for (std::size_t pass = 0; pass < step; ++pass) {
        for (std::size_t row = pass; row < picture.height; row += step) {
            rows.push_back(options.topToBottom ? row : picture.height - 1 - row);
        }
    }
    return rows;
}

std::vector<Rgba> filePixels(const Picture& picture, const TgaOptions& options) {
    std::vector<Rgba> pixels;
    for (const std::size_t row : fileRows(picture, options)) {
        for (std::size_t i = 0; i < picture.width; ++i) {
            pixels.push_back(picture.at(options.rightToLeft ? picture.width - 1 - i : i, row));
        }
    }
    return pixels;
}

// Turns pixels into the file's pixel values, plain or in packets.
class PixelWriter {
public:
    PixelWriter(ByteList& bytes, const TgaOptions& choices, const std::vector<Rgba>& colorMap)
        : out(bytes), options(choices), map(colorMap) {}

    void plain(const std::vector<Rgba>& pixels) {
        std::for_each(pixels.begin(), pixels.end(), [this](const Rgba& pixel) { put(pixel); });
    }

    void packets(const std::vector<Rgba>& pixels) {
        for (std::size_t at = 0; at < pixels.size();) {
            const std::size_t run = runLength(pixels, at);
            at += run > 1 ? repeat(pixels, at, run) : literals(pixels, at);
        }
    }

private:
    bool isMapped() const { return options.type == 1 || options.type == 9; }

    void put(const Rgba& pixel) {
        if (!isMapped()) {
            putColor(out, pixel, options.bits);
            return;
        }
        const auto entry = static_cast<unsigned int>(std::find(map.begin(), map.end(), pixel) - map.begin());
        const unsigned int index = options.firstMapEntry + entry;
        options.bits == 8 ? out.byte(index) : out.little16(index);
    }

    std::size_t runLength(const std::vector<Rgba>& pixels, std::size_t at) const {
        std::size_t run = 1;
        while (run < options.longestRun && at + run < pixels.size() && pixels[at + run] == pixels[at]) {
            ++run;
        }
        return run;
    }

    std::size_t repeat(const std::vector<Rgba>& pixels, std::size_t at, std::size_t run) {
        out.byte(0x80U | static_cast<unsigned int>(run - 1));
        put(pixels[at]);
        return run;
    }

    std::size_t literals(const std::vector<Rgba>& pixels, std::size_t at) {
        std::size_t count = 1;
        while (count < options.longestRun && at + count < pixels.size() && runLength(pixels, at + count) == 1) {
            ++count;
        }
        out.byte(static_cast<unsigned int>(count - 1));
        for (std::size_t i = 0; i < count; ++i) {
            put(pixels[at + i]);
        }
        return count;
    }

    ByteList& out;
    const TgaOptions& options;
    const std::vector<Rgba>& map;
};

} // namespace

Rgba storedInTga(const Rgba& color, std::uint8_t bits) {
    const auto five = [](std::uint8_t value) { return static_cast<std::uint8_t>(value / 8 * 8 + value / 32); };
    switch (bits) {
    case 8:
        return {color.r, color.r, color.r, 255};
    case 15:
    case 16:
        return {five(color.r), five(color.g), five(color.b), 255};
    case 24:
        return {color.r, color.g, color.b, 255};
    default:
        return color;
    }
}

std::vector<std::uint8_t> writeTga(const Picture& picture, const TgaOptions& options) {
    const bool isMapped = options.type == 1 || options.type == 9;
    const std::vector<Rgba> map = isMapped && options.map.empty() ? colorsOf(picture) : options.map;
    ByteList out;
    out.byte(static_cast<unsigned int>(options.id.size())).byte(options.mapType).byte(options.type);
    out.little16(options.firstMapEntry).little16(static_cast<unsigned int>(map.size())).byte(options.mapBits);
    out.little16(0).little16(0); // the place on the screen that nobody has any more
    out.little16(static_cast<unsigned int>(picture.width)).little16(static_cast<unsigned int>(picture.height));
    out.byte(options.bits);
    out.byte(options.alphaBits | (options.rightToLeft ? 0x10U : 0U) | (options.topToBottom ? 0x20U : 0U) |
             static_cast<unsigned int>(options.interleave) << 6U);
    out.text(options.id);
    if (options.mapType != 0) {
        for (const Rgba& entry : map) {
            putColor(out, entry, options.mapBits);
        }
    }
    PixelWriter writer(out, options, map);
    const std::vector<Rgba> pixels = filePixels(picture, options);
    options.type >= 9 ? writer.packets(pixels) : writer.plain(pixels);
    return out.bytes;
}

} // namespace tvk
