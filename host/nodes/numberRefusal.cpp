#include "host/nodes/numberRefusal.h"

#include "host/nodes/geometryPlugs.h"
#include "host/nodes/historyNumbers.h"
#include "host/nodes/historySettings.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <unordered_set>
#include <utility>
#include <vector>

namespace host {

namespace {

/// Whether the node's state lets its input pass, at all times.
bool isOff(Graph& graph, Node& node) {
    constexpr double kOff[] = {1, 2, 4, 5};
    return std::any_of(std::begin(kOff), std::end(kOff),
                       [&](double state) { return isSteady(graph, node, "nodeState", state); });
}

class NumberChecker {
public:
    NumberChecker(Graph& graph, Node& mesh, const std::string& shown) : graph_(graph), mesh_(mesh), shown_(shown) {}

    /// Looks closer only when there is a node whose numbers are loose.
    std::string run() {
        std::vector<Node*> open{&mesh_};
        std::unordered_set<const Node*> seen{&mesh_};
        while (!open.empty()) {
            Node& node = *open.back();
            open.pop_back();
            if (looseNumbers(graph_, node) != 0U) {
                return findPair();
            }
            forSources(node, [&](Node& source) {
                if (seen.insert(&source).second) {
                    open.push_back(&source);
                }
            });
        }
        return {};
    }

private:
    /// Calls go(source) for the nodes that the geometry of a node comes from.
    template <typename Go>
    void forSources(Node& node, Go&& go) {
        for (const auto& [at, source] : node.incoming()) {
            if (carriesGeometry(node.attribute(at.attr))) {
                go(*source.node);
            }
        }
    }

    /// A node on a way to the shape, and who on the rest of that way names which kind of parts.
    struct Step {
        Node* node;
        std::array<const Node*, part::kKindCount> namers{};

        unsigned named() const {
            unsigned parts = 0;
            for (std::size_t kind = 0; kind < namers.size(); ++kind) {
                parts |= namers[kind] != nullptr ? 1U << kind : 0U;
            }
            return parts;
        }
    };

    std::string findPair() {
        std::vector<Step> open{Step{&mesh_, {}}};
        std::set<std::pair<const Node*, unsigned>> seen;
        while (!open.empty()) {
            Step step = open.back();
            open.pop_back();
            Node& node = *step.node;
            const unsigned loose = isOff(graph_, node) ? 0U : looseNumbers(graph_, node);
            const unsigned own = namedNumbers(graph_, node);
            for (std::size_t kind = 0; kind < step.namers.size(); ++kind) {
                const unsigned bit = 1U << kind;
                if ((loose & bit) != 0U && step.namers[kind] != nullptr) {
                    const Node& namer = *step.namers[kind];
                    return "node type '" + node.type().name() + "' before '" + namer.type().name() +
                           "' is not supported: " + shown_ + "." + namer.name() +
                           " names parts of the mesh by numbers that " + shown_ + "." + node.name() +
                           " gives them (delete the history of '" + shown_ + "', or export from Maya)";
                }
                step.namers[kind] = step.namers[kind] == nullptr && (own & bit) != 0U ? &node : step.namers[kind];
            }
            forSources(node, [&](Node& source) {
                if (seen.emplace(&source, step.named()).second) {
                    open.push_back(Step{&source, step.namers});
                }
            });
        }
        return {};
    }

    Graph& graph_;
    Node& mesh_;
    const std::string& shown_;
};

} // namespace

std::string findNumberRefusal(Graph& graph, Node& mesh, const std::string& shown) {
    return NumberChecker(graph, mesh, shown).run();
}

} // namespace host
