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
    return nodeText("transform", name) + meshText(name + "Shape", name) + "connectAttr \"" + name + "Shape.iog\" \"" +
           shadingGroup + ".dsm\" -na;\n";
}

std::string keysText(const std::string& plug, const std::string& name, const std::string& keys) {
    return nodeText("animCurveTU", name, "",
                    "setAttr \".tan\" 2; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  " + keys + ";") +
           connectText(name + ".o", plug);
}

} // namespace tvk
