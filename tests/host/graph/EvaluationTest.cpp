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

TEST_F(EvaluationTest, OutputsPutAgainAreNotCountedTwice) {
    auto type = std::make_unique<NodeType>("pair", nullptr, 0);
    const AttrIndex first = addAttribute(*type, "first", AttrKind::kDouble, false);
    const AttrIndex second = addAttribute(*type, "second", AttrKind::kDouble, false);
    const AttrIndex outFirst = addAttribute(*type, "outFirst", AttrKind::kDouble, true);
    const AttrIndex outSecond = addAttribute(*type, "outSecond", AttrKind::kDouble, true);
    type->affects = {{outFirst}, {outSecond}};
    type->compute = [](Evaluation& evaluation, Node& node, const PlugAddress&) {
        for (const auto& [in, out] : {std::pair{"first", "outFirst"}, std::pair{"second", "outSecond"}}) {
            evaluation.putNumber(node, {node.type().find(out), 0, {}}, evaluation.number(node, node.type().find(in)));
        }
    };
    Node& node = graph.create(types.add(std::move(type)), "p");
    Node& other = make("adder", "a");
    EXPECT_EQ(graph.number({&node, {outFirst, 0, {}}}), 9.0);
    EXPECT_TRUE(graph.setNumber({&node, {first, 0, {}}}, 1.0).ok());
    EXPECT_EQ(graph.number({&node, {outFirst, 0, {}}}), 1.0); // puts the second again, which was not dropped
    EXPECT_TRUE(graph.setNumber({&node, {first, 0, {}}}, 2.0).ok());
    EXPECT_TRUE(graph.setNumber({&node, {second, 0, {}}}, 2.0).ok());
    const std::size_t before = graph.dropCount(); // nothing is cached now, so changes look at nothing
    set(other, "in1", 1.0);
    EXPECT_EQ(graph.dropCount(), before);
}

TEST_F(EvaluationTest, AnOutputThatMayBeConnectedIsComputedOnlyWhileItIsNot) {
    auto type = std::make_unique<NodeType>("mixed", nullptr, 0);
    const AttrIndex out = addAttribute(*type, "out", AttrKind::kDouble, true);
    type->compute = [](Evaluation& evaluation, Node& node, const PlugAddress& at) {
        evaluation.putNumber(node, at, 5.0);
    };
    Node& node = graph.create(types.add(std::move(type)), "m");
    Node& h = make("holder", "h");
    const Plug output{&node, {out, 0, {}}};
    set(h, "real", 1.0);
    EXPECT_EQ(graph.number(output), 5.0);
    connect(h, "real", node, "out");
    EXPECT_EQ(graph.number(output), 1.0);
    EXPECT_TRUE(graph.disconnect(plug(h, "real"), output).ok());
    EXPECT_EQ(graph.number(output), 5.0);
    EXPECT_EQ(graph.setNumber(output, 1.0).error, "m.out is computed");
    connect(h, "real", h, "length");
    connect(h, "length", node, "out");
    EXPECT_EQ(tryConnect(node, "out", h, "real"), "");
    EXPECT_EQ(graph.number(output), 9.0); // in a loop: neither driven nor computed
    EXPECT_EQ(warnings, std::vector<std::string>{"Cycle in the graph at m.out (its stored value is used)"});
}

TEST_F(EvaluationTest, WithoutAComputeFunctionAnOutputHasItsDefault) {
    auto type = std::make_unique<NodeType>("mute", nullptr, 0);
    addAttribute(*type, "out", AttrKind::kDouble, true);
    Node& node = graph.create(types.add(std::move(type)), "m");
    EXPECT_EQ(number(node, "out"), 9.0);
    EXPECT_EQ(graph.computeCount(), 0U);
}
