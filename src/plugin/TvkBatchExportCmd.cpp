#include "plugin/TvkBatchExportCmd.h"

#include "export/BatchExport.h"
#include "plugin/hostCall.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"

#include <maya/MArgDatabase.h>

namespace tvk {
namespace {

constexpr const char* kBatchFlag = "b";

} // namespace

void* TvkBatchExportCmd::create() {
    return new TvkBatchExportCmd;
}

MSyntax TvkBatchExportCmd::newSyntax() {
    MSyntax syntax;
    syntax.addFlag(kBatchFlag, "batch", MSyntax::kString);
    return syntax;
}

TvkBatchExportCmd::~TvkBatchExportCmd() = default;

MStatus TvkBatchExportCmd::doIt(const MArgList& arguments) {
    return hostCall([&]() -> MStatus {
        MStatus status;
        const MArgDatabase parsed(syntax(), arguments, &status);
        const bool isGiven = status && parsed.isFlagSet(kBatchFlag) &&
                             parsed.getFlagArgument(kBatchFlag, 0, listPath) && listPath.length() > 0;
        if (!isGiven || run().underWay) { // a batch inside an export would take its messages away
            return MS::kFailure;
        }
        run().resetMessages();
        return BatchExport().run(textOf(listPath));
    });
}

} // namespace tvk
