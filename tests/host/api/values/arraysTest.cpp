#include <maya/MColorArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFloatVectorArray.h>
#include <maya/MIntArray.h>
#include <maya/MMatrixArray.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>
#include <maya/MTimeArray.h>
#include <maya/MVectorArray.h>

#include <gtest/gtest.h>

namespace {

template <class Array>
class EveryArray : public testing::Test {};

using AllArrays = testing::Types<MIntArray, MDoubleArray, MFloatArray, MPointArray, MFloatPointArray, MVectorArray,
                                 MFloatVectorArray, MColorArray, MTimeArray, MMatrixArray, MStringArray>;
TYPED_TEST_SUITE(EveryArray, AllArrays, );

// Different elements of any type.
template <class Element>
Element element(int number) {
    if constexpr (std::is_arithmetic_v<Element>) {
        return static_cast<Element>(number);
    } else {
        Element made;
        if constexpr (std::is_same_v<Element, MMatrix>) {
            made[0][0] = number;
        } else if constexpr (std::is_same_v<Element, MString>) {
            made = static_cast<double>(number);
        } else if constexpr (std::is_same_v<Element, MTime>) {
            made.setValue(number);
        } else {
            made[0] = static_cast<decltype(made[0] + made[0])>(number);
        }
        return made;
    }
}

TYPED_TEST(EveryArray, RefusesBadIndicesAndStaysAsItIs) {
    TypeParam array;
    using Element = std::decay_t<decltype(array[0])>;
    array.append(element<Element>(1));
    EXPECT_FALSE(array.remove(1));
    EXPECT_FALSE(array.insert(element<Element>(2), 2));
    EXPECT_FALSE(array.set(element<Element>(2), 1));
    ASSERT_EQ(array.length(), 1U);
    EXPECT_TRUE(array[0] == element<Element>(1));
}

TYPED_TEST(EveryArray, InsertsSetsAndRemoves) {
    TypeParam array;
    using Element = std::decay_t<decltype(array[0])>;
    EXPECT_EQ(array.length(), 0U);
    EXPECT_TRUE(array.append(element<Element>(1)));
    EXPECT_TRUE(array.append(element<Element>(3)));
    EXPECT_TRUE(array.insert(element<Element>(2), 1));
    EXPECT_TRUE(array.insert(element<Element>(4), 3));
    ASSERT_EQ(array.length(), 4U);
    for (unsigned int i = 0; i < 4; ++i) {
        EXPECT_TRUE(array[i] == element<Element>(static_cast<int>(i) + 1)) << i;
    }
    EXPECT_TRUE(array.set(element<Element>(9), 0));
    EXPECT_TRUE(array.remove(1));
    ASSERT_EQ(array.length(), 3U);
    EXPECT_TRUE(array[0] == element<Element>(9));
    EXPECT_TRUE(array[1] == element<Element>(3));
    EXPECT_TRUE(array.clear());
    EXPECT_EQ(array.length(), 0U);
}

TYPED_TEST(EveryArray, AppendsAnElementOfItsOwn) {
    TypeParam array;
    using Element = std::decay_t<decltype(array[0])>;
    array.append(element<Element>(7));
    for (int i = 0; i < 100; ++i) {
        array.append(array[0]);
        array.insert(array[0], 0);
    }
    ASSERT_EQ(array.length(), 201U);
    EXPECT_TRUE(array[200] == element<Element>(7));
}

TYPED_TEST(EveryArray, SetLengthKeepsTheFront) {
    TypeParam array;
    using Element = std::decay_t<decltype(array[0])>;
    array.append(element<Element>(1));
    array.append(element<Element>(2));
    EXPECT_TRUE(array.setLength(5));
    ASSERT_EQ(array.length(), 5U);
    EXPECT_TRUE(array[1] == element<Element>(2));
    EXPECT_TRUE(array[4] == Element());
    EXPECT_TRUE(array.setLength(1));
    EXPECT_TRUE(array[0] == element<Element>(1));
}

TYPED_TEST(EveryArray, CopiesAreIndependent) {
    TypeParam array;
    using Element = std::decay_t<decltype(array[0])>;
    array.append(element<Element>(1));
    TypeParam constructed(array), assigned, copied;
    TypeParam& result = assigned = array;
    EXPECT_EQ(&result, &assigned);
    EXPECT_TRUE(copied.copy(array));
    array[0] = element<Element>(5);
    for (const TypeParam* copy : {&constructed, &assigned, &copied}) {
        ASSERT_EQ(copy->length(), 1U);
        EXPECT_TRUE((*copy)[0] == element<Element>(1));
    }
}

TYPED_TEST(EveryArray, FillsAndIsFilledFromPlainArrays) {
    using Element = std::decay_t<decltype(std::declval<TypeParam&>()[0])>;
    const Element source[2] = {element<Element>(1), element<Element>(2)};
    const TypeParam array(source, 2);
    ASSERT_EQ(array.length(), 2U);
    Element out[2];
    EXPECT_TRUE(array.get(out));
    EXPECT_TRUE(out[0] == source[0] && out[1] == source[1]);
    const TypeParam repeated(3U, element<Element>(4));
    ASSERT_EQ(repeated.length(), 3U);
    EXPECT_TRUE(repeated[2] == element<Element>(4));
    EXPECT_TRUE(TypeParam(2U)[1] == Element());
}

TYPED_TEST(EveryArray, RemembersItsSizeIncrement) {
    TypeParam array;
    array.setSizeIncrement(64);
    EXPECT_EQ(array.sizeIncrement(), 64U);
}

TEST(MPointArray, TakesCoordinatesAndRows) {
    MPointArray points;
    points.append(1, 2, 3);
    points.append(1, 2, 3, 4);
    EXPECT_EQ(points[0], MPoint(1, 2, 3, 1));
    EXPECT_EQ(points[1], MPoint(1, 2, 3, 4));
    const double rows[2][4] = {{1, 2, 3, 1}, {5, 6, 7, 8}};
    EXPECT_EQ(MPointArray(rows, 2)[1], MPoint(5, 6, 7, 8));
    double out[2][4];
    points.get(out);
    EXPECT_EQ(out[1][3], 4.0);
}

TEST(MVectorArray, TakesCoordinatesAndRows) {
    MVectorArray vectors;
    vectors.append(1, 2, 3);
    EXPECT_EQ(vectors[0], MVector(1, 2, 3));
    const float rows[1][3] = {{1.0f, 2.0f, 0.5f}};
    MFloatVectorArray floats(rows, 1);
    float out[1][3];
    floats.get(out);
    EXPECT_EQ(out[0][2], 0.5f);
}

TEST(MStringArray, AppendsTextsAndArrays) {
    MStringArray texts;
    EXPECT_TRUE(texts.append("a"));
    EXPECT_TRUE(texts.append(MString("b")));
    EXPECT_TRUE(texts.append(texts));
    ASSERT_EQ(texts.length(), 4U);
    EXPECT_EQ(texts[3], "b");
    EXPECT_EQ(MStringArray(2, "x")[1], "x");
    const char* const source[] = {"p", "q"};
    EXPECT_EQ(MStringArray(source, 2)[1], "q");
}

TEST(ValueArray, HandsItsElementsToTheHostAtOnce) {
    MIntArray array;
    storeValues(array, std::vector<int>{3, 1, 2});
    ASSERT_EQ(array.length(), 3U);
    EXPECT_EQ(array[2], 2);
    EXPECT_EQ(storedValues(array), (std::vector<int>{3, 1, 2}));
}

} // namespace
