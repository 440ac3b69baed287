#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "host/mel/Value.h"

namespace host::mel {

// Storage of one variable. Its type is fixed by its declaration, or by its first assignment when it has none.
struct Variable {
    ValueType type = ValueType::kNone;
    Value value;                    // of that type; none as long as the type is not known
    Variable* target = nullptr;     // an array parameter stands for the caller's variable
    bool hasRunInitializer = false; // `global int $x = 1;` assigns once, however often it is run

    Variable& resolved() { return target != nullptr ? *target : *this; }

    void declare(ValueType declared) {
        if (type == ValueType::kNone) {
            type = declared;
            value = Value::defaultOf(declared);
        }
    }
};

// Global variables are never removed, so their addresses hold.
using GlobalVariables = std::map<std::string, std::unique_ptr<Variable>, std::less<>>;

} // namespace host::mel
