#pragma once

#include "sceneText.h"

#include <string>

namespace tvk {

// Attribute lines of transforms, to be put one behind the other.

inline std::string scales(double x, double y, double z) {
    return set3("s", x, y, z) + " ";
}
inline std::string rotates(double x, double y, double z) {
    return set3("r", x, y, z) + " ";
}
inline std::string moves(double x, double y, double z) {
    return set3("t", x, y, z) + " ";
}
inline std::string pivots(double x, double y, double z) {
    return set3("rp", x, y, z) + " " + set3("sp", x, y, z) + " ";
}
inline std::string order(int code) {
    return "setAttr \".ro\" " + std::to_string(code) + "; ";
}

// A joint chain as the host saves it: the child knows its parent's scale.
inline std::string compensated(const std::string& parent, const std::string& child) {
    return "connectAttr \"" + parent + ".s\" \"" + child + ".is\";\n";
}

} // namespace tvk
