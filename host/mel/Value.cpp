#include "host/mel/Value.h"

#include "host/mel/numberText.h"

#include <array>
#include <cmath>

namespace host::mel {

namespace {

constexpr std::array<std::string_view, 10> kTypeNames = {
    "none", "int", "float", "string", "vector", "matrix", "int[]", "float[]", "string[]", "vector[]",
};
static_assert(kTypeNames.size() == static_cast<std::size_t>(ValueType::kVectorArray) + 1);

std::string vectorText(const Vector& vector) {
    return floatText(vector.x) + ' ' + floatText(vector.y) + ' ' + floatText(vector.z);
}

double length(const Vector& vector) {
    return std::sqrt(vector.x * vector.x + vector.y * vector.y + vector.z * vector.z);
}

std::string matrixLines(const Matrix& matrix) {
    std::string lines;
    for (std::size_t cell = 0; cell < matrix.cells.size(); ++cell) {
        const bool endsRow = (cell + 1) % matrix.columns == 0;
        lines += floatText(matrix.cells[cell]) + (endsRow ? '\n' : ' ');
    }
    return lines;
}

template <typename T>
bool sharesStorage(const T&) {
    return false;
}

template <typename T>
bool sharesStorage(const std::shared_ptr<T>& stored) {
    return stored.use_count() > 1;
}

std::optional<Value> arrayConvertedTo(const Value& value, ValueType type) {
    if (isArrayType(type) && value.size() == 0) {
        return Value::defaultOf(type); // {} has no element that could tell its type
    }
    if (value.type() == ValueType::kIntArray && type == ValueType::kFloatArray) {
        FloatArray floats;
        floats.reserve(value.size());
        for (std::int64_t element : value.ints()) {
            floats.push_back(static_cast<double>(element));
        }
        return Value(std::move(floats));
    }
    if (value.type() == ValueType::kFloatArray && type == ValueType::kIntArray) {
        IntArray ints;
        ints.reserve(value.size());
        for (double element : value.floats()) {
            ints.push_back(truncateToInteger(element));
        }
        return Value(std::move(ints));
    }
    if (value.type() == ValueType::kFloatArray && type == ValueType::kVector && value.size() == 3) {
        return Value(Vector{value.floats()[0], value.floats()[1], value.floats()[2]}); // vector $p = `xform -q -t`
    }
    return std::nullopt;
}

} // namespace

bool isArrayType(ValueType type) {
    return type >= ValueType::kIntArray;
}

ValueType arrayTypeOf(ValueType element) {
    switch (element) {
    case ValueType::kInt:
        return ValueType::kIntArray;
    case ValueType::kFloat:
        return ValueType::kFloatArray;
    case ValueType::kString:
        return ValueType::kStringArray;
    case ValueType::kVector:
        return ValueType::kVectorArray;
    default:
        return ValueType::kNone;
    }
}

ValueType elementTypeOf(ValueType array) {
    switch (array) {
    case ValueType::kIntArray:
        return ValueType::kInt;
    case ValueType::kFloatArray:
        return ValueType::kFloat;
    case ValueType::kStringArray:
        return ValueType::kString;
    case ValueType::kVectorArray:
        return ValueType::kVector;
    default:
        return ValueType::kNone;
    }
}

std::string_view typeName(ValueType type) {
    return kTypeNames[static_cast<std::size_t>(type)];
}

Value Value::defaultOf(ValueType type) {
    switch (type) {
    case ValueType::kNone:
        return {};
    case ValueType::kInt:
        return 0;
    case ValueType::kFloat:
        return 0.0;
    case ValueType::kString:
        return "";
    case ValueType::kVector:
        return Vector();
    case ValueType::kMatrix:
        return Matrix();
    case ValueType::kIntArray:
        return IntArray();
    case ValueType::kFloatArray:
        return FloatArray();
    case ValueType::kStringArray:
        return StringArray();
    case ValueType::kVectorArray:
        return VectorArray();
    }
    return {};
}

std::int64_t Value::toInt() const {
    switch (type()) {
    case ValueType::kInt:
        return std::get<std::int64_t>(data_);
    case ValueType::kString:
        return leadingInteger(text());
    default:
        return truncateToInteger(toFloat());
    }
}

double Value::toFloat() const {
    switch (type()) {
    case ValueType::kInt:
        return static_cast<double>(std::get<std::int64_t>(data_));
    case ValueType::kFloat:
        return std::get<double>(data_);
    case ValueType::kString:
        return leadingNumber(text());
    case ValueType::kVector:
        return length(std::get<Vector>(data_));
    default:
        return 0.0;
    }
}

std::string Value::toText() const {
    switch (type()) {
    case ValueType::kInt:
        return std::to_string(std::get<std::int64_t>(data_));
    case ValueType::kFloat:
        return floatText(std::get<double>(data_));
    case ValueType::kString:
        return text();
    case ValueType::kVector:
        return vectorText(std::get<Vector>(data_));
    default:
        return {};
    }
}

Vector Value::toVector() const {
    if (type() == ValueType::kVector) {
        return std::get<Vector>(data_);
    }
    const double all = toFloat();
    return {all, all, all};
}

std::optional<Value> Value::convertedTo(ValueType target) const {
    if (target == type()) {
        return *this;
    }
    if (isArray()) {
        return arrayConvertedTo(*this, target);
    }
    if (isNone() || type() == ValueType::kMatrix) {
        return std::nullopt;
    }
    switch (target) {
    case ValueType::kInt:
        return Value(toInt());
    case ValueType::kFloat:
        return Value(toFloat());
    case ValueType::kString:
        return Value(toText());
    case ValueType::kVector:
        return isNumber() ? std::optional<Value>(toVector()) : std::nullopt;
    default:
        return std::nullopt;
    }
}

template <typename T>
const T& Value::shared() const {
    static const T kEmpty;
    const auto* stored = std::get_if<std::shared_ptr<T>>(&data_);
    return stored != nullptr ? **stored : kEmpty;
}

template <typename T>
T& Value::unshared() {
    auto& stored = std::get<std::shared_ptr<T>>(data_);
    if (stored.use_count() > 1) {
        stored = std::make_shared<T>(*stored);
    }
    return *stored;
}

const IntArray& Value::ints() const {
    return shared<IntArray>();
}

const FloatArray& Value::floats() const {
    return shared<FloatArray>();
}

const StringArray& Value::strings() const {
    return shared<StringArray>();
}

const VectorArray& Value::vectors() const {
    return shared<VectorArray>();
}

const Matrix& Value::matrix() const {
    return shared<Matrix>();
}

const std::string& Value::text() const {
    static const std::string kEmpty;
    const auto* stored = std::get_if<std::string>(&data_);
    return stored != nullptr ? *stored : kEmpty;
}

std::size_t Value::size() const {
    switch (type()) {
    case ValueType::kNone:
        return 0;
    case ValueType::kIntArray:
        return ints().size();
    case ValueType::kFloatArray:
        return floats().size();
    case ValueType::kStringArray:
        return strings().size();
    case ValueType::kVectorArray:
        return vectors().size();
    default:
        return 1;
    }
}

Value Value::element(std::size_t index) const {
    if (index >= size()) {
        return defaultOf(elementTypeOf(type()));
    }
    switch (type()) {
    case ValueType::kIntArray:
        return ints()[index];
    case ValueType::kFloatArray:
        return floats()[index];
    case ValueType::kStringArray:
        return strings()[index];
    case ValueType::kVectorArray:
        return vectors()[index];
    default:
        return *this;
    }
}

bool Value::isShared() const {
    return std::visit([](const auto& stored) { return sharesStorage(stored); }, data_);
}

IntArray& Value::editInts() {
    return unshared<IntArray>();
}

FloatArray& Value::editFloats() {
    return unshared<FloatArray>();
}

StringArray& Value::editStrings() {
    return unshared<StringArray>();
}

VectorArray& Value::editVectors() {
    return unshared<VectorArray>();
}

Matrix& Value::editMatrix() {
    return unshared<Matrix>();
}

std::string& Value::editText() {
    return std::get<std::string>(data_);
}

std::string Value::printText() const {
    if (type() == ValueType::kMatrix) {
        return matrixLines(matrix());
    }
    if (!isArray()) {
        return toText();
    }
    std::string lines;
    for (std::size_t index = 0; index < size(); ++index) {
        lines += element(index).toText() + '\n';
    }
    return lines;
}

} // namespace host::mel
