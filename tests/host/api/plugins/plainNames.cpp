// Entry points with plain C names, one command that stays registered when the plug-in goes, and a handle that the
// plug-in keeps longer than it may.

#define MNoPluginEntry
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>

namespace {

MObject kept;

class PlainCommand : public MPxCommand {
public:
    static void* create() { return new PlainCommand; }

    /// 1 when the kept handle still counts as a plug-in.
    MStatus doIt(const MArgList&) override {
        MStatus status;
        const MFnPlugin plugin(kept, "", "", "Any", &status);
        setResult(status == MStatus::kSuccess);
        return MStatus::kSuccess;
    }
};

} // namespace

extern "C" PLUGIN_EXPORT MStatus initializePlugin(MObject object) {
    kept = object;
    MFnPlugin plugin(object);
    return plugin.registerCommand("plainCommand", PlainCommand::create);
}

extern "C" PLUGIN_EXPORT MStatus uninitializePlugin(MObject) {
    return MStatus::kSuccess;
}
