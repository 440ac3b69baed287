#include "decode/ExportedFiles.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace decode {
namespace {

namespace fs = std::filesystem;

std::string contents(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.good()) << path;
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> allKinds() {
    std::vector<std::string> kinds;
    for (const FileKind& kind : kFileKinds) {
        kinds.emplace_back(kind.ending);
    }
    return kinds;
}

/// The files of samples/walk, of which a test changes some.
class WalkFiles {
public:
    WalkFiles() {
        for (const FileKind& kind : kFileKinds) {
            fs::copy_file(std::string(TVK_SOURCE_DIR "/samples/walk.") + kind.ending, path(kind.ending));
        }
    }

    std::string base() const { return folder_.path("walk"); }
    std::string path(const std::string& ending) const { return base() + "." + ending; }
    void remove(const std::string& ending) const { fs::remove(path(ending)); }
    void write(const std::string& ending, const std::string& text) const {
        std::ofstream(path(ending), std::ios::binary) << text;
    }
    /// Replaces what stands once, or first, in a file.
    void change(const std::string& ending, const std::string& from, const std::string& to) const {
        std::string text = contents(path(ending));
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        write(ending, text.replace(at, from.size(), to));
    }

    ExportedFiles read(const std::vector<std::string>& kinds = allKinds()) const {
        return readExportedFiles(base(), "out/walk", kinds);
    }
    /// What is wrong with them; "" when nothing is.
    std::string problem() const {
        try {
            read();
            return "";
        } catch (const ExportedFilesError& error) {
            return error.what();
        }
    }

private:
    tvk::TemporaryFolder folder_;
};

} // namespace

TEST(ExportedFiles, MustBeFiles) {
    const WalkFiles files;
    files.remove("iva");
    fs::create_directory(files.path("iva"));
    EXPECT_EQ(files.problem(), "out/walk.iva is no file");
}

TEST(ExportedFiles, MayNotBeLargerThanAnyExport) {
    const WalkFiles files;
    fs::resize_file(files.path("ica"), (std::uintmax_t{1} << 30U) + 1); // takes no room on the disk
    EXPECT_EQ(files.problem(), "out/walk.ica is larger than 1 GB: no exporter wrote it");
}

TEST(ExportedFiles, InAFolderThatIsAFileCannotBeThere) {
    const WalkFiles files;
    EXPECT_TRUE(readExportedFiles(files.path("imd") + "/walk", "walk.imd/walk", allKinds()).sizes.empty());
}

TEST(ExportedFiles, AreRefusedWhenDamaged) {
    struct Damage {
        const char *ending, *from, *to, *problem;
    };
    const std::vector<Damage> cases = {
        {"imd", "<body>", "<bode>", "out/walk.imd: "},
        {"imd", "brother_next=\"-1\"", "brother_next=\"99\"", "out/walk.imd: "},
        {"ica", R"(data_size="60" data_head="1")", R"(data_size="60" data_head="1101")", "out/walk.ica: "},
        {"ima", "data_size=\"18\"", "data_size=\"17\"", "out/walk.ima: "},
        {"itp", "image_size=\"3\"", "image_size=\"4\"", "out/walk.itp: "},
        {"iva", "0 0 24 32 35 39", "0 0 24 32 35", "out/walk.iva: "},
        {"ita", "</ita>", "", "out/walk.ita: "},
    };
    for (const Damage& damage : cases) {
        const WalkFiles files;
        files.change(damage.ending, damage.from, damage.to);
        const std::string problem = files.problem();
        EXPECT_EQ(problem.compare(0, std::string(damage.problem).size(), damage.problem), 0)
            << damage.from << " gives: " << problem;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
        EXPECT_GT(problem.size(), std::string("out/walk.imd: ").size());
    }
}

TEST(ExportedFiles, AreRefusedWhenOneEndsAnywhere) {
    for (const std::string& ending : allKinds()) {
        const WalkFiles files;
        const std::string whole = contents(files.path(ending));
        for (const std::size_t part : {0, 1, 3, 5, 7, 9}) {
            files.write(ending, whole.substr(0, whole.size() * part / 10));
            const std::string start = "out/walk." + ending + ": ";
            EXPECT_EQ(files.problem().compare(0, start.size(), start), 0) << ending << ' ' << part;
        }
    }
}

TEST(ExportedFiles, AreRefusedWhenTheyAreOfDifferentExports) {
    struct Mixture {
        const char *ending, *from, *to, *problem;
    };
    const std::vector<Mixture> cases = {
        {"imd", "name=\"coat_mat\"", "name=\"coat_map\"",
         "walk.ima and walk.imd are of different exports: the model has no material 'coat_mat'"},
        {"itp", "material_name=\"eyes_mat\"", "material_name=\"eye_mat\"",
         "walk.itp and walk.imd are of different exports: the model has no material 'eye_mat'"},
        {"ita", "material_name=\"pond_mat\"", "material_name=\"lake_mat\"",
         "walk.ita and walk.imd are of different exports: the model has no material 'lake_mat'"},
        {"itp", R"(<image_name index="1" name="eyes.2")", R"(<image_name index="1" name="eyes.9")",
         "walk.itp and walk.imd are of different exports: the model has no image 'eyes.9'"},
        {"itp", R"(<palette_name index="2" name="eyes.3")", R"(<palette_name index="2" name="eyes")",
         "walk.itp and walk.imd are of different exports: the model has no palette 'eyes'"},
        {"itp", "tool_start_frame=\"1\"", "tool_start_frame=\"0\"",
         "walk.itp and walk.ima are of different exports: 60 frames from 0, and 60 frames from 1"},
        {"iva", "frame_size=\"60\"", "frame_size=\"61\"",
         "walk.iva and walk.itp are of different exports: 61 frames from 1, and 60 frames from 1"},
    };
    for (const Mixture& mixture : cases) {
        const WalkFiles files;
        files.change(mixture.ending, mixture.from, mixture.to);
        EXPECT_EQ(files.problem(), mixture.problem);
    }
}

TEST(ExportedFiles, AreRefusedWhenNodeListsDiffer) {
    const WalkFiles files;
    fs::copy_file(TVK_SOURCE_DIR "/samples/golem.imd", files.path("imd"), fs::copy_options::overwrite_existing);
    EXPECT_EQ(files.problem(), "walk.ica and walk.imd are of different exports: it has 41 nodes, the model has 24");
    files.remove("ica");
    for (const char* ending : {"ima", "itp", "ita"}) {
        files.remove(ending);
    }
    EXPECT_EQ(files.problem(), "walk.iva and walk.imd are of different exports: it has 41 nodes, the model has 24");
}

TEST(ExportedFiles, AreRefusedUnderTheNameOfAnotherKind) {
    const WalkFiles files;
    fs::copy_file(files.path("ita"), files.path("ima"), fs::copy_options::overwrite_existing);
    EXPECT_EQ(files.problem(), "out/walk.ima: line 3: ita: is no ima file");
    fs::remove(files.path("ima"));
    fs::copy_file(files.path("imd"), files.path("iva"), fs::copy_options::overwrite_existing);
    EXPECT_EQ(files.problem().compare(0, 14, "out/walk.iva: "), 0) << files.problem();
}

TEST(ExportedFiles, TellTheirOwnBytesApartFromPaths) {
    const WalkFiles files;
    files.change("ima", "material_name=\"coat_mat\"", "material_name=\"\x83\x65\"");
    try {
        files.read();
        FAIL() << "they were read";
    } catch (const ExportedFilesError& error) {
        EXPECT_EQ(error.place(), "walk.ima and walk.imd are of different exports: ");
        EXPECT_EQ(error.reason(), "the model has no material '\x83\x65'");
    }
}

TEST(ExportedFiles, AreReadWhenTheyAreThereAndAskedFor) {
    const WalkFiles files;
    const ExportedFiles all = files.read();
    EXPECT_EQ(all.sizes.size(), kFileKinds.size());
    EXPECT_TRUE(all.model && all.nodes && all.colors && all.patterns && all.visibilities && all.placements);
    EXPECT_EQ(all.bytesOf("ica"), fs::file_size(files.path("ica")));
    EXPECT_EQ(all.name(), "walk");
    EXPECT_EQ(all.nameOf("iva"), "walk.iva");
    ASSERT_TRUE(all.frames);
    EXPECT_EQ(all.frames->count, 60);
    EXPECT_EQ(all.frames->first, 1);
    const ExportedFiles some = files.read({"imd", "iva"});
    EXPECT_TRUE(some.bytesOf("imd") && some.bytesOf("iva") && !some.bytesOf("ica"));
    EXPECT_FALSE(some.nodes || some.colors || some.patterns || some.placements);
}

TEST(ExportedFiles, MayBeTheModelAlone) {
    const ExportedFiles model = WalkFiles().read({"imd"});
    EXPECT_TRUE(model.model);
    EXPECT_FALSE(model.frames);
}

TEST(ExportedFiles, WithoutAModelNeedOnlyHaveTheSameFrames) {
    const WalkFiles files;
    files.remove("imd");
    files.change("ima", "material_name=\"coat_mat\"", "material_name=\"coat\"");
    EXPECT_EQ(files.problem(), "");
    files.change("ita", "frame_size=\"60\"", "frame_size=\"61\"");
    EXPECT_NE(files.problem(), "");
}

TEST(ExportedFiles, OfPatternsWithoutAModelBringTheirOwnImages) {
    const WalkFiles files;
    const std::string model = contents(files.path("imd"));
    files.remove("imd");
    EXPECT_TRUE(files.read().textures.images.empty());
    const std::size_t begin = model.find("<tex_image_array");
    const std::string arrays = model.substr(begin, model.find("<material_array") - begin);
    files.change("itp", "<tex_pattern_list_data", arrays + "<tex_pattern_list_data");
    EXPECT_EQ(files.read().textures.images.size(), readModelTextures(readIntermediateFile(model)).images.size());
}

} // namespace decode
