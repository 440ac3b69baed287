#include "host/mel/filePath.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace host {

namespace {

namespace fs = std::filesystem;

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

// --- filetest

bool allows(const fs::path& path, fs::perms permissions) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return !error && fs::exists(status) && (status.permissions() & permissions) != fs::perms::none;
}

bool isReadable(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error) ? allows(path, fs::perms::owner_read | fs::perms::others_read)
                                         : std::ifstream(path).is_open();
}

struct TestRow {
    const char* shortName;
    bool (*holds)(const fs::path& path);
};

bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

bool isLink(const fs::path& path) {
    std::error_code error;
    return fs::is_symlink(path, error);
}

bool hasContent(const fs::path& path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    return !error && size != 0;
}

bool isWritable(const fs::path& path) {
    return allows(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write);
}

bool isProgram(const fs::path& path) {
    return allows(path, fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec);
}

constexpr TestRow kTests[] = {
    {"r", isReadable}, {"w", isWritable}, {"x", isProgram},  {"f", isFile},
    {"d", isFolder},   {"l", isLink},     {"s", hasContent},
};

/// The one question that was asked, and the path behind it.
CommandResult fileTestCommand(Scene&, const ParsedFlags& flags) {
    for (const TestRow& row : kTests) {
        if (flags.has(row.shortName)) {
            return CommandResult(row.holds(filePath(flags.text(row.shortName))));
        }
    }
    return failure(messages::kNeedsObjects, {"filetest", "a flag that says what is asked"});
}

// --- sysFile

struct ActionRow {
    const char* shortName;
    bool (*run)(const fs::path& path, const fs::path& target);
};

bool makeFolder(const fs::path& path, const fs::path& /*target*/) {
    std::error_code error;
    fs::create_directories(path, error);
    return isFolder(path);
}

bool removeEmptyFolder(const fs::path& path, const fs::path& /*target*/) {
    std::error_code error;
    return isFolder(path) && fs::remove(path, error);
}

bool removeFile(const fs::path& path, const fs::path& /*target*/) {
    std::error_code error;
    return !isFolder(path) && fs::remove(path, error);
}

bool moveFile(const fs::path& path, const fs::path& target) {
    std::error_code error;
    fs::rename(path, isFolder(target) ? target / path.filename() : target, error);
    return !error;
}

bool copyFile(const fs::path& path, const fs::path& target) {
    std::error_code error;
    return fs::copy_file(path, isFolder(target) ? target / path.filename() : target,
                         fs::copy_options::overwrite_existing, error);
}

constexpr ActionRow kActions[] = {
    {"md", makeFolder}, {"red", removeEmptyFolder}, {"del", removeFile},
    {"ren", moveFile},  {"mov", moveFile},          {"cp", copyFile},
};

/// One action, its target behind its flag if it has one, and the file or folder that it is about. Tells whether it was
/// done.
CommandResult sysFileCommand(Scene&, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    for (const ActionRow& row : kActions) {
        if (flags.has(row.shortName) && names.size() == 1) {
            return CommandResult(row.run(filePath(names[0]), filePath(flags.text(row.shortName))));
        }
    }
    return failure(messages::kNeedsObjects, {"sysFile", "a flag that says what to do, and a path"});
}

} // namespace

void registerFileSystemCommands(mel::CommandTable& commands, Scene& scene) {
    const std::vector<FlagArgument> text = {FlagArgument::kString};
    std::vector<mel::FlagSpec> tests;
    for (const TestRow& row : kTests) {
        tests.push_back({row.shortName, row.shortName, text});
    }
    addCommand(commands, scene, "filetest", FlagSyntax(std::move(tests)), fileTestCommand);
    addCommand(commands, scene, "sysFile",
               FlagSyntax({{"md", "makeDir"},
                           {"red", "removeEmptyDir"},
                           {"del", "delete"},
                           {"ren", "rename", text},
                           {"mov", "move", text},
                           {"cp", "copy", text}}),
               sysFileCommand);
}

} // namespace host
