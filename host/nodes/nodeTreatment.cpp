#include "host/nodes/nodeTreatment.h"

#include <algorithm>
#include <iterator>

namespace host {

namespace {

struct Consequence {
    std::string_view type; // or one that derives from it; the first row that fits counts
    Treatment treatment;
    std::string_view text;
};

constexpr std::string_view kPasses = "passes its input through";
constexpr std::string_view kMakesNothing = "makes no mesh";

constexpr Consequence kConsequences[] = {
    {"polyModifier", Treatment::kRefused, kMakesNothing},
    {"geometryFilter", Treatment::kRefused, kPasses},
    {"copyColorSet", Treatment::kRefused, kPasses},
    {"polyBase", Treatment::kRefused, kMakesNothing},
    {"nurbsTessellate", Treatment::kRefused, kMakesNothing},
    {"subdToPoly", Treatment::kRefused, kMakesNothing},
    {"deformFunc", Treatment::kRefused, "moves nothing"},
    {"constraint", Treatment::kKept, "holds nothing, so that it keeps its stored values"},
    {"ikHandle", Treatment::kKept, "turns no joints, so that they keep their own angles"},
};
constexpr Consequence kUsual{"", Treatment::kKept, "is left out, so that what it drives keeps its stored values"};

const Consequence& rowOf(const NodeType& type) {
    const auto* const row = std::find_if(std::begin(kConsequences), std::end(kConsequences),
                                         [&](const Consequence& each) { return type.isKindOf(each.type); });
    return row == std::end(kConsequences) ? kUsual : *row;
}

} // namespace

Treatment treatmentOf(const NodeType& type) {
    if (type.passesThrough || !type.known) {
        return rowOf(type).treatment;
    }
    return type.compute != nullptr ? Treatment::kEvaluated : Treatment::kHeld;
}

std::string_view treatmentName(Treatment treatment) {
    constexpr std::string_view kNames[] = {"evaluated", "held", "passed through", "kept", "refused"};
    static_assert(std::size(kNames) == static_cast<std::size_t>(Treatment::kRefused) + 1);
    return kNames[static_cast<std::size_t>(treatment)];
}

std::string_view consequenceOf(const NodeType& type) {
    return rowOf(type).text;
}

} // namespace host
