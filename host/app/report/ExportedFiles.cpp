#include "host/app/report/ExportedFiles.h"

#include "host/app/report/nameText.h"

namespace host::app::report {

ExportedFiles readExportedFiles(const std::string& base, const std::string& shown,
                                const std::vector<std::string>& kinds) {
    try {
        ExportedFiles files = decode::readExportedFiles(base, shown, kinds);
        if (files.sizes.empty()) {
            throw ReportError("there are no exported files: " + shown + ".imd, .ica, .ima, .itp, .iva, .ita");
        }
        return files;
    } catch (const decode::ExportedFilesError& error) {
        throw ReportError(utf8Message(error));
    }
}

} // namespace host::app::report
