#pragma once

#include <maya/MPxFileTranslator.h>
#include <maya/MStatus.h>

#include <string>
#include <vector>

namespace tvk {

/// Gathers the scene as an export would, as far as its names need, and finds the names that the console cannot hold.
/// Nothing is written, and nothing gathered is left. Messages go to standard error; when a warning is among them, an
/// empty line follows and the host's window comes forward.
///   mode    what to look at: all, or what is selected
///   pairs   gets two texts for each name. Nodes first: full path, name. Then materials that shade a face: name, name
///           of the shader. Then textures: path of the image, name of the image or of its palette.
/// Fails, with a message, when the scene cannot be gathered, and in silence while an export is under way.
MStatus checkElementNames(MPxFileTranslator::FileAccessMode mode, std::vector<std::string>& pairs);

} // namespace tvk
