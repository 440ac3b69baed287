#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace host::mel {

struct Vector {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

// rows * columns cells, row by row.
struct Matrix {
    std::size_t rows = 0;
    std::size_t columns = 0;
    std::vector<double> cells;
};

using IntArray = std::vector<std::int64_t>;
using FloatArray = std::vector<double>;
using StringArray = std::vector<std::string>;
using VectorArray = std::vector<Vector>;

enum class ValueType : std::uint8_t { // in the order of Value's alternatives
    kNone,                            // the result of a command without one
    kInt,
    kFloat,
    kString,
    kVector,
    kMatrix,
    kIntArray,
    kFloatArray,
    kStringArray,
    kVectorArray,
};

bool isArrayType(ValueType type);          // int[] … vector[]
ValueType arrayTypeOf(ValueType element);  // kNone when there are no arrays of it (matrix, arrays)
ValueType elementTypeOf(ValueType array);  // kNone when it is no array
std::string_view typeName(ValueType type); // "int", "string[]", "none" …

// A MEL value. Copies of arrays share their storage until one of them is edited.
class Value {
public:
    Value() = default; // none
    template <typename Integer, typename = std::enable_if_t<std::is_integral_v<Integer>>>
    Value(Integer value) : data_(static_cast<std::int64_t>(value)) {} // bool gives 0 or 1
    Value(double value) : data_(value) {}
    Value(std::string value) : data_(std::move(value)) {}
    Value(std::string_view value) : data_(std::string(value)) {}
    Value(const char* value) : data_(std::string(value)) {}
    Value(Vector value) : data_(value) {}
    Value(Matrix value) : data_(std::make_shared<Matrix>(std::move(value))) {}
    Value(IntArray values) : data_(std::make_shared<IntArray>(std::move(values))) {}
    Value(FloatArray values) : data_(std::make_shared<FloatArray>(std::move(values))) {}
    Value(StringArray values) : data_(std::make_shared<StringArray>(std::move(values))) {}
    Value(VectorArray values) : data_(std::make_shared<VectorArray>(std::move(values))) {}

    // The value that a declared variable starts with: 0, 0.0, "", <<0,0,0>>, an empty array.
    static Value defaultOf(ValueType type);

    ValueType type() const { return static_cast<ValueType>(data_.index()); }
    bool isNone() const { return type() == ValueType::kNone; }
    bool isNumber() const { return type() == ValueType::kInt || type() == ValueType::kFloat; }
    bool isString() const { return type() == ValueType::kString; }
    bool isArray() const { return isArrayType(type()); }

    // MEL conversions between scalars. Strings give the number that they start with, else 0; floats are cut towards
    // zero and clamped to 64 bits, NaN gives 0; vectors give their length. Arrays, matrices and none give 0 and "".
    std::int64_t toInt() const;
    double toFloat() const;
    bool toBool() const { return type() == ValueType::kInt ? toInt() != 0 : toFloat() != 0.0; }
    std::string toText() const; // floats with up to 10 significant digits; vectors as "x y z"
    Vector toVector() const;    // a number fills all three components

    // The value as another type, as assignment does it; nothing when MEL has no such conversion (array to scalar, none
    // to anything, string to vector). int[] and float[] convert into each other.
    std::optional<Value> convertedTo(ValueType type) const;

    // Contents; an empty array or matrix when the value is of another type.
    const IntArray& ints() const;
    const FloatArray& floats() const;
    const StringArray& strings() const;
    const VectorArray& vectors() const;
    const Matrix& matrix() const;
    const std::string& text() const; // of a string value, "" of others

    // Elements of an array; 1 for other values, 0 for none.
    std::size_t size() const;

    // Element of an array, or its element type's default behind the end.
    Value element(std::size_t index) const;

    // Whether editing would copy an array or matrix first.
    bool isShared() const;

    // Storage for editing, unshared first. The value must be of that type.
    IntArray& editInts();
    FloatArray& editFloats();
    StringArray& editStrings();
    VectorArray& editVectors();
    Matrix& editMatrix();
    std::string& editText();

    // What `print` shows: text as it is, every array element and every matrix row on a line of its own.
    std::string printText() const;

private:
    template <typename T>
    const T& shared() const;
    template <typename T>
    T& unshared();

    std::variant<std::monostate, std::int64_t, double, std::string, Vector, std::shared_ptr<Matrix>,
                 std::shared_ptr<IntArray>, std::shared_ptr<FloatArray>, std::shared_ptr<StringArray>,
                 std::shared_ptr<VectorArray>>
        data_;
};

} // namespace host::mel
