#include "host/app/preview/previewPage.h"

#include "host/app/preview/ExportedFiles.h"
#include "host/app/preview/pageData.h"
#include "host/app/preview/pageParts.h"

#include "decode/FileError.h"

#include <stdexcept>

namespace host::app::preview {

std::string previewPage(const std::string& base) {
    const std::optional<PageParts> parts = pageParts();
    if (!parts) {
        throw std::runtime_error("this tvkexport was built without the preview; './tvk preview BASE' builds it with, "
                                 "and so does the CMake option TVK_PREVIEW");
    }
    const ExportedFiles files = readExportedFiles(base);
    try {
        std::string page(parts->start);
        page += pageData(files);
        page += parts->end;
        return page;
    } catch (const decode::FileError& error) {
        throw std::runtime_error(files.name + ".imd: " + error.what());
    }
}

} // namespace host::app::preview
