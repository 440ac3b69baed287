#pragma once

#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

/// A path in two forms: raw as it was given, resolved as an absolute path with '/' only. Nothing needs to exist.
class MFileObject {
public:
    enum MFileResolveMethod {
        kNone = 1,
        kExact = 2,
        kDirMap = 4,
        kReferenceMappings = 8,
        kRelative = 16,
        kBaseName = 32,
        kInputFile = 54,
        kInputReference = 62,
        kStrict = 6,
    };

    MFileObject();
    MFileObject(const MFileObject& other);
    ~MFileObject();
    MFileObject& operator=(const MFileObject& other);

    MStatus setRawFullName(const MString& fullName);
    MStatus setRawName(const MString& name);
    MStatus setRawPath(const MString& path);
    MStatus setFullName(const MString& fullName);
    MStatus setName(const MString& name);

    MString rawFullName() const;
    MString rawName() const;
    MString rawPath() const;

    /// The same as resolvedFullName, resolvedName and resolvedPath.
    MString fullName() const;
    MString name() const;
    MString path() const;

    /// Relative names are taken from the current folder of the workspace.
    MString resolvedFullName() const;
    /// Last component, with extension.
    MString resolvedName() const;
    /// Folder with a '/' at its end, so that path() + name() is fullName().
    MString resolvedPath() const;
    /// Raw forms with environment variables ($NAME, ${NAME}) and "~" replaced.
    MString expandedFullName() const;
    MString expandedPath() const;

    bool exists() const;
    bool isSet() const;
    unsigned int pathCount() const;
    MString ithPath(unsigned int index) const;
    MString ithFullName(unsigned int index) const;

private:
    MString path_, name_; // raw; path_ keeps its separator
};
