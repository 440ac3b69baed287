// Libraries that are no good plug-ins, one per definition of HOST_TEST_BREAK_….

#ifdef HOST_TEST_BREAK_VERSION
#define MNoVersionString
#endif
#ifdef HOST_TEST_BREAK_OLD
#define MNoVersionString
#endif
#ifdef HOST_TEST_BREAK_ENTRY
#define MNoPluginEntry
#endif

#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>

#include <stdexcept>

#ifdef HOST_TEST_BREAK_OLD
extern "C" PLUGIN_EXPORT const char MApiVersion[];
const char MApiVersion[] = "500";
#endif

#ifndef HOST_TEST_BREAK_ENTRY
MStatus initializePlugin(MObject object) {
    MFnPlugin plugin(object);
    plugin.registerFileTranslator("Broken", "", [] { return static_cast<void*>(nullptr); });
#ifdef HOST_TEST_BREAK_THROW
    throw std::runtime_error("no luck");
#else
    return MStatus::kFailure;
#endif
}

MStatus uninitializePlugin(MObject) {
    return MStatus::kSuccess;
}
#endif
