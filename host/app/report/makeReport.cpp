#include "host/app/report/makeReport.h"

#include "host/app/report/animationCosts.h"
#include "host/app/report/modelCosts.h"
#include "host/app/report/textureMemory.h"

namespace host::app::report {

Report makeReport(const ExportedFiles& files) {
    Report report;
    report.base = files.base;
    for (const FileKind& kind : kFileKinds) {
        const std::optional<std::uint64_t> bytes = files.bytesOf(kind.ending);
        report.files.push_back(
            {files.nameOf(kind.ending), kind.ending, bytes.has_value(), static_cast<std::int64_t>(bytes.value_or(0))});
    }
    report.hasTextures = files.model || !files.textures.images.empty();
    report.textures = memoryOf(files.textures);
    report.hasModel = files.model.has_value();
    if (report.hasModel) {
        report.model = costsOfModel(files, report.textures);
        report.limits = limitsOf(report.model);
    }
    report.animations = costsOfAnimations(files);
    return report;
}

} // namespace host::app::report
