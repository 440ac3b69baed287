// The entry points that the host calls when it loads and unloads the library.

#include "export/envelope.h"
#include "export/translatorName.h"
#include "plugin/TvkBatchExportCmd.h"
#include "plugin/TvkCheckElementNameCmd.h"
#include "plugin/TvkFileTranslator.h"
#include "plugin/hostCall.h"
#include "plugin/pluginMessages.h"
#include "scene/hostCompatibility.h"

#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>

#include <string>

namespace tvk {
namespace {

const std::string kPluginVersion = std::string(kExporterVersion) + " (Release)";

// Old kits take the pixmap and script names as writable text.
char noPixmap[] = "";
char optionsScript[] = "TVK_ExportOpts";
char defaultOptions[] = "";

// Shows what failed; hands the status on.
MStatus reported(const MStatus& status, const char* what) {
    if (!status) {
        MGlobal::displayError(what);
    }
    return status;
}

MStatus registerAll(MObject& object) {
    MFnPlugin plugin(object, "KALDERA ZEPHRA-System", kPluginVersion.c_str(), "1.0");
    MStatus status = reported(plugin.registerFileTranslator(kTranslatorName, noPixmap, TvkFileTranslator::create,
                                                            optionsScript, defaultOptions, true),
                              kRegisterTranslator);
    if (status) {
        status = reported(plugin.registerCommand(TvkCheckElementNameCmd::kName, TvkCheckElementNameCmd::create,
                                                 TvkCheckElementNameCmd::newSyntax),
                          kRegisterCheckCommand);
    }
    if (status) {
        status = reported(
            plugin.registerCommand(TvkBatchExportCmd::kName, TvkBatchExportCmd::create, TvkBatchExportCmd::newSyntax),
            kRegisterBatchCommand);
    }
    return status;
}

// In the order of registration, as the host's own tools expect it, not in reverse.
MStatus deregisterAll(MObject& object) {
    MFnPlugin plugin(object, "Unknown", "Unknown", "Any");
    MStatus status = reported(plugin.deregisterFileTranslator(kTranslatorName), kDeregisterTranslator);
    if (status) {
        status = reported(plugin.deregisterCommand(TvkCheckElementNameCmd::kName), kDeregisterCheckCommand);
    }
    if (status) {
        status = reported(plugin.deregisterCommand(TvkBatchExportCmd::kName), kDeregisterBatchCommand);
    }
    return status;
}

} // namespace
} // namespace tvk

PLUGIN_EXPORT MStatus initializePlugin(MObject object) {
    return tvk::hostCall([&] { return tvk::registerAll(object); });
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject object) {
    return tvk::hostCall([&] { return tvk::deregisterAll(object); });
}
