#include "host/app/report/reportText.h"

#include "host/app/report/ExportedFiles.h"
#include "host/app/report/TextTable.h"

#include <algorithm>

namespace host::app::report {

namespace {

constexpr std::size_t kMostExpensive = 5; // nodes and materials that are listed

std::string number(std::int64_t value) {
    return std::to_string(value);
}

/// "1 face", "2 faces".
std::string counted(std::int64_t value, const std::string& one, const std::string& many) {
    return number(value) + " " + (value == 1 ? one : many);
}

/// The quotient with one digit behind the point, rounded; in no locale.
std::string tenths(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t rounded = divisor == 0 ? 0 : (dividend * 20 + divisor) / (divisor * 2);
    return number(rounded / 10) + "." + number(rounded % 10);
}

std::string percent(std::int64_t part, std::int64_t whole) {
    return whole == 0 ? "" : number(part * 100 / whole) + "%";
}

std::string filesText(const Report& report) {
    std::string there, missing;
    for (std::size_t i = 0; i < report.files.size(); ++i) {
        const FileCosts& file = report.files[i];
        std::string& list = file.isThere ? there : missing;
        list += (list.empty() ? "" : ", ") + file.name;
        list += file.isThere ? "" : std::string(" (") + kFileKinds.at(i).contents + ")";
    }
    return "Report of " + report.base + "\n  files: " + there + "\n" +
           (missing.empty() ? "" : "  not there: " + missing + "\n");
}

std::string modelText(const Report& report) {
    const ModelCosts& model = report.model;
    const DrawCosts& draws = model.draws;
    const std::int64_t faces = draws.triangles + draws.quads;
    const std::int64_t drawing = static_cast<std::int64_t>(model.meshNodes.size());
    TextTable table("lrl");
    table.add({"nodes", number(model.nodes), number(drawing) + " with polygons"});
    table.add({"materials", number(model.materials), ""});
    table.add({"polygons", number(model.polygons), counted(model.matrixGroups, "matrix group", "matrix groups")});
    table.add({"faces", number(faces),
               counted(draws.triangles, "triangle", "triangles") + ", " + counted(draws.quads, "quad", "quads")});
    table.add({"vertices", number(draws.vertices), faces == 0 ? "" : tenths(draws.vertices, faces) + " a face"});
    table.add({"polygon cost", number(draws.polygonCost()),
               number(kTriangleCost) + " a triangle, " + number(kQuadCost) + " a quad"});
    table.add({"matrices", number(model.matrices), ""});
    table.add({"matrix loads", number(draws.matrixLoads), ""});
    table.add({"matrix switches", number(draws.matrixSwitches), ""});
    table.add({"strips", number(model.strips()),
               model.strips() == 0 ? "" : tenths(model.facesInStrips(), model.strips()) + " faces each on average"});
    table.add({"faces in strips", number(model.facesInStrips()), percent(model.facesInStrips(), faces)});
    return "\nModel\n" + table.text();
}

std::string texturesText(const TextureMemory& memory) {
    if (memory.images.empty()) {
        return "\nTextures: none\n";
    }
    TextTable table("llrrrrr");
    table.add({"name", "format", "size", "texels", "indices", "palette", "bytes"});
    for (const TextureCosts& image : memory.images) {
        table.add({image.name, image.format, number(image.width) + "x" + number(image.height), number(image.texelBytes),
                   number(image.indexBytes), number(image.paletteBytes), number(image.bytes())});
    }
    table.add({"in all", "", "", number(memory.texelBytes), number(memory.indexBytes), number(memory.paletteBytes),
               number(memory.bytes())});
    const bool areShared = std::any_of(memory.palettes.begin(), memory.palettes.end(),
                                       [](const PaletteCosts& palette) { return palette.images > 1; });
    return "\nTextures, the largest first\n" + table.text() +
           (areShared ? "  Palettes that images share count once in all.\n" : "");
}

std::string animationText(const Report& report) {
    TextTable table("llrrrlrrr");
    table.add({"file", "data", "channels", "moving", "stored", "", "without sharing", "saved", ""});
    for (const AnimationCosts& animation : report.animations) {
        const std::string& file = report.file(animation.kind).name;
        if (animation.pools.empty()) {
            table.add({file, "nothing is animated", "", "", "", "", "", "", ""});
        }
        std::vector<PoolCosts> rows = animation.pools;
        if (rows.size() > 1) {
            rows.push_back(animation.inAll());
        }
        for (const PoolCosts& pool : rows) {
            table.add({file, pool.name, number(pool.channels), number(pool.moving), number(pool.stored), pool.unit,
                       number(pool.withoutSharing), number(pool.saved()), percent(pool.saved(), pool.withoutSharing)});
        }
    }
    const std::int64_t frames = report.animations.front().frames;
    return "\nAnimation, " + counted(frames, "frame", "frames") + "\n" + table.text();
}

std::string expensiveText(const ModelCosts& model) {
    TextTable nodes("lrrr");
    nodes.add({"name", "vertices", "polygon cost", "matrix loads"});
    for (std::size_t i = 0; i < std::min(kMostExpensive, model.meshNodes.size()); ++i) {
        const NodeCosts& node = model.meshNodes[i];
        nodes.add(
            {node.name, number(node.draws.vertices), number(node.draws.polygonCost()), number(node.draws.matrixLoads)});
    }
    TextTable materials("lrr");
    materials.add({"name", "vertices", "texture bytes"});
    for (std::size_t i = 0; i < std::min(kMostExpensive, model.drawn.size()); ++i) {
        const MaterialCosts& material = model.drawn[i];
        materials.add({material.name, number(material.vertices), number(material.textureBytes)});
    }
    return (model.meshNodes.empty() ? "" : "\nMost expensive nodes\n" + nodes.text()) +
           (model.drawn.empty() ? "" : "\nMost expensive materials\n" + materials.text());
}

std::string limitsText(const Report& report) {
    if (!report.hasModel) {
        return "\nLimits: not known without " + report.file("imd").name + "\n";
    }
    TextTable table("lrlrl");
    for (const Limit& limit : report.limits) {
        table.add({limit.label, number(limit.used), "of", number(limit.limit),
                   limit.over() == 0 ? "within" : "over by " + number(limit.over())});
    }
    return "\nLimits\n" + table.text();
}

} // namespace

std::string reportText(const Report& report) {
    std::string text = filesText(report);
    text += report.hasModel ? modelText(report) : "";
    text += report.hasTextures ? texturesText(report.textures) : "";
    text += report.animations.empty() ? "" : animationText(report);
    text += report.hasModel ? expensiveText(report.model) : "";
    return text + limitsText(report);
}

std::vector<std::string> limitWarnings(const Report& report) {
    std::vector<std::string> warnings;
    for (const Limit& limit : report.limits) {
        if (limit.over() > 0) {
            warnings.push_back(report.base + ".imd: " + limit.label + " " + number(limit.used) +
                               ", over the limit of " + number(limit.limit) + " by " + number(limit.over()));
        }
    }
    return warnings;
}

} // namespace host::app::report
