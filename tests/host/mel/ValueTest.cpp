#include "host/mel/Value.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

namespace host::mel {
namespace {

TEST(Value, hasNoConversionWhereMelHasNone) {
    const Value strings(StringArray{"1"});
    for (ValueType type : {ValueType::kInt, ValueType::kString, ValueType::kIntArray, ValueType::kNone}) {
        EXPECT_FALSE(strings.convertedTo(type).has_value());
    }
    EXPECT_FALSE(Value().convertedTo(ValueType::kInt).has_value());
    EXPECT_FALSE(Value("1 2 3").convertedTo(ValueType::kVector).has_value());
    EXPECT_FALSE(Value(Matrix()).convertedTo(ValueType::kFloat).has_value());
    EXPECT_FALSE(Value(1).convertedTo(ValueType::kIntArray).has_value());
    EXPECT_FALSE(Value(FloatArray{1.0, 2.0}).convertedTo(ValueType::kVector).has_value());
}

struct ScalarCase {
    Value value;
    std::int64_t asInt;
    double asFloat;
    std::string asText;
};

TEST(Value, convertsScalarsAsMelDoes) {
    const std::vector<ScalarCase> cases = {
        {true, 1, 1.0, "1"},
        {-7, -7, -7.0, "-7"},
        {2.75, 2, 2.75, "2.75"},
        {-2.75, -2, -2.75, "-2.75"},
        {"3.5 cm", 3, 3.5, "3.5 cm"},
        {"word", 0, 0.0, "word"},
        {Vector{3.0, 4.0, 0.0}, 5, 5.0, "3 4 0"},
        {Value(), 0, 0.0, ""},
        {IntArray{5}, 0, 0.0, ""},
    };
    for (const ScalarCase& row : cases) {
        SCOPED_TRACE(row.asText);
        EXPECT_EQ(row.value.toInt(), row.asInt);
        EXPECT_EQ(row.value.toFloat(), row.asFloat);
        EXPECT_EQ(row.value.toText(), row.asText);
    }
}

TEST(Value, convertsBetweenArraysOfNumbers) {
    EXPECT_EQ(Value(IntArray{1, 2}).convertedTo(ValueType::kFloatArray)->floats(), (FloatArray{1.0, 2.0}));
    EXPECT_EQ(Value(FloatArray{1.9, -1.9}).convertedTo(ValueType::kIntArray)->ints(), (IntArray{1, -1}));
    EXPECT_EQ(Value(FloatArray{1.0, 2.0, 3.0}).convertedTo(ValueType::kVector)->toText(), "1 2 3");
    EXPECT_EQ(Value(IntArray()).convertedTo(ValueType::kStringArray)->type(), ValueType::kStringArray);
    EXPECT_EQ(Value(2).convertedTo(ValueType::kVector)->toText(), "2 2 2");
}

TEST(Value, copiesOfArraysShareUntilOneIsEdited) {
    Value first(IntArray{1, 2});
    Value second = first;
    EXPECT_TRUE(first.isShared());
    second.editInts()[0] = 9;
    EXPECT_FALSE(first.isShared());
    EXPECT_EQ(first.ints(), (IntArray{1, 2}));
    EXPECT_EQ(second.ints(), (IntArray{9, 2}));
}

TEST(Value, readingTheWrongKindOfArrayGivesAnEmptyOne) {
    const Value value(3);
    EXPECT_TRUE(value.ints().empty());
    EXPECT_TRUE(value.strings().empty());
    EXPECT_EQ(value.text(), "");
    EXPECT_EQ(value.matrix().rows, 0U);
}

TEST(Value, elementsBehindTheEndAreDefaults) {
    const Value value(StringArray{"a"});
    EXPECT_EQ(value.element(0).text(), "a");
    EXPECT_EQ(value.element(1).type(), ValueType::kString);
    EXPECT_EQ(value.element(1).text(), "");
}

TEST(Value, printsEveryElementAndRowOnALine) {
    EXPECT_EQ(Value(StringArray{"a", "b"}).printText(), "a\nb\n");
    EXPECT_EQ(Value(Matrix{2, 2, {1.0, 2.0, 3.0, 4.5}}).printText(), "1 2\n3 4.5\n");
    EXPECT_EQ(Value("x").printText(), "x");
    EXPECT_EQ(Value().printText(), "");
}

TEST(Value, everyTypeHasItsDefaultAndName) {
    for (int index = 0; index <= static_cast<int>(ValueType::kVectorArray); ++index) {
        const auto type = static_cast<ValueType>(index);
        EXPECT_EQ(Value::defaultOf(type).type(), type) << typeName(type);
        EXPECT_EQ(isArrayType(type), elementTypeOf(type) != ValueType::kNone);
    }
    EXPECT_EQ(typeName(ValueType::kStringArray), "string[]");
    EXPECT_EQ(arrayTypeOf(ValueType::kVector), ValueType::kVectorArray);
    EXPECT_EQ(arrayTypeOf(ValueType::kMatrix), ValueType::kNone);
}

} // namespace
} // namespace host::mel
