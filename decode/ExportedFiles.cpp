#include "decode/ExportedFiles.h"

#include "decode/FileError.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <unordered_set>

namespace decode {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t kMostBytes = std::uintmax_t{1} << 30U;

using Names = std::unordered_set<std::string_view>;

/// The bytes of the file; nothing when there is none.
std::optional<std::string> readBytes(const fs::path& path, const std::string& shown) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return std::nullopt;
    }
    if (status.type() == fs::file_type::none) {
        throw ExportedFilesError(shown + " cannot be read: " + error.message(), "");
    }
    if (!fs::is_regular_file(status)) {
        throw ExportedFilesError(shown + " is no file", "");
    }
    const std::uintmax_t size = fs::file_size(path, error);
    if (!error && size > kMostBytes) {
        throw ExportedFilesError(shown + " is larger than 1 GB: no exporter wrote it", "");
    }
    std::string bytes(error ? 0 : static_cast<std::size_t>(size), '\0');
    std::ifstream stream(path, std::ios::binary);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (error || !stream.good() || stream.peek() != std::ifstream::traits_type::eof()) {
        throw ExportedFilesError(shown + " cannot be read", "");
    }
    return bytes;
}

/// An animation file whose root is what its name promises.
AnimationFile readAnimation(const std::string& bytes, const std::string& kind) {
    AnimationFile file = readAnimationFile(bytes);
    require(file.root.name == kind, file.root, "is no ", kind, " file");
    return file;
}

void decodeFile(const std::string& kind, const std::string& bytes, ExportedFiles& files) {
    if (kind == "imd") {
        files.model.emplace();
        files.model->file = readModelFile(bytes);
        files.model->geometry = readModelGeometry(files.model->file);
        files.textures = readModelTextures(files.model->file.root);
    } else if (kind == "ica") {
        files.nodes.emplace(readAnimation(bytes, kind));
    } else if (kind == "ima") {
        files.colors.emplace(readAnimation(bytes, kind));
    } else if (kind == "itp") {
        files.patterns.emplace(readPatternFile(bytes));
        if (!files.model) {
            files.textures = readModelTextures(files.patterns->root);
        }
    } else if (kind == "iva") {
        files.visibilities.emplace(readVisibilityFile(bytes));
    } else if (kind == "ita") {
        files.placements.emplace(readAnimation(bytes, kind));
    }
}

template <typename Things, typename NameOf>
Names namesOf(const Things& things, NameOf nameOf) {
    Names names;
    for (const auto& thing : things) {
        names.insert(nameOf(thing));
    }
    return names;
}

/// Whether files that were read belong together.
class Check {
public:
    explicit Check(ExportedFiles& files) : files_(files) {}

    void run() {
        if (files_.model) {
            checkNodes();
            checkMaterials();
            checkPatterns();
        }
        takeFramesOf("ica", files_.nodes);
        takeFramesOf("ima", files_.colors);
        takeFramesOf("itp", files_.patterns);
        takeFramesOf("iva", files_.visibilities);
        takeFramesOf("ita", files_.placements);
    }

private:
    /// Puts the file's name before what it lacks.
    template <typename Ask>
    auto askedOf(const char* kind, Ask ask) const {
        try {
            return ask();
        } catch (const FileError& error) {
            throw ExportedFilesError(files_.base + "." + kind + ": ", error.what());
        }
    }

    [[noreturn]] void failMixed(const char* kind, const char* other, const std::string& why) const {
        throw ExportedFilesError(files_.nameOf(kind) + " and " + files_.nameOf(other) + " are of different exports: ",
                                 why);
    }

    void checkCount(const char* kind, std::size_t count) const {
        const std::size_t inModel = files_.model->file.nodes.size();
        if (count != inModel) {
            failMixed(kind, "imd",
                      "it has " + std::to_string(count) + " nodes, the model has " + std::to_string(inModel));
        }
    }

    void checkNodes() const {
        if (files_.nodes) {
            checkCount("ica", files_.nodes->things.size());
        }
        if (files_.visibilities) {
            checkCount("iva", files_.visibilities->nodes.size());
        }
    }

    void checkName(const char* kind, const char* what, const std::string& name, const Names& inModel) const {
        if (inModel.count(name) == 0) {
            failMixed(kind, "imd", std::string("the model has no ") + what + " '" + excerpt(name) + "'");
        }
    }

    Names materialNames() const {
        const FileElement* const array = files_.model->file.root.child("body").find("material_array");
        return array == nullptr ? Names()
                                : namesOf(array->children, [](const FileElement& material) -> const std::string& {
                                      return material.value("name");
                                  });
    }

    template <typename Things>
    void checkMaterialsOf(const char* kind, const Things& things, const Names& inModel) const {
        for (const auto& thing : things) {
            checkName(kind, "material", thing.materialName, inModel);
        }
    }

    void checkMaterials() const {
        const Names inModel = askedOf("imd", [this] { return materialNames(); });
        if (files_.colors) {
            checkMaterialsOf("ima", files_.colors->things, inModel);
        }
        if (files_.patterns) {
            checkMaterialsOf("itp", files_.patterns->entries, inModel);
        }
        if (files_.placements) {
            checkMaterialsOf("ita", files_.placements->things, inModel);
        }
    }

    template <typename Records>
    void checkShown(const char* what, const std::vector<std::string>& names, const Records& records) const {
        const Names inModel = namesOf(records, [](const auto& record) -> const std::string& { return record.name; });
        for (const std::string& name : names) {
            checkName("itp", what, name, inModel);
        }
    }

    void checkPatterns() const {
        if (files_.patterns) {
            checkShown("image", files_.patterns->images, files_.textures.images);
            checkShown("palette", files_.patterns->palettes, files_.textures.palettes);
        }
    }

    static std::string textOf(const ExportedFiles::Frames& frames) {
        return std::to_string(frames.count) + " frames from " + std::to_string(frames.first);
    }

    // The frames of one animation, which must be those of the ones before it.
    template <typename File>
    void takeFramesOf(const char* kind, const std::optional<File>& file) {
        if (!file) {
            return;
        }
        const ExportedFiles::Frames frames = askedOf(kind, [&] {
            return ExportedFiles::Frames{file->info->integer("frame_size"), file->info->integer("tool_start_frame")};
        });
        if (files_.frames && (files_.frames->count != frames.count || files_.frames->first != frames.first)) {
            failMixed(kind, framesOf_, textOf(frames) + ", and " + textOf(*files_.frames));
        }
        files_.frames = frames;
        framesOf_ = kind;
    }

    ExportedFiles& files_;
    const char* framesOf_ = ""; // the kind whose they are
};

} // namespace

std::optional<std::uint64_t> ExportedFiles::bytesOf(std::string_view kind) const {
    const auto found = std::find_if(sizes.begin(), sizes.end(), [&](const Size& size) { return size.kind == kind; });
    return found == sizes.end() ? std::nullopt : std::optional<std::uint64_t>(found->bytes);
}

std::string ExportedFiles::name() const {
    return fs::u8path(base).filename().u8string();
}

std::string ExportedFiles::nameOf(std::string_view kind) const {
    return name() + "." + std::string(kind);
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
        } catch (const FileError& error) {
            throw ExportedFilesError(shownFile + ": ", error.what());
        }
        files.sizes.push_back({kind.ending, bytes->size()});
    }
    Check(files).run();
    return files;
}

} // namespace decode
