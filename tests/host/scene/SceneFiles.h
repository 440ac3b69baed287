#pragma once

#include "OpenedScene.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace host {

// Scene files in a folder of their own, which is also their project. In texts, '@' stands for the folder. The first
// line of a file is its heading.
struct SceneFiles {
    SceneFiles() { opened.scene.workspace().open(folder.path()); }

    std::string filled(std::string text) const {
        for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at)) {
            text.replace(at, 1, folder.path());
        }
        return text;
    }
    void writeBytes(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(std::filesystem::path(folder.path(name)).parent_path());
        std::ofstream(folder.path(name), std::ios::binary) << bytes;
    }
    void write(const std::string& name, const std::string& statements) const {
        writeBytes(name, "//Maya ASCII 2018 scene\n" + filled(statements));
    }
    // Opens a file and gives what was said, with '@' again.
    std::vector<std::string> open(const std::string& name) {
        opened.warnings.clear();
        opened.result = opened.scene.open(folder.path(name));
        EXPECT_EQ(opened.result.error, "");
        std::vector<std::string> lines = opened.warnings;
        for (std::string& line : lines) {
            for (std::size_t at = line.find(folder.path()); at != std::string::npos; at = line.find(folder.path())) {
                line.replace(at, folder.path().size(), "@");
            }
        }
        return lines;
    }

    tvk::TemporaryFolder folder;
    OpenedScene opened;
};

// The statements of a reference as a saved scene has them.
inline std::string referenceText(const std::string& space, const std::string& path) {
    const std::string flags = "-ns \"" + space + "\" ";
    const std::string rest = "-rfn \"" + space + "RN\" -op \"v=0;\" -typ \"mayaAscii\" \"" + path + "\";\n";
    return "file -rdi 1 " + flags + rest + "file -r " + flags + "-dr 1 " + rest;
}

} // namespace host
