#pragma once

#include <string>

namespace tvk {

// Texts of small scenes. What is built here is what the host's own files look like.

// A whole Maya ASCII file around some statements: centimetres, degrees, 30 frames per second.
std::string sceneOf(const std::string& statements);

// createNode TYPE -n NAME -p PARENT (none when empty), followed by lines of attributes such as `setAttr ".tx" 1;`.
std::string nodeText(const std::string& type, const std::string& name, const std::string& parent = "",
                     const std::string& attributes = "");

// setAttr ".NAME" -type "double3" x y z;
std::string set3(const std::string& attribute, double x, double y, double z);

// A mesh shape of one triangle.
std::string meshText(const std::string& name, const std::string& parent, const std::string& attributes = "");

// A degree-1 curve of two points.
std::string curveText(const std::string& name, const std::string& parent, const std::string& attributes = "");

// A stepped curve on the visibility of a node: pairs of frame and value, `count` of them.
std::string visibilityKeys(const std::string& node, const std::string& keys, int count);

// The script node that holds the playback range.
std::string playback(int first, int last);

} // namespace tvk
