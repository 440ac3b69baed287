#include "host/app/report/reportJson.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace host::app::report {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormat = 1;                // grows when a key changes its meaning or goes away
constexpr std::size_t kMostExpensive = 5; // nodes, materials and textures that are listed
constexpr int kIndent = 2;

template <typename Costs, typename ToJson>
Json listOf(const std::vector<Costs>& all, std::size_t most, ToJson toJson) {
    Json list = Json::array();
    for (std::size_t i = 0; i < std::min(most, all.size()); ++i) {
        list.push_back(toJson(all[i]));
    }
    return list;
}

template <typename Costs, typename ToJson>
Json listOf(const std::vector<Costs>& all, ToJson toJson) {
    return listOf(all, all.size(), toJson);
}

Json ofFile(const FileCosts& file) {
    return {{"name", file.name}, {"kind", file.kind}, {"present", file.isThere}, {"bytes", file.bytes}};
}

Json ofLimit(const Limit& limit) {
    return {{"name", limit.key}, {"used", limit.used}, {"limit", limit.limit}, {"over", limit.over()}};
}

Json ofPrimitive(const PrimitiveCosts& primitives) {
    return {{"type", primitives.type},
            {"count", primitives.count},
            {"faces", primitives.faces},
            {"vertices", primitives.vertices}};
}

Json ofNode(const NodeCosts& node) {
    return {{"name", node.name},
            {"vertices", node.draws.vertices},
            {"polygon_cost", node.draws.polygonCost()},
            {"matrix_loads", node.draws.matrixLoads},
            {"matrix_switches", node.draws.matrixSwitches}};
}

Json ofMaterial(const MaterialCosts& material) {
    return {{"name", material.name}, {"vertices", material.vertices}, {"texture_bytes", material.textureBytes}};
}

Json ofTexture(const TextureCosts& image) {
    return {{"name", image.name},
            {"format", image.format},
            {"width", image.width},
            {"height", image.height},
            {"texel_bytes", image.texelBytes},
            {"index_bytes", image.indexBytes},
            {"palette", image.palette.empty() ? Json(nullptr) : Json(image.palette)},
            {"palette_bytes", image.paletteBytes},
            {"bytes", image.bytes()}};
}

Json ofPalette(const PaletteCosts& palette) {
    return {{"name", palette.name}, {"colors", palette.colors}, {"bytes", palette.bytes}, {"images", palette.images}};
}

Json ofPool(const PoolCosts& pool) {
    return {{"name", pool.name},     {"unit", pool.unit},     {"channels", pool.channels},
            {"moving", pool.moving}, {"stored", pool.stored}, {"without_sharing", pool.withoutSharing},
            {"saved", pool.saved()}};
}

Json ofModel(const ModelCosts& model) {
    Json primitives = Json::array();
    for (const PrimitiveCosts& type : model.primitives) {
        primitives.push_back(ofPrimitive(type));
    }
    return {{"nodes", model.nodes},
            {"nodes_with_polygons", model.meshNodes.size()},
            {"materials", model.materials},
            {"polygons", model.polygons},
            {"matrix_groups", model.matrixGroups},
            {"triangles", model.draws.triangles},
            {"quads", model.draws.quads},
            {"vertices", model.draws.vertices},
            {"polygon_cost", model.draws.polygonCost()},
            {"matrices", model.matrices},
            {"matrix_loads", model.draws.matrixLoads},
            {"matrix_switches", model.draws.matrixSwitches},
            {"strips", model.strips()},
            {"faces_in_strips", model.facesInStrips()},
            {"primitives", primitives},
            {"most_expensive_nodes", listOf(model.meshNodes, kMostExpensive, ofNode)},
            {"most_expensive_materials", listOf(model.drawn, kMostExpensive, ofMaterial)}};
}

Json ofTextures(const TextureMemory& memory) {
    return {{"texel_bytes", memory.texelBytes},
            {"index_bytes", memory.indexBytes},
            {"palette_bytes", memory.paletteBytes},
            {"bytes", memory.bytes()},
            {"images", listOf(memory.images, ofTexture)},
            {"palettes", listOf(memory.palettes, ofPalette)},
            {"most_expensive_images",
             listOf(memory.images, kMostExpensive, [](const TextureCosts& image) { return Json(image.name); })}};
}

Json ofAnimation(const AnimationCosts& animation) {
    const PoolCosts sum = animation.inAll();
    return {{"kind", animation.kind}, {"frames", animation.frames},
            {"stored", sum.stored},   {"without_sharing", sum.withoutSharing},
            {"saved", sum.saved()},   {"pools", listOf(animation.pools, ofPool)}};
}

} // namespace

std::string reportJson(const Report& report) {
    const Json json = {{"format", kFormat},
                       {"base", report.base},
                       {"files", listOf(report.files, ofFile)},
                       {"within_limits", report.hasModel ? Json(!report.isOverLimit()) : Json(nullptr)},
                       {"limits", listOf(report.limits, ofLimit)},
                       {"model", report.hasModel ? ofModel(report.model) : Json(nullptr)},
                       {"textures", report.hasTextures ? ofTextures(report.textures) : Json(nullptr)},
                       {"animations", listOf(report.animations, ofAnimation)}};
    return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace host::app::report
