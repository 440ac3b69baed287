#pragma once

#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

/// The open scene and its file.
class MFileIO {
public:
    MFileIO() = delete;

    /// Full path with '/'; "<project>/untitled" for a scene that came from no file.
    static MString currentFile();
    /// "mayaAscii".
    static MString fileType();
    static void getFileTypes(MStringArray& types);

    /// These run the `file` command and fail when it does; `type` may be null for the type that fits the name.
    static MStatus newFile(bool force = false);
    static MStatus open(const MString& fileName, const char* type = nullptr, bool force = false);
    static MStatus exportAll(const MString& fileName, const char* type = nullptr, bool preserveReferences = false);
    static MStatus exportSelected(const MString& fileName, const char* type = nullptr, bool preserveReferences = false);

    static bool isWritingFile();
    /// The file that an export is about to write. Fails, and gives "", outside exports.
    static MString beforeExportFilename(MStatus* ReturnStatus = nullptr);
};
