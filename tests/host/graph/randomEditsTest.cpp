#include "TinyTypes.h"

#include <functional>
#include <random>

using namespace host;

namespace {

/// A scene for the same edits as another one, but of which nothing is read before the end.
class Replica : public TinyScene {
public:
    using TinyScene::connect;
    using TinyScene::graph;
    using TinyScene::makeBelow;
    using TinyScene::plug;
    void TestBody() override {}

    /// Nodes in the order of making; connections go only from earlier to later ones, so there are no cycles.
    std::vector<NodeId> ids;
    Node* at(std::size_t index) const { return graph.node(ids[index]); }
};

using Edit = std::function<void(Replica&)>;

constexpr const char* kSources[] = {"sum", "twice", "rX", "real", "translateY", "output", "local", "points[2].pointsY"};
constexpr const char* kDestinations[] = {"in1",  "in2",        "more[3]", "vZ",    "bentX",
                                         "real", "translateY", "offset",  "shift", "points[2].pointsY"};
constexpr const char* kCompounds[] = {"r", "v", "bent", "translate", "points[2]"};
constexpr const char* kTypes[] = {"adder", "holder", "clock", "group", "group", "shape"};

/// Random edits, each a function that does the same to every scene with the same nodes.
class Editor {
public:
    explicit Editor(unsigned seed) : random_(seed) {}

    Edit next(std::size_t nodeCount) {
        const std::size_t a = pick(nodeCount);
        const std::size_t b = pick(nodeCount);
        switch (pick(nodeCount < 12 ? 1 : 9)) {
        case 0:
            return makeNode(nodeCount);
        case 1:
            return connect(std::min(a, b), std::max(a, b), word(kSources), word(kDestinations));
        case 2:
            return connect(std::min(a, b), std::max(a, b), word(kCompounds), word(kCompounds));
        case 3:
            return disconnect(a);
        case 4:
            return place(std::max(a, b), std::min(a, b));
        case 5:
            return pick(8) == 0 ? destroy(a) : takePlace(a);
        case 6:
            return [time = static_cast<Ticks>(pick(5)) * 5880000](Replica& scene) { scene.graph.setTime(time); };
        default:
            return setNumber(a, word(kDestinations), static_cast<double>(pick(100)));
        }
    }
    std::size_t pick(std::size_t count) { return count == 0 ? 0 : random_() % count; }

private:
    template <std::size_t Count>
    const char* word(const char* const (&words)[Count]) {
        return words[pick(Count)];
    }
    Edit makeNode(std::size_t nodeCount) {
        return [type = word(kTypes), parent = pick(nodeCount)](Replica& scene) {
            const NodeType& made = *scene.graph.types().find(type);
            Node& node = scene.graph.create(made, "n" + std::to_string(scene.ids.size()));
            Node* above = scene.ids.empty() ? nullptr : scene.at(parent);
            if (node.isDag() && (above == nullptr || !scene.graph.addParent(node, *above).ok())) {
                scene.graph.addParent(node, scene.graph.world());
            }
            scene.ids.push_back(node.id());
        };
    }
    static Edit connect(std::size_t from, std::size_t to, const char* source, const char* destination) {
        return [=](Replica& scene) {
            if (from != to && scene.at(from) != nullptr && scene.at(to) != nullptr) {
                scene.graph.connect(scene.plug(*scene.at(from), source), scene.plug(*scene.at(to), destination), true);
            }
        };
    }
    static Edit disconnect(std::size_t index) {
        return [=](Replica& scene) {
            if (scene.at(index) != nullptr && !scene.at(index)->incoming().empty()) {
                const auto [to, from] = *scene.at(index)->incoming().begin();
                EXPECT_TRUE(scene.graph.disconnect(from, {scene.at(index), to}).ok());
            }
        };
    }
    static Edit place(std::size_t node, std::size_t parent) {
        return [=](Replica& scene) {
            if (scene.at(node) != nullptr && scene.at(parent) != nullptr) {
                scene.graph.addParent(*scene.at(node), *scene.at(parent));
            }
        };
    }
    static Edit takePlace(std::size_t index) {
        return [=](Replica& scene) {
            if (scene.at(index) != nullptr && scene.at(index)->parents().size() > 1) {
                EXPECT_TRUE(scene.graph.removeParent(*scene.at(index), *scene.at(index)->parents().front()).ok());
            }
        };
    }
    static Edit destroy(std::size_t index) {
        return [=](Replica& scene) {
            if (scene.at(index) != nullptr) {
                scene.graph.destroy(*scene.at(index));
            }
        };
    }
    static Edit setNumber(std::size_t index, const char* path, double value) {
        return [=](Replica& scene) {
            if (scene.at(index) != nullptr) {
                scene.graph.setNumber(scene.plug(*scene.at(index), path), value);
            }
        };
    }

    std::mt19937 random_;
};

double readOutput(Replica& scene, std::size_t node, AttrIndex attr) {
    const Attribute& attribute = scene.at(node)->attribute(attr);
    if (attribute.kind == AttrKind::kMatrix) {
        return scene.graph.matrix({scene.at(node), PlugAddress{attr, 0, {}}.element(0)})[3][0];
    }
    return attribute.array ? 0.0 : scene.graph.number({scene.at(node), {attr, 0, {}}});
}

void readSome(Replica& scene, Editor& editor) {
    const std::size_t node = editor.pick(scene.ids.size());
    if (scene.at(node) != nullptr) {
        readOutput(scene, node, static_cast<AttrIndex>(editor.pick(scene.at(node)->type().attributes().size())));
    }
}

} // namespace

/// What was cached on the way never shows in the end: a scene that is read between edits ends like one that is not.
TEST(RandomEdits, LeaveTheValuesOfAGraphThatWasNeverReadBefore) {
    for (unsigned seed = 1; seed <= 400; ++seed) {
        SCOPED_TRACE(seed);
        Editor editor(seed);
        Replica read;
        Replica fresh;
        for (int step = 0; step < 120; ++step) {
            const Edit edit = editor.next(read.ids.size());
            edit(read);
            edit(fresh);
            for (int i = 0; i < 4; ++i) {
                readSome(read, editor);
            }
        }
        for (std::size_t node = 0; node < read.ids.size(); ++node) {
            ASSERT_EQ(read.at(node) == nullptr, fresh.at(node) == nullptr);
            const AttrIndex count = read.at(node) == nullptr ? 0 : read.at(node)->attributeCount();
            for (AttrIndex attr = 0; attr < count; ++attr) {
                ASSERT_EQ(readOutput(read, node, attr), readOutput(fresh, node, attr))
                    << read.at(node)->name() << "." << read.at(node)->attribute(attr).longName;
            }
        }
        ASSERT_TRUE(read.graph.computeCount() > fresh.graph.computeCount() || fresh.graph.computeCount() == 0);
    }
}
