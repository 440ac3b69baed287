#include "host/mel/builtins.h"

#include "host/mel/Evaluator.h"
#include "host/mel/operators.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_set>

namespace host::mel {

namespace {

// What the functions of one element type share: string…, int… and floatArrayContains and their kin.
struct Ints {
    using Array = IntArray;
    static constexpr ValueType kType = ValueType::kIntArray;
    static const Array& of(const Value& value) { return value.ints(); }
    static Array& edit(Value& value) { return value.editInts(); }
    static std::int64_t element(const Value& value) { return value.toInt(); }
    static std::string text(std::int64_t element) { return Value(element).toText(); }
};

struct Floats {
    using Array = FloatArray;
    static constexpr ValueType kType = ValueType::kFloatArray;
    static const Array& of(const Value& value) { return value.floats(); }
    static Array& edit(Value& value) { return value.editFloats(); }
    static double element(const Value& value) { return value.toFloat(); }
    static std::string text(double element) { return Value(element).toText(); }
};

struct Strings {
    using Array = StringArray;
    static constexpr ValueType kType = ValueType::kStringArray;
    static const Array& of(const Value& value) { return value.strings(); }
    static Array& edit(Value& value) { return value.editStrings(); }
    static std::string element(const Value& value) { return value.toText(); }
};

void chargeFor(BuiltinCall& call, std::size_t elements) {
    call.evaluator.state().step(elements / 8);
}

template <typename Family>
Value listOf(BuiltinCall& call, std::size_t index) {
    Value list = convertedOrFail(call.value(index), Family::kType);
    chargeFor(call, list.size());
    return list;
}

template <typename Family>
auto itemOf(BuiltinCall& call, std::size_t index) {
    return Family::element(convertedOrFail(call.value(index), elementTypeOf(Family::kType)));
}

template <typename Family>
Value runContains(BuiltinCall& call) {
    const Value list = listOf<Family>(call, 1);
    const auto& elements = Family::of(list);
    return std::find(elements.begin(), elements.end(), itemOf<Family>(call, 0)) != elements.end();
}

template <typename Family>
Value runCount(BuiltinCall& call) {
    const Value list = listOf<Family>(call, 1);
    const auto& elements = Family::of(list);
    return std::count(elements.begin(), elements.end(), itemOf<Family>(call, 0));
}

// item, index to start at, list; -1 when it is not there.
template <typename Family>
Value runFind(BuiltinCall& call) {
    const Value list = listOf<Family>(call, 2);
    const auto& elements = Family::of(list);
    const auto item = itemOf<Family>(call, 0);
    const std::int64_t start = std::max<std::int64_t>(call.integer(1), 0);
    for (auto index = static_cast<std::size_t>(start); index < elements.size(); ++index) {
        if (elements[index] == item) {
            return index;
        }
    }
    return -1;
}

// The list without any element that occurs among the items.
template <typename Family>
Value runRemove(BuiltinCall& call) {
    const Value items = listOf<Family>(call, 0);
    const Value list = listOf<Family>(call, 1);
    using Element = typename Family::Array::value_type;
    const std::unordered_set<Element> unwanted(Family::of(items).begin(), Family::of(items).end());
    typename Family::Array kept;
    for (const auto& element : Family::of(list)) {
        if (unwanted.find(element) == unwanted.end()) {
            kept.push_back(element);
        }
    }
    return kept;
}

template <typename Family>
Value runRemoveDuplicates(BuiltinCall& call) {
    const Value list = listOf<Family>(call, 0);
    std::unordered_set<typename Family::Array::value_type> seen;
    typename Family::Array kept;
    for (const auto& element : Family::of(list)) {
        if (seen.insert(element).second) {
            kept.push_back(element);
        }
    }
    return kept;
}

// index, list variable; 1 if there was such an element.
template <typename Family>
Value runRemoveAtIndex(BuiltinCall& call) {
    const std::int64_t index = call.integer(0);
    Variable& variable = call.arrayVariable(1);
    const bool isThere =
        variable.type == Family::kType && index >= 0 && static_cast<std::size_t>(index) < variable.value.size();
    if (isThere) {
        chargeFor(call, variable.value.size());
        auto& elements = Family::edit(variable.value);
        elements.erase(elements.begin() + index);
    }
    return isThere;
}

// index, list variable, item; 1 if the index was 0 … size.
template <typename Family>
Value runInsertAtIndex(BuiltinCall& call) {
    const std::int64_t index = call.integer(0);
    const auto item = itemOf<Family>(call, 2);
    Variable& variable = call.arrayVariable(1);
    const bool isPossible = variable.type == Family::kType && index >= 0 &&
                            static_cast<std::size_t>(index) <= variable.value.size() &&
                            variable.value.size() < kMaximumElements;
    if (isPossible) {
        chargeFor(call, variable.value.size());
        auto& elements = Family::edit(variable.value);
        elements.insert(elements.begin() + index, item);
    }
    return isPossible;
}

template <typename Family>
Value runToString(BuiltinCall& call) {
    const Value list = listOf<Family>(call, 0);
    const std::string separator = call.text(1);
    std::string joined;
    bool isFirst = true;
    for (const auto& element : Family::of(list)) {
        call.evaluator.state().step(1 + separator.size() / 16);
        joined += (isFirst ? "" : separator) + Family::text(element);
        isFirst = false;
        if (joined.size() > kMaximumTextBytes) {
            throw ScriptFailure(messages::kTextTooLong);
        }
    }
    return joined;
}

Value runClear(BuiltinCall& call) {
    Variable& variable = call.arrayVariable(0);
    variable.value = Value::defaultOf(variable.type);
    return {};
}

// Appends the first n elements of the second list to the first.
Value runAppendStrings(BuiltinCall& call) {
    const StringArray added = call.strings(1);
    const std::int64_t wanted = call.integer(2);
    const std::size_t count = wanted <= 0 ? 0 : std::min(static_cast<std::size_t>(wanted), added.size());
    Variable& variable = call.arrayVariable(0);
    if (variable.type != ValueType::kStringArray) {
        throw ScriptFailure(messages::needsArrayVariable(call.name));
    }
    chargeFor(call, variable.value.size() + count);
    if (variable.value.size() + count > kMaximumElements) {
        throw ScriptFailure(messages::kArrayTooLarge);
    }
    StringArray& elements = variable.value.editStrings();
    elements.insert(elements.end(), added.begin(), added.begin() + static_cast<std::ptrdiff_t>(count));
    return {};
}

// A sorted copy; what is not a number comes last.
Value runSort(BuiltinCall& call) {
    Value list = call.value(0);
    call.evaluator.state().step(list.size());
    switch (list.type()) {
    case ValueType::kIntArray:
        std::sort(list.editInts().begin(), list.editInts().end());
        return list;
    case ValueType::kFloatArray:
        std::sort(list.editFloats().begin(), list.editFloats().end(),
                  [](double left, double right) { return std::isnan(right) ? !std::isnan(left) : left < right; });
        return list;
    case ValueType::kStringArray:
        std::sort(list.editStrings().begin(), list.editStrings().end());
        return list;
    default:
        throw ScriptFailure(messages::wrongArgumentType(call.name, typeName(list.type())));
    }
}

constexpr std::array<Builtin, 24> kRows = {{
    {"clear", 1, 1, runClear},
    {"sort", 1, 1, runSort},
    {"appendStringArray", 3, 3, runAppendStrings},
    {"stringArrayContains", 2, 2, runContains<Strings>},
    {"stringArrayCount", 2, 2, runCount<Strings>},
    {"stringArrayFind", 3, 3, runFind<Strings>},
    {"stringArrayRemove", 2, 2, runRemove<Strings>},
    {"stringArrayRemoveDuplicates", 1, 1, runRemoveDuplicates<Strings>},
    {"stringArrayRemoveAtIndex", 2, 2, runRemoveAtIndex<Strings>},
    {"stringArrayInsertAtIndex", 3, 3, runInsertAtIndex<Strings>},
    {"intArrayContains", 2, 2, runContains<Ints>},
    {"intArrayCount", 2, 2, runCount<Ints>},
    {"intArrayFind", 3, 3, runFind<Ints>},
    {"intArrayRemove", 2, 2, runRemove<Ints>},
    {"intArrayRemoveAtIndex", 2, 2, runRemoveAtIndex<Ints>},
    {"intArrayInsertAtIndex", 3, 3, runInsertAtIndex<Ints>},
    {"intArrayToString", 2, 2, runToString<Ints>},
    {"floatArrayContains", 2, 2, runContains<Floats>},
    {"floatArrayCount", 2, 2, runCount<Floats>},
    {"floatArrayFind", 3, 3, runFind<Floats>},
    {"floatArrayRemove", 2, 2, runRemove<Floats>},
    {"floatArrayRemoveAtIndex", 2, 2, runRemoveAtIndex<Floats>},
    {"floatArrayInsertAtIndex", 3, 3, runInsertAtIndex<Floats>},
    {"floatArrayToString", 2, 2, runToString<Floats>},
}};

} // namespace

BuiltinFamily arrayFunctions() {
    return {kRows.data(), kRows.size()};
}

} // namespace host::mel
