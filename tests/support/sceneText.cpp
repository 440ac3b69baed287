#include "sceneText.h"

#include <locale>
#include <sstream>

namespace tvk {

std::string sceneOf(const std::string& statements) {
    return "//Maya ASCII 2020 scene\n//Codeset: UTF-8\nrequires maya \"2020\";\n"
           "currentUnit -l centimeter -a degree -t ntsc;\n" +
           statements + "// End of scene\n";
}

std::string nodeText(const std::string& type, const std::string& name, const std::string& parent,
                     const std::string& attributes) {
    return "createNode " + type + " -n \"" + name + "\"" + (parent.empty() ? "" : " -p \"" + parent + "\"") + ";\n" +
           (attributes.empty() ? "" : "\t" + attributes + "\n");
}

std::string set3(const std::string& attribute, double x, double y, double z) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(17);
    text << "setAttr \"." << attribute << "\" -type \"double3\" " << x << ' ' << y << ' ' << z << " ;";
    return text.str();
}

std::string meshText(const std::string& name, const std::string& parent, const std::string& attributes) {
    return nodeText("mesh", name, parent,
                    "setAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;\n"
                    "\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0;\n"
                    "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2 ;\n\t" +
                        attributes);
}

std::string curveText(const std::string& name, const std::string& parent, const std::string& attributes) {
    return nodeText("nurbsCurve", name, parent,
                    "setAttr \".cc\" -type \"nurbsCurve\" 1 1 0 no 3 2 0 1 2 0 0 0 1 0 0 ;\n\t" + attributes);
}

std::string visibilityKeys(const std::string& node, const std::string& keys, int count) {
    const std::string last = std::to_string(count - 1);
    const std::string size = std::to_string(count);
    std::string steps;
    for (int i = 0; i < count; ++i) {
        steps += " 5";
    }
    return nodeText("animCurveTU", node + "_visibility", "",
                    "setAttr \".tan\" 9;\n\tsetAttr \".wgt\" no;\n\tsetAttr -s " + size + " \".ktv[0:" + last + "]\" " +
                        keys + ";\n\tsetAttr -s " + size + " \".kot[0:" + last + "]\"" + steps + ";") +
           "connectAttr \"" + node + "_visibility.o\" \"" + node + ".v\";\n";
}

std::string playback(int first, int last) {
    const std::string range = std::to_string(first) + " -max " + std::to_string(last);
    const std::string whole = std::to_string(first) + " -aet " + std::to_string(last);
    return nodeText("script", "sceneConfigurationScriptNode", "",
                    "setAttr \".b\" -type \"string\" \"playbackOptions -min " + range + " -ast " + whole +
                        " \";\n\tsetAttr \".st\" 6;");
}

} // namespace tvk
