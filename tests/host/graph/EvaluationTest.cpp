#include "host/graph/Evaluation.h"

#include "TinyTypes.h"

using namespace host;

namespace {

AttrIndex addAttribute(NodeType& type, std::string name, AttrKind kind, bool computed) {
    Attribute attribute;
    attribute.longName = std::move(name);
    attribute.kind = kind;
    attribute.computed = computed;
    attribute.defaultNumber = isNumeric(kind) ? 9.0 : 0.0;
    return type.add(attribute);
}

/// Reads one attribute of every kind and puts each as an output.
void copyAll(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const auto at = [&](const char* name) { return PlugAddress{node.type().find(name), 0, {}}; };
    if (output == at("silent")) {
        evaluation.warn("nothing to say");
        return;
    }
    evaluation.putNumber(node, at("outWhole"), evaluation.number(node, at("real")));
    evaluation.putString(node, at("outText"), evaluation.string(node, at("text")));
    evaluation.putMatrix(node, at("outFrame"), evaluation.matrix(node, at("frame")));
    evaluation.putData(node, at("outMesh"), evaluation.data(node, at("mesh")));
}

class EvaluationTest : public TinyScene {
protected:
    EvaluationTest() {
        auto type = std::make_unique<NodeType>("copier", nullptr, 0);
        addAttribute(*type, "real", AttrKind::kDouble, false);
        addAttribute(*type, "text", AttrKind::kString, false);
        addAttribute(*type, "frame", AttrKind::kMatrix, false);
        addAttribute(*type, "mesh", AttrKind::kData, false);
        addAttribute(*type, "outWhole", AttrKind::kInt, true);
        addAttribute(*type, "outText", AttrKind::kString, true);
        addAttribute(*type, "outFrame", AttrKind::kMatrix, true);
        addAttribute(*type, "outMesh", AttrKind::kData, true);
        addAttribute(*type, "silent", AttrKind::kDouble, true);
        type->compute = copyAll;
        types.add(std::move(type));
    }
};

} // namespace

TEST_F(EvaluationTest, PutsOutputsOfEveryKindAtOnce) {
    Node& node = make("copier", "c");
    const Matrix44 moved = Matrix44().translate(Imath::V3d(0.0, 2.0, 0.0));
    const DataPtr mesh = std::make_shared<const Data>(DataKind::kMesh);
    set(node, "real", 3.7);
    EXPECT_TRUE(graph.setString(plug(node, "text"), "words").ok());
    EXPECT_TRUE(graph.setMatrix(plug(node, "frame"), moved).ok());
    EXPECT_TRUE(graph.setData(plug(node, "mesh"), mesh).ok());
    EXPECT_EQ(number(node, "outWhole"), 3.0);
    EXPECT_EQ(graph.string(plug(node, "outText")), "words");
    EXPECT_EQ(graph.matrix(plug(node, "outFrame")), moved);
    EXPECT_EQ(graph.data(plug(node, "outMesh")), mesh);
    EXPECT_EQ(graph.computeCount(), 1U);
}

TEST_F(EvaluationTest, AnOutputThatIsNotPutHasItsDefaultAndIsNotAskedForAgain) {
    Node& node = make("copier", "c");
    EXPECT_EQ(number(node, "silent"), 9.0);
    EXPECT_EQ(number(node, "silent"), 9.0);
    EXPECT_EQ(graph.computeCount(), 1U);
    EXPECT_EQ(warnings, std::vector<std::string>{"nothing to say"});
    EXPECT_EQ(graph.data(plug(node, "outMesh")), nullptr);
    EXPECT_EQ(graph.data(plug(node, "outMesh")), nullptr);
    EXPECT_EQ(graph.computeCount(), 2U);
}

TEST_F(EvaluationTest, WithoutAComputeFunctionAnOutputHasItsDefault) {
    auto type = std::make_unique<NodeType>("mute", nullptr, 0);
    addAttribute(*type, "out", AttrKind::kDouble, true);
    Node& node = graph.create(types.add(std::move(type)), "m");
    EXPECT_EQ(number(node, "out"), 9.0);
    EXPECT_EQ(graph.computeCount(), 0U);
}
