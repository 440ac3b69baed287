#include "ModelTextures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <ostream>
#include <utility>

namespace tvk {
namespace {

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

std::size_t sizeOf(const FileElement& element) {
    return static_cast<std::size_t>(std::max(0, element.integer("size")));
}

ShownTexel colorOf(unsigned int word) {
    return {static_cast<int>(word & 31U), static_cast<int>(word >> 5U & 31U), static_cast<int>(word >> 10U & 31U), 31};
}

// Words of so many hexadecimal digits between white space.
std::vector<std::uint32_t> readWords(const FileElement& element, std::size_t digits, std::size_t expected) {
    std::vector<std::uint32_t> words;
    std::size_t at = 0;
    while ((at = element.text.find_first_not_of(" \t\n", at)) != std::string::npos) {
        const std::size_t end = std::min(element.text.find_first_of(" \t\n", at), element.text.size());
        std::uint32_t word = 0;
        const char* const last = element.text.data() + end;
        const auto read = std::from_chars(element.text.data() + at, last, word, 16);
        EXPECT_TRUE(read.ec == std::errc() && read.ptr == last && end - at == digits)
            << element.name << ": " << element.text.substr(at, end - at);
        words.push_back(word);
        at = end;
    }
    EXPECT_EQ(words.size(), expected) << element.name;
    words.resize(expected);
    return words;
}

ShownTexel mixed(const ShownTexel& x, int ofX, const ShownTexel& y, int ofY) {
    const int all = ofX + ofY;
    return {(x.r * ofX + y.r * ofY) / all, (x.g * ofX + y.g * ofY) / all, (x.b * ofX + y.b * ofY) / all, 31};
}

class TextureReader {
public:
    TextureReader(const FileElement& imageElement, const std::vector<ModelPalette>& all)
        : element(imageElement), palettes(all) {}

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
        findPalette();
        image.texels.resize(texelCount());
        checkLines();
        decode();
        return std::move(image);
    }

private:
    std::size_t texelCount() const {
        return static_cast<std::size_t>(std::max(0, image.width)) * static_cast<std::size_t>(std::max(0, image.height));
    }

    std::optional<std::string> optionalValue(const char* name) const {
        const std::string* value = element.attribute(name);
        return value == nullptr ? std::nullopt : std::optional<std::string>(*value);
    }

    void findPalette() {
        for (const ModelPalette& candidate : palettes) {
            if (image.paletteName && candidate.name == *image.paletteName) {
                palette = &candidate.colors;
            }
        }
        EXPECT_EQ(image.paletteName.has_value(), palette != nullptr) << image.name << ": no palette of that name";
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
        EXPECT_EQ(element.attributeNames(), expected) << image.name;
    }

    void decode() {
        if (image.format == "tex4x4") {
            decodeBlocks();
            return;
        }
        const auto layout = std::find_if(kLayouts.begin(), kLayouts.end(),
                                         [&](const FormatLayout& row) { return image.format == row.name; });
        ASSERT_NE(layout, kLayouts.end()) << image.name << ": " << image.format;
        const FileElement* bitmap = element.find("bitmap");
        ASSERT_NE(bitmap, nullptr) << image.name;
        ASSERT_EQ(element.children.size(), 1U) << image.name;
        const std::size_t count = texelCount() * static_cast<std::size_t>(layout->bits) / 16;
        EXPECT_EQ(sizeOf(*bitmap), count) << image.name;
        const std::vector<std::uint32_t> words = readWords(*bitmap, 4, count);
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
        const bool isInside = palette != nullptr && place < palette->size();
        EXPECT_TRUE(isInside) << image.name << " shows colour " << place << " of its palette";
        return isInside ? colorOf((*palette)[place]) : ShownTexel{};
    }

    void decodeBlocks() {
        const FileElement* bitmap = element.find("bitmap");
        const FileElement* places = element.find("tex4x4_palette_idx");
        ASSERT_TRUE(bitmap != nullptr && places != nullptr && element.children.size() == 2) << image.name;
        const std::size_t blocks = texelCount() / 16;
        EXPECT_EQ(sizeOf(*bitmap), blocks) << image.name;
        EXPECT_EQ(sizeOf(*places), blocks) << image.name;
        const std::vector<std::uint32_t> words = readWords(*bitmap, 8, blocks);
        const std::vector<std::uint32_t> entries = readWords(*places, 4, blocks);
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
    const std::vector<ModelPalette>& palettes;
    const std::vector<std::uint16_t>* palette = nullptr;
    ModelTexture image;
};

// The elements of an array of the body; none when there is no such array.
std::vector<FileElement> elementsOf(const FileElement& root, const char* arrayName) {
    const FileElement* body = root.find("body");
    const FileElement* array = body == nullptr ? nullptr : body->find(arrayName);
    if (array == nullptr) {
        return {};
    }
    EXPECT_FALSE(array->children.empty()) << arrayName;
    EXPECT_EQ(sizeOf(*array), array->children.size()) << arrayName;
    return array->children;
}

template <typename Record>
void checkOrder(const std::vector<Record>& records) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        EXPECT_EQ(records[i].index, static_cast<int>(i)) << records[i].name;
        EXPECT_TRUE(i == 0 || records[i - 1].name <= records[i].name) << records[i].name;
    }
}

ModelPalette readPalette(const FileElement& element) {
    ModelPalette palette;
    palette.index = element.integer("index");
    palette.name = element.value("name");
    const auto count = static_cast<std::size_t>(std::max(0, element.integer("color_size")));
    for (const std::uint32_t word : readWords(element, 4, count)) {
        palette.colors.push_back(static_cast<std::uint16_t>(word));
    }
    return palette;
}

void checkMaterial(const FileElement& material, const ModelTextures& textures) {
    const int image = material.integer("tex_image_idx");
    const int palette = material.integer("tex_palette_idx");
    EXPECT_EQ(image >= 0, material.attribute("tex_tiling") != nullptr) << material.value("name");
    if (image < 0) {
        EXPECT_EQ(palette, -1) << material.value("name");
        return;
    }
    ASSERT_LT(static_cast<std::size_t>(image), textures.images.size()) << material.value("name");
    const ModelTexture& texture = textures.images[static_cast<std::size_t>(image)];
    EXPECT_EQ(palette, texture.paletteName ? textures.palette(*texture.paletteName).index : -1)
        << material.value("name");
}

template <typename Record>
const Record& recordOf(const std::vector<Record>& records, std::string_view name) {
    static const Record kNone;
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const Record& record) { return record.name == name; });
    EXPECT_NE(found, records.end()) << "no " << name;
    return found == records.end() ? kNone : *found;
}

} // namespace

bool operator==(const ShownTexel& x, const ShownTexel& y) {
    return x.r == y.r && x.g == y.g && x.b == y.b && x.a == y.a;
}

std::ostream& operator<<(std::ostream& out, const ShownTexel& texel) {
    return out << texel.r << ' ' << texel.g << ' ' << texel.b << ' ' << texel.a;
}

const ModelTexture& ModelTextures::image(std::string_view name) const {
    return recordOf(images, name);
}

const ModelPalette& ModelTextures::palette(std::string_view name) const {
    return recordOf(palettes, name);
}

ModelTextures readModelTextures(const FileElement& root) {
    ModelTextures textures;
    for (const FileElement& element : elementsOf(root, "tex_palette_array")) {
        textures.palettes.push_back(readPalette(element));
    }
    for (const FileElement& element : elementsOf(root, "tex_image_array")) {
        textures.images.push_back(TextureReader(element, textures.palettes).read());
    }
    checkOrder(textures.palettes);
    checkOrder(textures.images);
    for (const FileElement& material : elementsOf(root, "material_array")) {
        checkMaterial(material, textures);
    }
    return textures;
}

} // namespace tvk
