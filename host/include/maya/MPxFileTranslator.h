#pragma once

#include <maya/MFileObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

/// Base of file types that a plug-in adds. The host makes an object for each use and deletes it afterwards; it calls
/// reader and writer only when haveReadMethod or haveWriteMethod says so.
class MPxFileTranslator {
public:
    enum MFileKind { kIsMyFileType = 0, kCouldBeMyFileType = 1, kNotMyFileType = 2 };
    enum FileAccessMode {
        kUnknownAccessMode = 0,
        kOpenAccessMode = 1,
        kReferenceAccessMode = 2,
        kImportAccessMode = 3,
        kSaveAccessMode = 4,
        kExportAccessMode = 5,       // file -ea
        kExportActiveAccessMode = 6, // file -es
    };

    MPxFileTranslator();
    virtual ~MPxFileTranslator();
    MPxFileTranslator(const MPxFileTranslator&) = delete;
    MPxFileTranslator& operator=(const MPxFileTranslator&) = delete;

    /// The base ones fail with kNotImplemented.
    virtual MStatus reader(const MFileObject& file, const MString& optionsString, FileAccessMode mode);
    virtual MStatus writer(const MFileObject& file, const MString& optionsString, FileAccessMode mode);
    virtual bool haveReadMethod() const;       // false
    virtual bool haveWriteMethod() const;      // false
    virtual bool haveNamespaceSupport() const; // false
    virtual MString defaultExtension() const;  // ""
    virtual MString filter() const;            // "*." and the default extension
    virtual bool canBeOpened() const;          // true
    virtual MFileKind identifyFile(const MFileObject& file, const char* buffer, short size) const; // kCouldBeMyFileType

    /// How the file is used whose reader or writer runs; kUnknownAccessMode when none does.
    static FileAccessMode fileAccessMode();
};
