#include "BatchSession.h"

#include "sceneText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tvk {

BatchSession::BatchSession() {
    EXPECT_EQ(load(), "");
    for (const char* name : {"in", "out", "set"}) {
        makeFolder(name);
    }
    for (const char* name : {"a", "b"}) {
        writeScene(std::string("in/") + name + ".ma", nodeText("transform", name) + nodeText("joint", "shared"));
    }
    writeSettings("set/model.z3es", "");
}

void BatchSession::write(const std::string& name, const std::string& bytes) const {
    std::ofstream out(std::filesystem::u8path(folder.path(name)), std::ios_base::binary);
    out << bytes;
    EXPECT_TRUE(out.good()) << name;
}

void BatchSession::makeFolder(const std::string& name) const {
    std::filesystem::create_directories(std::filesystem::u8path(folder.path(name)));
}

void BatchSession::writeScene(const std::string& name, const std::string& statements) const {
    write(name, sceneOf(statements));
}

void BatchSession::writeSettings(const std::string& name, const std::string& lines) const {
    write(name, "# TVK_Export settings\noutput_imd=\"on\"\n" + lines);
}

std::string BatchSession::start() const {
    return placed("input_folder \"@/in\"\noutput_folder \"@/out\"\nz3es_folder \"@/set\"\nz3es \"model.z3es\"\n");
}

bool BatchSession::batch(const std::string& lines) {
    write("list.z3be", "# TVK_Batch_Export\n" + placed(lines));
    return batchFile(folder.path("list.z3be"));
}

bool BatchSession::batchFile(const std::string& path) {
    errors.clear();
    takeMessages();
    return melRuns("TVK_BatchExportCmd -batch \"" + path + "\"");
}

std::vector<std::string> BatchSession::nodesOf(const std::string& model) const {
    return decode::readModelFile(fileText(model)).names();
}

std::string BatchSession::announced(int number, const std::string& scene) const {
    return "[" + std::to_string(number) + "] " + std::string(50, '-') + "\n# scene: " + folder.path("in/" + scene) +
           "\n";
}

std::string BatchSession::placed(std::string text) const {
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at)) {
        text.replace(at, 1, folder.path());
    }
    return text;
}

} // namespace tvk
