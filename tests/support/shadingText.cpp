#include "shadingText.h"

#include "sceneText.h"

namespace tvk {

std::string connectText(const std::string& from, const std::string& to) {
    return "connectAttr \"" + from + "\" \"" + to + "\";\n";
}

std::string shadingText(const std::string& type, const std::string& name, const std::string& attributes) {
    return nodeText(type, name, "", attributes) + nodeText("shadingEngine", name + "SG", "", "setAttr \".ro\" yes;") +
           connectText(name + ".oc", name + "SG.ss");
}

std::string addedAttribute(const std::string& name, const std::string& type, const std::string& value) {
    const std::string words = type == "enum" ? " -en \"a:b:c:d\"" : "";
    return "addAttr -ci true -sn \"" + name + "\" -ln \"" + name + "\" -at \"" + type + "\"" + words +
           ";\n\tsetAttr \"." + name + "\" " + value + ";\n\t";
}

std::string addedMatrix(const std::string& name, const std::string& numbers) {
    return "addAttr -ci true -sn \"" + name + "\" -ln \"" + name + "\" -dt \"matrix\";\n\tsetAttr \"." + name +
           "\" -type \"matrix\" " + numbers + ";\n\t";
}

std::string shadedMesh(const std::string& name, const std::string& shadingGroup) {
    const std::string shape = nodeText("mesh", name + "Shape", name,
                                       "setAttr \".uvst[0].uvsn\" -type \"string\" \"map1\";\n"
                                       "\tsetAttr -s 3 \".uvst[0].uvsp[0:2]\" -type \"float2\" 0 0 1 0 0 1;\n"
                                       "\tsetAttr \".cuvs\" -type \"string\" \"map1\";\n"
                                       "\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;\n"
                                       "\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0;\n"
                                       "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2 mu 0 3 0 1 2 ;");
    return nodeText("transform", name) + shape + "connectAttr \"" + name + "Shape.iog\" \"" + shadingGroup +
           ".dsm\" -na;\n";
}

std::string inDefaultGroup(const std::string& shape, int instance) {
    return "connectAttr \"" + shape + ".iog[" + std::to_string(instance) + "]\" \":initialShadingGroup.dsm\" -na;\n";
}

std::string keysText(const std::string& plug, const std::string& name, const std::string& keys) {
    return nodeText("animCurveTU", name, "",
                    "setAttr \".tan\" 2; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  " + keys + ";") +
           connectText(name + ".o", plug);
}

} // namespace tvk
