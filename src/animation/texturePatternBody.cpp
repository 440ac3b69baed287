#include "animation/texturePatternBody.h"

#include "animation/ChangeListPool.h"
#include "animation/animationMessages.h"
#include "animation/texturePatternSampling.h"
#include "common/numberText.h"
#include "material/paletteWriter.h"
#include "material/textureWriter.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace tvk {
namespace {

// A frame's value holds the image in its low bits and the palette, counted from 1, above.
constexpr int kImageBits = 12;
constexpr int32_t kImageMask = (1 << kImageBits) - 1;
constexpr int32_t kMostImages = 1 << kImageBits;

/// Numbers those entries of a list that are used, in list order.
class UsedEntries {
public:
    explicit UsedEntries(std::size_t listSize) : numbers_(listSize, -1) {}

    void use(int32_t entry) {
        if (entry >= 0) {
            numbers_[static_cast<std::size_t>(entry)] = 0;
        }
    }

    void number() {
        for (std::size_t entry = 0; entry < numbers_.size(); ++entry) {
            if (numbers_[entry] >= 0) {
                numbers_[entry] = static_cast<int32_t>(inOrder_.size());
                inOrder_.push_back(entry);
            }
        }
    }

    /// -1 for no entry.
    int32_t numberOf(int32_t entry) const { return entry < 0 ? -1 : numbers_[static_cast<std::size_t>(entry)]; }
    const std::vector<std::size_t>& inOrder() const { return inOrder_; }

private:
    std::vector<int32_t> numbers_;
    std::vector<std::size_t> inOrder_;
};

struct Patterns {
    std::vector<std::vector<int32_t>> refs; // per pattern and frame
    UsedEntries images;
    UsedEntries palettes;
};

const MaterialTextureRef& refAt(int32_t ref) {
    return run().scene.textureRefs.at(static_cast<std::size_t>(ref));
}

Patterns samplePatterns(const SceneData& scene) {
    Patterns patterns{{}, UsedEntries(scene.textures.size()), UsedEntries(scene.palettes.size())};
    for (const TexturePatternRecord& pattern : scene.texturePatterns) {
        patterns.refs.push_back(samplePattern(pattern));
        for (const int32_t ref : patterns.refs.back()) {
            patterns.images.use(refAt(ref).imageIndex);
            patterns.palettes.use(refAt(ref).paletteIndex);
        }
    }
    patterns.images.number();
    patterns.palettes.number();
    return patterns;
}

std::vector<int32_t> combined(const std::vector<int32_t>& refs, const Patterns& patterns) {
    std::vector<int32_t> values;
    values.reserve(refs.size());
    for (const int32_t ref : refs) {
        const int32_t palette = patterns.palettes.numberOf(refAt(ref).paletteIndex);
        values.push_back(patterns.images.numberOf(refAt(ref).imageIndex) | ((palette + 1) << kImageBits));
    }
    return values;
}

void writeName(std::ostream& out, const char* element, std::size_t index, const std::string& name) {
    out << "\t<" << element;
    writeAttribute(out, "index", static_cast<int64_t>(index));
    writeAttribute(out, "name", name);
    out << "/>\n";
}

void writeLists(std::ostream& out, const Patterns& patterns) {
    const SceneData& scene = run().scene;
    const std::vector<std::size_t>& images = patterns.images.inOrder();
    const std::vector<std::size_t>& palettes = patterns.palettes.inOrder();
    out << "<tex_pattern_list_data";
    writeAttribute(out, "image_size", static_cast<int64_t>(images.size()));
    writeAttribute(out, "palette_size", static_cast<int64_t>(palettes.size()));
    out << ">\n";
    for (std::size_t i = 0; i < images.size(); ++i) {
        writeName(out, "image_name", i, scene.textures[images[i]].name);
    }
    for (std::size_t i = 0; i < palettes.size(); ++i) {
        writeName(out, "palette_name", i, scene.palettes[palettes[i]].name);
    }
    out << "</tex_pattern_list_data>\n\n";
}

void writeKeys(std::ostream& out, const ChangeListPool& pool) {
    std::vector<int32_t> images = pool.values();
    std::vector<int32_t> palettes = pool.values();
    for (int32_t& value : images) {
        value &= kImageMask;
    }
    for (int32_t& value : palettes) {
        value = (value >> kImageBits) - 1;
    }
    out << "<tex_pattern_data>\n";
    writeValueBlock(out, "frame_idx", pool.frames());
    writeValueBlock(out, "image_idx", images);
    writeValueBlock(out, "palette_idx", palettes);
    out << "</tex_pattern_data>\n\n";
}

void writeEntries(std::ostream& out, const std::vector<AnimTrack>& tracks) {
    const SceneData& scene = run().scene;
    out << "<tex_pattern_anm_array";
    writeAttribute(out, "size", static_cast<int64_t>(tracks.size()));
    out << ">\n";
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const auto source = static_cast<std::size_t>(scene.texturePatterns[i].textureSource);
        const auto material = static_cast<std::size_t>(scene.textureSources.at(source).materialIndex);
        out << "\t<tex_pattern_anm";
        writeAttribute(out, "index", static_cast<int64_t>(i));
        writeAttribute(out, "material_name", scene.materials.at(material).name);
        writeAttribute(out, "data_size", tracks[i].dataSize);
        writeAttribute(out, "data_head", tracks[i].dataHead);
        out << "/>\n";
    }
    out << "</tex_pattern_anm_array>\n\n";
}

// The images of all frames of all patterns, shown in the range or not.
MStatus writeImages(std::ostream& out) {
    const SceneData& scene = run().scene;
    std::vector<bool> isNeeded(scene.textures.size(), false);
    for (const TexturePatternRecord& pattern : scene.texturePatterns) {
        for (const int32_t ref : pattern.textureRefs) {
            isNeeded[static_cast<std::size_t>(refAt(ref).imageIndex)] = true;
        }
    }
    keepTextures(isNeeded);
    const MStatus status = writeTexImageArray(out, true);
    return status ? writeTexPaletteArray(out) : status;
}

} // namespace

MStatus writeTexturePatternBody(std::ostream& out) {
    const SceneData& scene = run().scene;
    if (scene.texturePatterns.empty()) {
        return MS::kSuccess;
    }
    if (!run().options.outImd) {
        const MStatus status = writeImages(out);
        if (!status) {
            return status;
        }
    }
    const Patterns patterns = samplePatterns(scene);
    if (patterns.images.inOrder().size() > static_cast<std::size_t>(kMostImages)) {
        say(kTooManyTextures, integerText(static_cast<int64_t>(patterns.images.inOrder().size())).view());
        return MS::kFailure;
    }
    ChangeListPool pool;
    std::vector<AnimTrack> tracks(patterns.refs.size());
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        pool.encode(combined(patterns.refs[i], patterns), false, tracks[i]);
    }
    writeLists(out, patterns);
    writeKeys(out, pool);
    writeEntries(out, tracks);
    return MS::kSuccess;
}

} // namespace tvk
