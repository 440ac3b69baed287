#pragma once

#include <maya/MString.h>

#include <string>

namespace tvk {

/// The path of an image as the files record it.
///   fileTextureName   as the file texture has it
///   workspaceRoot     with a '/' at its end
/// A name that begins with "//", has a drive letter or, where paths begin so, a '/' stays; every other one is put
/// behind the root as it is. A drive letter comes out in upper case.
MString resolveTexturePath(const MString& fileTextureName, const MString& workspaceRoot);

/// What two paths have in common exactly when they name the same file: letters A to Z in lower case, one kind of slash,
/// once each, no "./". Nothing is asked of the file system.
std::string normalisedPath(const std::string& path);

/// The file to open for a recorded path. Scenes travel between machines, so a path that leads nowhere is looked for in
/// the workspace and beside the scene, in this order: what follows its last "//" below the workspace; the file name in
/// the workspace's "sourceimages"; the file name in the scene's folder. Gives `path` itself when none of them exists.
std::string findImageFile(const std::string& path);

/// The name of the texture that an image becomes: its file name without folder and last extension.
std::string imageNameOf(const std::string& path);

} // namespace tvk
