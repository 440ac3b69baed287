#include "host/app/preview/ExportedFiles.h"

#include "decode/FileError.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <vector>

namespace host::app::preview {
namespace {

constexpr std::uintmax_t kMostBytes = std::uintmax_t{1} << 30U;

std::string endingOf(FileKind kind) {
    return kFileEndings.at(static_cast<std::size_t>(kind));
}

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what);
}

class Reader {
public:
    explicit Reader(const std::string& base) : base_(base) {
        files_.name = std::filesystem::u8path(base).filename().u8string();
    }

    ExportedFiles read() {
        readModel();
        readAnimation(FileKind::kIca, files_.nodes);
        readAnimation(FileKind::kIma, files_.colors);
        readAnimation(FileKind::kIta, files_.placements);
        readOther(FileKind::kItp, files_.patterns, decode::readPatternFile);
        readOther(FileKind::kIva, files_.visibility, decode::readVisibilityFile);
        checkNodes();
        checkMaterials();
        checkPatterns();
        settleFrames();
        return std::move(files_);
    }

private:
    std::string nameOf(FileKind kind) const { return files_.name + "." + endingOf(kind); }

    // Nothing when there is no such file.
    std::optional<std::string> textOf(FileKind kind) {
        const std::string shown = base_ + "." + endingOf(kind);
        const std::filesystem::path path = std::filesystem::u8path(shown);
        std::error_code error;
        if (!std::filesystem::exists(path, error) && !error) {
            return std::nullopt;
        }
        if (error || !std::filesystem::is_regular_file(path, error)) {
            fail(shown + " cannot be read: " + (error ? error.message() : "it is no file"));
        }
        const std::uintmax_t size = std::filesystem::file_size(path, error);
        if (!error && size > kMostBytes) {
            fail(shown + " is larger than 1 GB: no exporter wrote it");
        }
        std::ifstream stream(path, std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        if (error || !stream.good() || text.size() != size) {
            fail(shown + " cannot be read");
        }
        files_.bytes.at(static_cast<std::size_t>(kind)) = text.size();
        return text;
    }

    // Runs what reads a file, and puts the file's name before what is wrong with it.
    template <typename Read>
    void named(FileKind kind, Read read) const {
        try {
            read();
        } catch (const decode::FileError& error) {
            fail(nameOf(kind) + ": " + error.what());
        }
    }

    void readModel() {
        const std::optional<std::string> text = textOf(FileKind::kImd);
        if (!text) {
            fail("there is no " + base_ + ".imd: a preview needs the model");
        }
        named(FileKind::kImd, [&] {
            files_.model = decode::readModelFile(*text);
            files_.geometry = decode::readModelGeometry(files_.model);
            files_.textures = decode::readModelTextures(files_.model.root);
        });
    }

    void readAnimation(FileKind kind, std::optional<decode::AnimationFile>& file) {
        readOther(kind, file, decode::readAnimationFile);
        if (file && file->root.name != endingOf(kind)) {
            fail(nameOf(kind) + " holds an " + file->root.name + " file");
        }
    }

    template <typename File, typename ReadFile>
    void readOther(FileKind kind, std::optional<File>& file, ReadFile readFile) {
        if (const std::optional<std::string> text = textOf(kind)) {
            named(kind, [&] { file = readFile(*text); });
        }
    }

    [[noreturn]] void failMixed(FileKind kind, const std::string& why) const {
        fail(nameOf(kind) + " and " + nameOf(FileKind::kImd) + " are of different exports: " + why);
    }

    void checkNodes() const {
        const auto check = [this](FileKind kind, std::size_t count) {
            if (count != files_.model.nodes.size()) {
                failMixed(kind, "it has " + std::to_string(count) + " nodes, the model has " +
                                    std::to_string(files_.model.nodes.size()));
            }
        };
        if (files_.nodes) {
            check(FileKind::kIca, files_.nodes->things.size());
        }
        // Nothing is listed when the model has no nodes.
        if (files_.visibility) {
            check(FileKind::kIva, files_.visibility->nodes.size());
        }
    }

    std::set<std::string> materialNames() const {
        std::set<std::string> names;
        if (const auto* array = files_.model.root.child("body").find("material_array")) {
            for (const auto& material : array->children) {
                names.insert(material.value("name"));
            }
        }
        return names;
    }

    template <typename Things>
    void checkNames(FileKind kind, const Things& things, const std::set<std::string>& names) const {
        for (const auto& thing : things) {
            if (names.count(thing.materialName) == 0) {
                failMixed(kind, "the model has no material '" + decode::excerpt(thing.materialName) + "'");
            }
        }
    }

    void checkMaterials() const {
        std::set<std::string> names;
        named(FileKind::kImd, [&] { names = materialNames(); });
        if (files_.colors) {
            checkNames(FileKind::kIma, files_.colors->things, names);
        }
        if (files_.placements) {
            checkNames(FileKind::kIta, files_.placements->things, names);
        }
        if (files_.patterns) {
            checkNames(FileKind::kItp, files_.patterns->entries, names);
        }
    }

    template <typename Records>
    void checkShown(const std::vector<std::string>& names, const Records& records, const char* what) const {
        for (const std::string& name : names) {
            if (std::none_of(records.begin(), records.end(), [&](const auto& record) { return record.name == name; })) {
                failMixed(FileKind::kItp, std::string("the model has no ") + what + " '" + decode::excerpt(name) + "'");
            }
        }
    }

    void checkPatterns() const {
        if (files_.patterns) {
            checkShown(files_.patterns->images, files_.textures.images, "image");
            checkShown(files_.patterns->palettes, files_.textures.palettes, "palette");
        }
    }

    // The frames of one animation, which must be those of the ones before it.
    void takeFrames(FileKind kind, const decode::FileElement& info) {
        const int count = info.integer("frame_size");
        const int first = info.integer("tool_start_frame");
        if (framesOf_ && (count != files_.frameCount || first != files_.firstFrame)) {
            const auto shown = [](int frames, int from) {
                return std::to_string(frames) + " frames from " + std::to_string(from);
            };
            fail(nameOf(kind) + " and " + nameOf(*framesOf_) + " are of different exports: " + shown(count, first) +
                 ", and " + shown(files_.frameCount, files_.firstFrame));
        }
        framesOf_ = kind;
        files_.frameCount = count;
        files_.firstFrame = first;
    }

    template <typename File>
    void takeFramesOf(FileKind kind, const std::optional<File>& file) {
        if (file) {
            named(kind, [&] { takeFrames(kind, *file->info); });
        }
    }

    void settleFrames() {
        named(FileKind::kImd, [&] { files_.firstFrame = files_.model.info->integer("tool_start_frame"); });
        takeFramesOf(FileKind::kIca, files_.nodes);
        takeFramesOf(FileKind::kIma, files_.colors);
        takeFramesOf(FileKind::kItp, files_.patterns);
        takeFramesOf(FileKind::kIva, files_.visibility);
        takeFramesOf(FileKind::kIta, files_.placements);
    }

    const std::string& base_;
    ExportedFiles files_;
    std::optional<FileKind> framesOf_; // whose frames they are
};

} // namespace

ExportedFiles readExportedFiles(const std::string& base) {
    return Reader(base).read();
}

} // namespace host::app::preview
