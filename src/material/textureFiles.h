#pragma once

#include <maya/MStatus.h>
#include <maya/MString.h>

#include <string>

namespace tvk {

/// Finds or adds the record of an image file in SceneData::textures. Paths that differ only in case, kind or number of
/// slashes, or in "./" name one file.
///   path         resolved, see texturePaths.h
///   imageIndex   gets the place in the list; untouched on failure
///   fileNode     name of the file texture that asks, which messages then give as the image's user
/// Reads the size, and no pixels. Fails, with a message that names the file, when that is not possible or the image is
/// larger than the console's textures; a name check then takes a size that fits. Sizes that are no texture sizes, and
/// images of the same name, are warned of.
MStatus registerTextureFile(const MString& path, int& imageIndex, const std::string& fileNode = {});

/// Registers the image of every file texture of the scene, whether something uses it or not. Ends with the first
/// failure.
MStatus registerAllTextureFiles();

/// Says why an image cannot be had, and who uses it.
///   text       of the reader, which names the file
///   fileNode   of the image; nothing more is said when it is empty
void sayImageFailure(const std::string& text, const std::string& fileNode);

/// "NAME (W x H)", as messages name an image.
std::string imageSubject(const std::string& name, int width, int height);

} // namespace tvk
