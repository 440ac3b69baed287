#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/Plugin.h"
#include "host/api/statusResult.h"

using host::ApiAccess;
using host::fail;
using host::Host;
using host::Plugin;
using host::succeed;

namespace {

Plugin* pluginOf(const MObject& object) {
    const host::PluginObject* payload = ApiAccess::plugin(object);
    return payload != nullptr ? payload->plugin : nullptr;
}

std::string textOf(const char* text, const char* otherwise) {
    return text != nullptr ? text : otherwise;
}

bool acceptsApiVersion(const char* required) {
    const MString text(required != nullptr ? required : "Any");
    return text == "Any" || (text.isDouble() && text.asDouble() <= MAYA_API_VERSION);
}

template <class Answer>
MString ask(const MObject& object, MStatus* status, Answer answer) {
    const Plugin* plugin = pluginOf(object);
    return plugin != nullptr ? succeed(status, MString(std::string(answer(*plugin)).c_str()))
                             : fail<MString>(status, MStatus::kFailure);
}

} // namespace

MFnPlugin::MFnPlugin(MObject& plugin, const char* vendor, const char* version, const char* requiredApiVersion,
                     MStatus* ReturnStatus) {
    Plugin* target = pluginOf(plugin);
    if (target == nullptr || !acceptsApiVersion(requiredApiVersion)) {
        host::report(ReturnStatus, MStatus::kInvalidParameter);
        return;
    }
    object_ = plugin;
    if (target->initialising) {
        target->vendor = textOf(vendor, "Unknown");
        target->version = textOf(version, "Unknown");
    }
    host::report(ReturnStatus, MStatus::kSuccess);
}

MFnPlugin::~MFnPlugin() = default;

MFn::Type MFnPlugin::type() const {
    return MFn::kPlugin;
}

MString MFnPlugin::vendor(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, [](const Plugin& plugin) { return plugin.vendor; });
}

MString MFnPlugin::version(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, [](const Plugin& plugin) { return plugin.version; });
}

MString MFnPlugin::apiVersion(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, [](const Plugin& plugin) { return plugin.apiVersion; });
}

MString MFnPlugin::name(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, [](const Plugin& plugin) { return plugin.name; });
}

MString MFnPlugin::loadPath(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus,
               [](const Plugin& plugin) { return plugin.path.substr(0, plugin.path.rfind('/')); });
}

MStatus MFnPlugin::registerFileTranslator(const MString& translatorName, const char* pixmapName,
                                          MCreatorFunction creatorFunction, const char* optionsScriptName,
                                          const char* defaultOptionsString, bool requiresFullMel) {
    Plugin* plugin = pluginOf(object_);
    if (plugin == nullptr) {
        return MStatus::kFailure;
    }
    host::TranslatorEntry entry;
    entry.name = translatorName.asChar();
    entry.pixmap = textOf(pixmapName, "");
    entry.optionsScript = textOf(optionsScriptName, "");
    entry.defaultOptions = textOf(defaultOptionsString, "");
    entry.create = creatorFunction;
    entry.requiresFullMel = requiresFullMel;
    return Host::instance().plugins().registerTranslator(*plugin, entry);
}

MStatus MFnPlugin::deregisterFileTranslator(const MString& translatorName) {
    Plugin* plugin = pluginOf(object_);
    return plugin != nullptr ? Host::instance().plugins().deregisterTranslator(*plugin, translatorName.asChar())
                             : MStatus(MStatus::kFailure);
}

MStatus MFnPlugin::registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                                   MCreateSyntaxFunction createSyntaxFunction) {
    Plugin* plugin = pluginOf(object_);
    return plugin != nullptr ? Host::instance().plugins().registerCommand(
                                   *plugin, {commandName.asChar(), creatorFunction, createSyntaxFunction})
                             : MStatus(MStatus::kFailure);
}

MStatus MFnPlugin::deregisterCommand(const MString& commandName) {
    Plugin* plugin = pluginOf(object_);
    return plugin != nullptr ? Host::instance().plugins().deregisterCommand(*plugin, commandName.asChar())
                             : MStatus(MStatus::kFailure);
}
