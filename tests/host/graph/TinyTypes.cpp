#include "TinyTypes.h"

#include "host/graph/Evaluation.h"

#include <memory>

using namespace host;

namespace {

Attribute attribute(std::string longName, std::string shortName, AttrKind kind, AttrIndex parent = kNoAttr) {
    Attribute result;
    result.longName = std::move(longName);
    result.shortName = std::move(shortName);
    result.kind = kind;
    result.parent = parent;
    return result;
}

Attribute array(Attribute result) {
    result.array = true;
    return result;
}

Attribute output(Attribute result) {
    result.computed = true;
    result.writable = false;
    return result;
}

AttrIndex addThree(NodeType& type, Attribute compound, AttrKind kind) {
    const std::string longName = compound.longName;
    const std::string shortName = compound.shortName;
    const AttrIndex parent = type.add(std::move(compound));
    for (const char* letter : {"x", "y", "z"}) {
        type.add(attribute(longName + static_cast<char>(*letter - 'a' + 'A'), shortName + letter, kind, parent));
    }
    return parent;
}

// --- adder

void computeAdder(Evaluation& evaluation, Node& node, const PlugAddress& at) {
    const NodeType& type = node.type();
    const std::string& name = node.attribute(at.attr).longName;
    if (name == "twice") {
        evaluation.putNumber(node, at, 2.0 * evaluation.number(node, type.find("in1")));
    } else if (name == "sum") {
        double sum = 0.0;
        for (const char* part : {"in1", "in2", "vX", "vY", "vZ"}) {
            sum += evaluation.number(node, type.find(part));
        }
        const PlugAddress more{type.find("more"), 0, {}};
        for (const std::int32_t index : evaluation.graph().elementIndices({&node, more})) {
            sum += evaluation.number(node, more.element(index));
        }
        evaluation.putNumber(node, at, sum);
    } else {
        for (const char* letter : {"X", "Y", "Z"}) {
            const double bent = evaluation.number(node, type.find(std::string("bent") + letter));
            evaluation.putNumber(node, {type.find(std::string("r") + letter), 0, {}}, bent);
        }
    }
}

void addAdder(NodeTypeRegistry& types) {
    auto type = std::make_unique<NodeType>("adder", nullptr, 0);
    const AttrIndex in1 = type->add(attribute("in1", "a", AttrKind::kDouble));
    const AttrIndex in2 = type->add(attribute("in2", "b", AttrKind::kDouble));
    const AttrIndex more = type->add(array(attribute("more", "m", AttrKind::kDouble)));
    const AttrIndex v = addThree(*type, attribute("v", "v", AttrKind::kCompound), AttrKind::kDouble);
    const AttrIndex bent = addThree(*type, attribute("bent", "bt", AttrKind::kCompound), AttrKind::kDouble);
    const AttrIndex note = type->add(attribute("note", "nt", AttrKind::kString));
    const AttrIndex sum = type->add(output(attribute("sum", "s", AttrKind::kDouble)));
    const AttrIndex twice = type->add(output(attribute("twice", "tw", AttrKind::kDouble)));
    const AttrIndex r = addThree(*type, output(attribute("r", "r", AttrKind::kCompound)), AttrKind::kDouble);
    type->compute = computeAdder;
    type->affects.resize(type->attributes().size());
    const auto affects = [&](AttrIndex input, std::vector<AttrIndex> outputs) {
        type->affects[static_cast<std::size_t>(input)] = std::move(outputs);
    };
    affects(in1, {sum, twice});
    affects(in2, {sum});
    affects(more, {sum});
    affects(v, {sum});
    affects(bent, {r});
    affects(note, {kNoAttr});
    types.add(std::move(type));
}

// --- time

void computeClock(Evaluation& evaluation, Node& node, const PlugAddress& at) {
    const Units units;
    const auto now = static_cast<Ticks>(evaluation.number(node, node.type().find("input")));
    evaluation.putNumber(node, at, units.frames(now) + evaluation.number(node, node.type().find("offset")));
}

void addTimeTypes(NodeTypeRegistry& types) {
    auto time = std::make_unique<NodeType>("time", nullptr, 0);
    time->add(attribute("outTime", "o", AttrKind::kTime));
    time->add(attribute("unwarpedTime", "unw", AttrKind::kTime));
    types.add(std::move(time));

    auto clock = std::make_unique<NodeType>("clock", nullptr, 0);
    clock->timeDriven = true;
    clock->timeInput = clock->add(attribute("input", "i", AttrKind::kTime));
    clock->add(attribute("offset", "of", AttrKind::kDouble));
    clock->add(output(attribute("output", "o", AttrKind::kDouble)));
    clock->compute = computeClock;
    types.add(std::move(clock));
}

// --- DAG

/// The sum of the shifts from the top down to the node, of the first path: found without asking for the parents' place,
/// as a node of a deep hierarchy must.
void computePlace(Evaluation& evaluation, Node& node, const PlugAddress& at) {
    const AttrIndex shift = node.type().find("shift");
    if (node.attribute(at.attr).longName == "local") {
        evaluation.putNumber(node, at, evaluation.number(node, shift));
        return;
    }
    double sum = 0.0;
    for (Node* up = &node; !up->parents().empty(); up = up->parents().front()) {
        if (up->type().find("shift") != kNoAttr) {
            sum += evaluation.number(*up, up->type().find("shift"));
        }
    }
    evaluation.putMatrix(node, at, Matrix44().translate(Imath::V3d(sum, 0.0, 0.0)));
}

void addDagTypes(NodeTypeRegistry& types) {
    Attribute place = output(array(attribute("place", "p", AttrKind::kMatrix)));
    place.worldSpace = true;

    auto group = std::make_unique<NodeType>("group", nullptr, 0);
    group->dagRole = DagRole::kTransform;
    group->compute = computePlace;
    const AttrIndex shift = group->add(attribute("shift", "sh", AttrKind::kDouble));
    const AttrIndex tint = group->add(attribute("tint", "ti", AttrKind::kDouble));
    const AttrIndex local = group->add(output(attribute("local", "lo", AttrKind::kDouble)));
    const AttrIndex placeIndex = group->add(place);
    group->affects.resize(group->attributes().size());
    group->affects[static_cast<std::size_t>(shift)] = {local, placeIndex};
    group->affects[static_cast<std::size_t>(tint)] = {local};
    types.add(std::move(group));

    auto shape = std::make_unique<NodeType>("shape", nullptr, 0);
    shape->dagRole = DagRole::kShape;
    shape->compute = computePlace;
    shape->add(attribute("size", "sz", AttrKind::kDouble));
    shape->add(place);
    types.add(std::move(shape));
}

// --- holder

void addArrays(NodeType& type) {
    addThree(type, array(attribute("points", "pt", AttrKind::kCompound)), AttrKind::kFloat);
    type.add(array(attribute("numbers", "nu", AttrKind::kInt)));
    type.add(array(attribute("texts", "tx", AttrKind::kString)));
    type.add(array(attribute("matrices", "ma", AttrKind::kMatrix)));
    const AttrIndex list = type.add(array(attribute("weightList", "wl", AttrKind::kCompound)));
    type.add(array(attribute("weights", "w", AttrKind::kDouble, list)));

    Attribute groups = array(attribute("instObjGroups", "iog", AttrKind::kCompound));
    groups.worldSpace = true;
    const AttrIndex iog = type.add(groups);
    const AttrIndex og = type.add(array(attribute("objectGroups", "og", AttrKind::kCompound, iog)));
    Attribute list2 = attribute("objectGrpCompList", "gcl", AttrKind::kData, og);
    list2.dataKind = DataKind::kComponentList;
    type.add(list2);
    type.add(attribute("objectGroupId", "gid", AttrKind::kInt, og));

    const AttrIndex ramp = type.add(array(attribute("colorEntryList", "cel", AttrKind::kCompound)));
    type.add(attribute("position", "ep", AttrKind::kFloat, ramp));
    const AttrIndex colour = type.add(attribute("colour", "ec", AttrKind::kCompound, ramp));
    type.add(attribute("colourR", "ecr", AttrKind::kFloat, colour));
    type.add(attribute("colourG", "ecg", AttrKind::kFloat, colour));
    type.add(array(attribute("members", "mem", AttrKind::kMessage)));
}

void addHolder(NodeTypeRegistry& types) {
    auto type = std::make_unique<NodeType>("holder", nullptr, 0);
    const std::pair<const char*, AttrKind> plain[] = {
        {"flag", AttrKind::kBool},       {"byte", AttrKind::kByte},      {"whole", AttrKind::kInt},
        {"choice", AttrKind::kEnum},     {"ratio", AttrKind::kFloat},    {"real", AttrKind::kDouble},
        {"length", AttrKind::kDistance}, {"angle", AttrKind::kAngle},    {"when", AttrKind::kTime},
        {"text", AttrKind::kString},     {"frame", AttrKind::kMatrix},   {"message", AttrKind::kMessage},
        {"any", AttrKind::kGeneric},     {"target", AttrKind::kMessage},
    };
    for (const auto& [name, kind] : plain) {
        Attribute row = attribute(name, std::string(name).substr(0, 2) + "_", kind);
        row.defaultNumber = std::string_view(name) == "ratio" ? 0.5 : 0.0;
        type->add(row);
    }
    Attribute mesh = attribute("mesh", "me", AttrKind::kData);
    mesh.dataKind = DataKind::kMesh;
    type->add(mesh);
    Attribute curve = attribute("curve", "cu", AttrKind::kData);
    curve.dataKind = DataKind::kNurbsCurve;
    type->add(curve);
    addThree(*type, attribute("translate", "t", AttrKind::kCompound), AttrKind::kDistance);
    const AttrIndex pair = type->add(attribute("pair", "pa", AttrKind::kCompound));
    type->add(attribute("pairA", "pa1", AttrKind::kDouble, pair));
    type->add(attribute("pairB", "pa2", AttrKind::kDouble, pair));
    Attribute fixed = attribute("fixed", "fx", AttrKind::kDouble);
    fixed.writable = false;
    type->add(fixed);
    Attribute secret = attribute("secret", "se", AttrKind::kDouble);
    secret.readable = false;
    type->add(secret);
    addArrays(*type);
    types.add(std::move(type));
}

NodeTypeRegistry& fill(NodeTypeRegistry& types) {
    addAdder(types);
    addTimeTypes(types);
    addDagTypes(types);
    addHolder(types);
    return types;
}

} // namespace

TinyScene::TinyScene() : graph(fill(types)) {
    graph.onWarning = [this](const std::string& text) { warnings.push_back(text); };
}

Node& TinyScene::makeBelow(Node* parent, std::string_view type, std::string name) {
    Node& node = make(type, std::move(name));
    const GraphResult placed = graph.addParent(node, parent != nullptr ? *parent : graph.world());
    EXPECT_EQ(placed.error, "");
    return node;
}

void TinyScene::set(Node& node, std::string_view path, double value) {
    EXPECT_EQ(graph.setNumber(plug(node, path), value).error, "");
}

std::string TinyScene::tryConnect(Node& source, std::string_view from, Node& destination, std::string_view to,
                                  bool force) {
    return graph.connect(plug(source, from), plug(destination, to), force).error;
}

void TinyScene::connect(Node& source, std::string_view from, Node& destination, std::string_view to) {
    EXPECT_EQ(tryConnect(source, from, destination, to), "");
}
