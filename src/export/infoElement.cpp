#include "common/numberText.h"
#include "export/envelope.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <array>
#include <ostream>
#include <string>

namespace tvk {
namespace {

using Kinds = unsigned int; // one bit per OutputKind

constexpr Kinds bit(OutputKind kind) {
    return 1U << static_cast<unsigned int>(kind);
}

constexpr Kinds kImd = bit(OutputKind::kImd);
constexpr Kinds kIca = bit(OutputKind::kIca);
constexpr Kinds kIma = bit(OutputKind::kIma);
constexpr Kinds kItp = bit(OutputKind::kItp);
constexpr Kinds kIva = bit(OutputKind::kIva);
constexpr Kinds kIta = bit(OutputKind::kIta);
constexpr Kinds kAll = kImd | kIca | kIma | kItp | kIva | kIta;

// The word of a choice; a number outside the list takes the word that its behaviour has.
template <std::size_t N>
std::string word(const std::array<const char*, N>& words, int32_t choice, std::size_t otherwise) {
    const bool known = choice >= 0 && static_cast<std::size_t>(choice) < N;
    return words.at(known ? static_cast<std::size_t>(choice) : otherwise);
}

std::string integer(int64_t value) {
    return integerText(value).str();
}

// "gathered output", as a second attribute on the line of the compression that made the one the other.
std::string sizes(const char* name, int64_t gathered, int64_t output) {
    return std::string("\" ") + name + "=\"" + integer(gathered) + " " + integer(output);
}

std::string nodeCompression() {
    constexpr std::array<const char*, 5> kWords{"none", "cull", "merge", "unite", "unite_combine"};
    const SceneData& scene = run().scene;
    return word(kWords, run().options.optimizeNode, 0) +
           sizes("node_size", static_cast<int64_t>(scene.nodes.size()), static_cast<int64_t>(scene.outputNodes.size()));
}

std::string materialCompression() {
    const SceneData& scene = run().scene;
    return onOff(run().options.compressMaterial) +
           sizes("material_size", scene.materialCount, scene.outputMaterialCount);
}

std::string interpolation() {
    return word(std::array<const char*, 3>{"frame", "linear", "key"}, run().options.animeInterp, 0);
}

// Frame interpolation fills nothing in, so there is nothing to say of the way back to the start.
std::string loop() {
    return interpolation() == "frame" ? std::string() : onOff(run().options.loopInterp);
}

std::string frameStep() {
    return word(std::array<const char*, 4>{"auto", "1", "2", "4"}, run().options.frameStepMode, 1);
}

struct InfoRow {
    const char* name;
    Kinds kinds;
    std::string (*value)(); // empty: no line
};

const ExportOptions& options() {
    return run().options;
}

// In written order.
const std::array<InfoRow, 23> kInfoRows{{
    {"pos_scale", kImd, [] { return integer(run().scene.positionScale); }},
    {"frame_size", kAll & ~kImd, [] { return integer(options().frameCount); }},
    {"scaling_rule", kImd | kIca, [] { return std::string(run().scene.scalingRuleIsMaya ? "maya" : "standard"); }},
    {"vertex_style", kImd, [] { return std::string(options().vertexTableFlag ? "index" : "direct"); }},
    {"magnify", kImd | kIca, [] { return realText(options().magnify); }},
    {"tool_start_frame", kAll, [] { return integer(options().startFrame); }},
    {"tool_end_frame", kAll & ~kImd, [] { return integer(options().endFrame); }},
    {"interpolation", kIca | kIma | kIta, interpolation},
    {"interp_end_to_start", kIca | kIma | kIta, loop},
    {"tex_matrix_mode", kImd | kIta, [] { return std::string("maya"); }},
    {"compress_node", kImd | kIca | kIva, nodeCompression},
    {"compress_material", kImd | kIma | kItp | kIta, materialCompression},
    {"frame_step_mode", kIca | kIma | kIta, frameStep},
    {"tolerance_scale", kIca, [] { return realText(options().animeTolS); }},
    {"tolerance_rotate", kIca, [] { return realText(options().animeTolR); }},
    {"tolerance_translate", kIca, [] { return realText(options().animeTolT); }},
    {"tolerance_color", kIma, [] { return integer(options().animeTolC); }},
    {"tolerance_tex_scale", kIta, [] { return realText(options().animeTolUvS); }},
    {"tolerance_tex_rotate", kIta, [] { return realText(options().animeTolUvR); }},
    {"tolerance_tex_translate", kIta, [] { return realText(options().animeTolUvT); }},
    {"output_texture", kImd, [] { return std::string(options().outAllTex ? "all" : "used"); }},
    {"force_full_weight", kImd, [] { return std::string(onOff(options().forceFullWeight)); }},
    {"use_primitive_strip", kImd, [] { return std::string(onOff(options().usePrimitiveStrip)); }},
}};

} // namespace

void writeInfo(std::ostream& out, OutputKind kind) {
    out << '<' << outputKindRow(kind).infoElement << '\n';
    for (const InfoRow& row : kInfoRows) {
        const std::string value = row.value();
        if ((row.kinds & bit(kind)) != 0 && !value.empty()) {
            writeAttributeLine(out, 1, row.name, value);
        }
    }
    out << "/>\n\n";
}

} // namespace tvk
