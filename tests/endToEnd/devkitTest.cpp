// The plug-in built for Maya: against headers and libraries laid out as a devkit is, with the API of a release before
// the calls that changed and of one after them. A build is kept, so that the next run of the tests has little to do.

#include "FinishedProgram.h"
#include "runShell.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <regex>
#include <string>

namespace tvk {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr int kBuildSeconds = 840; // two processors that have nothing else to do take less than one minute

/// The build's folder; a test failure when it cannot be built.
std::string buildFor(const std::string& level, const std::string& options) {
    const std::string folder = TVK_SOURCE_FOLDER "/build/devkit-" + level;
    std::filesystem::create_directories(folder);
    const ShellRun run =
        runShell(folder,
                 "exec 9>lock\nflock 9\n"
                 "'" TVK_MAKE_DEVKIT "' " +
                     level + " '" TVK_SOURCE_FOLDER "/host/include' '" TVK_HOST_LIBRARY "' \"$PWD/kit\"\n" +
                     "'" TVK_CMAKE "' -S '" TVK_SOURCE_FOLDER "' -B build -G Ninja -DTVK_HOST=maya "
                     "-DMAYA_LOCATION=\"$PWD/kit\" -DCMAKE_CXX_COMPILER='" TVK_COMPILER "' " +
                     "-DCMAKE_CXX_FLAGS='-O0 -g0' " + options + "\n'" TVK_CMAKE "' --build build",
                 kBuildSeconds);
    EXPECT_EQ(run.status, 0) << run.said;
    return folder + "/build";
}

/// What Maya makes of a module file: the folder that its first line names, seen from the folder that the file is in.
std::string folderOfModule(const FinishedProgram& files, const std::string& module) {
    std::smatch words;
    const std::string text = files.bytes(module);
    if (!std::regex_match(text, words, std::regex("\\+ (?:[A-Z]+:\\S+ )*(\\S+) (\\S+) (.+)\n"))) {
        ADD_FAILURE() << text;
        return "";
    }
    const std::filesystem::path folder = std::filesystem::path(files.path(module)).parent_path() / words[3].str();
    return folder.lexically_normal().generic_string();
}

ShellRun configure(const FinishedProgram& files, const std::string& options) {
    ShellRun run = runShell(files.path(), "rm -rf build\n'" TVK_CMAKE "' -S '" TVK_SOURCE_FOLDER
                                          "' -B build -G Ninja -DCMAKE_CXX_COMPILER='" TVK_COMPILER "' " +
                                              options);
    run.said = std::regex_replace(run.said, std::regex("\\s+"), " "); // long messages come in several lines
    return run;
}

TEST(Devkit, WhatIsNoneIsRefused) {
    const FinishedProgram files;
    std::filesystem::create_directories(files.path("empty"));
    std::filesystem::create_directories(files.path("nameless/devkitBase/include/maya"));
    files.write("nameless/devkitBase/include/maya/MTypes.h", "#pragma once\n");
    std::filesystem::create_directories(files.path("headers/include/maya"));
    files.write("headers/include/maya/MTypes.h", "#pragma once\n#define MAYA_API_VERSION 201600\n");
    const std::pair<std::string, std::string> cases[] = {
        {"-DTVK_HOST=other", "TVK_HOST is embedded or maya, not 'other'"},
        {"-DTVK_HOST=maya", "TVK_HOST=maya needs MAYA_LOCATION, the folder of Maya or of its devkit; it is ''"},
        {"-DTVK_HOST=maya -DMAYA_LOCATION=" + files.path("none"),
         "TVK_HOST=maya needs MAYA_LOCATION, the folder of Maya or of its devkit; it is '" + files.path("none") + "'"},
        {"-DTVK_HOST=maya -DMAYA_LOCATION=" + files.path("empty"),
         "no maya/MTypes.h in include or devkitBase/include of " + files.path("empty") +
             ": install the devkit of this Maya there"},
        {"-DTVK_HOST=maya -DMAYA_LOCATION=" + files.path("nameless"), "MTypes.h does not tell its MAYA_API_VERSION"},
        {"-DTVK_HOST=maya -DMAYA_LOCATION=" + files.path("headers"),
         "no library Foundation in lib or devkitBase/lib of " + files.path("headers")},
    };
    for (const auto& [options, message] : cases) {
        const ShellRun run = configure(files, options);
        EXPECT_EQ(run.status, 1) << options;
        EXPECT_THAT(run.said, HasSubstr(message + " "));
    }
}

// The classes are those of the embedded host, which can therefore run it: by the older calls it has to read the same.
TEST(Devkit, WithTheOlderCallsItExportsTheSame) {
    const std::string build = buildFor("850", "-DCMAKE_MODULE_LINKER_FLAGS=-Wl,--no-undefined");
    ASSERT_FALSE(testing::Test::HasFailure());
    const FinishedProgram program;
    const std::string scenes[] = {TVK_SAMPLES "/walk.ma", TVK_SAMPLES "/materials.ma",
                                  TVK_SCENES "/skin-bind-transforms/bindTransformsExport.ma",
                                  TVK_SCENES "/character-25-joints/UsdExportSkeleton.ma"};
    for (const std::string& scene : scenes) {
        const std::string kinds = "imd,ica,ima,itp,iva,ita";
        const ProgramRun run =
            program.run({scene, "-o", "older", "--kinds", kinds, "--plugin", build + "/bin/tvk_export.so"});
        ASSERT_EQ(run.status, 0) << run.error;
        ASSERT_EQ(program.run({scene, "-o", "built", "--kinds", kinds}).status, 0);
        for (const char* kind : {".imd", ".ica", ".ima", ".itp", ".iva", ".ita"}) {
            EXPECT_EQ(withoutMaker(program.bytes(std::string("older") + kind)),
                      withoutMaker(program.bytes(std::string("built") + kind)))
                << scene;
        }
    }
    const ShellRun run = runShell(program.path(), "'" TVK_CMAKE "' --install '" + build +
                                                      "' --prefix \"$PWD/first\"\nmv first 'the module'");
    ASSERT_EQ(run.status, 0) << run.said;
    EXPECT_EQ(program.bytes("the module/tvk_export.mod"), "+ tvk_export " TVK_VERSION " .\n");
    const std::string module = folderOfModule(program, "the module/tvk_export.mod");
    FinishedProgram::Surroundings surroundings;
    surroundings.environment["MAYA_SCRIPT_PATH"] = module + "/scripts";
    const ProgramRun inModule = program.run(
        {TVK_SAMPLES "/character.ma", "--plugin", module + "/plug-ins/tvk_export.so", "--command",
         "source TVK_ExportOpts; print(exists(\"TVK_ExportOpts\") + \" \" + exists(\"TVK_BatchExportCmd\"))"},
        surroundings);
    EXPECT_EQ(inModule.status, 0) << inModule.error;
    EXPECT_EQ(inModule.out, "1 1");
}

// Everything that it asks of the host is in the release's namespace, and so are its entry points.
TEST(Devkit, WithTheNewerCallsItIsAModuleOfItsRelease) {
    const std::string build = buildFor("20230200", "");
    ASSERT_FALSE(testing::Test::HasFailure());
    const FinishedProgram program;
    const ShellRun asked = runShell(build, "nm -DC --undefined-only bin/tvk_export.so");
    EXPECT_THAT(asked.said, HasSubstr(" U Autodesk::Maya::OpenMaya20230200::MPlug::"));
    EXPECT_FALSE(std::regex_search(asked.said, std::regex(" U M[A-Z][a-z]"))) << asked.said;
    const ShellRun entries = runShell(build, "nm -DC --defined-only bin/tvk_export.so");
    EXPECT_THAT(entries.said, HasSubstr(" T initializePlugin(Autodesk::Maya::OpenMaya20230200::MObject)\n"));
    EXPECT_THAT(entries.said, HasSubstr(" T uninitializePlugin(Autodesk::Maya::OpenMaya20230200::MObject)\n"));

    // Module and program go into one folder.
    const ShellRun run =
        runShell(program.path(), "for build in '" TVK_BUILD_FOLDER "' '" + build +
                                     "'\ndo '" TVK_CMAKE "' --install \"$build\" --prefix \"$PWD/folder\"\ndone\n"
                                     "readelf -d folder/plug-ins/tvk_export.so");
    ASSERT_EQ(run.status, 0) << run.said;
    EXPECT_THAT(run.said, AllOf(HasSubstr("Shared library: "), Not(HasSubstr("Library runpath"))));
    EXPECT_THAT(program.names("folder"),
                testing::ElementsAre("bin", "docs", "plug-ins", "samples", "scripts", "tvk_export.mod"));
    EXPECT_EQ(program.bytes("folder/tvk_export.mod"),
              "+ MAYAVERSION:2023 PLATFORM:linux tvk_export " TVK_VERSION " .\n");
    EXPECT_THAT(program.names("folder/plug-ins"), testing::ElementsAre("tvk_export.so"));
    EXPECT_THAT(program.names("folder/scripts"),
                testing::ElementsAre("TVK_Attributes.mel", "TVK_ExportOpts.mel", "TVK_Menu.mel"));
    FinishedProgram::Surroundings installed;
    installed.program = program.path("folder/bin/tvkexport");
    EXPECT_EQ(program.run({TVK_SAMPLES "/character.ma", "-o", "character"}, installed).status, 0);
}

} // namespace
} // namespace tvk
