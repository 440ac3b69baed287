#include "host/app/verify/checkTextures.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/BlockTexels.h"
#include "host/app/verify/PictureFile.h"

#include "decode/textureReader.h"

#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <maya/MString.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>

namespace host::app::verify {
namespace {

namespace fs = std::filesystem;

constexpr std::uint8_t kOpaque = 128;
constexpr std::size_t kNearlyFull = 30000; // of 32768 colours that blocks can name

// The bytes of the picture where an export may have found it: under its own name, in the project, beside the scene.
std::optional<std::string> pictureBytes(const std::string& written) {
    const std::string path = report::utf8Name(written);
    const std::string leaf = path.substr(path.find_last_of("/\\") + 1);
    MString folder;
    MGlobal::executeCommand("workspace -q -rd", folder);
    const fs::path project = fs::u8path(folder.asUTF8());
    const fs::path scene = fs::u8path(MFileIO::currentFile().asUTF8()).parent_path();
    const std::size_t inProject = path.rfind("//");
    const std::string relative = inProject == std::string::npos ? leaf : path.substr(inProject + 2);
    for (const fs::path& candidate : {fs::u8path(path), project / fs::u8path(relative),
                                      project / "sourceimages" / fs::u8path(leaf), scene / fs::u8path(leaf)}) {
        std::ifstream in(candidate, std::ios::binary);
        std::error_code error;
        if (in.is_open() && fs::is_regular_file(candidate, error)) {
            return std::string(std::istreambuf_iterator<char>(in), {});
        }
    }
    return std::nullopt;
}

int paddedSide(int side) {
    int padded = 8;
    while (padded < side) {
        padded *= 2;
    }
    return padded;
}

class TextureCheck {
public:
    TextureCheck(const report::ExportedFiles& files, Verification& result) : files_(files), result_(result) {}

    void check(const decode::ModelTexture& texture) {
        place_ = (files_.model ? "imd: texture " : "itp: texture ") + report::utf8Name(texture.name);
        const std::optional<std::string> bytes = pictureBytes(texture.path);
        if (!bytes) {
            result_.find(place_ + ": its picture is not there: " + report::utf8Name(texture.path));
            return;
        }
        try {
            const PictureFile picture = readPicture(*bytes);
            if (texture.originalWidth != picture.width || texture.originalHeight != picture.height ||
                texture.width != paddedSide(picture.width) || texture.height != paddedSide(picture.height)) {
                result_.find(place_ + ": its sizes are not those of its picture");
                return;
            }
            if (picture.own) {
                own_.insert(texture.name);
                compareOwn(texture, *picture.own);
            } else {
                compareTexels(texture, picture);
            }
        } catch (const PictureError& error) {
            result_.find(place_ + ": its picture cannot be read: " + error.what());
        }
    }

    // Colours that nothing shows: a palette is filled up with white, and blocks of three colours leave a fourth.
    void checkFillings() {
        std::map<std::string, std::vector<bool>> shown;
        for (const decode::ModelTexture& texture : files_.textures.images) {
            if (texture.paletteName) {
                markShown(texture, shown[*texture.paletteName]);
            }
        }
        for (const decode::ModelPalette& palette : files_.textures.palettes) {
            const std::vector<bool>& used = shown[palette.name];
            for (std::size_t i = 0; i < palette.colors.size() && !used.empty(); ++i) {
                const std::uint16_t color = palette.colors[i];
                const bool isFilling = color == kWhite || color == kMarker;
                const bool isRight = used[i] ? color < 0x8000U : isFilling;
                if (!isRight) {
                    result_.find("imd: palette " + report::utf8Name(palette.name) + ": colour " + std::to_string(i) +
                                 (used[i] ? " is more than a colour" : " is shown by nothing"));
                }
            }
        }
    }

private:
    static constexpr std::uint16_t kWhite = 0x7FFF;
    static constexpr std::uint16_t kMarker = 0xFFFF;

    // Which colours of its palette a texture shows; nothing is kept for palettes whose colours blocks or pictures
    // bring along in ways of their own.
    void markShown(const decode::ModelTexture& texture, std::vector<bool>& shown) {
        const decode::ModelPalette& palette = files_.textures.palette(*texture.paletteName);
        if (texture.format == "tex4x4" || own_.count(texture.name) != 0) {
            return;
        }
        shown.resize(palette.colors.size(), false);
        for (const decode::ShownTexel& texel : texture.texels) {
            const auto word = static_cast<std::uint16_t>(texel.r | texel.g << 5 | texel.b << 10);
            colorsShown_.insert(word);
        }
        for (std::size_t i = 0; i < palette.colors.size(); ++i) {
            const bool isHole = i == 0 && texture.color0Mode == std::optional<std::string>("transparency");
            shown[i] = shown[i] || (!isHole && palette.colors[i] != kMarker &&
                                    colorsShown_.count(static_cast<std::uint16_t>(palette.colors[i])) != 0);
        }
        colorsShown_.clear();
    }

    void compareOwn(const decode::ModelTexture& texture, const OwnTexels& own) {
        const decode::FileElement& root = files_.model ? files_.model->file.root : files_.patterns->root;
        const decode::FileElement& element =
            root.child("body").child("tex_image_array").children.at(static_cast<std::size_t>(texture.index));
        const bool hasBlocks = texture.format == "tex4x4";
        std::vector<std::uint16_t> words;
        for (const std::uint32_t word : decode::readWords(element.child("bitmap"), "size", hasBlocks ? 8 : 4)) {
            words.push_back(static_cast<std::uint16_t>(word));
            if (hasBlocks) {
                words.push_back(static_cast<std::uint16_t>(word >> 16U));
            }
        }
        std::vector<std::uint16_t> entries;
        if (hasBlocks) {
            for (const std::uint32_t word : decode::readWords(element.child("tex4x4_palette_idx"), "size", 4)) {
                entries.push_back(static_cast<std::uint16_t>(word));
            }
        }
        const std::vector<std::uint16_t> colors =
            texture.paletteName ? files_.textures.palette(*texture.paletteName).colors : own.colors;
        const bool isClear = texture.color0Mode == std::optional<std::string>("transparency");
        const bool isSame = texture.format == own.format && words == own.texels &&
                            (!hasBlocks || entries == own.paletteEntries) && colors == own.colors &&
                            (!texture.color0Mode || isClear == own.hasClearColor);
        result_.measure(Part::kTextures, isSame ? 0.0 : 31.0, texture.texels.size());
        if (!isSame) {
            result_.find(place_ + ": its texels, palette or format are not those that its picture brings along");
        }
    }

    void compareTexels(const decode::ModelTexture& texture, const PictureFile& picture) {
        if (texture.format == "tex4x4") {
            compareBlocks(texture, picture);
        }
        for (int row = 0; row < texture.height; ++row) {
            for (int column = 0; column < texture.width; ++column) {
                const decode::ShownTexel& shown = texture.at(column, row);
                const Pixel& pixel = picture.at(column, row);
                measure(shown, pixel);
                if (texture.format != "tex4x4" && !isRight(texture.format, shown, pixel)) {
                    result_.find(place_ + ": texel " + std::to_string(column) + " " + std::to_string(row) +
                                 " is not what its picture has");
                    return;
                }
            }
        }
    }

    void compareBlocks(const decode::ModelTexture& texture, const PictureFile& picture) {
        const decode::ModelPalette& palette = files_.textures.palette(texture.paletteName.value_or(""));
        const bool isFull = palette.colors.size() > kNearlyFull;
        for (std::size_t block = 0; block < texture.blockModes.size(); ++block) {
            const std::string problem = blockProblem(texture, palette, picture, block, isFull);
            if (!problem.empty()) {
                result_.find(place_ + ": block " + std::to_string(block) + " " + problem);
                return;
            }
        }
    }

    void measure(const decode::ShownTexel& shown, const Pixel& pixel) {
        const int off = shown.a == 0 ? 0
                                     : std::max({std::abs(shown.r - (pixel.r >> 3)), std::abs(shown.g - (pixel.g >> 3)),
                                                 std::abs(shown.b - (pixel.b >> 3))});
        result_.measure(Part::kTextures, off);
    }

    static bool isRight(const std::string& format, const decode::ShownTexel& shown, const Pixel& pixel) {
        const bool isColor = shown.r == pixel.r >> 3 && shown.g == pixel.g >> 3 && shown.b == pixel.b >> 3;
        if (format == "a3i5" || format == "a5i3") {
            const int lost = format == "a3i5" ? 2 : 0;
            return isColor && shown.a >> lost == pixel.a >> 3 >> lost;
        }
        return (shown.a == 31) == (pixel.a >= kOpaque) && (shown.a == 0 || (shown.a == 31 && isColor));
    }

    const report::ExportedFiles& files_;
    Verification& result_;
    std::string place_;
    std::set<std::string> own_; // images that bring texels of their own along
    std::set<std::uint16_t> colorsShown_;
};

} // namespace

void checkTextures(const report::ExportedFiles& files, Verification& result) {
    TextureCheck check(files, result);
    for (const decode::ModelTexture& texture : files.textures.images) {
        check.check(texture);
    }
    check.checkFillings();
}

} // namespace host::app::verify
