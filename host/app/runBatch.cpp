#include "host/app/runBatch.h"

#include "host/api/melText.h"
#include "host/app/exitStatus.h"
#include "host/app/exporterPlugin.h"
#include "host/app/prepareHost.h"

namespace host::app {

int runBatch(Host& host, Console& console, const CommandLine& commandLine) {
    if (!loadExporter(host, console, commandLine) ||
        !runMel(host, console, "TVK_BatchExportCmd -batch " + melString(commandLine.batch))) {
        return kFailed;
    }
    const bool wasWarned = console.warnings() != 0 || exportWasWarned(host);
    return commandLine.strict && wasWarned ? kDoneWithWarnings : kDone;
}

} // namespace host::app
