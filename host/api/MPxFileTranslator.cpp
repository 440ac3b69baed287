#include <maya/MPxFileTranslator.h>

#include "host/api/Host.h"

MPxFileTranslator::MPxFileTranslator() = default;
MPxFileTranslator::~MPxFileTranslator() = default;

MStatus MPxFileTranslator::reader(const MFileObject&, const MString&, FileAccessMode) {
    return MStatus::kNotImplemented;
}

MStatus MPxFileTranslator::writer(const MFileObject&, const MString&, FileAccessMode) {
    return MStatus::kNotImplemented;
}

bool MPxFileTranslator::haveReadMethod() const {
    return false;
}

bool MPxFileTranslator::haveWriteMethod() const {
    return false;
}

bool MPxFileTranslator::haveNamespaceSupport() const {
    return false;
}

MString MPxFileTranslator::defaultExtension() const {
    return {};
}

MString MPxFileTranslator::filter() const {
    return MString("*.") + defaultExtension();
}

bool MPxFileTranslator::canBeOpened() const {
    return true;
}

MPxFileTranslator::MFileKind MPxFileTranslator::identifyFile(const MFileObject&, const char*, short) const {
    return kCouldBeMyFileType;
}

MPxFileTranslator::FileAccessMode MPxFileTranslator::fileAccessMode() {
    return host::Host::instance().fileAccessMode;
}
