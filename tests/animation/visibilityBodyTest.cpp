#include "animation/visibilityBody.h"

#include "FreshRun.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <vector>

namespace tvk {
namespace {

void addNode(const std::vector<float>& samples) {
    SceneData& scene = run().scene;
    auto node = std::make_unique<NodeRecord>();
    node->index = static_cast<int32_t>(scene.nodes.size());
    node->visibilityTrack.samples = samples;
    scene.outputNodes.push_back(node.get());
    scene.nodes.push_back(std::move(node));
}

std::string body() {
    std::ostringstream out;
    EXPECT_TRUE(writeVisibilityBody(out));
    return out.str();
}

TEST(VisibilityBody, OfNoNodesIsEmpty) {
    const FreshRun fresh;
    EXPECT_EQ(body(), "");
}

TEST(VisibilityBody, OfNodesThatNeverChangeListsThemAllWithSharedKeys) {
    const FreshRun fresh;
    addNode({1, 1, 1});
    addNode({0, 0, 0});
    addNode({1, 1, 1});
    EXPECT_EQ(body(), "<visibility_data>\n"
                      "\t<frame_idx size=\"2\">\n\t\t0 0\n\t</frame_idx>\n"
                      "\t<visibility size=\"2\">\n\t\t1 0\n\t</visibility>\n"
                      "</visibility_data>\n\n"
                      "<visibility_anm_array size=\"3\">\n"
                      "\t<visibility_anm index=\"0\" data_size=\"1\" data_head=\"0\"/>\n"
                      "\t<visibility_anm index=\"1\" data_size=\"1\" data_head=\"1\"/>\n"
                      "\t<visibility_anm index=\"2\" data_size=\"1\" data_head=\"0\"/>\n"
                      "</visibility_anm_array>\n\n");
}

TEST(VisibilityBody, OfAnimatedNodesRefersToTheirKeys) {
    const FreshRun fresh;
    addNode({1, 1, 1, 1, 1, 0, 0, 0, 0, 1, 1, 1});
    addNode({1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0}); // the beginning of the first
    EXPECT_EQ(body(), "<visibility_data>\n"
                      "\t<frame_idx size=\"3\">\n\t\t0 5 9\n\t</frame_idx>\n"
                      "\t<visibility size=\"3\">\n\t\t1 0 1\n\t</visibility>\n"
                      "</visibility_data>\n\n"
                      "<visibility_anm_array size=\"2\">\n"
                      "\t<visibility_anm index=\"0\" data_size=\"3\" data_head=\"0\"/>\n"
                      "\t<visibility_anm index=\"1\" data_size=\"2\" data_head=\"0\"/>\n"
                      "</visibility_anm_array>\n\n");
}

TEST(VisibilityBody, PrintsKeysTenToALine) {
    const FreshRun fresh;
    std::vector<float> blinking;
    for (int frame = 0; frame < 12; ++frame) {
        blinking.push_back(frame % 2 == 0 ? 1.0F : 0.0F);
    }
    addNode(blinking);
    const std::string text = body();
    EXPECT_NE(text.find("\t<frame_idx size=\"12\">\n\t\t0 1 2 3 4 5 6 7 8 9\n\t\t10 11\n\t</frame_idx>\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("\t<visibility size=\"12\">\n\t\t1 0 1 0 1 0 1 0 1 0\n\t\t1 0\n\t</visibility>\n"),
              std::string::npos)
        << text;
}

} // namespace
} // namespace tvk
