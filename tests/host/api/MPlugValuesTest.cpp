#include "HostTest.h"

#include <maya/MFnMatrixData.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnStringData.h>
#include <maya/MMatrix.h>
#include <maya/MPlug.h>

#include <cmath>
#include <limits>

namespace host {
namespace {

constexpr double kPi = 3.14159265358979323846;

class MPlugValuesTest : public HostTest {
protected:
    MPlugValuesTest() {
        run("createNode transform -n a; addAttr -ln word -dt \"string\" a; addAttr -ln whole -at long a;"
            "addAttr -ln small -at short a; addAttr -ln flag -at bool a; addAttr -ln real -at double a;"
            "addAttr -ln single -at \"float\" a; addAttr -ln when -at time a; addAttr -ln grid -dt \"matrix\" a;"
            "addAttr -ln color -at float3 a; addAttr -ln colorR -at \"float\" -p color a;"
            "addAttr -ln colorG -at \"float\" -p color a; addAttr -ln colorB -at \"float\" -p color a");
    }
};

TEST_F(MPlugValuesTest, numbersOfOneKindReadAsAllOthers) {
    struct Row {
        double stored;
        int asInt;
        short asShort;
        bool asBool;
        char asChar;
    };
    static constexpr Row kRows[] = {
        {0.0, 0, 0, false, 0},
        {2.9, 2, 2, true, 2},
        {-2.9, -2, -2, true, -2},
        {70000.0, 70000, 32767, true, 127},
        {-1e12, -2147483647 - 1, -32768, true, -128},
        {0.25, 0, 0, true, 0},
    };
    for (const Row& row : kRows) {
        ASSERT_EQ(plug("a.real").setValue(row.stored), MStatus::kSuccess);
        EXPECT_EQ(plug("a.real").asDouble(), row.stored);
        EXPECT_EQ(plug("a.real").asFloat(), static_cast<float>(row.stored));
        EXPECT_EQ(plug("a.real").asInt(), row.asInt) << row.stored;
        EXPECT_EQ(plug("a.real").asShort(), row.asShort) << row.stored;
        EXPECT_EQ(plug("a.real").asBool(), row.asBool) << row.stored;
        EXPECT_EQ(plug("a.real").asChar(), row.asChar) << row.stored;
        EXPECT_EQ(plug("a.real").asInt64(), static_cast<MInt64>(row.stored)) << row.stored;
    }
}

TEST_F(MPlugValuesTest, whatIsNoNumberReadsAsZero) {
    ASSERT_EQ(plug("a.real").setValue(std::nan("")), MStatus::kSuccess);
    EXPECT_TRUE(std::isnan(plug("a.real").asDouble()));
    EXPECT_EQ(plug("a.real").asInt(), 0);
    EXPECT_FALSE(plug("a.real").asBool());
    ASSERT_EQ(plug("a.real").setValue(std::numeric_limits<double>::infinity()), MStatus::kSuccess);
    EXPECT_EQ(plug("a.real").asInt64(), std::numeric_limits<MInt64>::max());
}

TEST_F(MPlugValuesTest, eachKindTakesWhatItCanHold) {
    EXPECT_EQ(plug("a.whole").setValue(7), MStatus::kSuccess);
    EXPECT_EQ(plug("a.whole").asInt(), 7);
    EXPECT_EQ(plug("a.small").setValue(static_cast<short>(-3)), MStatus::kSuccess);
    EXPECT_EQ(plug("a.small").asShort(), -3);
    EXPECT_EQ(plug("a.flag").setValue(true), MStatus::kSuccess);
    EXPECT_TRUE(plug("a.flag").asBool());
    EXPECT_EQ(plug("a.flag").asInt(), 1);
    EXPECT_EQ(plug("a.single").setValue(0.1F), MStatus::kSuccess);
    EXPECT_EQ(plug("a.single").asFloat(), 0.1F);
    EXPECT_EQ(plug("a.rotateOrder").setValue(static_cast<char>(5)), MStatus::kSuccess);
    EXPECT_EQ(plug("a.rotateOrder").asShort(), 5);
    EXPECT_EQ(plug("a.word").setValue("text"), MStatus::kSuccess);
    EXPECT_EQ(plug("a.word").asString(), "text");
}

TEST_F(MPlugValuesTest, anglesAreRadiansAndLengthsCentimetres) {
    run("currentUnit -l m -a deg; setAttr a.rx 90; setAttr a.tx 2");
    EXPECT_DOUBLE_EQ(plug("a.rx").asDouble(), kPi / 2.0);
    EXPECT_DOUBLE_EQ(plug("a.rx").asMAngle().as(MAngle::kDegrees), 90.0);
    EXPECT_DOUBLE_EQ(plug("a.tx").asDouble(), 200.0);
    EXPECT_DOUBLE_EQ(plug("a.tx").asMDistance().as(MDistance::kMeters), 2.0);
    EXPECT_EQ(plug("a.ry").setValue(MAngle(180.0, MAngle::kDegrees)), MStatus::kSuccess);
    EXPECT_DOUBLE_EQ(plug("a.ry").asDouble(), kPi);
    EXPECT_EQ(plug("a.ty").setValue(MDistance(1.0, MDistance::kInches)), MStatus::kSuccess);
    EXPECT_DOUBLE_EQ(plug("a.ty").asDouble(), 2.54);
}

TEST_F(MPlugValuesTest, timesAreTimes) {
    run("currentUnit -t film; setAttr a.when 12");
    EXPECT_EQ(plug("a.when").asMTime(), MTime(12.0, MTime::kFilm));
    EXPECT_DOUBLE_EQ(plug("a.when").asDouble(), 0.5) << "in seconds";
    EXPECT_EQ(plug("a.when").setValue(MTime(2.0, MTime::kSeconds)), MStatus::kSuccess);
    EXPECT_EQ(run("getAttr a.when").toFloat(), 48.0);
    EXPECT_EQ(plug("a.when").setValue(1.0), MStatus::kSuccess);
    EXPECT_EQ(plug("a.when").asMTime().as(MTime::kFilm), 24.0);
}

TEST_F(MPlugValuesTest, aValueOfTheWrongKindFailsAndIsLeftAlone) {
    double number = 5.0;
    MString text = "before";
    MObject object;
    MAngle angle(1.0);
    MTime time(1.0);
    MDistance distance(1.0);
    for (const char* name : {"a.word", "a.translate", "a.message", "a.grid", "a.worldMatrix[0]", "a.worldMatrix"}) {
        EXPECT_EQ(plug(name).getValue(number), MStatus::kFailure) << name;
    }
    EXPECT_EQ(number, 5.0);
    for (const char* name : {"a.tx", "a.translate", "a.message", "a.grid"}) {
        EXPECT_EQ(plug(name).getValue(text), MStatus::kFailure) << name;
    }
    EXPECT_EQ(text, "before");
    for (const char* name : {"a.tx", "a.message", "a.visibility", "a.worldMatrix"}) {
        EXPECT_EQ(plug(name).getValue(object), MStatus::kFailure) << name;
    }
    EXPECT_TRUE(object.isNull());
    EXPECT_EQ(plug("a.tx").getValue(angle), MStatus::kFailure);
    EXPECT_EQ(plug("a.rx").getValue(distance), MStatus::kFailure);
    EXPECT_EQ(plug("a.tx").getValue(time), MStatus::kFailure);
}

TEST_F(MPlugValuesTest, settingIsRefusedWhereItHasNoEffect) {
    run("createNode transform -n b; connectAttr b.tx a.tx; setAttr -l on a.ty; connectAttr b.r a.r");
    for (const char* name : {"a.tx", "a.ty", "a.rx", "a.translate", "a.word", "a.message"}) {
        EXPECT_EQ(plug(name).setValue(1.0), MStatus::kFailure) << name;
    }
    EXPECT_EQ(plug("a.tz").setValue("text"), MStatus::kFailure);
    EXPECT_EQ(plug("a.tz").setValue(MObject()), MStatus::kFailure);
    EXPECT_EQ(plug("a.tz").setValue(MTime(1.0)), MStatus::kFailure);
    EXPECT_EQ(plug("a.ty").asDouble(), 0.0);
}

TEST_F(MPlugValuesTest, compoundsOfNumbersAreData) {
    run("setAttr a.t 1 2 3; setAttr a.color 0.5 0.25 1");
    MFnNumericData numbers(plug("a.translate").asMObject());
    double x = 0.0, y = 0.0, z = 0.0;
    EXPECT_EQ(numbers.numericType(), MFnNumericData::k3Double);
    ASSERT_EQ(numbers.getData(x, y, z), MStatus::kSuccess);
    EXPECT_EQ(y, 2.0);
    float r = 0.0F, g = 0.0F, b = 0.0F;
    EXPECT_EQ(numbers.getData(r, g, b), MStatus::kFailure) << "they are doubles";
    ASSERT_EQ(MFnNumericData(plug("a.color").asMObject()).getData(r, g, b), MStatus::kSuccess);
    EXPECT_EQ(g, 0.25F);

    MFnNumericData made;
    const MObject tuple = made.create(MFnNumericData::k3Double);
    ASSERT_EQ(made.setData(4.0, 5.0, 6.0), MStatus::kSuccess);
    EXPECT_EQ(plug("a.translate").setValue(tuple), MStatus::kSuccess);
    EXPECT_EQ(plug("a.tz").asDouble(), 6.0);
    EXPECT_EQ(plug("a.color").setValue(tuple), MStatus::kFailure);
    run("setAttr -l on a.ty");
    made.setData(7.0, 8.0, 9.0);
    EXPECT_EQ(plug("a.translate").setValue(tuple), MStatus::kFailure);
    EXPECT_EQ(plug("a.tx").asDouble(), 4.0) << "all or nothing";
}

TEST_F(MPlugValuesTest, matricesAndStringsAreData) {
    run("setAttr a.t 1 2 3; setAttr a.word -type \"string\" \"hello\"");
    const MMatrix world = MFnMatrixData(plug("a.worldMatrix[0]").asMObject()).matrix();
    EXPECT_EQ(world(3, 2), 3.0);
    EXPECT_EQ(MFnStringData(plug("a.word").asMObject()).string(), "hello");
    MFnMatrixData data;
    MMatrix shifted;
    shifted(3, 0) = 9.0;
    EXPECT_EQ(plug("a.grid").setValue(data.create(shifted)), MStatus::kSuccess);
    EXPECT_TRUE(MFnMatrixData(plug("a.grid").asMObject()).matrix() == shifted);
    EXPECT_EQ(plug("a.word").setValue(MFnStringData().create("set")), MStatus::kSuccess);
    EXPECT_EQ(plug("a.word").asString(), "set");
    EXPECT_EQ(plug("a.word").setValue(data.create()), MStatus::kFailure);
}

TEST_F(MPlugValuesTest, aDataValueStaysWhatItWas) {
    run("setAttr a.tx 1");
    const MObject before = plug("a.worldMatrix[0]").asMObject();
    run("setAttr a.tx 2");
    EXPECT_EQ(MFnMatrixData(before).matrix()(3, 0), 1.0);
    EXPECT_EQ(MFnMatrixData(plug("a.worldMatrix[0]").asMObject()).matrix()(3, 0), 2.0);
}

TEST_F(MPlugValuesTest, aStringThatWasNeverSetIsEmpty) {
    EXPECT_EQ(plug("a.word").asString(), "");
}

TEST_F(MPlugValuesTest, settingMarksTheSceneAsModified) {
    host.scene().file().modified = false;
    plug("a.tx").setValue(3.0);
    EXPECT_TRUE(host.scene().file().modified);
}

} // namespace
} // namespace host
