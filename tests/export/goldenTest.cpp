#include "export/bodies.h"
#include "export/envelope.h"
#include "export/exportRun.h"

#include "ExportSession.h"

#include "common/numberText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tvk {
namespace {

const std::string kSamples = std::string(TVK_SOURCE_DIR) + "/samples/";
const CreateRecord kCreate{"mira", "studio7", "2006-10-03T09:05:00", "character.ma"};

std::string readBytes(const std::string& path) {
    std::ifstream in(path, std::ios_base::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void openSample(ExportSession& session) {
    session.mel("file -f -o \"" + kSamples + "character.ma\"");
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
    openSample(session);
    session.prepareRun("iva_file_out=1");
    ASSERT_TRUE(gatherScene());
    EXPECT_EQ(session.takeMessages(), "");
    const std::string model = compose(OutputKind::kImd, kCreate);
    readModelFile(model);
    checkGolden("character.imd", model);
    const std::string visibility = compose(OutputKind::kIva, kCreate);
    readVisibilityFile(visibility);
    checkGolden("character.iva", visibility);
}

CreateRecord createOf(const FileElement& root) {
    const FileElement& create = *root.find("head")->find("create");
    return {create.value("user"), create.value("host"), create.value("date"), create.value("source")};
}

TEST(Golden, IsWhatAnExportWrites) {
    ExportSession session;
    openSample(session);
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    const std::string model = session.fileText("model.imd");
    const std::string visibility = session.fileText("model.iva");
    session.prepareRun("iva_file_out=1");
    ASSERT_TRUE(gatherScene());
    EXPECT_EQ(compose(OutputKind::kImd, createOf(readIntermediateFile(model))), model);
    EXPECT_EQ(compose(OutputKind::kIva, createOf(readIntermediateFile(visibility))), visibility);
    EXPECT_EQ(createOf(readIntermediateFile(model)).source, "character.ma");
}

TEST(Golden, CharacterStandsWhereTheHostHasIt) {
    ExportSession session;
    openSample(session);
    ASSERT_TRUE(session.exportAll());
    const ModelFile model = session.model();
    EXPECT_EQ(model.nodes.size(), 15U);
    for (const ModelNode& node : model.nodes) {
        EXPECT_LT(distance(node.world, session.expectedWorld(node.name)), 2e-3) << node.name;
    }
}

} // namespace
} // namespace tvk
