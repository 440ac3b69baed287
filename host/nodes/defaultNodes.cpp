#include "host/nodes/defaultNodes.h"

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace host {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;

struct CameraRow {
    const char* name;
    double translate[3]; // centimetres
    double rotate[3];    // degrees
    bool isPerspective;
    const char* homeCommand;
};

constexpr CameraRow kCameras[] = {
    {"persp",
     {28, 21, 28},
     {-27.938352729602379, 44.999999999999972, -5.172681101354183e-14},
     true,
     "viewSet -p %camera"},
    {"top", {0, 1000.1, 0}, {-90, 0, 0}, false, "viewSet -t %camera"},
    {"front", {0, 0, 1000.1}, {0, 0, 0}, false, "viewSet -f %camera"},
    {"side", {1000.1, 0, 0}, {0, 90, 0}, false, "viewSet -s %camera"},
};

struct NodeRow {
    const char* name;
    const char* type;
};

constexpr NodeRow kNodes[] = {
    {"time1", "time"},
    {"sequenceManager1", "sequenceManager"},
    {"hardwareRenderingGlobals", "hardwareRenderingGlobals"},
    {"renderPartition", "partition"},
    {"renderGlobalsList1", "renderGlobalsList"},
    {"defaultLightList1", "defaultLightList"},
    {"defaultShaderList1", "defaultShaderList"},
    {"postProcessList1", "postProcessList"},
    {"defaultRenderUtilityList1", "defaultRenderUtilityList"},
    {"defaultRenderingList1", "defaultRenderingList"},
    {"lightList1", "lightList"},
    {"defaultTextureList1", "defaultTextureList"},
    {"lambert1", "lambert"},
    {"standardSurface1", "standardSurface"},
    {"particleCloud1", "particleCloud"},
    {"initialShadingGroup", "shadingEngine"},
    {"initialParticleSE", "shadingEngine"},
    {"initialMaterialInfo", "materialInfo"},
    {"shaderGlow1", "shaderGlow"},
    {"dof1", "dof"},
    {"defaultRenderGlobals", "renderGlobals"},
    {"defaultRenderQuality", "renderQuality"},
    {"defaultResolution", "resolution"},
    {"defaultLightSet", "objectSet"},
    {"defaultObjectSet", "objectSet"},
    {"defaultViewColorManager", "viewColorManager"},
    {"defaultColorMgtGlobals", "colorManagementGlobals"},
    {"hardwareRenderGlobals", "hwRenderGlobals"},
    {"characterPartition", "partition"},
    {"defaultHardwareRenderGlobals", "hardwareRenderGlobals"},
    {"ikSystem", "ikSystem"},
    {"hyperGraphInfo", "hyperGraphInfo"},
    {"hyperGraphLayout", "hyperLayout"},
    {"globalCacheControl", "globalCacheControl"},
    {"strokeGlobals", "strokeGlobals"},
    {"dynController1", "dynController"},
    {"lightLinker1", "lightLinker"},
};

struct ConnectionRow {
    const char* sourceNode;
    const char* sourcePlug;
    const char* node;
    const char* plug;
};

constexpr ConnectionRow kConnections[] = {
    {"lambert1", "outColor", "initialShadingGroup", "surfaceShader"},
    {"particleCloud1", "outColor", "initialParticleSE", "surfaceShader"},
    {"initialShadingGroup", "partition", "renderPartition", "sets[0]"},
    {"initialParticleSE", "partition", "renderPartition", "sets[1]"},
    {"initialShadingGroup", "message", "initialMaterialInfo", "shadingGroup"},
    {"lambert1", "message", "initialMaterialInfo", "material"},
    {"lambert1", "message", "defaultShaderList1", "shaders[0]"},
    {"particleCloud1", "message", "defaultShaderList1", "shaders[1]"},
    {"standardSurface1", "message", "defaultShaderList1", "shaders[2]"},
    {"shaderGlow1", "message", "postProcessList1", "postProcesses[0]"},
    {"dof1", "message", "postProcessList1", "postProcesses[1]"},
    {"lightLinker1", "message", "lightList1", "lightLinks[0]"},
};

/// Sets and connects on nodes whose types are the tables of this room: what does not work is a mistake in them.
class Maker {
public:
    explicit Maker(Graph& graph) : graph_(graph) {}

    Node& make(const std::string& name, const char* typeName, Node* parent) {
        const NodeType* type = graph_.types().find(typeName);
        if (type == nullptr) {
            throw std::logic_error(std::string("default node of unknown type ") + typeName);
        }
        Node& node = graph_.create(*type, name);
        node.isDefault = true;
        if (parent != nullptr) {
            check(graph_.addParent(node, *parent));
        }
        byName_[name] = &node;
        return node;
    }
    void set(Node& node, std::string_view path, double value) {
        check(graph_.setNumber({&node, graph_.findPlug(node, path)}, value));
    }
    void set(Node& node, std::string_view path, const std::string& text) {
        check(graph_.setString({&node, graph_.findPlug(node, path)}, text));
    }
    void connect(const ConnectionRow& row) {
        Node& source = *byName_.at(row.sourceNode);
        Node& node = *byName_.at(row.node);
        check(graph_.connect({&source, graph_.findPlug(source, row.sourcePlug)},
                             {&node, graph_.findPlug(node, row.plug)}, false));
    }
    Node& operator[](const char* name) { return *byName_.at(name); }

private:
    static void check(const GraphResult& result) {
        if (!result.ok()) {
            throw std::logic_error("default nodes: " + result.error);
        }
    }

    Graph& graph_;
    std::map<std::string, Node*> byName_;
};

void makeCamera(Graph& graph, Maker& maker, const CameraRow& row) {
    const std::string name = row.name;
    Node& transform = maker.make(name, "transform", &graph.world());
    Node& shape = maker.make(name + "Shape", "camera", &transform);
    for (int axis = 0; axis < 3; ++axis) {
        const std::string letter(1, "XYZ"[axis]);
        maker.set(transform, "translate" + letter, row.translate[axis]);
        maker.set(transform, "rotate" + letter, row.rotate[axis] * kRadiansPerDegree);
    }
    maker.set(transform, "visibility", 0);
    maker.set(shape, "visibility", 0);
    maker.set(shape, "imageName", name);
    maker.set(shape, "depthName", name + "_depth");
    maker.set(shape, "maskName", name + "_mask");
    maker.set(shape, "homeCommand", row.homeCommand);
    if (row.isPerspective) {
        maker.set(shape, "centerOfInterest", 44.82186966202994);
        return;
    }
    maker.set(shape, "renderable", 0);
    maker.set(shape, "centerOfInterest", 1000.1);
    maker.set(shape, "orthographicWidth", 30);
    maker.set(shape, "orthographic", 1);
}

} // namespace

void createDefaultNodes(Graph& graph) {
    Maker maker(graph);
    for (const CameraRow& row : kCameras) {
        makeCamera(graph, maker, row);
    }
    for (const NodeRow& row : kNodes) {
        maker.make(row.name, row.type, nullptr);
    }
    for (const ConnectionRow& row : kConnections) {
        maker.connect(row);
    }
    maker.set(maker["initialShadingGroup"], "renderableOnlySet", 1);
    maker.set(maker["initialParticleSE"], "renderableOnlySet", 1);
}

} // namespace host
