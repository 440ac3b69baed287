#include "plugin/TvkCheckElementNameCmd.h"

#include "plugin/hostCall.h"
#include "plugin/pluginMessages.h"

namespace tvk {

void* TvkCheckElementNameCmd::create() {
    return new TvkCheckElementNameCmd;
}

MSyntax TvkCheckElementNameCmd::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("t", "target", MSyntax::kString);
    return syntax;
}

TvkCheckElementNameCmd::~TvkCheckElementNameCmd() = default;

MStatus TvkCheckElementNameCmd::doIt(const MArgList& /*arguments*/) {
    return hostCall([]() -> MStatus {
        displayError(kNameCheckNotInVersion);
        return MS::kFailure;
    });
}

} // namespace tvk
