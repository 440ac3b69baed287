#include "export/nodeArray.h"

#include "FreshRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

namespace tvk {
namespace {

using testing::HasSubstr;
using testing::Not;

NodeRecord& addNode(const std::string& name, NodeKind kind, NodeRecord* parent = nullptr) {
    SceneData& scene = run().scene;
    auto node = std::make_unique<NodeRecord>();
    node->index = static_cast<int32_t>(scene.nodes.size());
    node->name = name;
    node->kind = kind;
    node->output.parent = parent;
    if (parent != nullptr) {
        parent->output.child = node.get();
    }
    scene.outputNodes.push_back(node.get());
    scene.nodes.push_back(std::move(node));
    return *scene.nodes.back();
}

std::string array(bool animation = false) {
    std::ostringstream out;
    EXPECT_TRUE(writeNodeArray(out, animation));
    return out.str();
}

TEST(NodeArray, OfNoNodesIsNothingAtAll) {
    const FreshRun fresh;
    EXPECT_EQ(array(false), "");
    EXPECT_EQ(array(true), "");
}

TEST(NodeArray, SpreadsANodeOverLines) {
    const FreshRun fresh;
    NodeRecord& root = addNode("root", NodeKind::kNull);
    NodeRecord& arm = addNode("arm", NodeKind::kJoint, &root);
    arm.billboard = Billboard::kYOn;
    arm.drawMtx = true;
    arm.visibility = false;
    arm.written.scale = {1, 0.5, -2};
    arm.written.rotate = {0, 0, 180};
    arm.written.translate = {0.1, -0.1, 0};
    EXPECT_EQ(array(), "<node_array size=\"2\">\n"
                       "\t<node index=\"0\" name=\"root\" kind=\"null\"\n"
                       "\t\tparent=\"-1\"\n"
                       "\t\tchild=\"1\"\n"
                       "\t\tbrother_next=\"-1\"\n"
                       "\t\tbrother_prev=\"-1\"\n"
                       "\t\tdraw_mtx=\"off\"\n"
                       "\t\tbillboard=\"off\"\n"
                       "\t\tscale=\"1.000000 1.000000 1.000000\"\n"
                       "\t\trotate=\"0.000000 0.000000 0.000000\"\n"
                       "\t\ttranslate=\"0.000000 0.000000 0.000000\"\n"
                       "\t\tvisibility=\"on\"\n"
                       "\t\tdisplay_size=\"0\"\n"
                       "\t>\n"
                       "\t</node>\n"
                       "\t<node index=\"1\" name=\"arm\" kind=\"joint\"\n"
                       "\t\tparent=\"0\"\n"
                       "\t\tchild=\"-1\"\n"
                       "\t\tbrother_next=\"-1\"\n"
                       "\t\tbrother_prev=\"-1\"\n"
                       "\t\tdraw_mtx=\"on\"\n"
                       "\t\tbillboard=\"y_on\"\n"
                       "\t\tscale=\"1.000000 0.500000 -2.000000\"\n"
                       "\t\trotate=\"0.000000 0.000000 180.000000\"\n"
                       "\t\ttranslate=\"0.100098 -0.100098 0.000000\"\n"
                       "\t\tvisibility=\"off\"\n"
                       "\t\tdisplay_size=\"0\"\n"
                       "\t>\n"
                       "\t</node>\n"
                       "</node_array>\n\n");
}

TEST(NodeArray, LinksBrothers) {
    const FreshRun fresh;
    NodeRecord& root = addNode("root", NodeKind::kRoot);
    NodeRecord& a = addNode("a", NodeKind::kNull, &root);
    NodeRecord& b = addNode("b", NodeKind::kNull, &root);
    a.output.brotherNext = &b;
    b.output.brotherPrev = &a;
    EXPECT_THAT(array(), HasSubstr("name=\"a\" kind=\"null\"\n\t\tparent=\"0\"\n\t\tchild=\"-1\"\n"
                                   "\t\tbrother_next=\"2\"\n\t\tbrother_prev=\"-1\"\n"));
    EXPECT_THAT(array(), HasSubstr("name=\"b\" kind=\"null\"\n\t\tparent=\"0\"\n\t\tchild=\"-1\"\n"
                                   "\t\tbrother_next=\"-1\"\n\t\tbrother_prev=\"1\"\n"));
}

TEST(NodeArray, ValuesAreStepsPrintedAsDecimals) {
    const FreshRun fresh;
    NodeRecord& node = addNode("a", NodeKind::kNull);
    node.written.translate = {0.1, 409.5 / 4096, 1e30};
    EXPECT_THAT(array(), HasSubstr("\t\ttranslate=\"0.100098 0.100098 524287.999756\"\n"));
}

TEST(NodeArray, RawValuesAreTheStepsThemselves) {
    const FreshRun fresh;
    NodeRecord& node = addNode("a", NodeKind::kMesh);
    node.written.translate = {0.1, -0.1, 0};
    node.volumeRadius = 0.5;
    run().options.rawValues = true;
    EXPECT_THAT(array(), HasSubstr("\t\tscale=\"4096 4096 4096\"\n"));
    EXPECT_THAT(array(), HasSubstr("\t\ttranslate=\"410 -410 0\"\n"));
    EXPECT_THAT(array(), HasSubstr("\t\tvolume_r=\"2048\"\n"));
}

TEST(NodeArray, KindsAreWords) {
    const FreshRun fresh;
    const std::pair<NodeKind, const char*> cases[] = {{NodeKind::kNull, "null"},   {NodeKind::kRoot, "null"},
                                                      {NodeKind::kMesh, "mesh"},   {NodeKind::kJoint, "joint"},
                                                      {NodeKind::kError, "error"}, {NodeKind::kNone, "none"}};
    NodeRecord& node = addNode("a", NodeKind::kNull);
    for (const auto& [kind, word] : cases) {
        node.kind = kind;
        EXPECT_THAT(array(), HasSubstr(std::string("name=\"a\" kind=\"") + word + "\"\n"));
    }
    node.billboard = Billboard::kOn;
    EXPECT_THAT(array(), HasSubstr("\t\tbillboard=\"on\"\n"));
}

TEST(NodeArray, CompensationStandsOnEveryNodeOrOnNone) {
    const FreshRun fresh;
    NodeRecord& root = addNode("root", NodeKind::kNull);
    addNode("arm", NodeKind::kJoint, &root).writesCompensation = true;
    EXPECT_THAT(array(), Not(HasSubstr("scale_compensate")));
    run().scene.scalingRuleIsMaya = true;
    EXPECT_THAT(array(), HasSubstr("\t\tdraw_mtx=\"off\"\n\t\tscale_compensate=\"off\"\n\t\tbillboard=\"off\"\n"));
    EXPECT_THAT(array(), HasSubstr("\t\tdraw_mtx=\"off\"\n\t\tscale_compensate=\"on\"\n\t\tbillboard=\"off\"\n"));
}

TEST(NodeArray, ANodeThatIsNotWrittenCountsAllTheSame) {
    const FreshRun fresh;
    NodeRecord& root = addNode("root", NodeKind::kNull);
    addNode("ghost", NodeKind::kNull, &root).skipOutput = true;
    EXPECT_THAT(array(false), testing::StartsWith("<node_array size=\"2\">\n"));
    EXPECT_THAT(array(false), Not(HasSubstr("ghost")));
    EXPECT_THAT(array(true), testing::StartsWith("<node_anm_array size=\"2\">\n"));
    EXPECT_THAT(array(true), Not(HasSubstr("index=\"1\"")));
}

TEST(NodeArray, MeshNodesTellOfTheirVolumeAndWhatTheyDraw) {
    const FreshRun fresh;
    NodeRecord& node = addNode("body", NodeKind::kMesh);
    node.vertexSize = 120;
    node.polygonSize = 40;
    node.triangleSize = 30;
    node.quadSize = 10;
    node.volumeMin = {-1, -2, -3};
    node.volumeMax = {1, 2, 3};
    node.volumeRadius = 3.75;
    node.displayList = {{4, 7, 0, true}, {5, 8, 1, false}, {6, 9, 255, true}};
    EXPECT_THAT(array(), HasSubstr("\t\tdisplay_size=\"2\"\n"
                                   "\t\tvertex_size=\"120\" polygon_size=\"40\"\n"
                                   "\t\ttriangle_size=\"30\" quad_size=\"10\"\n"
                                   "\t\tvolume_min=\"-1.000000 -2.000000 -3.000000\"\n"
                                   "\t\tvolume_max=\"1.000000 2.000000 3.000000\"\n"
                                   "\t\tvolume_r=\"3.750000\"\n"
                                   "\t>\n"
                                   "\t\t<display index=\"0\" material=\"4\" polygon=\"7\" priority=\"0\"/>\n"
                                   "\t\t<display index=\"1\" material=\"6\" polygon=\"9\" priority=\"255\"/>\n"
                                   "\t</node>\n"));
}

// The radius is not held to the 16 bits of a position.
TEST(NodeArray, LargeVolumesAreClampedTo32Bits) {
    const FreshRun fresh;
    NodeRecord& node = addNode("body", NodeKind::kMesh);
    node.volumeRadius = 1000;
    EXPECT_THAT(array(), HasSubstr("\t\tvolume_r=\"1000.000000\"\n"));
    node.volumeRadius = 1e9;
    EXPECT_THAT(array(), HasSubstr("\t\tvolume_r=\"524287.999756\"\n"));
}

TEST(NodeArray, OtherKindsHaveNoDisplayLines) {
    const FreshRun fresh;
    addNode("a", NodeKind::kJoint).displayList = {{1, 2, 3, true}};
    EXPECT_THAT(array(), Not(HasSubstr("<display ")));
}

TEST(NodeArray, TheAnimationFormRefersToNineChannels) {
    const FreshRun fresh;
    NodeRecord& node = addNode("a", NodeKind::kJoint);
    for (std::size_t i = 0; i < node.channels.size(); ++i) {
        node.channels[i].frameStep = 1 << (i % 3);
        node.channels[i].dataSize = static_cast<int32_t>(10 + i);
        node.channels[i].dataHead = static_cast<int32_t>(100 * i);
    }
    EXPECT_EQ(array(true), "<node_anm_array size=\"1\">\n"
                           "\t<node_anm index=\"0\">\n"
                           "\t\t<scale_x frame_step=\"1\" data_size=\"10\" data_head=\"0\"/>\n"
                           "\t\t<scale_y frame_step=\"2\" data_size=\"11\" data_head=\"100\"/>\n"
                           "\t\t<scale_z frame_step=\"4\" data_size=\"12\" data_head=\"200\"/>\n"
                           "\t\t<rotate_x frame_step=\"1\" data_size=\"13\" data_head=\"300\"/>\n"
                           "\t\t<rotate_y frame_step=\"2\" data_size=\"14\" data_head=\"400\"/>\n"
                           "\t\t<rotate_z frame_step=\"4\" data_size=\"15\" data_head=\"500\"/>\n"
                           "\t\t<translate_x frame_step=\"1\" data_size=\"16\" data_head=\"600\"/>\n"
                           "\t\t<translate_y frame_step=\"2\" data_size=\"17\" data_head=\"700\"/>\n"
                           "\t\t<translate_z frame_step=\"4\" data_size=\"18\" data_head=\"800\"/>\n"
                           "\t</node_anm>\n"
                           "</node_anm_array>\n\n");
}

} // namespace
} // namespace tvk
