#include "host/app/preview/previewPage.h"

#include "decode/ExportedFiles.h"

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
        for (const decode::FileKind& kind : decode::kFileKinds) {
            fs::copy_file(std::string(TVK_SAMPLES "/walk.") + kind.ending, path(kind.ending));
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

TEST(Page, NeedsTheModel) {
    const WalkFiles files;
    files.remove("imd");
    EXPECT_EQ(files.problem(), "there is no FOLDER/walk.imd: a preview needs the model");
    for (const char* ending : {"ica", "ima", "itp", "iva", "ita"}) {
        files.remove(ending);
    }
    EXPECT_EQ(files.problem(), "there is no FOLDER/walk.imd: a preview needs the model");
}

TEST(Page, RefusesWhatItCannotShow) {
    struct Damage {
        const char *from, *to, *problem;
    };
    const std::vector<Damage> cases = {
        {"face=\"front\"", "face=\"none\"", "FOLDER/walk.imd: line 148: material: face is unknown: none"},
        {"polygon_mode=\"modulate\"", "polygon_mode=\"x\"",
         "FOLDER/walk.imd: line 148: material: polygon_mode is unknown: x"},
        {"material=\"4\" polygon", "material=\"5\" polygon", "FOLDER/walk.imd: "},
        {"tex_tiling=\"repeat repeat\"", "tex_tiling=\"repeat\"", "FOLDER/walk.imd: "},
        {"</imd>", "", "FOLDER/walk.imd: "},
    };
    for (const Damage& damage : cases) {
        const WalkFiles files;
        files.change("imd", damage.from, damage.to);
        const std::string problem = files.problem();
        EXPECT_EQ(problem.compare(0, std::string(damage.problem).size(), damage.problem), 0)
            << damage.from << " gives: " << problem;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
    }
}

TEST(Page, ShowsNoFilesOfDifferentExports) {
    const WalkFiles files;
    files.change("ita", "material_name=\"pond_mat\"", "material_name=\"lake_mat\"");
    EXPECT_EQ(files.problem(), "walk.ita and walk.imd are of different exports: the model has no material 'lake_mat'");
}

TEST(Page, MayShowTheModelAlone) {
    const WalkFiles files;
    for (const char* ending : {"ica", "ima", "itp", "iva", "ita"}) {
        files.remove(ending);
    }
    EXPECT_EQ(files.problem(), "");
}

} // namespace tvk
