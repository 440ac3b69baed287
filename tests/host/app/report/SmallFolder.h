#pragma once

#include "smallFiles.h"

#include "host/app/report/ExportedFiles.h"

#include "TemporaryFolder.h"

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace host::app::report {

/// A folder with files under the base "small".
class SmallFolder {
public:
    void write(const std::string& kind, const std::string& text) const {
        std::ofstream(base() + "." + kind, std::ios::binary) << text;
    }
    std::string text(const std::string& kind) const {
        std::ifstream stream(base() + "." + kind, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    /// All six.
    void writeAll() const {
        write("imd", smallModel());
        write("ica", smallNodeAnimation());
        write("ima", smallColorAnimation());
        write("itp", smallPatternAnimation());
        write("iva", smallVisibilityAnimation());
        write("ita", smallPlacementAnimation());
    }
    /// What stands there, shown as "out/small".
    ExportedFiles read(const std::vector<std::string>& kinds = {"imd", "ica", "ima", "itp", "iva", "ita"}) const {
        return readExportedFiles(base(), "out/small", kinds);
    }
    std::string base() const { return folder_.path("small"); }

private:
    tvk::TemporaryFolder folder_;
};

} // namespace host::app::report
