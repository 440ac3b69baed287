// The files that the guides show are real: lists and settings do what is said, and the log comes out as it stands
// there.

#include "FinishedProgram.h"
#include "decode/ModelFile.h"
#include "guidePages.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <regex>
#include <string>
#include <utility>

namespace tvk {
namespace {

using testing::ElementsAre;

// The log without what differs from machine to machine.
std::string everywhere(std::string log) {
    for (const char* word : {"user", "host", "date"}) {
        log = std::regex_replace(log, std::regex(std::string("# ") + word + ": .*\n"), std::string("# ") + word + "\n");
    }
    return log;
}

TEST(Guides, TheBatchThatIsShownGivesTheLogThatIsShown) {
    const FinishedProgram program;
    std::filesystem::create_directories(program.path("scenes"));
    std::filesystem::create_directories(program.path("settings"));
    program.write("scenes/house.ma", sceneOf(nodeText("transform", "house")));
    program.write("scenes/tree.ma", sceneOf(nodeText("transform", "leaves_of_the_oak")));
    program.write("scenes/man.ma",
                  sceneOf(nodeText("joint", "hips") + nodeText("transform", "hat") + nodeText("transform", "floor")));
    program.write("settings/model.z3es", "# TVK_Export settings\noutput_imd=\"on\"\n");
    program.write("settings/walk.z3es", "# TVK_Export settings\noutput_imd=\"on\"\noutput_ica=\"on\"\n");
    program.write("list.z3be", guideBlock("batch.md", "# TVK_Batch_Export"));
    const ProgramRun run = program.run({"--batch", "list.z3be"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(everywhere(program.bytes("log.txt")), everywhere(guideBlock("batch.md", "# Log of TVK_Batch_Export")));
    EXPECT_NE(guidePage("batch.md").find("    " + run.errorLines().back() + "\n"), std::string::npos);
    EXPECT_THAT(program.names("out"), ElementsAre("house.imd", "man_walk.ica", "man_walk.imd", "oak.imd"));
    EXPECT_THAT(decode::readModelFile(program.bytes("out/man_walk.imd")).names(),
                ElementsAre("world_root", "hat", "hips"));
}

TEST(Guides, TheCommandsThatAreShownAreThoseOfAList) {
    const FinishedProgram program;
    for (const char* folder : {"art/town", "art/out", "art/settings"}) {
        std::filesystem::create_directories(program.path(folder));
    }
    for (const char* scene : {"house", "tree"}) {
        program.write(std::string("art/town/") + scene + ".ma", sceneOf(nodeText("transform", scene)));
    }
    program.write("art/settings/model.z3es", "# TVK_Export settings\n");
    program.write("list.z3be", "# TVK_Batch_Export\ninput_folder \"art/town\"\noutput_folder \"art/out\"\n"
                               "z3es_folder \"art/settings\"\nz3es \"model.z3es\"\nscene \"house.ma\"\n"
                               "scene \"tree.ma\" -name \"old oak\" -root \"trunk,leaves\"\n");
    const ProgramRun run = program.run({"--batch", "list.z3be", "--print-jobs"});
    EXPECT_EQ(run.status, 0) << run.error;
    std::string commands = run.out;
    for (const auto& [here, shown] :
         {std::pair<std::string, std::string>{TVK_PROGRAM, "/opt/tvk/bin/tvkexport"}, {program.path("art"), "/art"}}) {
        for (std::size_t at = commands.find(here); at != std::string::npos; at = commands.find(here)) {
            commands.replace(at, here.size(), shown);
        }
    }
    EXPECT_EQ(commands, guideBlock("farm.md", "/opt/tvk/"));
}

TEST(Guides, TheSettingsThatAreShownAreTaken) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a", "", set3("t", 1, 0, 0)) + playback(1, 60)));
    program.write("f.z3es", guideBlock("settings.md", "# TVK_Export settings"));
    ASSERT_EQ(program.run({"scene.ma", "--settings", "f.z3es"}).status, 0);
    EXPECT_THAT(program.names(), ElementsAre("f.z3es", "scene.ica", "scene.imd", "scene.ma"));
    EXPECT_EQ(decode::readModelFile(program.bytes("scene.imd")).info->value("magnify"), "2.000000");
}

} // namespace
} // namespace tvk
