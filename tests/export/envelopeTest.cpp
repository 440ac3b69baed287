#include "export/envelope.h"

#include "ExportSession.h"
#include "FreshRun.h"

#include "platform/userEnvironment.h"

#include "host/api/Host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace tvk {
namespace {

using testing::HasSubstr;

const CreateRecord kCreate{"mira", "studio7", "2006-10-03T09:05:00", "walk.ma"};

std::string head(OutputKind kind) {
    std::ostringstream out;
    writeHead(out, kind, kCreate);
    return out.str();
}

std::string tail(OutputKind kind) {
    std::ostringstream out;
    writeTail(out, kind);
    return out.str();
}

std::string info(OutputKind kind) {
    std::ostringstream out;
    writeInfo(out, kind);
    return out.str();
}

// --- head and tail

TEST(Envelope, TheModelsHeadRepeatsWhoMadeIt) {
    const FreshRun fresh;
    EXPECT_EQ(head(OutputKind::kImd),
              "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n"
              "\n"
              "<imd version=\"1.6.0\">\n"
              "\n"
              "<head>\n"
              "\t<create user=\"mira\" host=\"studio7\" date=\"2006-10-03T09:05:00\" source=\"walk.ma\"/>\n"
              "\t<title>Model Data for KALDERA ZEPHRA-System</title>\n"
              "\t<generator name=\"Maya 2020-embedded TVK_Export\" version=\"1.6.0.20061003\"/>\n"
              "</head>\n"
              "\n"
              "<body>\n"
              "\n"
              "<original_create user=\"mira\" host=\"studio7\" date=\"2006-10-03T09:05:00\" source=\"walk.ma\"/>\n"
              "<original_generator name=\"Maya 2020-embedded TVK_Export\" version=\"1.6.0.20061003\"/>\n"
              "\n" +
                  info(OutputKind::kImd));
}

TEST(Envelope, AnAnimationsHeadDoesNot) {
    const FreshRun fresh;
    EXPECT_EQ(head(OutputKind::kIva),
              "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n"
              "\n"
              "<iva version=\"1.6.0\">\n"
              "\n"
              "<head>\n"
              "\t<create user=\"mira\" host=\"studio7\" date=\"2006-10-03T09:05:00\" source=\"walk.ma\"/>\n"
              "\t<title>Visibility Animation Data for KALDERA ZEPHRA-System</title>\n"
              "\t<generator name=\"Maya 2020-embedded TVK_Export\" version=\"1.6.0.20061003\"/>\n"
              "</head>\n"
              "\n"
              "<body>\n"
              "\n" +
                  info(OutputKind::kIva));
}

TEST(Envelope, EveryKindHasItsRootAndTitle) {
    const FreshRun fresh;
    const std::pair<const char*, const char*> expected[] = {
        {"imd", "Model"},
        {"ica", "Character Animation"},
        {"ima", "Material Color Animation"},
        {"itp", "Texture Pattern Animation"},
        {"iva", "Visibility Animation"},
        {"ita", "Texture SRT Animation"},
        {"unknown", ""}, // a number beyond the kinds
    };
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const auto kind = static_cast<OutputKind>(i);
        const auto [root, title] = expected[i];
        EXPECT_THAT(head(kind), HasSubstr(std::string("\n<") + root + " version=\"1.6.0\">\n"));
        EXPECT_THAT(head(kind), HasSubstr(std::string("<title>") + title + " Data for KALDERA ZEPHRA-System</title>"));
        EXPECT_THAT(tail(kind), testing::EndsWith(std::string("</body>\n\n</") + root + ">\n"));
    }
}

TEST(Envelope, TheModelsTailHasTheTotals) {
    const FreshRun fresh;
    run().scene.vertexTotal = 1234;
    run().scene.polygonTotal = 56;
    run().scene.triangleTotal = 40;
    run().scene.quadTotal = 16;
    EXPECT_EQ(tail(OutputKind::kImd), "<output_info vertex_size=\"1234\" polygon_size=\"56\"\n"
                                      "\ttriangle_size=\"40\" quad_size=\"16\"/>\n"
                                      "\n"
                                      "</body>\n"
                                      "\n"
                                      "</imd>\n");
}

TEST(Envelope, AnAnimationsTailHasNone) {
    const FreshRun fresh;
    EXPECT_EQ(tail(OutputKind::kIca), "</body>\n\n</ica>\n");
}

// --- who made it

TEST(Envelope, TheSourceIsCutAfterItsLastSlashUnlessThatIsTheFirstCharacter) {
    ExportSession session;
    std::string& scenePath = host::Host::instance().scene().file().path;
    const std::pair<const char*, const char*> cases[] = {
        {"/work/scenes/walk.ma", "walk.ma"},
        {"/walk.ma", "/walk.ma"},
        {"C:/walk.ma", "walk.ma"},
        {"walk.ma", "walk.ma"},
    };
    for (const auto& [path, source] : cases) {
        scenePath = path;
        EXPECT_EQ(readCreateRecord().source, source) << path;
    }
}

TEST(Envelope, TheMakerIsTheUserOnThisComputerNow) {
    const std::string before = localTimeText(localTime());
    const CreateRecord create = readCreateRecord();
    const std::string after = localTimeText(localTime());
    EXPECT_EQ(create.user, userName());
    EXPECT_EQ(create.host, hostName());
    EXPECT_LE(create.host.size(), 15U);
    EXPECT_LE(before, create.date);
    EXPECT_LE(create.date, after);
}

// --- files

TEST(Envelope, PathsArePutTogetherWithNothingAdded) {
    const FreshRun fresh;
    run().options.outputFolder = "/out/";
    run().options.baseName = "char.v2";
    EXPECT_EQ(outputPath(OutputKind::kImd), "/out/char.v2.imd");
    run().options.outputFolder = "C:";
    run().options.baseName = "";
    EXPECT_EQ(outputPath(OutputKind::kIta), "C:.ita");
}

class OutputFile : public testing::Test {
protected:
    void SetUp() override { session.prepareRun(); }
    ExportSession session;
};

TEST_F(OutputFile, ThatCannotBeOpenedIsNamed) {
    run().options.outputFolder = session.folder.path("missing/");
    EXPECT_FALSE(writeOutputFile(OutputKind::kImd));
    EXPECT_EQ(session.takeMessages(), "Error: Can't open file: " + session.folder.path("missing/model.imd") + "\n");
    EXPECT_TRUE(session.progress.empty());
}

TEST_F(OutputFile, ThatDoesNotFitOnTheDiskIsNamed) {
    std::filesystem::create_symlink("/dev/full", session.folder.path("model.imd"));
    EXPECT_FALSE(writeOutputFile(OutputKind::kImd));
    EXPECT_EQ(session.takeMessages(), "Error: Can't write file: " + session.folder.path("model.imd") + "\n");
}

TEST_F(OutputFile, WhoseBodyFailsStaysWithoutATail) {
    run().scene.textures.resize(1);
    run().scene.textures[0].file = session.folder.path("missing.tga");
    run().scene.textureOrder = {0};
    EXPECT_FALSE(writeOutputFile(OutputKind::kImd));
    EXPECT_NE(session.takeMessages().find("Can't open file: " + session.folder.path("missing.tga")), std::string::npos);
    EXPECT_THAT(session.fileText("model.imd"), testing::EndsWith("<tex_image_array size=\"1\">\n"));
}

TEST_F(OutputFile, ReplacesWhatWasThere) {
    std::ofstream(session.folder.path("model.imd")) << std::string(100000, 'x');
    EXPECT_TRUE(writeOutputFile(OutputKind::kImd));
    const std::string text = session.fileText("model.imd");
    EXPECT_THAT(text,
                testing::StartsWith("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n\n<imd version=\"1.6.0\">\n"));
    EXPECT_THAT(text, testing::EndsWith("\n</imd>\n"));
    EXPECT_EQ(text.find('x', 2000), std::string::npos);
    EXPECT_EQ(text.find("node_array"), std::string::npos); // no nodes, no element
}

TEST_F(OutputFile, TellsTheFeedbackLine) {
    host::Host::instance().feedbackLine().setShown(true);
    EXPECT_TRUE(writeOutputFile(OutputKind::kIva));
    EXPECT_EQ(session.progress.back(), "Making ... iva");
}

TEST_F(OutputFile, HasOneDate) {
    EXPECT_TRUE(writeOutputFile(OutputKind::kImd));
    const decode::FileElement root = decode::readIntermediateFile(session.fileText("model.imd"));
    EXPECT_EQ(root.find("head")->find("create")->attributes, root.find("body")->find("original_create")->attributes);
    EXPECT_EQ(root.find("head")->find("generator")->attributes,
              root.find("body")->find("original_generator")->attributes);
}

} // namespace
} // namespace tvk
