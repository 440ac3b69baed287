#include "host/mel/builtins.h"

#include "host/mel/Evaluator.h"
#include "host/mel/FlagSyntax.h"
#include "host/mel/environment.h"
#include "host/mel/operators.h"

#include <array>

namespace host::mel {

namespace {

ParsedFlags parsedFlags(BuiltinCall& call, const FlagSyntax& syntax) {
    FlagSyntax::Result parsed = syntax.parse({std::string(call.name), call.arguments, true, {}, 0});
    if (parsed.error.has_value()) {
        throw ScriptFailure(*parsed.error);
    }
    if (parsed.flags.objects.empty()) {
        throw ScriptFailure(messages::wrongArgumentCount(call.name));
    }
    return std::move(parsed.flags);
}

std::string joinedTexts(const std::vector<Argument>& arguments) {
    std::string joined;
    for (const Argument& argument : arguments) {
        joined += (joined.empty() ? "" : " ") + convertedOrFail(argument.value, ValueType::kString).text();
    }
    return joined;
}

void send(const std::function<void(const std::string&)>& sink, const std::string& text) {
    if (sink) {
        sink(text);
    }
}

Value runPrint(BuiltinCall& call) {
    send(call.evaluator.state().sinks.print, call.value(0).printText());
    return {};
}

// The flags of error and warning only shape how the host shows a message.
const FlagSyntax& messageSyntax() {
    static const FlagSyntax kSyntax({{"n", "noContext"}, {"sl", "showLineNumber", {FlagArgument::kBool}}});
    return kSyntax;
}

Value runError(BuiltinCall& call) {
    throw ScriptFailure(joinedTexts(parsedFlags(call, messageSyntax()).objects));
}

Value runWarning(BuiltinCall& call) {
    send(call.evaluator.state().sinks.warning, joinedTexts(parsedFlags(call, messageSyntax()).objects));
    return {};
}

Value runEval(BuiltinCall& call) {
    return call.evaluator.runText(joinedTexts(call.arguments), "eval", true);
}

Value runEvalEcho(BuiltinCall& call) {
    send(call.evaluator.state().sinks.info, joinedTexts(call.arguments));
    return runEval(call);
}

Value runEvalDeferred(BuiltinCall& call) {
    static const FlagSyntax kSyntax({{"en", "evaluateNext"}, {"lp", "lowestPriority"}, {"low", "lowPriority"}});
    call.evaluator.interpreter().defer(joinedTexts(parsedFlags(call, kSyntax).objects));
    return {};
}

Value runSource(BuiltinCall& call) {
    return call.evaluator.runScript(call.text(0));
}

Value runWhatIs(BuiltinCall& call) {
    const std::string name = call.text(0);
    const Callable callable = call.evaluator.find(name, false);
    const bool isLocal = callable.procedure != nullptr && !callable.procedure->isGlobal;
    return isLocal ? "Mel procedure entered interactively." : call.evaluator.interpreter().whatIs(name);
}

Value runExists(BuiltinCall& call) {
    const std::string name = call.text(0);
    const bool isVariable = !name.empty() && name.front() == '$';
    return !isVariable && runWhatIs(call).text() != "Unknown";
}

Value runGetenv(BuiltinCall& call) {
    return call.evaluator.interpreter().environment(call.text(0));
}

Value runPutenv(BuiltinCall& call) {
    call.evaluator.state().environment[call.text(0)] = call.text(1);
    return {};
}

// The names of all environment variables.
Value runEnv(BuiltinCall& call) {
    std::map<std::string, std::string, std::less<>> names = call.evaluator.state().environment;
    for (std::string& name : environmentNames()) {
        names.emplace(std::move(name), "");
    }
    StringArray sorted;
    for (const auto& [name, value] : names) {
        sorted.push_back(name);
    }
    return sorted;
}

constexpr std::array<Builtin, 12> kRows = {{
    {"print", 1, 1, runPrint},
    {"error", 1, kAnyCount, runError},
    {"warning", 1, kAnyCount, runWarning},
    {"eval", 1, kAnyCount, runEval},
    {"evalEcho", 1, kAnyCount, runEvalEcho},
    {"evalDeferred", 1, kAnyCount, runEvalDeferred},
    {"source", 1, 1, runSource},
    {"whatIs", 1, 1, runWhatIs},
    {"exists", 1, 1, runExists},
    {"getenv", 1, 1, runGetenv},
    {"putenv", 2, 2, runPutenv},
    {"env", 0, 0, runEnv},
}};

} // namespace

BuiltinFamily scriptFunctions() {
    return {kRows.data(), kRows.size()};
}

std::string Interpreter::environment(std::string_view name) const {
    const auto own = state_->environment.find(name);
    if (own != state_->environment.end()) {
        return own->second;
    }
    return environmentValue(std::string(name)).value_or("");
}

} // namespace host::mel
