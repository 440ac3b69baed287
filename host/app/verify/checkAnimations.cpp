#include "host/app/verify/checkAnimations.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/channelTolerance.h"
#include "host/app/verify/checkMaterials.h"
#include "host/app/verify/checkNodes.h"
#include "host/app/verify/checkPatterns.h"
#include "host/app/verify/sceneValues.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace host::app::verify {
namespace {

constexpr double kStep = 1.0 / 4096;

using Frame = std::size_t;

std::string atFrame(const std::string& place, const ExportedScene& scene, Frame frame) {
    return place + " at frame " + decimals(scene.start + static_cast<double>(frame), 0);
}

// Nodes as they move.
class NodeMotion {
public:
    NodeMotion(const report::ExportedModel& model, const decode::AnimationFile& file, const ExportedScene& scene,
               Verification& result)
        : model_(model), file_(file), scene_(scene), result_(result), tolerance_(file) {
        scale_ = file.info->reals("tolerance_scale", 1).front();
        rotate_ = file.info->reals("tolerance_rotate", 1).front();
        translate_ = file.info->reals("tolerance_translate", 1).front();
        if (tolerance_.isForced()) {
            result.note("ica: frames that its frame_step_mode leaves out");
        }
    }

    void check(Frame frame) {
        const std::vector<decode::ModelNode> nodes = decode::posed(model_.file, file_, frame);
        for (const decode::ModelNode& node : nodes) {
            if (const SceneNode* const sceneNode = scene_.nodes.of(node.index)) {
                checkNode(nodes, node, *sceneNode, frame);
            } else {
                checkRoot(node, frame);
            }
        }
    }

private:
    void checkNode(const std::vector<decode::ModelNode>& nodes, const decode::ModelNode& node,
                   const SceneNode& sceneNode, Frame frame) {
        const decode::ModelNode* const parent =
            node.parent < 0 ? nullptr : &nodes[static_cast<std::size_t>(node.parent)];
        const SceneNode* const sceneParent = node.parent < 0 ? nullptr : scene_.nodes.of(node.parent);
        Imath::M44d base;
        if (!scene_.isUnited) {
            base = sceneParent == nullptr ? scene_.nodes.placeOf(sceneNode) : scene_.nodes.frameOf(*sceneParent);
        }
        ChannelTolerances tolerances = tolerancesOf(node.index, frame);
        if (parent != nullptr && node.scaleCompensate.value_or(false)) {
            const ChannelTolerances above = tolerancesOf(parent->index, frame);
            tolerances.parentScale = std::max({above.scale[0], above.scale[1], above.scale[2]});
        }
        const Imath::V3d parentScale = undoneScale(node, parent, sceneParent, tolerances);
        checkChannels(node, parentScale, scene_.nodes.frameOf(sceneNode), base, tolerances, kParts, placeOf(node),
                      atFrame("", scene_, frame), result_);
    }

    // A root that stands for no transform does not move.
    void checkRoot(const decode::ModelNode& node, Frame frame) {
        checkChannels(node, Imath::V3d(1.0), Imath::M44d(), Imath::M44d(), {}, kParts, placeOf(node),
                      atFrame("", scene_, frame), result_);
    }

    static std::string placeOf(const decode::ModelNode& node) { return "ica: node " + report::utf8Name(node.name); }

    ChannelTolerances tolerancesOf(int node, Frame frame) const {
        ChannelTolerances tolerances;
        const auto& channels = file_.thing(node).channels; // three scales, three rotations, three translations
        for (std::size_t i = 0; i < 3; ++i) {
            const auto at = [&](std::size_t first, const std::string& pool, double tolerance) {
                return tolerance_.at(channels.at(first + i).second, pool, static_cast<int>(frame), tolerance);
            };
            tolerances.scale[i] = at(0, kScales, scale_);
            tolerances.rotate[i] = at(3, kRotations, rotate_);
            tolerances.translate[i] = at(6, kTranslations, translate_);
        }
        return tolerances;
    }

    static inline const std::string kScales = "node_scale_data";
    static inline const std::string kRotations = "node_rotate_data";
    static inline const std::string kTranslations = "node_translate_data";
    static constexpr NodeParts kParts{Part::kScale, Part::kRotation, Part::kTranslation};

    const report::ExportedModel& model_;
    const decode::AnimationFile& file_;
    const ExportedScene& scene_;
    Verification& result_;
    ChannelTolerance tolerance_;
    double scale_ = 0.0, rotate_ = 0.0, translate_ = 0.0;
};

void checkVisibilities(const report::ExportedFiles& files, const ExportedScene& scene, Frame frame,
                       Verification& result) {
    const std::vector<bool> visible = scene.nodes.visible();
    for (const decode::ModelNode& node : files.model->file.nodes) {
        const SceneNode* const sceneNode = scene.nodes.of(node.index);
        bool isSeen = true;
        if (sceneNode != nullptr) {
            const std::optional<MDagPath> mesh =
                node.kind == "mesh" ? shownMesh(sceneNode->path) : std::optional<MDagPath>();
            isSeen = visible[static_cast<std::size_t>(sceneNode - scene.nodes.all().data())] &&
                     (!mesh || isOn(mesh->node(), "visibility", true));
        }
        const int written = files.visibilities->nodes.at(static_cast<std::size_t>(node.index)).frames.at(frame);
        result.measure(Part::kVisibility, (written == 1) == isSeen ? 0.0 : 1.0);
        if ((written == 1) != isSeen) {
            result.find(atFrame("iva: node " + report::utf8Name(node.name), scene, frame) + " is " +
                        (written == 1 ? "on" : "off") + ", but the scene " + (isSeen ? "shows" : "hides") + " it");
        }
    }
}

// What is animated by material: the scene's values are asked for at the current frame.
struct MaterialChannels {
    const char* kind;
    Part part;
    std::function<std::vector<double>(const MObject& shader)> valuesOf; // in the order of the channels
    std::vector<double> tolerances;                                     // the same
    std::vector<std::string> pools;                                     // the same
    int angle = -1;                                                     // channel that is one
    double rounding = 0.0;                                              // of stored values
};

void checkMaterialChannels(const decode::AnimationFile& file, const MaterialChannels& channels,
                           const ExportedScene& scene, const MaterialNames& names, Frame frame, Verification& result) {
    const ChannelTolerance tolerance(file);
    for (const decode::AnimatedThing& thing : file.things) {
        const std::string place = std::string(channels.kind) + ": material " + report::utf8Name(thing.materialName);
        const MObject shader = names.shaderOf(thing.materialName);
        if (shader.isNull()) {
            if (frame == 0) {
                result.find(place + " is not in the scene");
            }
            continue;
        }
        const std::vector<double> expected = channels.valuesOf(shader);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const auto& [word, channel] = thing.channels.at(i);
            const double allowed =
                tolerance.at(channel, channels.pools[i], static_cast<int>(frame), channels.tolerances[i]);
            if (allowed < 0.0) {
                result.note(std::string(channels.kind) + ": frames that its frame_step_mode leaves out");
                continue;
            }
            const double off = channel.frames.at(frame) - expected[i];
            const double error = std::abs(static_cast<int>(i) == channels.angle ? std::remainder(off, 360.0) : off);
            result.check(channels.part, error, allowed + channels.rounding + 1e-7 * std::abs(expected[i]),
                         [&, name = word] { return atFrame(place, scene, frame) + ": " + name; });
        }
    }
}

MaterialChannels colorChannels(const decode::AnimationFile& file) {
    const bool hasCurves = file.info->value("interpolation") == "key";
    return {"ima",
            Part::kMaterialColors,
            [](const MObject& shader) {
                const auto colors = consoleColors(shader, true);
                return std::vector<double>(colors.begin(), colors.end());
            },
            std::vector<double>(13, file.info->reals("tolerance_color", 1).front()),
            std::vector<std::string>(13, "mat_color_data"),
            -1,
            hasCurves ? 0.502 * kStep : 0.5001};
}

MaterialChannels placementChannels(const decode::AnimationFile& file) {
    const double scale = file.info->reals("tolerance_tex_scale", 1).front();
    const double rotate = file.info->reals("tolerance_tex_rotate", 1).front();
    const double translate = file.info->reals("tolerance_tex_translate", 1).front();
    return {"ita",
            Part::kPlacements,
            [](const MObject& shader) {
                const auto placement = placementOf(fileTextureOf(shader));
                return std::vector<double>(placement.begin(), placement.end());
            },
            {scale, scale, rotate, translate, translate},
            {"tex_scale_data", "tex_scale_data", "tex_rotate_data", "tex_translate_data", "tex_translate_data"},
            2,
            0.502 * kStep};
}

// The range that a file says it has; a finding when the files do not agree.
bool isOfRange(const decode::FileElement& info, const char* kind, const ExportedScene& scene,
               std::optional<int>& frameCount, Verification& result) {
    const int size = info.integer("frame_size");
    const int first = info.integer("tool_start_frame");
    const int last = info.integer("tool_end_frame");
    if (first != static_cast<int>(scene.start) || last != first + size - 1 || frameCount.value_or(size) != size) {
        result.find(std::string(kind) + ": its frames are not those of the other files");
        return false;
    }
    frameCount = size;
    return true;
}

} // namespace

void checkAnimations(const report::ExportedFiles& files, const ExportedScene& scene, const MaterialNames& names,
                     Verification& result) {
    std::optional<int> frameCount;
    std::vector<std::function<void(Frame)>> checks;
    std::optional<NodeMotion> motion;
    const auto add = [&](const decode::FileElement& info, const char* kind, std::function<void(Frame)> check) {
        if (isOfRange(info, kind, scene, frameCount, result)) {
            checks.push_back(std::move(check));
        }
    };
    if (files.nodes) {
        motion.emplace(*files.model, *files.nodes, scene, result);
        add(*files.nodes->info, "ica", [&](Frame frame) { motion->check(frame); });
    }
    if (files.colors) {
        add(*files.colors->info, "ima", [&](Frame frame) {
            checkMaterialChannels(*files.colors, colorChannels(*files.colors), scene, names, frame, result);
        });
    }
    if (files.patterns) {
        add(*files.patterns->info, "itp", [&](Frame frame) {
            checkPatterns(files, names, frame, decimals(scene.start + static_cast<double>(frame), 0), result);
        });
    }
    if (files.visibilities) {
        add(*files.visibilities->info, "iva", [&](Frame frame) { checkVisibilities(files, scene, frame, result); });
    }
    if (files.placements) {
        add(*files.placements->info, "ita", [&](Frame frame) {
            checkMaterialChannels(*files.placements, placementChannels(*files.placements), scene, names, frame, result);
        });
    }
    for (int frame = 0; frame < frameCount.value_or(0); ++frame) {
        goTo(scene.start + frame);
        for (const auto& check : checks) {
            check(static_cast<Frame>(frame));
        }
    }
}

} // namespace host::app::verify
