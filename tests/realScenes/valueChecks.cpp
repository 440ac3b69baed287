#include "valueChecks.h"

#include "checkSupport.h"
#include "meshChecks.h"
#include "shadingChecks.h"

#include <maya/MAnimControl.h>
#include <maya/MDagPath.h>
#include <maya/MDagPathArray.h>
#include <maya/MFn.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMatrixData.h>
#include <maya/MItDag.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MMatrix.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

namespace tvk {
namespace {

using Json = nlohmann::json;

constexpr double kDegreesPerRadian = 57.29577951308232;

void goToTime(const Json& check) {
    if (check.contains("time") && check["time"].is_number()) {
        MAnimControl::setCurrentTime(MTime(check["time"].get<double>(), MTime::uiUnit()));
    }
}

std::vector<double> elements(const MMatrix& matrix) {
    std::vector<double> result;
    for (unsigned int r = 0; r < 4; ++r) {
        for (unsigned int c = 0; c < 4; ++c) {
            result.push_back(matrix(r, c));
        }
    }
    return result;
}

// Angles are recorded in degrees.
bool isAngle(const MPlug& plug) {
    const MString name = plug.partialName(false, false, false, false, false, true);
    return name.length() >= 6 && name.substring(0, 5) == "rotate";
}

std::vector<double> plugNumbers(const MPlug& plug) {
    std::vector<double> result;
    if (plug.isCompound()) {
        for (unsigned int i = 0; i < plug.numChildren(); ++i) {
            const std::vector<double> child = plugNumbers(plug.child(i));
            result.insert(result.end(), child.begin(), child.end());
        }
        return result;
    }
    MObject data;
    if (plug.getValue(data) && data.hasFn(MFn::kMatrixData)) {
        return elements(MFnMatrixData(data).matrix());
    }
    double value = 0.0;
    plug.getValue(value);
    return {isAngle(plug) ? value * kDegreesPerRadian : value};
}

std::string checkAttribute(const Json& check) {
    MSelectionList list;
    MPlug plug;
    if (!list.add(MString(check["plug"].get<std::string>().c_str())) || !list.getPlug(0, plug)) {
        return "no such plug";
    }
    return compare(plugNumbers(plug), numbers(check["value"]), check.value("tol", 0.0));
}

std::string checkWorldMatrix(const Json& check) {
    const MDagPath path = pathTo(check["node"].get<std::string>());
    if (!path.isValid()) {
        return "no such node";
    }
    return compare(elements(path.inclusiveMatrix()), numbers(check["value"]), check.value("tol", 0.0));
}

// A skin holds the inverse of what its joint's world matrix was; both are recorded as one.
std::string checkBindMatrix(const Json& check) {
    return checkWorldMatrix(check);
}

std::string checkVisible(const Json& check) {
    const MFnDependencyNode node(pathTo(check["node"].get<std::string>()).node());
    bool visible = false;
    if (!node.findPlug("visibility", true).getValue(visible)) {
        return "no such plug";
    }
    return visible == check["value"].get<bool>() ? "" : "found the opposite";
}

std::string checkCurrentTime(const Json& check) {
    return compare({MAnimControl::currentTime().as(MTime::uiUnit())}, numbers(check["value"]), 0.0);
}

std::string comparePaths(const std::vector<std::string>& found, const Json& expected) {
    if (found == expected.get<std::vector<std::string>>()) {
        return "";
    }
    std::string text = "found";
    for (const std::string& path : found) {
        text += " " + path;
    }
    return text;
}

std::string checkDagPaths(const Json& check) {
    MDagPathArray paths;
    MDagPath::getAllPathsTo(pathTo(check["value"][0].get<std::string>()).node(), paths);
    std::vector<std::string> found;
    for (unsigned int i = 0; i < paths.length(); ++i) {
        found.emplace_back(paths[i].fullPathName().asChar());
    }
    std::sort(found.begin(), found.end());
    Json expected = check["value"];
    std::sort(expected.begin(), expected.end());
    return comparePaths(found, expected);
}

std::string checkJointPaths(const Json& check) {
    std::vector<std::string> found;
    for (MItDag walk(MItDag::kDepthFirst, MFn::kJoint); !walk.isDone(); walk.next()) {
        MDagPath path;
        walk.getPath(path);
        found.emplace_back(path.fullPathName().asChar());
    }
    return comparePaths(found, check["value"]);
}

// What the scene itself makes is counted: of the nodes that every scene has those that it writes out, its cameras.
std::string checkNodeCounts(const Json& check) {
    std::map<std::string, int> found;
    for (MItDependencyNodes walk; !walk.isDone(); walk.next()) {
        MObject node = walk.thisNode();
        const MFnDependencyNode function(node);
        if (!function.isDefaultNode() || node.hasFn(MFn::kDagNode)) {
            ++found[function.typeName().asChar()];
        }
    }
    std::string difference;
    for (const auto& [type, count] : check["value"].items()) {
        if (found[type] != count.get<int>()) {
            difference += type + ": found " + std::to_string(found[type]) + " ";
        }
    }
    return difference;
}

struct CheckRow {
    const char* what;
    std::string (*difference)(const Json& check);
};

constexpr CheckRow kChecks[] = {
    {"attr", checkAttribute},
    {"worldMatrix", checkWorldMatrix},
    {"bindMatrix", checkBindMatrix},
    {"visible", checkVisible},
    {"currentTime", checkCurrentTime},
    {"dagPaths", checkDagPaths},
    {"jointPaths", checkJointPaths},
    {"nodeCounts", checkNodeCounts},
    {"faceSets", checkFaceSets},
    {"faceSetsResolved", checkFaceSets},
    {"faceMaterials", checkFaceMaterials},
    {"material", checkMaterial},
    {"uvTransform", checkUvTransform},
    {"points", checkPoints},
    {"mesh", checkMeshCounts},
    {"evaluatedMesh", checkEvaluatedMesh},
    {"uvPerFaceVertex", checkUvsByCorner},
    {"uvFaceVertex", checkUvOfCorner},
    {"uvCount", checkUvCount},
    {"uvSetNames", checkUvSetNames},
    {"colorsPerFaceVertex", checkColorsByCorner},
};

const CheckRow* rowOf(const Json& check) {
    const auto* const found = std::find_if(std::begin(kChecks), std::end(kChecks),
                                           [&](const CheckRow& row) { return check["what"] == row.what; });
    return found == std::end(kChecks) ? nullptr : found;
}

} // namespace

bool isValueCheck(const Json& check) {
    return rowOf(check) != nullptr;
}

std::string differenceFrom(const Json& check) {
    goToTime(check);
    return rowOf(check)->difference(check);
}

std::string subjectOf(const Json& check) {
    for (const char* const key : {"plug", "node", "shape", "name"}) {
        if (check.contains(key)) {
            return check[key].get<std::string>();
        }
    }
    return "";
}

} // namespace tvk
