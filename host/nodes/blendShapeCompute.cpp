#include "host/nodes/blendShapeCompute.h"

#include "host/nodes/deformerCompute.h"
#include "host/nodes/pointWeights.h"

#include "host/geometry/ArrayData.h"
#include "host/geometry/meshComponents.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;

struct BlendAttributes {
    explicit BlendAttributes(const NodeType& type)
        : origin(type.find("origin")), weight(type.find("weight")), baseWeights(type.find("baseWeights")),
          groups(type.find("inputTargetGroup")), targetWeights(type.find("targetWeights")),
          items(type.find("inputTargetItem")), mesh(type.find("inputGeomTarget")),
          offsets(type.find("inputPointsTarget")), components(type.find("inputComponentsTarget")) {}

    AttrIndex origin, weight, baseWeights, groups, targetWeights, items, mesh, offsets, components;
};

const BlendAttributes& blendAttributes(const Node& node) {
    static const BlendAttributes kAttributes(node.type());
    return kAttributes;
}

/// Item 6000 is the target at weight 1, 5500 the one at 0.5.
constexpr double kItemOfZero = 5000.0;
constexpr double kItemsPerWeight = 1000.0;

/// How much of an item counts.
struct ItemShare {
    std::int32_t item;
    double share;
};

/// The shares of the items of one target at a weight: straight lines from nothing at 0 through the items, the last line
/// going on beyond it. Items below 0 lie on the other side of 0.
std::vector<ItemShare> sharesOf(const std::vector<std::int32_t>& items, double weight) {
    const auto at = [](std::int32_t item) { return (item - kItemOfZero) / kItemsPerWeight; };
    std::vector<std::int32_t> side; // the items on the weight's side of 0, away from 0
    for (const std::int32_t item : items) {
        if (at(item) != 0.0 && (at(item) > 0.0) == (weight >= 0.0)) {
            side.push_back(item);
        }
    }
    if (side.empty()) { // nothing on that side: the line through the nearest item goes on through 0
        const auto nearest = std::min_element(items.begin(), items.end(), [&](std::int32_t a, std::int32_t b) {
            return std::abs(at(a)) < std::abs(at(b));
        });
        return nearest == items.end() || at(*nearest) == 0.0
                   ? std::vector<ItemShare>()
                   : std::vector<ItemShare>{{*nearest, weight / at(*nearest)}};
    }
    std::sort(side.begin(), side.end(),
              [&](std::int32_t a, std::int32_t b) { return std::abs(at(a)) < std::abs(at(b)); });
    std::size_t upper = 0;
    while (upper + 1 < side.size() && std::abs(weight) > std::abs(at(side[upper]))) {
        ++upper;
    }
    const double high = at(side[upper]);
    if (upper == 0) {
        return {{side[0], weight / high}};
    }
    const double low = at(side[upper - 1]);
    const double share = (weight - low) / (high - low);
    return {{side[upper - 1], 1.0 - share}, {side[upper], share}};
}

/// Moves points by the targets of one geometry.
class Blender {
public:
    Blender(Evaluation& evaluation, Node& node, std::int32_t element, const Points& before, Points& points)
        : evaluation_(evaluation), graph_(evaluation.graph()), node_(node), attr_(blendAttributes(node)),
          element_(element), before_(before), points_(points), moved_(before.begin(), before.end()),
          baseWeights_(evaluation, node, PlugAddress{attr_.baseWeights, 0, {}}.element(element)) {}

    void run() {
        const PlugAddress groups = PlugAddress{attr_.groups, 0, {}}.element(element_);
        for (const std::int32_t target : graph_.elementIndices({&node_, groups})) {
            const double weight = evaluation_.number(node_, PlugAddress{attr_.weight, 0, {}}.element(target));
            if (weight != 0.0) {
                blend(target, weight);
            }
        }
        std::copy(moved_.begin(), moved_.end(), points_.begin());
    }

private:
    PlugAddress inTarget(AttrIndex attr, std::int32_t target) const {
        return PlugAddress{attr, 0, {}}.element(element_).element(target);
    }

    void blend(std::int32_t target, double weight) {
        const std::vector<std::int32_t> items = graph_.elementIndices({&node_, inTarget(attr_.items, target)});
        const PointWeights targetWeights(evaluation_, node_, inTarget(attr_.targetWeights, target));
        for (const ItemShare& share : sharesOf(items, weight)) {
            forDifferences(target, share.item, [&](std::size_t point, const V3d& difference) {
                moved_[point] += difference * (share.share * targetWeights.of(point) * baseWeights_.of(point));
            });
        }
    }

    template <typename Add>
    void forDifferences(std::int32_t target, std::int32_t item, Add&& add) {
        if (const MeshPtr mesh = meshOf(evaluation_.data(node_, inTarget(attr_.mesh, target).element(item)))) {
            const std::size_t count = std::min(mesh->points->size(), before_.size());
            for (std::size_t point = 0; point < count; ++point) {
                add(point, V3d((*mesh->points)[point]) - V3d(before_[point]));
            }
            return;
        }
        const DataPtr offsetData = evaluation_.data(node_, inTarget(attr_.offsets, target).element(item));
        const DataPtr listData = evaluation_.data(node_, inTarget(attr_.components, target).element(item));
        const auto* offsets = arrayDataOf<PointArrayData>(offsetData);
        if (offsets == nullptr || listData == nullptr || listData->kind != DataKind::kComponentList) {
            return;
        }
        const std::vector<std::int32_t> listed =
            listedIndices(static_cast<const ComponentList&>(*listData), ComponentKind::kVertex,
                          static_cast<std::int32_t>(before_.size()), offsets->values.size());
        for (std::size_t i = 0; i < listed.size(); ++i) {
            const Imath::V4d& offset = offsets->values[i];
            add(static_cast<std::size_t>(listed[i]), V3d(offset.x, offset.y, offset.z));
        }
    }

    Evaluation& evaluation_;
    Graph& graph_;
    Node& node_;
    const BlendAttributes& attr_;
    std::int32_t element_;
    const Points& before_;
    Points& points_;
    std::vector<V3d> moved_;
    PointWeights baseWeights_;
};

void applyBlendShape(Evaluation& evaluation, Node& node, std::int32_t element, MeshData& mesh, Points& points) {
    if (evaluation.number(node, blendAttributes(node).origin) == 0.0) {
        evaluation.warn(node.name() + ": its origin 'world' is not supported (targets count in their own spaces)");
    }
    Blender(evaluation, node, element, *mesh.points, points).run();
}

} // namespace

void computeBlendShape(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    computeDeformer(evaluation, node, output, applyBlendShape);
}

} // namespace host
