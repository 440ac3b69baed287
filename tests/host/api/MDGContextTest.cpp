#include <maya/MDGContext.h>

#include "HostTest.h"

#include <maya/MAnimControl.h>
#include <maya/MDGContextGuard.h>

namespace host {
namespace {

class MDGContextTest : public HostTest {
protected:
    MDGContextTest() {
        run("createNode transform -n a; connectAttr time1.outTime a.tx"); // one centimetre a frame
        MAnimControl::setCurrentTime(MTime(5.0));
    }

    static double at(const MPlug& plug, double frame) { return plug.asDouble(MDGContext(MTime(frame))); }
};

TEST_F(MDGContextTest, theNormalContextHasNoTime) {
    MTime time(3.0);
    EXPECT_TRUE(MDGContext::fsNormal.isNormal());
    EXPECT_TRUE(MDGContext().isNormal());
    EXPECT_EQ(MDGContext().getTime(time), MStatus::kFailure);
    EXPECT_EQ(time, MTime(3.0));
    EXPECT_EQ(MDGContext(MTime(8.0)).getTime(time), MStatus::kSuccess);
    EXPECT_EQ(time, MTime(8.0));
    EXPECT_FALSE(MDGContext(MTime(8.0)).isNormal());
}

TEST_F(MDGContextTest, plugsAreEvaluatedAtTheContextsTime) {
    const MPlug x = plug("a.tx");
    const double now = x.asDouble();
    EXPECT_DOUBLE_EQ(at(x, 10.0), now * 2.0);
    EXPECT_EQ(x.asDouble(), now);
    EXPECT_EQ(x.asDouble(MDGContext::fsNormal), now);
    double value = 0.0;
    EXPECT_EQ(x.getValue(value, MDGContext(MTime(20.0))), MStatus::kSuccess);
    EXPECT_DOUBLE_EQ(value, now * 4.0);
    EXPECT_EQ(MAnimControl::currentTime(), MTime(5.0));
}

TEST_F(MDGContextTest, guardsNestAndEnd) {
    const MPlug x = plug("a.tx");
    const double now = x.asDouble();
    {
        const MDGContextGuard outer{MDGContext(MTime(10.0))};
        EXPECT_DOUBLE_EQ(x.asDouble(), now * 2.0);
        EXPECT_TRUE(outer.prevContext().isNormal());
        {
            const MDGContextGuard inner{MDGContext(MTime(15.0))};
            EXPECT_DOUBLE_EQ(x.asDouble(), now * 3.0);
            EXPECT_EQ(x.asDouble(MDGContext::fsNormal), now);
            EXPECT_TRUE(MDGContext(MTime(15.0)).isCurrent());
        }
        EXPECT_DOUBLE_EQ(x.asDouble(), now * 2.0);
        EXPECT_EQ(MAnimControl::currentTime(), MTime(5.0)) << "the user's time is not the context's";
    }
    EXPECT_EQ(x.asDouble(), now);
    EXPECT_TRUE(MDGContext::fsNormal.isCurrent());
}

TEST_F(MDGContextTest, theCurrentTimeMayBeSetMeanwhile) {
    const MPlug x = plug("a.tx");
    const double now = x.asDouble();
    {
        const MDGContextGuard guard{MDGContext(MTime(10.0))};
        MAnimControl::setCurrentTime(MTime(30.0));
        EXPECT_DOUBLE_EQ(x.asDouble(), now * 2.0);
    }
    EXPECT_DOUBLE_EQ(x.asDouble(), now * 6.0);
}

} // namespace
} // namespace host
