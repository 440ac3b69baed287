#include "host/mel/builtins.h"

#include "host/mel/ScriptFailure.h"
#include "host/mel/messages.h"
#include "host/mel/operators.h"

#include <unordered_map>

namespace host::mel {

std::string BuiltinCall::text(std::size_t index) const {
    return convertedOrFail(value(index), ValueType::kString).text();
}

double BuiltinCall::number(std::size_t index) const {
    return convertedOrFail(value(index), ValueType::kFloat).toFloat();
}

std::int64_t BuiltinCall::integer(std::size_t index) const {
    return convertedOrFail(value(index), ValueType::kInt).toInt();
}

Vector BuiltinCall::vector(std::size_t index) const {
    return convertedOrFail(value(index), ValueType::kVector).toVector();
}

const StringArray& BuiltinCall::strings(std::size_t index) const {
    const bool isEmptyArray = value(index).isArray() && value(index).size() == 0;
    if (value(index).type() != ValueType::kStringArray && !isEmptyArray) {
        throw ScriptFailure(messages::wrongArgumentType(name, typeName(value(index).type())));
    }
    return value(index).strings();
}

Variable& BuiltinCall::arrayVariable(std::size_t index) {
    Variable* variable = variables[index];
    if (variable == nullptr || !isArrayType(variable->type)) {
        throw ScriptFailure(messages::needsArrayVariable(name));
    }
    arguments[index].value = Value();
    return *variable;
}

const Builtin* findBuiltin(std::string_view name) {
    static const auto kByName = [] {
        std::unordered_map<std::string_view, const Builtin*> byName;
        for (const BuiltinFamily family : {stringFunctions(), pathFunctions(), arrayFunctions(), mathFunctions(),
                                           vectorFunctions(), scriptFunctions()}) {
            for (std::size_t row = 0; row < family.count; ++row) {
                byName.emplace(family.rows[row].name, family.rows + row);
            }
        }
        return byName;
    }();
    const auto found = kByName.find(name);
    return found != kByName.end() ? found->second : nullptr;
}

} // namespace host::mel
