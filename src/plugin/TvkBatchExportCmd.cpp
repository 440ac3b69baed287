#include "plugin/TvkBatchExportCmd.h"

#include "plugin/hostCall.h"
#include "plugin/pluginMessages.h"

namespace tvk {

void* TvkBatchExportCmd::create() {
    return new TvkBatchExportCmd;
}

MSyntax TvkBatchExportCmd::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("b", "batch", MSyntax::kString);
    return syntax;
}

TvkBatchExportCmd::~TvkBatchExportCmd() = default;

MStatus TvkBatchExportCmd::doIt(const MArgList& /*arguments*/) {
    return hostCall([]() -> MStatus {
        displayError(kBatchNotInVersion);
        return MS::kFailure;
    });
}

} // namespace tvk
