#include "host/app/report/makeReport.h"

#include "host/app/report/animationCosts.h"
#include "host/app/report/modelCosts.h"
#include "host/app/report/textureMemory.h"

namespace host::app::report {

Report makeReport(const ExportedFiles& files) {
    Report report;
    report.base = files.base;
    for (const FileKind& kind : kFileKinds) {
        FileCosts file{files.nameOf(kind.ending), kind.ending, false, 0};
        for (const ExportedFiles::Size& size : files.sizes) {
            if (size.kind == kind.ending) {
                file.isThere = true;
                file.bytes = static_cast<std::int64_t>(size.bytes);
            }
        }
        report.files.push_back(file);
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
