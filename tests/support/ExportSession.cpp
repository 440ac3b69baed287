#include "ExportSession.h"

#include "export/exportOptions.h"
#include "export/exportRun.h"

#include <maya/MFileObject.h>

#include <gtest/gtest.h>

namespace tvk {
namespace {

MFileObject fileObject(const std::string& path) {
    MFileObject file;
    file.setRawFullName(path.c_str());
    return file;
}

} // namespace

ExportSession::ExportSession() {
    run().options = ExportOptions{};
    run().clearScene();
    run().resetMessages();
}

MStatus ExportSession::exportAll(const std::string& options) {
    return exportTo(folder.path("model.imd"), options, MPxFileTranslator::kExportAccessMode);
}

MStatus ExportSession::exportSelected(const std::string& options) {
    return exportTo(folder.path("model.imd"), options, MPxFileTranslator::kExportActiveAccessMode);
}

MStatus ExportSession::exportTo(const std::string& fileName, const std::string& options,
                                MPxFileTranslator::FileAccessMode mode) {
    return exportFile(fileObject(fileName), options.c_str(), mode);
}

void ExportSession::prepareRun(const std::string& options, MPxFileTranslator::FileAccessMode mode) {
    run().resetMessages();
    run().clearScene();
    resetOptions(fileObject(folder.path("model.imd")), mode);
    parseOptions(options.c_str());
    EXPECT_TRUE(validateOptions());
}

} // namespace tvk
