#include "VerifiedExport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tvk {

namespace report = host::app::report;
namespace verify = host::app::verify;

void VerifiedExport::exportSample(const std::string& name, const std::string& options) {
    const std::string samples = std::string(TVK_SOURCE_DIR) + "/samples/";
    mel("workspace -o \"" + samples + "\"; file -f -o \"" + samples + name + ".ma\"");
    exportOpen(options);
}

void VerifiedExport::exportOpen(const std::string& options, bool selection) {
    selection_ = selection;
    texts.clear();
    ASSERT_TRUE(selection ? exportSelected(options) : exportAll(options)) << takeMessages();
    for (const report::FileKind& kind : report::kFileKinds) {
        const std::string name = std::string("model.") + kind.ending;
        if (hasFile(name)) {
            texts[kind.ending] = fileText(name);
        }
    }
}

std::string VerifiedExport::firstFinding() {
    std::vector<std::string> kinds;
    for (const auto& [kind, text] : texts) {
        kinds.push_back(kind);
    }
    try {
        last = verify::verifyExport(report::readExportedFiles(folder.path("model"), "model", kinds), selection_);
    } catch (const report::ReportError& error) {
        return error.what();
    }
    EXPECT_EQ(last.isGood(), last.findings().empty());
    return last.isGood() ? std::string() : last.findings().front();
}

std::string VerifiedExport::findingWith(const std::string& kind, const std::string& text) {
    const std::filesystem::path path = std::filesystem::u8path(folder.path("model." + kind));
    std::ofstream(path, std::ios::binary) << text;
    std::string finding = firstFinding();
    std::ofstream(path, std::ios::binary) << texts.at(kind);
    return finding;
}

} // namespace tvk
