#include "host/app/preview/ExportedFiles.h"
#include "host/app/preview/previewPage.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace tvk {
namespace {

namespace fs = std::filesystem;

std::string contents(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.good()) << path;
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The files of samples/walk, of which a test changes some.
class WalkFiles {
public:
    WalkFiles() {
        for (const char* ending : host::app::preview::kFileEndings) {
            fs::copy_file(std::string(TVK_SAMPLES "/walk.") + ending, path(ending));
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

    /// What is wrong with them; "" when nothing is. The folder's name is shown as FOLDER.
    std::string problem() const {
        try {
            host::app::preview::previewPage(base());
            return "";
        } catch (const std::runtime_error& error) {
            std::string text = error.what();
            const std::size_t at = text.find(folder_.path());
            return at == std::string::npos ? text : text.replace(at, folder_.path().size(), "FOLDER");
        }
    }

private:
    TemporaryFolder folder_;
};

} // namespace

TEST(ExportedFiles, NeedTheModel) {
    const WalkFiles files;
    files.remove("imd");
    EXPECT_EQ(files.problem(), "there is no FOLDER/walk.imd: a preview needs the model");
}

TEST(ExportedFiles, MustBeFiles) {
    const WalkFiles files;
    files.remove("iva");
    fs::create_directory(files.path("iva"));
    EXPECT_EQ(files.problem(), "FOLDER/walk.iva cannot be read: it is no file");
}

TEST(ExportedFiles, AreRefusedWhenDamaged) {
    struct Damage {
        const char *ending, *from, *to, *problem;
    };
    const std::vector<Damage> cases = {
        {"imd", "<body>", "<bode>", "walk.imd: "},
        {"imd", "brother_next=\"-1\"", "brother_next=\"99\"", "walk.imd: "},
        {"imd", "face=\"front\"", "face=\"none\"", "walk.imd: line 148: material: face is unknown: none"},
        {"imd", "polygon_mode=\"modulate\"", "polygon_mode=\"x\"",
         "walk.imd: line 148: material: polygon_mode is unknown: x"},
        {"imd", "material=\"4\" polygon", "material=\"5\" polygon", "walk.imd: "},
        {"imd", "tex_tiling=\"repeat repeat\"", "tex_tiling=\"repeat\"", "walk.imd: "},
        {"ica", R"(data_size="60" data_head="1")", R"(data_size="60" data_head="1101")", "walk.ica: "},
        {"ima", "data_size=\"18\"", "data_size=\"17\"", "walk.ima: "},
        {"itp", "image_size=\"3\"", "image_size=\"4\"", "walk.itp: "},
        {"iva", "0 0 24 32 35 39", "0 0 24 32 35", "walk.iva: "},
        {"ita", "</ita>", "", "walk.ita: "},
    };
    for (const Damage& damage : cases) {
        const WalkFiles files;
        files.change(damage.ending, damage.from, damage.to);
        const std::string problem = files.problem();
        EXPECT_EQ(problem.compare(0, std::string(damage.problem).size(), damage.problem), 0)
            << damage.from << " gives: " << problem;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
        EXPECT_GT(problem.size(), std::string("walk.imd: ").size());
    }
}

TEST(ExportedFiles, AreRefusedWhenOneEndsAnywhere) {
    for (const char* ending : host::app::preview::kFileEndings) {
        const WalkFiles files;
        const std::string whole = contents(files.path(ending));
        for (const std::size_t part : {0, 1, 3, 5, 7, 9}) {
            files.write(ending, whole.substr(0, whole.size() * part / 10));
            const std::string start = std::string("walk.") + ending + ": ";
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
    fs::copy_file(TVK_SAMPLES "/golem.imd", files.path("imd"), fs::copy_options::overwrite_existing);
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
    EXPECT_EQ(files.problem(), "walk.ima holds an ita file");
    fs::copy_file(files.path("imd"), files.path("iva"), fs::copy_options::overwrite_existing);
    fs::remove(files.path("ima"));
    EXPECT_EQ(files.problem().compare(0, 10, "walk.iva: "), 0) << files.problem();
}

TEST(ExportedFiles, MayBeTheModelAlone) {
    const WalkFiles files;
    for (const char* ending : {"ica", "ima", "itp", "iva", "ita"}) {
        files.remove(ending);
    }
    EXPECT_EQ(files.problem(), "");
}

} // namespace tvk
