#pragma once

#include <maya/MPxFileTranslator.h>

namespace tvk {

/// The way in for every export. The host makes one per use; it holds nothing.
class TvkFileTranslator : public MPxFileTranslator {
public:
    static void* create();

    ~TvkFileTranslator() override;
    MStatus writer(const MFileObject& file, const MString& optionsString, FileAccessMode mode) override;
    bool haveReadMethod() const override;
    bool haveWriteMethod() const override;
    MString defaultExtension() const override;
    /// By the extension of the file's name, in any case; the file's content is not looked at.
    MFileKind identifyFile(const MFileObject& file, const char* buffer, short size) const override;
};

} // namespace tvk
