#include <maya/MFileIO.h>

#include "host/api/Host.h"
#include "host/api/filePaths.h"
#include "host/api/melText.h"
#include "host/api/statusResult.h"

using host::Host;

namespace {

MStatus runFile(const std::string& flags, const char* type, const MString& fileName) {
    const std::string typeFlag = type != nullptr ? " -typ " + host::melString(type) : std::string();
    const std::string command = "file " + flags + typeFlag + " " + host::melString(fileName.asChar());
    return Host::instance().execute(command).ok() ? MStatus::kSuccess : MStatus::kFailure;
}

} // namespace

MString MFileIO::currentFile() {
    host::Scene& scene = Host::instance().scene();
    const std::string& path = scene.file().path;
    return path.empty() ? MString((scene.workspace().rootDirectory() + "untitled").c_str())
                        : MString(host::absolutePath(path).c_str());
}

MString MFileIO::fileType() {
    return "mayaAscii";
}

void MFileIO::getFileTypes(MStringArray& types) {
    types.clear();
    types.append(fileType());
    for (const host::TranslatorEntry* translator : Host::instance().plugins().translators()) {
        types.append(translator->name.c_str());
    }
}

MStatus MFileIO::newFile(bool force) {
    host::Scene& scene = Host::instance().scene();
    if (scene.file().modified && !force) {
        return MStatus::kFailure;
    }
    scene.newScene();
    return MStatus::kSuccess;
}

MStatus MFileIO::open(const MString& fileName, const char* type, bool force) {
    return runFile(force ? "-f -o" : "-o", type, fileName);
}

MStatus MFileIO::exportAll(const MString& fileName, const char* type, bool preserveReferences) {
    return runFile(preserveReferences ? "-f -pr -ea" : "-f -ea", type, fileName);
}

MStatus MFileIO::exportSelected(const MString& fileName, const char* type, bool preserveReferences) {
    return runFile(preserveReferences ? "-f -pr -es" : "-f -es", type, fileName);
}

bool MFileIO::isWritingFile() {
    return !Host::instance().exportPath.empty();
}

MString MFileIO::beforeExportFilename(MStatus* ReturnStatus) {
    const std::string& path = Host::instance().exportPath;
    return path.empty() ? host::fail<MString>(ReturnStatus, MStatus::kFailure)
                        : host::succeed(ReturnStatus, MString(path.c_str()));
}
