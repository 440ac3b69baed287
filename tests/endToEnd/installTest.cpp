// What is installed, or unpacked from the archive, works wherever it is put.

#include "FinishedProgram.h"
#include "runShell.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

namespace tvk {
namespace {

namespace fs = std::filesystem;

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string contents(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// Paths of all files in a folder and below, seen from there.
std::set<std::string> filesBelow(const fs::path& folder) {
    std::set<std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_directory()) {
            files.insert(entry.path().lexically_relative(folder).generic_string());
        }
    }
    return files;
}

class Installed : public testing::Test {
protected:
    void install() const {
        const ShellRun run =
            runShell(program.path(), "'" TVK_CMAKE "' --install '" TVK_BUILD_FOLDER "' --prefix \"$PWD/first\"");
        ASSERT_EQ(run.status, 0) << run.said;
    }

    /// The program of a folder that was installed, as one runs it there.
    ProgramRun runOf(const std::string& folder, const std::vector<std::string>& arguments) const {
        FinishedProgram::Surroundings surroundings;
        surroundings.program = program.path(folder + "/bin/tvkexport");
        surroundings.environment["MAYA_SCRIPT_PATH"] = program.path(folder + "/scripts");
        return program.run(arguments, surroundings);
    }

    FinishedProgram program;
};

TEST_F(Installed, HoldsProgramScriptsGuidesAndSamples) {
    ASSERT_NO_FATAL_FAILURE(install());
    const std::set<std::string> files = filesBelow(program.path("first"));
    for (const char* file :
         {"bin/tvkexport", "bin/tvk_export.so", "bin/libtvk_host.so", "docs/CHANGELOG.md", "docs/installing.md"}) {
        EXPECT_EQ(files.count(file), 1U) << file;
    }
    for (const char* folder : {"scripts", "samples", "docs"}) {
        for (const std::string& file : filesBelow(TVK_SOURCE_FOLDER "/" + std::string(folder))) {
            const fs::path installed = program.path("first/" + std::string(folder) + "/" + file);
            const bool isOfTheSources = file == "building.md" || file == "testing.md" || file == "benchmarks.md";
            ASSERT_EQ(fs::exists(installed), !isOfTheSources) << installed;
            EXPECT_TRUE(isOfTheSources ||
                        contents(installed) == contents(TVK_SOURCE_FOLDER "/" + std::string(folder) + "/" + file));
        }
    }
    // Maya's plug-in is another one, so a build for the embedded host offers Maya none.
    EXPECT_THAT(files, Not(Contains(AnyOf(StartsWith("plug-ins/"), HasSubstr(".mod")))));
}

TEST_F(Installed, NothingLeadsBackToWhereItWasBuilt) {
    ASSERT_NO_FATAL_FAILURE(install());
    for (const char* file : {"tvkexport", "tvk_export.so", "libtvk_host.so"}) {
        const ShellRun run = runShell(program.path("first/bin"), "ldd " + std::string(file));
        EXPECT_EQ(run.status, 0) << run.said;
        EXPECT_THAT(run.said, AllOf(Not(HasSubstr("not found")), Not(HasSubstr(TVK_BUILD_FOLDER)))) << file;
        // Of all that it loads, only this is no part of every system.
        const std::string said = std::regex_replace(run.said, std::regex("/\\./"), "/"); // as some loaders name it
        const std::size_t imath = said.find("libImath");
        EXPECT_TRUE(imath == std::string::npos ||
                    said.find(program.path("first/bin/libImath"), imath) < said.find('\n', imath))
            << said;
    }
}

TEST_F(Installed, ExportsTheSameFromAnywhere) {
    ASSERT_NO_FATAL_FAILURE(install());
    fs::create_directories(program.path("some where"));
    fs::rename(program.path("first"), program.path("some where/else"));
    for (const char* sample : {"walk", "materials"}) {
        const std::string scene = "some where/else/samples/" + std::string(sample) + ".ma";
        const std::string kinds = "imd,ica,ima,itp,iva,ita";
        const ProgramRun run = runOf("some where/else", {scene, "-o", "moved", "--kinds", kinds});
        ASSERT_EQ(run.status, 0) << run.error;
        ASSERT_EQ(program.run({scene, "-o", "built", "--kinds", kinds}).status, 0);
        for (const char* kind : {".imd", ".ica", ".ima", ".itp", ".iva", ".ita"}) {
            EXPECT_EQ(withoutMaker(program.bytes(std::string("moved") + kind)),
                      withoutMaker(program.bytes(std::string("built") + kind)));
        }
    }
}

TEST_F(Installed, ScriptsAreThoseOfTheFolder) {
    ASSERT_NO_FATAL_FAILURE(install());
    const ProgramRun run = runOf("first", {"first/samples/character.ma", "--command",
                                           "source TVK_Attributes; select hips; print(TVK_AddTransformAttributes())"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, HasSubstr("2"));
}

TEST_F(Installed, ArchivesHoldWhatIsInstalled) {
    ASSERT_NO_FATAL_FAILURE(install());
    const std::string name = "tvk_export-" TVK_VERSION "-linux-" TVK_PROCESSOR;
    const ShellRun run = runShell(program.path(), "'" TVK_CPACK "' --config '" TVK_BUILD_FOLDER
                                                  "/CPackConfig.cmake' -B \"$PWD/archives\"\n"
                                                  "mkdir tar zip\n"
                                                  "cd tar; '" TVK_CMAKE "' -E tar xf ../archives/" +
                                                      name +
                                                      ".tar.gz\n"
                                                      "cd ../zip; '" TVK_CMAKE "' -E tar xf ../archives/" +
                                                      name + ".zip");
    ASSERT_EQ(run.status, 0) << run.said;
    for (const char* kind : {"tar", "zip"}) {
        EXPECT_THAT(program.names(kind), testing::ElementsAre(name));
        const std::string folder = std::string(kind) + "/" + name;
        EXPECT_EQ(filesBelow(program.path(folder)), filesBelow(program.path("first")));
        const ProgramRun version = runOf(folder, {"--version"});
        EXPECT_EQ(version.out, "tvkexport " TVK_VERSION "\n") << version.error;
        EXPECT_EQ(runOf(folder, {folder + "/samples/character.ma", "-o", "character"}).status, 0);
    }
}

} // namespace
} // namespace tvk
