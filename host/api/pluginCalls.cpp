#include "host/api/pluginCalls.h"

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"

#include <array>
#include <exception>
#include <memory>
#include <new>

namespace host {

namespace {

using EntryPoint = MStatus (*)(MObject);

struct EntryName {
    const char* plain;
    std::array<const char*, 2> mangled; // by the compilers that follow the Itanium C++ ABI, and by Microsoft's
};

constexpr EntryName kEntryNames[] = {
    {"initializePlugin", {"_Z16initializePlugin7MObject", "?initializePlugin@@YA?AVMStatus@@VMObject@@@Z"}},
    {"uninitializePlugin", {"_Z18uninitializePlugin7MObject", "?uninitializePlugin@@YA?AVMStatus@@VMObject@@@Z"}},
};

EntryPoint findEntryPoint(const SharedLibrary& library, const std::string& name) {
    for (const EntryName& entry : kEntryNames) {
        if (name != entry.plain) {
            continue;
        }
        for (const char* symbol : {entry.mangled[0], entry.mangled[1], entry.plain}) {
            if (void* found = library.find(symbol)) {
                return reinterpret_cast<EntryPoint>(found);
            }
        }
    }
    return nullptr;
}

/// Counts one use of a plug-in.
class Use {
public:
    explicit Use(Plugin& plugin) : plugin_(plugin) { ++plugin_.uses; }
    ~Use() { --plugin_.uses; }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    Plugin& plugin_;
};

/// Holds a value while something runs and brings the old one back.
template <class T>
class Scoped {
public:
    Scoped(T& place, T value) : place_(place), before_(place) { place = value; }
    ~Scoped() { place_ = before_; }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;

private:
    T& place_;
    T before_;
};

void addArgument(const mel::Value& value, MArgList& list) {
    if (value.isArray()) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            addArgument(value.element(i), list);
        }
    } else if (value.type() == mel::ValueType::kVector) {
        const mel::Vector vector = value.toVector();
        for (const double number : {vector.x, vector.y, vector.z}) {
            list.addArg(number);
        }
    } else {
        list.addArg(MString(value.toText().c_str()));
    }
}

} // namespace

std::optional<std::string> runPluginCode(Host& host, Plugin& plugin, const std::function<void()>& code) {
    const Use use(plugin);
    host.showUnits();
    try {
        code();
        return std::nullopt;
    } catch (const std::bad_alloc&) {
        return "out of memory in plug-in '" + plugin.name + "'";
    } catch (const std::exception& exception) {
        return "plug-in '" + plugin.name + "' threw an exception: " + exception.what();
    } catch (...) {
        return "plug-in '" + plugin.name + "' threw an exception";
    }
}

std::optional<std::string> callEntryPoint(Host& host, Plugin& plugin, const char* name) {
    const EntryPoint entry = findEntryPoint(plugin.library, name);
    if (entry == nullptr) {
        return "it has no " + std::string(name);
    }
    const MObject object = ApiAccess::object(ObjectPayload{PluginObject{&plugin}});
    MStatus status;
    auto thrown = runPluginCode(host, plugin, [&] { status = entry(object); });
    ApiAccess::plugin(object)->plugin = nullptr; // a handle that the plug-in kept is good for nothing from here on
    if (thrown) {
        return thrown;
    }
    return status == MStatus::kSuccess ? std::nullopt : std::optional(std::string(name) + " failed");
}

mel::CommandResult runPluginCommand(Host& host, Plugin& plugin, const CommandEntry& entry,
                                    const mel::Invocation& invocation) {
    mel::Value result;
    MStatus status = MStatus::kFailure;
    const Scoped<mel::Value*> results(host.commandResult, &result);
    const auto thrown = runPluginCode(host, plugin, [&] {
        const std::unique_ptr<MPxCommand> command(static_cast<MPxCommand*>(entry.create()));
        if (!command) {
            return;
        }
        if (entry.createSyntax != nullptr) {
            ApiAccess::setSyntax(*command, entry.createSyntax());
        }
        status = command->doIt(argumentList(invocation));
    });
    if (thrown) {
        return mel::CommandResult::failure(*thrown);
    }
    if (status != MStatus::kSuccess) {
        return mel::CommandResult::failure(entry.name + " failed");
    }
    return result;
}

MArgList argumentList(const mel::Invocation& invocation) {
    MArgList list;
    for (const mel::Argument& argument : invocation.arguments) {
        addArgument(argument.value, list);
    }
    return list;
}

} // namespace host
