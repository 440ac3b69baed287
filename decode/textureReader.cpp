#include "decode/textureReader.h"

#include "decode/FileError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace decode {
namespace {

constexpr const char* kBlanks = " \t\r\n";
constexpr int kShortestSide = 8;
constexpr int kLongestSide = 1024;

struct FormatLayout {
    const char* name;
    int bits;      // of a texel
    int indexBits; // of them the palette index, in the low ones; the rest is alpha. 0: the texel is a colour
    bool hasMode;  // its first palette colour can stand for holes
};

constexpr std::array<FormatLayout, 6> kLayouts{{{"a3i5", 8, 5, false},
                                                {"palette4", 2, 2, true},
                                                {"palette16", 4, 4, true},
                                                {"palette256", 8, 8, true},
                                                {"a5i3", 8, 3, false},
                                                {"direct", 16, 0, false}}};

ShownTexel colorOf(unsigned int word) {
    return {static_cast<int>(word & 31U), static_cast<int>(word >> 5U & 31U), static_cast<int>(word >> 10U & 31U), 31};
}

ShownTexel mixed(const ShownTexel& x, int ofX, const ShownTexel& y, int ofY) {
    const int all = ofX + ofY;
    return {(x.r * ofX + y.r * ofY) / all, (x.g * ofX + y.g * ofY) / all, (x.b * ofX + y.b * ofY) / all, 31};
}

class TextureReader {
public:
    TextureReader(const FileElement& imageElement, const std::vector<std::uint16_t>* imagePalette)
        : element(imageElement), palette(imagePalette) {}

    ModelTexture read() {
        image.index = element.integer("index");
        image.name = element.value("name");
        image.width = element.integer("width");
        image.height = element.integer("height");
        image.originalWidth = element.integer("original_width");
        image.originalHeight = element.integer("original_height");
        image.format = element.value("format");
        image.path = element.value("path");
        image.color0Mode = optionalValue("color0_mode");
        image.paletteName = optionalValue("palette_name");
        require(image.paletteName.has_value() == (palette != nullptr), element, "there is no palette of its name");
        for (const int side : {image.width, image.height}) {
            require(side >= kShortestSide && side <= kLongestSide && side % 4 == 0, element, "a side of ", side,
                    " texels");
        }
        checkLines();
        decode();
        return std::move(image);
    }

private:
    std::size_t texelCount() const {
        return static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    }

    std::optional<std::string> optionalValue(const char* name) const {
        const std::string* value = element.attribute(name);
        return value == nullptr ? std::nullopt : std::optional<std::string>(*value);
    }

    void checkLines() const {
        std::vector<std::string> expected{"index",           "name",  "width", "height", "original_width",
                                          "original_height", "format"};
        if (image.format.compare(0, 7, "palette") == 0) {
            expected.emplace_back("color0_mode");
        }
        if (image.format != "direct") {
            expected.emplace_back("palette_name");
        }
        expected.emplace_back("path");
        require(element.attributeNames() == expected, element, "has not the lines of its format");
    }

    void decode() {
        if (image.format == "tex4x4") {
            decodeBlocks();
            return;
        }
        const auto layout = std::find_if(kLayouts.begin(), kLayouts.end(),
                                         [&](const FormatLayout& row) { return image.format == row.name; });
        require(layout != kLayouts.end(), element, "is of unknown format ", excerpt(image.format));
        require(element.children.size() == 1, element, "has not one child");
        const std::size_t count = texelCount() * static_cast<std::size_t>(layout->bits) / 16;
        const std::vector<std::uint32_t> words = readWords(element.child("bitmap"), "size", 4);
        require(words.size() == count, element, words.size(), " words instead of ", count);
        image.texels.resize(texelCount());
        const auto perWord = static_cast<std::size_t>(16 / layout->bits);
        for (std::size_t i = 0; i < image.texels.size(); ++i) {
            const std::uint32_t shifted = words[i / perWord] >> (i % perWord * static_cast<std::size_t>(layout->bits));
            image.texels[i] = texelOf(*layout, shifted & ((1U << static_cast<unsigned int>(layout->bits)) - 1U));
        }
    }

    ShownTexel texelOf(const FormatLayout& layout, std::uint32_t value) const {
        if (layout.indexBits == 0) {
            ShownTexel texel = colorOf(value);
            texel.a = (value & 0x8000U) != 0 ? 31 : 0;
            return texel;
        }
        const std::uint32_t index = value & ((1U << static_cast<unsigned int>(layout.indexBits)) - 1U);
        if (layout.hasMode && index == 0 && image.color0Mode == "transparency") {
            return {0, 0, 0, 0};
        }
        ShownTexel texel = color(index);
        const int alphaBits = layout.hasMode ? 0 : 8 - layout.indexBits;
        const int alpha = static_cast<int>(value >> static_cast<unsigned int>(layout.indexBits));
        if (alphaBits == 5) {
            texel.a = alpha;
        } else if (alphaBits == 3) {
            texel.a = alpha << 2 | alpha >> 1;
        }
        return texel;
    }

    ShownTexel color(std::size_t place) const {
        require(palette != nullptr && place < palette->size(), element, "shows colour ", place,
                ", which its palette does not have");
        return colorOf((*palette)[place]);
    }

    void decodeBlocks() {
        require(element.children.size() == 2, element, "has not two children");
        const std::vector<std::uint32_t> words = readWords(element.child("bitmap"), "size", 8);
        const std::vector<std::uint32_t> entries = readWords(element.child("tex4x4_palette_idx"), "size", 4);
        const std::size_t blocks = texelCount() / 16;
        require(words.size() == blocks && entries.size() == blocks, element, words.size(), " and ", entries.size(),
                " words instead of ", blocks);
        image.texels.resize(texelCount());
        for (std::size_t block = 0; block < blocks; ++block) {
            decodeBlock(block, words[block], entries[block]);
        }
    }

    void decodeBlock(std::size_t block, std::uint32_t word, std::uint32_t entry) {
        const auto blocksPerRow = static_cast<std::size_t>(image.width / 4);
        const std::size_t place = (entry & 0x3FFFU) * 2;
        const auto mode = static_cast<int>(entry >> 14U);
        image.blockModes.push_back(mode);
        image.blockPlaces.push_back(place);
        for (std::size_t i = 0; i < 16; ++i) {
            const std::size_t row = block / blocksPerRow * 4 + i / 4;
            const std::size_t column = block % blocksPerRow * 4 + i % 4;
            image.texels[row * static_cast<std::size_t>(image.width) + column] =
                blockTexel(mode, place, word >> (2 * i) & 3U);
        }
    }

    ShownTexel blockTexel(int mode, std::size_t place, std::uint32_t index) const {
        if (index == 3 && (mode == 0 || mode == 1)) {
            return {0, 0, 0, 0};
        }
        if (index < 2 || mode == 0 || mode == 2) {
            return color(place + index);
        }
        const ShownTexel first = color(place);
        const ShownTexel second = color(place + 1);
        if (mode == 1) {
            return mixed(first, 1, second, 1);
        }
        return index == 2 ? mixed(first, 5, second, 3) : mixed(first, 3, second, 5);
    }

    const FileElement& element;
    const std::vector<std::uint16_t>* palette;
    ModelTexture image;
};

} // namespace

std::vector<std::uint32_t> readWords(const FileElement& element, const char* sizeName, std::size_t digits) {
    std::vector<std::uint32_t> words;
    const std::string& text = element.text;
    std::size_t at = 0;
    while ((at = text.find_first_not_of(kBlanks, at)) != std::string::npos) {
        const std::size_t end = std::min(text.find_first_of(kBlanks, at), text.size());
        std::uint32_t word = 0;
        const char* const last = text.data() + end;
        const auto read = std::from_chars(text.data() + at, last, word, 16);
        require(read.ec == std::errc() && read.ptr == last && end - at == digits, element, "no word of ", digits,
                " digits: ", excerpt(std::string_view(text).substr(at, end - at)));
        words.push_back(word);
        at = end;
    }
    const int size = element.integer(sizeName);
    require(size >= 0 && static_cast<std::size_t>(size) == words.size(), element, sizeName, " is ", size,
            ", but there are ", words.size(), " words");
    return words;
}

ModelTexture readTexture(const FileElement& element, const std::vector<std::uint16_t>* palette) {
    return TextureReader(element, palette).read();
}

} // namespace decode
