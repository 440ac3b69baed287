#include "host/app/verify/checkPatterns.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/checkMaterials.h"
#include "host/app/verify/sceneValues.h"

#include <maya/MString.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace host::app::verify {
namespace {

// "tex." of ".../tex.1.tga": what stands before the number in the names of a pattern's images.
std::string prefixOf(const MObject& fileTexture) {
    std::string name = attributeOf<MString>(fileTexture, "fileTextureName").value_or(MString()).asUTF8();
    name.erase(0, name.find_last_of("/\\") + 1);
    name.erase(std::min(name.rfind('.'), name.size()));
    return name.substr(0, name.rfind('.') + 1);
}

std::optional<long> numberBehind(const std::string& prefix, const std::string& name) {
    long number = 0;
    if (name.compare(0, prefix.size(), prefix) != 0) {
        return std::nullopt;
    }
    const auto [end, error] = std::from_chars(name.data() + prefix.size(), name.data() + name.size(), number);
    return error == std::errc() && end == name.data() + name.size() ? std::optional<long>(number) : std::nullopt;
}

double frameExtension(const MObject& fileTexture) {
    const MPlug plug = MFnDependencyNode(fileTexture).findPlug("frameExtension", false);
    const MPlug driver = driverOf(plug);
    double value = 0.0;
    (driver.isNull() ? plug : driver).getValue(value);
    return value;
}

// The number of the images nearest to one; of two as near the smaller.
std::optional<long> nearest(const std::string& prefix, const report::ExportedFiles& files, long wanted) {
    std::optional<long> best;
    const auto offer = [&](const std::string& name) {
        const std::optional<long> number = numberBehind(prefix, report::utf8Name(name));
        if (!number) {
            return;
        }
        const long away = std::labs(*number - wanted);
        const long bestAway = best ? std::labs(*best - wanted) : 0;
        if (!best || away < bestAway || (away == bestAway && *number < *best)) {
            best = number;
        }
    };
    for (const decode::ModelTexture& image : files.textures.images) {
        offer(image.name);
    }
    std::for_each(files.patterns->images.begin(), files.patterns->images.end(), offer);
    return best;
}

bool hasItsPalette(const report::ExportedFiles& files, const decode::PatternFile::Entry& entry, std::size_t frame) {
    const decode::PatternFile::Key* shown = nullptr;
    for (const decode::PatternFile::Key& key : entry.keys) {
        shown = key.frame <= static_cast<int>(frame) ? &key : shown;
    }
    const std::string& image = entry.images.at(frame);
    const auto texture = std::find_if(files.textures.images.begin(), files.textures.images.end(),
                                      [&](const decode::ModelTexture& candidate) { return candidate.name == image; });
    if (shown == nullptr || texture == files.textures.images.end()) {
        return false;
    }
    const bool hasPalette = shown->palette >= 0;
    return hasPalette == texture->paletteName.has_value() &&
           (!hasPalette ||
            files.patterns->palettes.at(static_cast<std::size_t>(shown->palette)) == *texture->paletteName);
}

} // namespace

void checkPatterns(const report::ExportedFiles& files, const MaterialNames& names, std::size_t frame,
                   const std::string& shown, Verification& result) {
    for (const decode::PatternFile::Entry& entry : files.patterns->entries) {
        const std::string place = "itp: material " + report::utf8Name(entry.materialName) + " at frame " + shown;
        const MObject shader = names.shaderOf(entry.materialName);
        const MObject texture = shader.isNull() ? MObject() : fileTextureOf(shader);
        if (texture.isNull()) {
            result.find(place + " has no texture in the scene");
            continue;
        }
        const std::string prefix = prefixOf(texture);
        const std::string image = report::utf8Name(entry.images.at(frame));
        const std::optional<long> expected = nearest(prefix, files, std::lround(frameExtension(texture)));
        const bool isRight = expected && numberBehind(prefix, image) == expected;
        const bool isPaired = hasItsPalette(files, entry, frame);
        result.measure(Part::kPatterns, isRight && isPaired ? 0.0 : 1.0);
        if (!isRight) {
            result.find(place + " shows " + image + " instead of " +
                        (expected ? prefix + std::to_string(*expected) : "an image of the pattern"));
        } else if (!isPaired) {
            result.find(place + " shows " + image + " with a palette that is not its own");
        }
    }
}

} // namespace host::app::verify
