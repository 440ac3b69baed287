#pragma once

#include <maya/MFnBase.h>
#include <maya/MPxCommand.h>
#include <maya/MPxFileTranslator.h>
#include <maya/MSyntax.h>
#include <maya/MTypes.h>

// Include this in one source file of a plug-in: it declares the entry points and defines MApiVersion, by which the host
// sees what the plug-in was built for. Any other file defines MNoPluginEntry and MNoVersionString before.

using MCreatorFunction = void* (*)();
using MCreateSyntaxFunction = MSyntax (*)();

/// What a plug-in says of itself and what it adds to the host.
class MFnPlugin : public MFnBase {
public:
    /// On the object that initializePlugin or uninitializePlugin got; any other fails, as does a required API version
    /// that is not "Any" nor a number up to the host's. Vendor and version are kept while the plug-in initialises.
    explicit MFnPlugin(MObject& plugin, const char* vendor = "Unknown", const char* version = "Unknown",
                       const char* requiredApiVersion = "Any", MStatus* ReturnStatus = nullptr);
    ~MFnPlugin() override;

    MFn::Type type() const override;

    MString vendor(MStatus* ReturnStatus = nullptr) const;
    MString version(MStatus* ReturnStatus = nullptr) const;
    MString apiVersion(MStatus* ReturnStatus = nullptr) const;
    MString name(MStatus* ReturnStatus = nullptr) const;
    /// Folder of the library, without a separator at its end.
    MString loadPath(MStatus* ReturnStatus = nullptr) const;

    /// Names are unique over all plug-ins; registering a taken one, an empty one or a null creator fails, and so does
    /// deregistering one that this plug-in has not registered.
    MStatus registerFileTranslator(const MString& translatorName, const char* pixmapName,
                                   MCreatorFunction creatorFunction, const char* optionsScriptName = nullptr,
                                   const char* defaultOptionsString = nullptr, bool requiresFullMel = false);
    MStatus deregisterFileTranslator(const MString& translatorName);
    MStatus registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                            MCreateSyntaxFunction createSyntaxFunction = nullptr);
    MStatus deregisterCommand(const MString& commandName);
};

#ifndef MNoPluginEntry
PLUGIN_EXPORT MStatus initializePlugin(MObject plugin);
PLUGIN_EXPORT MStatus uninitializePlugin(MObject plugin);
#endif

#ifndef MNoVersionString
#define HOST_API_VERSION_DIGITS(version) #version
#define HOST_API_VERSION_TEXT(version) HOST_API_VERSION_DIGITS(version)
extern "C" PLUGIN_EXPORT const char MApiVersion[];
const char MApiVersion[] = HOST_API_VERSION_TEXT(MAYA_API_VERSION);
#undef HOST_API_VERSION_TEXT
#undef HOST_API_VERSION_DIGITS
#endif
