#include <maya/MFnNumericData.h>

#include "HostTest.h"

#include <maya/MFnMatrixData.h>
#include <maya/MFnStringData.h>

namespace host {
namespace {

class MFnNumericDataTest : public HostTest {};

TEST_F(MFnNumericDataTest, nothingAttachedFails) {
    MFnNumericData numbers;
    double a = 1.0, b = 1.0, c = 1.0, d = 1.0;
    EXPECT_EQ(numbers.getData(a, b, c, d), MStatus::kFailure);
    EXPECT_EQ(numbers.setData(a, b), MStatus::kFailure);
    EXPECT_EQ(numbers.numericType(), MFnNumericData::kInvalid);
    MFnMatrixData matrix;
    MStatus status;
    EXPECT_TRUE(matrix.matrix(&status) == MMatrix());
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(matrix.set(MMatrix()), MStatus::kFailure);
    EXPECT_FALSE(matrix.isTransformation(&status));
    EXPECT_EQ(status, MStatus::kFailure);
    MFnStringData text;
    EXPECT_EQ(text.string(&status), "");
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(text.set("x"), MStatus::kFailure);
}

TEST_F(MFnNumericDataTest, typesOfOneNumberAreRefused) {
    MFnNumericData numbers;
    MStatus status;
    for (const MFnNumericData::Type type : {MFnNumericData::kInvalid, MFnNumericData::kBoolean, MFnNumericData::kDouble,
                                            MFnNumericData::kAddr, MFnNumericData::kLast}) {
        EXPECT_TRUE(numbers.create(type, &status).isNull());
        EXPECT_EQ(status, MStatus::kInvalidParameter) << type;
    }
}

TEST_F(MFnNumericDataTest, numbersOfEveryType) {
    MFnNumericData numbers;
    short s1 = 0, s2 = 0, s3 = 0;
    int i1 = 0, i2 = 0, i3 = 0;
    float f1 = 0, f2 = 0, f3 = 0;
    double d1 = 0, d2 = 0, d3 = 0, d4 = 0;
    EXPECT_EQ(numbers.create(MFnNumericData::k2Short).apiType(), MFn::kData2Short);
    EXPECT_TRUE(numbers.setData(short{1}, short{-2}) && numbers.getData(s1, s2) && s2 == -2);
    EXPECT_EQ(numbers.getData(i1, i2), MStatus::kFailure);
    numbers.create(MFnNumericData::k3Short);
    EXPECT_TRUE(numbers.setData(short{1}, short{2}, short{3}) && numbers.getData(s1, s2, s3) && s3 == 3);
    numbers.create(MFnNumericData::k2Int);
    EXPECT_TRUE(numbers.setData(4, 5) && numbers.getData(i1, i2) && i1 == 4);
    numbers.create(MFnNumericData::k3Int);
    EXPECT_TRUE(numbers.setData(4, 5, 6) && numbers.getData(i1, i2, i3) && i3 == 6);
    numbers.create(MFnNumericData::k2Float);
    EXPECT_TRUE(numbers.setData(0.5F, 1.5F) && numbers.getData(f1, f2) && f2 == 1.5F);
    numbers.create(MFnNumericData::k3Float);
    EXPECT_TRUE(numbers.setData(0.5F, 1.5F, 2.5F) && numbers.getData(f1, f2, f3) && f3 == 2.5F);
    numbers.create(MFnNumericData::k2Double);
    EXPECT_TRUE(numbers.setData(0.1, 0.2) && numbers.getData(d1, d2) && d2 == 0.2);
    numbers.create(MFnNumericData::k3Double);
    EXPECT_TRUE(numbers.setData(0.1, 0.2, 0.3) && numbers.getData(d1, d2, d3) && d3 == 0.3);
    EXPECT_EQ(numbers.create(MFnNumericData::k4Double).apiType(), MFn::kData4Double);
    EXPECT_TRUE(numbers.setData(0.1, 0.2, 0.3, 0.4) && numbers.getData(d1, d2, d3, d4) && d4 == 0.4);
    EXPECT_EQ(numbers.numericType(), MFnNumericData::k4Double);
    EXPECT_TRUE(numbers.object().hasFn(MFn::kNumericData));
    EXPECT_TRUE(numbers.object().hasFn(MFn::kData));
    EXPECT_FALSE(numbers.object().hasFn(MFn::kStringData));
}

TEST_F(MFnNumericDataTest, changesShowInEveryHandle) {
    MFnStringData text;
    const MObject object = text.create("one");
    MFnStringData second(object);
    second.set("two");
    EXPECT_EQ(text.string(), "two");
    EXPECT_TRUE(text.object() == object);
    EXPECT_TRUE(MFnStringData().create("two") != object) << "equal texts, two values";
    MFnMatrixData matrix;
    matrix.create();
    MMatrix shifted;
    shifted(3, 1) = 4.0;
    EXPECT_EQ(matrix.set(shifted), MStatus::kSuccess);
    EXPECT_EQ(matrix.transformation().getTranslation(MSpace::kTransform).y, 4.0);
    EXPECT_FALSE(matrix.isTransformation());
}

} // namespace
} // namespace host
