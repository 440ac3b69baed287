// Real scenes, each referred to by another: everything in them is as when they are opened alone.

#include "SceneFiles.h"

#include "host/nodes/meshQueries.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace host {

namespace {

std::vector<std::string> realScenes() {
    std::vector<std::string> scenes;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(std::string(TVK_TEST_DATA) + "/scenes")) {
        if (entry.path().extension() == ".ma") {
            scenes.push_back(entry.path().generic_u8string());
        }
    }
    std::sort(scenes.begin(), scenes.end());
    return scenes;
}

// "|a|b" as "|x:a|x:b".
std::string inNamespace(const DagPath& path) {
    std::string name;
    for (const Node* node : path.nodes) {
        name += (node->isDefault ? "|" : "|x:") + node->name();
    }
    return name;
}

// Warnings about a file, without their lines and the namespace: each is told once, where it comes first.
std::set<std::string> toldOf(const std::string& path, const std::vector<std::string>& lines) {
    std::set<std::string> told;
    for (const std::string& line : lines) {
        if (line.compare(0, path.size(), path) == 0) {
            std::string text = line.substr(line.find(": "));
            const std::size_t space = text.find(" x:");
            told.insert(space == std::string::npos ? text : text.erase(space + 1, 2));
        }
    }
    return told;
}

class ReferencedScene : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        ASSERT_TRUE(alone.scene.open(GetParam()).ok());
        const Units& units = alone.scene.units();
        files.write("main.ma", "file -r -ns \"x\" -rfn \"xRN\" \"" + GetParam() + "\";\ncurrentUnit -l " +
                                   std::string(units.linearName) + " -a " + std::string(units.angularName) + " -t " +
                                   std::string(units.timeName) + ";\n");
        files.open("main.ma");
    }

    Matrix44 worldMatrix(OpenedScene& opened, const std::string& path) {
        const Scene::PlugMatch match = opened.scene.findPlug(path + ".worldMatrix");
        EXPECT_TRUE(match.ok()) << match.error;
        return match.ok() ? opened.scene.graph().matrix(match.plug) : Matrix44();
    }

    void compareAt(Ticks time) {
        alone.scene.graph().setTime(time);
        files.opened.scene.graph().setTime(time);
        for (Node* node : alone.scene.graph().nodes()) {
            if (node->isDag() && !node->isDefault) {
                compareNode(*node);
            }
        }
    }

    void compareNode(Node& node) {
        for (const DagPath& path : allPaths(alone.scene.graph(), node)) {
            const std::string name = inNamespace(path);
            EXPECT_EQ(worldMatrix(files.opened, name), worldMatrix(alone, fullPathName(path))) << name;
        }
        Node* twin = files.opened.node(inNamespace(allPaths(alone.scene.graph(), node).front()));
        if (twin != nullptr && node.type().name() == "mesh") {
            EXPECT_EQ(*evaluatedMesh(files.opened.scene.graph(), *twin)->points,
                      *evaluatedMesh(alone.scene.graph(), node)->points)
                << node.name();
        }
    }

    SceneFiles files;
    OpenedScene alone;
};

TEST_P(ReferencedScene, IsWhatItIsAlone) {
    const std::string& path = GetParam();
    const std::set<std::string> told = toldOf(path, alone.warnings);
    for (const std::string& line : toldOf(path, files.opened.warnings)) {
        EXPECT_EQ(told.count(line), 1U) << line;
    }
    const Ticks start = alone.scene.graph().time();
    compareAt(start);
    compareAt(start + alone.scene.units().ticks(7.0));
}

INSTANTIATE_TEST_SUITE_P(All, ReferencedScene, testing::ValuesIn(realScenes()), [](const auto& row) {
    std::string name = std::filesystem::path(row.param).parent_path().filename().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace

} // namespace host
