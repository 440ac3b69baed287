#include "host/app/preview/previewPage.h"

#include "host/app/preview/pageData.h"
#include "host/app/preview/pageParts.h"

#include "decode/ExportedFiles.h"
#include "decode/FileError.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace host::app::preview {

std::string previewPage(const std::string& base) {
    const std::optional<PageParts> parts = pageParts();
    if (!parts) {
        throw std::runtime_error("this tvkexport was built without the preview; './tvk preview BASE' builds it with, "
                                 "and so does the CMake option TVK_PREVIEW");
    }
    std::vector<std::string> kinds;
    std::transform(decode::kFileKinds.begin(), decode::kFileKinds.end(), std::back_inserter(kinds),
                   [](const decode::FileKind& kind) { return kind.ending; });
    const decode::ExportedFiles files = decode::readExportedFiles(base, base, kinds);
    if (!files.model) {
        throw std::runtime_error("there is no " + base + ".imd: a preview needs the model");
    }
    try {
        std::string page(parts->start);
        page += pageData(files);
        page += parts->end;
        return page;
    } catch (const decode::FileError& error) {
        throw decode::ExportedFilesError(base + ".imd: ", error.what());
    }
}

} // namespace host::app::preview
