#include "host/app/checkNames.h"

#include "host/app/exitStatus.h"
#include "host/app/prepareHost.h"

#include <iostream>
#include <optional>

namespace host::app {

int checkNames(Host& host, Console& console, const CommandLine& commandLine) {
    const bool isReady = loadExporter(host, console, commandLine) && openScene(host, console, commandLine);
    // Without names, a selection is the scene's own.
    if (!isReady || (!commandLine.nodes.empty() && !selectNodes(host, console, commandLine.nodes))) {
        return kFailed;
    }
    const char* const target = commandLine.checksSelection ? "selection" : "all";
    const std::optional<mel::Value> result =
        runMel(host, console, std::string("TVK_CheckElementNameCmd -target ") + target);
    if (!result) {
        return kFailed;
    }
    const mel::StringArray& texts = result->strings();
    for (std::size_t i = 0; i + 1 < texts.size(); i += 2) {
        std::cout << texts[i] << '\t' << texts[i + 1] << '\n';
    }
    const bool isClean = texts.empty() && console.warnings() == 0;
    return commandLine.strict && !isClean ? kDoneWithWarnings : kDone;
}

} // namespace host::app
