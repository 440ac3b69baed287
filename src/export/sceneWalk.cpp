#include "export/sceneWalk.h"

#include "common/numberText.h"
#include "export/exportMessages.h"
#include "export/nodeShapes.h"
#include "scene/Run.h"
#include "scene/nodeTests.h"
#include "scene/plugReading.h"

#include <maya/MFn.h>
#include <maya/MFnDagNode.h>
#include <maya/MGlobal.h>
#include <maya/MItDag.h>
#include <maya/MSelectionList.h>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <utility>

namespace tvk {
namespace {

// Transforms that steer others or the interface and are nothing on the console.
constexpr std::array<MFn::Type, 6> kSteeringTypes{
    MFn::kConstraint, MFn::kIkHandle, MFn::kIkEffector, MFn::kLookAt, MFn::kManipulator3D, MFn::kUnderWorld,
};

bool isSteering(const MObject& node) {
    return std::any_of(kSteeringTypes.begin(), kSteeringTypes.end(), [&](MFn::Type type) { return node.hasFn(type); });
}

// Whether the record enters the model even with nothing below it.
bool standsForItself(const NodeRecord& record, const NodeShapes& shapes) {
    return record.kind == NodeKind::kMesh || record.isJoint ||
           !(isSteering(record.path.node()) || shapes.onlyServeTheView());
}

// A transform on its way through the walk.
struct Visit {
    MDagPath path;
    std::size_t record; // position in the list under construction
    unsigned int nextChild = 0;
};

class Walk {
public:
    Walk(std::vector<std::unique_ptr<NodeRecord>>& records, std::size_t most) : list(records), limit(most) {}

    MStatus from(const MDagPath& top) {
        MStatus status = enter(top, nullptr);
        while (status && !stack.empty()) {
            status = step();
        }
        return status;
    }

    // Takes out what turned out to have nothing exportable below it.
    void dropUnneeded() {
        std::vector<std::unique_ptr<NodeRecord>> kept;
        kept.reserve(list.size());
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (needed[i]) {
                kept.push_back(std::move(list[i]));
            }
        }
        list = std::move(kept);
    }

private:
    // Handles the next child of the innermost transform, or leaves it.
    MStatus step() {
        Visit& top = stack.back();
        if (top.nextChild >= top.path.childCount()) {
            leave();
            return MS::kSuccess;
        }
        const MObject child = top.path.child(top.nextChild++);
        if (!child.hasFn(MFn::kTransform)) {
            return MS::kSuccess;
        }
        MDagPath path = top.path;
        path.push(child);
        return enter(path, list[top.record].get());
    }

    MStatus enter(const MDagPath& path, NodeRecord* parent) {
        if (!isNodeEffective(path.node())) {
            return MS::kSuccess;
        }
        if (list.size() == limit) {
            say(kTooManyNodes, "more than " + integerText(static_cast<int64_t>(limit)).str());
            return MS::kFailure;
        }
        std::string name;
        const MStatus status = readNodeName(path, name);
        if (!status) {
            return status;
        }
        const NodeShapes shapes = readNodeShapes(path);
        if (!shapes.status) {
            return shapes.status;
        }
        list.push_back(makeRecord(path, std::move(name), shapes, parent));
        needed.push_back(standsForItself(*list.back(), shapes));
        stack.push_back({path, list.size() - 1});
        return MS::kSuccess;
    }

    // A node that is needed needs its ancestors: links go one DAG step up only, and a gap would lose a transform.
    void leave() {
        const std::size_t record = stack.back().record;
        stack.pop_back();
        if (needed[record] && !stack.empty()) {
            needed[stack.back().record] = true;
        }
    }

    std::unique_ptr<NodeRecord> makeRecord(const MDagPath& path, std::string name, const NodeShapes& shapes,
                                           NodeRecord* parent) const {
        auto record = std::make_unique<NodeRecord>();
        const MObject node = path.node();
        record->name = std::move(name);
        record->path = path;
        record->shape = shapes.kept;
        record->originalShape = shapes.original;
        record->isJoint = node.hasFn(MFn::kJoint);
        if (shapes.kept.isValid()) {
            record->kind = NodeKind::kMesh;
        } else if (record->isJoint) {
            record->kind = NodeKind::kJoint;
        }
        record->noCut = isNoCut(node);
        record->billboard = billboardOf(node);
        record->scene.parent = parent;
        record->scene.depth = parent == nullptr ? 0 : parent->scene.depth + 1;
        return record;
    }

    std::vector<std::unique_ptr<NodeRecord>>& list;
    std::size_t limit;
    std::vector<bool> needed; // beside `list`
    std::vector<Visit> stack; // an own stack: the depth of a scene is not bounded by that of the program's
};

std::vector<MDagPath> topTransforms() {
    std::vector<MDagPath> tops;
    MItDag walk;
    MDagPath world;
    if (!walk.getPath(world)) {
        return tops;
    }
    for (unsigned int i = 0; i < world.childCount(); ++i) {
        const MObject child = world.child(i);
        if (child.hasFn(MFn::kTransform)) {
            MDagPath path = world;
            path.push(child);
            tops.push_back(path);
        }
    }
    return tops;
}

// Shapes and components stand for their transform.
MDagPath transformOf(MDagPath path) {
    while (path.length() > 0 && !path.node().hasFn(MFn::kTransform)) {
        path.pop();
    }
    return path;
}

bool isBelowOne(MDagPath path, const std::unordered_set<std::string>& names) {
    while (path.length() > 1) {
        path.pop();
        if (names.count(textOf(path.fullPathName())) != 0) {
            return true;
        }
    }
    return false;
}

// The selected transforms in selection order, without repeats and without those that a selected ancestor brings along.
std::vector<MDagPath> selectedTransforms() {
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    std::vector<MDagPath> selected;
    std::unordered_set<std::string> names;
    for (unsigned int i = 0; i < selection.length(); ++i) {
        MDagPath path;
        MObject component;
        if (!selection.getDagPath(i, path, component)) {
            continue;
        }
        path = transformOf(path);
        if (path.length() > 0 && names.insert(textOf(path.fullPathName())).second) {
            selected.push_back(path);
        }
    }
    const auto covered = [&](const MDagPath& path) { return isBelowOne(path, names); };
    selected.erase(std::remove_if(selected.begin(), selected.end(), covered), selected.end());
    return selected;
}

} // namespace

MStatus readNodeName(const MDagPath& path, std::string& name) {
    MStatus status;
    const MFnDagNode function(path, &status);
    if (!status) {
        say(kAttachingDagNode);
        say(kInvalidNode, textOf(path.partialPathName()));
        return status;
    }
    name = textOf(function.name());
    return MS::kSuccess;
}

MStatus walkScene(std::vector<std::unique_ptr<NodeRecord>>& records, std::size_t limit) {
    const MPxFileTranslator::FileAccessMode mode = run().options.accessMode;
    std::vector<MDagPath> tops;
    if (mode == MPxFileTranslator::kExportAccessMode) {
        tops = topTransforms();
    } else if (mode == MPxFileTranslator::kExportActiveAccessMode) {
        tops = selectedTransforms();
    } else {
        say(kUnrecognizedMode, integerText(static_cast<int64_t>(mode)).view());
        return MS::kFailure;
    }
    Walk walk(records, limit);
    for (const MDagPath& top : tops) {
        const MStatus status = walk.from(top);
        if (!status) {
            return status;
        }
    }
    walk.dropUnneeded();
    return MS::kSuccess;
}

} // namespace tvk
