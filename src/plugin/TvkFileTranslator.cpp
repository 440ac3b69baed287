#include "plugin/TvkFileTranslator.h"

#include "common/asciiText.h"
#include "export/exportRun.h"
#include "scene/OutputKind.h"
#include "scene/fileNames.h"
#include "scene/hostCompatibility.h"

#include <maya/MFileObject.h>

#include <algorithm>
#include <string>

namespace tvk {

void* TvkFileTranslator::create() {
    return new TvkFileTranslator;
}

TvkFileTranslator::~TvkFileTranslator() = default;

MStatus TvkFileTranslator::writer(const MFileObject& file, const MString& optionsString, FileAccessMode mode) {
    return exportFile(file, optionsString, mode);
}

bool TvkFileTranslator::haveReadMethod() const {
    return false;
}

bool TvkFileTranslator::haveWriteMethod() const {
    return true;
}

MString TvkFileTranslator::defaultExtension() const {
    return "imd";
}

MPxFileTranslator::MFileKind TvkFileTranslator::identifyFile(const MFileObject& file, const char* /*buffer*/,
                                                             short /*size*/) const {
    const std::string extension = lowerAscii(extensionOf(textOf(file.name())));
    const bool known = std::any_of(kOutputKinds.begin(), kOutputKinds.end(),
                                   [&](const OutputKindRow& row) { return row.extension == extension; });
    return known ? kIsMyFileType : kNotMyFileType;
}

} // namespace tvk
