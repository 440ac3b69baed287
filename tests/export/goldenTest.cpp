#include "export/bodies.h"
#include "export/envelope.h"
#include "export/exportRun.h"

#include "ExportSession.h"
#include "decode/ModelGeometry.h"

#include "common/numberText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tvk {
namespace {

const std::string kSamples = std::string(TVK_SOURCE_DIR) + "/samples/";

CreateRecord createFor(const std::string& sample) {
    return {"mira", "studio7", "2006-10-03T09:05:00", sample + ".ma"};
}

std::string readBytes(const std::string& path) {
    std::ifstream in(path, std::ios_base::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void openSample(ExportSession& session, const std::string& name) {
    session.mel("workspace -o \"" + kSamples + "\"; file -f -o \"" + kSamples + name + ".ma\"");
    EXPECT_THAT(session.warnings, testing::IsEmpty());
}

// A whole file of the gathered scene, by a maker of our own choice.
std::string compose(OutputKind kind, const CreateRecord& create) {
    std::ostringstream out;
    setupStream(out);
    writeHead(out, kind, create);
    for (const BodyWriter& writer : kBodyWriters) {
        if (writer.kind == kind) {
            EXPECT_TRUE(writer.write(out));
        }
    }
    writeTail(out, kind);
    return out.str();
}

// Sets the file anew when the environment asks for it (./tvk golden does, and shows what changed), else compares.
void checkGolden(const std::string& name, const std::string& text) {
    if (std::getenv("TVK_WRITE_GOLDENS") != nullptr) {
        std::ofstream(kSamples + name, std::ios_base::binary) << text;
    }
    EXPECT_EQ(readBytes(kSamples + name), text) << "'./tvk golden' writes it anew and shows the difference";
}

// What the numbers of the character come from, besides being typed in the scene:
//   mira     the root: a single top node, its pivots are 0
//   hat      turns and scales about (-0.25 0 0): translate 1.1 - 0.25 = 0.85
//   arm_l    rotate axis 45 about y, then joint orient -60 about y: -15
//   head     order zxy (2): Rz(0) Rx(10) Ry(20), as xyz it is the same triple, as z is 0: x first, then y
//   lantern  off from frame 6 to 9, which are the frames 5 to 8 of the range
TEST(Golden, Character) {
    ExportSession session;
    openSample(session, "character");
    session.prepareRun("iva_file_out=1");
    ASSERT_TRUE(gatherScene());
    EXPECT_EQ(session.takeMessages(), "");
    const std::string model = compose(OutputKind::kImd, createFor("character"));
    decode::readModelFile(model);
    checkGolden("character.imd", model);
    const std::string visibility = compose(OutputKind::kIva, createFor("character"));
    decode::readVisibilityFile(visibility);
    checkGolden("character.iva", visibility);
}

CreateRecord createOf(const decode::FileElement& root) {
    const decode::FileElement& create = *root.find("head")->find("create");
    return {create.value("user"), create.value("host"), create.value("date"), create.value("source")};
}

TEST(Golden, IsWhatAnExportWrites) {
    ExportSession session;
    openSample(session, "character");
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    const std::string model = session.fileText("model.imd");
    const std::string visibility = session.fileText("model.iva");
    session.prepareRun("iva_file_out=1");
    ASSERT_TRUE(gatherScene());
    EXPECT_EQ(compose(OutputKind::kImd, createOf(decode::readIntermediateFile(model))), model);
    EXPECT_EQ(compose(OutputKind::kIva, createOf(decode::readIntermediateFile(visibility))), visibility);
    EXPECT_EQ(createOf(decode::readIntermediateFile(model)).source, "character.ma");
}

TEST(Golden, CharacterStandsWhereTheHostHasIt) {
    ExportSession session;
    openSample(session, "character");
    ASSERT_TRUE(session.exportAll());
    const decode::ModelFile model = session.model();
    EXPECT_EQ(model.nodes.size(), 15U);
    for (const decode::ModelNode& node : model.nodes) {
        EXPECT_LT(distance(node.world, session.expectedWorld(node.name)), 2e-3) << node.name;
    }
}

// The tests may lie anywhere: files name the images from the folder of the sources on.
class PathsFromSources {
public:
    PathsFromSources() { std::filesystem::current_path(TVK_SOURCE_DIR); }
    ~PathsFromSources() { std::filesystem::current_path(before); }
    PathsFromSources(const PathsFromSources&) = delete;
    PathsFromSources& operator=(const PathsFromSources&) = delete;

private:
    const std::filesystem::path before = std::filesystem::current_path();
};

// Where the numbers of the materials come from, besides being typed in the scene:
//   all       textured: diffuse is the file's colour gain 1 times the shader's diffuse; 0.8 * 31 = 24.8 is 25
//   glass     transparency 0.25: alpha 0.75 * 31 = 23.25; diffuse 0.6, 0.8, 0.9 times 0.8 times 31
//   leaf      its transparency is textured: alpha is the file's alpha gain 1
//   floor, wall   a placement that is not the identity has texture coordinates made from "tex"; window's come from
//             normals, as its shader asks
//   stone_a   takes in stone_b, which is equal; beacon is keyed and lamp_on wants to stay alone
TEST(Golden, Materials) {
    ExportSession session;
    openSample(session, "materials");
    session.prepareRun("compress_material=1");
    const PathsFromSources paths;
    run().options.workspaceRoot = "samples/";
    ASSERT_TRUE(gatherScene());
    const std::string messages = session.takeMessages();
    EXPECT_THAT(messages, testing::HasSubstr("Warning: Layered texture is used (use first layer only): plaque_layers"
                                             "\n"));
    EXPECT_THAT(messages, testing::HasSubstr("Warning: Invalid shader (ignored): poster_mat\n"));
    const std::string model = compose(OutputKind::kImd, createFor("materials"));
    decode::readModelFile(model);
    checkGolden("materials.imd", model);
}

// All six files; what they play is tested beside the other animation files.
TEST(Golden, Walk) {
    ExportSession session;
    openSample(session, "walk");
    session.prepareRun("ica_file_out=1;ima_file_out=1;itp_file_out=1;iva_file_out=1;ita_file_out=1;anime_interp=1;"
                       "frame_step_mode=0");
    const PathsFromSources paths;
    run().options.workspaceRoot = "samples/";
    ASSERT_TRUE(gatherScene());
    EXPECT_EQ(session.takeMessages(), "");
    for (const OutputKindRow& row : kOutputKinds) {
        checkGolden("walk." + std::string(row.extension), compose(row.kind, createFor("walk")));
    }
}

// Where the numbers of its skin come from: blends are halves, where two bones meet; every other vertex has one bone.
TEST(Golden, Golem) {
    ExportSession session;
    openSample(session, "golem");
    session.prepareRun();
    const PathsFromSources paths;
    run().options.workspaceRoot = "samples/";
    ASSERT_TRUE(gatherScene());
    const std::string model = compose(OutputKind::kImd, createFor("golem"));
    EXPECT_EQ(session.takeMessages(), "");
    decode::readModelGeometry(decode::readModelFile(model));
    checkGolden("golem.imd", model);
}

// What an artist sees in the file of the sample, whatever the golden says.
class SampleMaterials : public testing::Test {
protected:
    void SetUp() override { openSample(session, "materials"); }
    decode::FileElement body(const std::string& options) {
        EXPECT_TRUE(session.exportAll(options));
        const decode::FileElement root = decode::readIntermediateFile(session.fileText("model.imd"));
        return root.find("body") != nullptr ? *root.find("body") : decode::FileElement();
    }
    static std::vector<std::string> valuesOf(const decode::FileElement& array, const std::string& attribute) {
        std::vector<std::string> values;
        for (const decode::FileElement& element : array.children) {
            values.push_back(element.value(attribute));
        }
        return values;
    }

    ExportSession session;
};

TEST_F(SampleMaterials, ShowEveryTextureFormat) {
    const decode::FileElement images = *body("").find("tex_image_array");
    const std::vector<std::string> formats = valuesOf(images, "format");
    EXPECT_THAT(formats,
                testing::IsSupersetOf({"a3i5", "palette4", "palette16", "palette256", "tex4x4", "a5i3", "direct"}));
}

TEST_F(SampleMaterials, EqualOnesMergeUnderCompression) {
    using testing::Contains;
    using testing::Not;
    const std::vector<std::string> apart = valuesOf(*body("compress_material=0").find("material_array"), "name");
    EXPECT_THAT(apart, testing::AllOf(Contains("stone_a"), Contains("stone_b")));
    const std::vector<std::string> merged = valuesOf(*body("compress_material=1").find("material_array"), "name");
    EXPECT_THAT(merged, testing::AllOf(Contains("stone_a"), Not(Contains("stone_b")), Contains("dummy_material")));
    EXPECT_EQ(merged.size(), apart.size() - 1);
}

TEST_F(SampleMaterials, TheLampsShareOnePalette) {
    const decode::FileElement palettes = *body("").find("tex_palette_array");
    const std::vector<std::string> names = valuesOf(palettes, "name");
    EXPECT_EQ(std::count(names.begin(), names.end(), "lamps"), 1);
}

} // namespace
} // namespace tvk
