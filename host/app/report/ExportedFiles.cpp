#include "host/app/report/ExportedFiles.h"

#include "host/app/report/nameText.h"

#include "decode/FileError.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace host::app::report {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t kMostBytes = std::uintmax_t{1} << 30U;

/// The bytes of the file; nothing when there is none.
std::optional<std::string> readBytes(const fs::path& path, const std::string& shown) {
    std::error_code error;
    if (!fs::exists(path, error)) {
        return std::nullopt;
    }
    if (!fs::is_regular_file(path, error)) {
        throw ReportError(shown + " is no file");
    }
    const std::uintmax_t size = fs::file_size(path, error);
    if (!error && size > kMostBytes) {
        throw ReportError(shown + " is larger than 1 GB: no exporter wrote it");
    }
    std::ifstream stream(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (error || !stream.good() || bytes.size() != size) {
        throw ReportError(shown + " cannot be read");
    }
    return bytes;
}

/// An animation file whose root is what its name promises.
decode::AnimationFile readAnimation(const std::string& bytes, const std::string& kind) {
    decode::AnimationFile file = decode::readAnimationFile(bytes);
    decode::require(file.root.name == kind, file.root, "is no ", kind, " file");
    return file;
}

void decodeFile(const std::string& kind, const std::string& bytes, ExportedFiles& files) {
    if (kind == "imd") {
        files.model.emplace();
        files.model->file = decode::readModelFile(bytes);
        files.model->geometry = decode::readModelGeometry(files.model->file);
        files.textures = decode::readModelTextures(files.model->file.root);
    } else if (kind == "ica") {
        files.nodes.emplace(readAnimation(bytes, kind));
    } else if (kind == "ima") {
        files.colors.emplace(readAnimation(bytes, kind));
    } else if (kind == "itp") {
        files.patterns.emplace(decode::readPatternFile(bytes));
    } else if (kind == "iva") {
        files.visibilities.emplace(decode::readVisibilityFile(bytes));
    } else if (kind == "ita") {
        files.placements.emplace(readAnimation(bytes, kind));
    }
}

/// A pattern file that was exported without its model brings the images itself.
void takeImagesOfPatterns(ExportedFiles& files) {
    if (!files.model && files.patterns) {
        files.textures = decode::readModelTextures(files.patterns->root);
    }
}

[[noreturn]] void failMixed(const ExportedFiles& files, const std::string& kind, const std::string& why) {
    throw ReportError(files.nameOf(kind) + " and " + files.nameOf("imd") + " are not of one model: " + why);
}

void checkNodeCount(const ExportedFiles& files, const std::string& kind, std::size_t count) {
    const std::size_t inModel = files.model->file.nodes.size();
    if (count != inModel) {
        failMixed(files, kind, std::to_string(count) + " nodes, and " + std::to_string(inModel));
    }
}

void checkMaterials(const ExportedFiles& files, const std::string& kind, const std::vector<std::string>& names) {
    const decode::FileElement* const body = files.model->file.root.find("body");
    const decode::FileElement* const array = body == nullptr ? nullptr : body->find("material_array");
    for (const std::string& name : names) {
        const bool isThere = array != nullptr && std::any_of(array->children.begin(), array->children.end(),
                                                             [&](const decode::FileElement& material) {
                                                                 return material.value("name") == name;
                                                             });
        if (!isThere) {
            failMixed(files, kind, "the model has no material " + utf8Name(name));
        }
    }
}

std::vector<std::string> materialsOf(const decode::AnimationFile& file) {
    std::vector<std::string> names;
    std::transform(file.things.begin(), file.things.end(), std::back_inserter(names),
                   [](const decode::AnimatedThing& thing) { return thing.materialName; });
    return names;
}

void checkPatterns(const ExportedFiles& files) {
    std::vector<std::string> materials;
    std::transform(files.patterns->entries.begin(), files.patterns->entries.end(), std::back_inserter(materials),
                   [](const decode::PatternFile::Entry& entry) { return entry.materialName; });
    checkMaterials(files, "itp", materials);
    const std::vector<decode::ModelTexture>& images = files.textures.images;
    for (const std::string& name : files.patterns->images) {
        if (std::none_of(images.begin(), images.end(), [&](const auto& image) { return image.name == name; })) {
            failMixed(files, "itp", "the model has no image " + utf8Name(name));
        }
    }
}

void checkBelongTogether(const ExportedFiles& files) {
    if (!files.model) {
        return;
    }
    if (files.nodes) {
        checkNodeCount(files, "ica", files.nodes->things.size());
    }
    if (files.visibilities) {
        checkNodeCount(files, "iva", files.visibilities->nodes.size());
    }
    if (files.colors) {
        checkMaterials(files, "ima", materialsOf(*files.colors));
    }
    if (files.patterns) {
        checkPatterns(files);
    }
    if (files.placements) {
        checkMaterials(files, "ita", materialsOf(*files.placements));
    }
}

} // namespace

bool ExportedFiles::has(const std::string& kind) const {
    return std::any_of(sizes.begin(), sizes.end(), [&](const Size& size) { return size.kind == kind; });
}

std::string ExportedFiles::nameOf(const std::string& kind) const {
    return base.substr(base.rfind('/') + 1) + "." + kind;
}

ExportedFiles readExportedFiles(const std::string& base, const std::string& shown,
                                const std::vector<std::string>& kinds) {
    ExportedFiles files;
    files.base = shown;
    for (const FileKind& kind : kFileKinds) {
        if (std::find(kinds.begin(), kinds.end(), kind.ending) == kinds.end()) {
            continue;
        }
        const std::string shownFile = shown + "." + kind.ending;
        const std::optional<std::string> bytes = readBytes(fs::u8path(base + "." + kind.ending), shownFile);
        if (!bytes) {
            continue;
        }
        try {
            decodeFile(kind.ending, *bytes, files);
        } catch (const decode::FileError& error) {
            throw ReportError(shownFile + ": " + utf8Name(error.what()));
        }
        files.sizes.push_back({kind.ending, bytes->size()});
    }
    if (files.sizes.empty()) {
        throw ReportError("there are no exported files: " + shown + ".imd, .ica, .ima, .itp, .iva, .ita");
    }
    try {
        takeImagesOfPatterns(files);
    } catch (const decode::FileError& error) {
        throw ReportError(shown + ".itp: " + utf8Name(error.what()));
    }
    checkBelongTogether(files);
    return files;
}

} // namespace host::app::report
