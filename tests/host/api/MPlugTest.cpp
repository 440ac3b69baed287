#include <maya/MPlug.h>

#include "HostTest.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MPlugArray.h>

#include <functional>

namespace host {
namespace {

class MPlugTest : public HostTest {
protected:
    MPlugTest() {
        run("createNode transform -n a; createNode transform -n b; createNode transform -n c;"
            "addAttr -ln list -at double -m a; setAttr a.list[2] 20; setAttr a.list[7] 70;"
            "addAttr -ln rows -at compound -m -nc 2 a; addAttr -ln left -at double -p rows a;"
            "addAttr -ln right -at double -m -p rows a; setAttr a.rows[3].right[1] 31;"
            "connectAttr b.tx a.ty; connectAttr b.tx c.tx; connectAttr b.tx a.list[9]");
        a = node("a");
        fn.setObject(a);
    }

    MObject a;
    MFnDependencyNode fn;
};

/// Every question to a plug that answers with a status of its own.
const std::vector<std::pair<const char*, std::function<MStatus(MPlug&)>>>& questions() {
    static const std::vector<std::pair<const char*, std::function<MStatus(MPlug&)>>> rows = {
#define QUESTION(call)                                                                                                 \
    {                                                                                                                  \
#call, [](MPlug& plug) {                                                                                          \
         MStatus status;                                                                                               \
         plug.call;                                                                                                    \
         return status;                                                                                                \
     }    \
    }
        QUESTION(node(&status)),
        QUESTION(attribute(&status)),
        QUESTION(name(&status)),
        QUESTION(info(&status)),
        QUESTION(partialName(true, true, true, true, true, true, &status)),
        QUESTION(isArray(&status)),
        QUESTION(isElement(&status)),
        QUESTION(isCompound(&status)),
        QUESTION(isChild(&status)),
        QUESTION(isNetworked(&status)),
        QUESTION(isConnected(&status)),
        QUESTION(isSource(&status)),
        QUESTION(isDestination(&status)),
        QUESTION(isKeyable(&status)),
        QUESTION(isChannelBoxFlag(&status)),
        QUESTION(isLocked(&status)),
        QUESTION(isCaching(&status)),
        QUESTION(isConnectable(&status)),
        QUESTION(isDynamic(&status)),
        QUESTION(isFreeToChange(true, true, &status)),
        QUESTION(isDefaultValue(&status)),
        QUESTION(child(0, &status)),
        QUESTION(child(MObject(), &status)),
        QUESTION(numChildren(&status)),
        QUESTION(parent(&status)),
        QUESTION(array(&status)),
        QUESTION(logicalIndex(&status)),
        QUESTION(numElements(&status)),
        QUESTION(evaluateNumElements(&status)),
        QUESTION(numConnectedElements(&status)),
        QUESTION(numConnectedChildren(&status)),
        QUESTION(elementByPhysicalIndex(0, &status)),
        QUESTION(elementByLogicalIndex(0, &status)),
        QUESTION(connectionByPhysicalIndex(0, &status)),
        QUESTION(source(&status)),
        QUESTION(sourceWithConversion(&status)),
        QUESTION(asDouble(&status)),
        QUESTION(asString(&status)),
        QUESTION(asMObject(&status)),
        QUESTION(asMTime(MDGContext::fsNormal, &status)),
#undef QUESTION
        {"getExistingArrayAttributeIndices",
         [](MPlug& plug) {
             MStatus status;
             MIntArray indices;
             plug.getExistingArrayAttributeIndices(indices, &status);
             return status;
         }},
        {"connectedTo",
         [](MPlug& plug) {
             MStatus status;
             MPlugArray plugs;
             plug.connectedTo(plugs, true, true, &status);
             return status;
         }},
        {"selectAncestorLogicalIndex", [](MPlug& plug) { return plug.selectAncestorLogicalIndex(0); }},
        {"setValue", [](MPlug& plug) { return plug.setValue(1.0); }},
        {"setLocked", [](MPlug& plug) { return plug.setLocked(true); }},
    };
    return rows;
}

TEST_F(MPlugTest, aNullPlugFailsEveryQuestion) {
    MPlug null;
    EXPECT_TRUE(null.isNull());
    for (const auto& [name, ask] : questions()) {
        EXPECT_NE(ask(null), MStatus::kSuccess) << name;
    }
}

TEST_F(MPlugTest, aPlugOfADeletedNodeFailsEveryQuestion) {
    MPlug gone = plug("c.translateY");
    run("delete c");
    EXPECT_TRUE(gone.isNull());
    EXPECT_TRUE(gone == MPlug());
    for (const auto& [name, ask] : questions()) {
        EXPECT_NE(ask(gone), MStatus::kSuccess) << name;
    }
}

TEST_F(MPlugTest, anAttributeThatTheNodeHasNotGivesNoPlug) {
    run("createNode mesh -n m");
    const MObject mesh = node("m");
    MStatus status;
    EXPECT_TRUE(MPlug(mesh, fn.attribute("translate"), &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(MPlug(a, a, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(MPlug(MObject(), fn.attribute("translate"), &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_FALSE(MPlug(mesh, fn.attribute("visibility"), &status).isNull());
    EXPECT_EQ(status, MStatus::kSuccess);
}

struct ShapeRow {
    const char* plug;
    bool isArray, isElement, isCompound, isChild;
};

TEST_F(MPlugTest, shapesOfPlugs) {
    static constexpr ShapeRow kRows[] = {
        {"a.translate", false, false, true, false},
        {"a.translateX", false, false, false, true},
        {"a.list", true, false, false, false},
        {"a.list[2]", false, true, false, false},
        {"a.rows", true, false, true, false},
        {"a.rows[3]", false, true, true, false},
        {"a.rows[3].left", false, false, false, true},
        {"a.rows[3].right", true, false, false, true},
        {"a.rows[3].right[1]", false, true, false, false},
        {"a.visibility", false, false, false, false},
    };
    for (const ShapeRow& row : kRows) {
        const MPlug place = plug(row.plug);
        EXPECT_EQ(place.isArray(), row.isArray) << row.plug;
        EXPECT_EQ(place.isElement(), row.isElement) << row.plug;
        EXPECT_EQ(place.isCompound(), row.isCompound) << row.plug;
        EXPECT_EQ(place.isChild(), row.isChild) << row.plug;
        EXPECT_EQ(place.isDynamic(), std::string(row.plug).find(".t") == std::string::npos &&
                                         std::string(row.plug).find(".v") == std::string::npos)
            << row.plug;
    }
}

struct NameRow {
    const char* plug;
    const char* name;
    const char* partial;
    const char* fullPartial; // with the whole attribute path
};

TEST_F(MPlugTest, namesOfPlugs) {
    static constexpr NameRow kRows[] = {
        {"a.tx", "a.translate.translateX", "tx", "t.tx"},
        {"a.list", "a.list", "list", "list"},
        {"a.list[7]", "a.list[7]", "list[7]", "list[7]"},
        {"a.rows[3].left", "a.rows[3].left", "rows[3].left", "rows[3].left"},
        {"a.rows[3].right[1]", "a.rows[3].right[1]", "rows[3].right[1]", "rows[3].right[1]"},
        {"a.wm[0]", "a.worldMatrix[0]", "wm", "wm"},
    };
    for (const NameRow& row : kRows) {
        const MPlug place = plug(row.plug);
        EXPECT_EQ(place.name(), row.name);
        EXPECT_EQ(place.partialName(), row.partial);
        EXPECT_EQ(place.partialName(false, false, false, false, true), row.fullPartial);
    }
    EXPECT_EQ(plug("a.wm[0]").partialName(true, false, true), "a.wm[0]");
    EXPECT_EQ(plug("a.tx").partialName(true, false, false, false, false, true), "a.translateX");
    EXPECT_EQ(plug("a.tx").info(), "a:translate.translateX");
    EXPECT_EQ(fn.findPlug("right", true).name(), "a.rows[].right");
}

TEST_F(MPlugTest, namesOfNodesThatShareTheirNameTellThePath) {
    run("createNode transform -n twin -p a; createNode transform -n twin -p b");
    EXPECT_EQ(path("a|twin").partialPathName(), "a|twin");
    EXPECT_EQ(MFnDependencyNode(path("b|twin").node()).findPlug("tx", true).name(), "b|twin.translate.translateX");
}

TEST_F(MPlugTest, childrenAndParents) {
    const MPlug translate = plug("a.t");
    EXPECT_EQ(translate.numChildren(), 3U);
    EXPECT_EQ(translate.child(1).partialName(), "ty");
    EXPECT_EQ(translate.child(fn.attribute("tz")).partialName(), "tz");
    EXPECT_TRUE(translate.child(1).parent() == translate);
    EXPECT_TRUE(plug("a.rows[3].right").parent() == plug("a.rows[3]"));
    MStatus status;
    EXPECT_TRUE(translate.child(3, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(translate.child(fn.attribute("rx"), &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(translate.parent(&status).isNull());
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_TRUE(plug("a.list[2]").parent(&status).isNull());
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MPlugTest, elementsByPhysicalAndLogicalIndex) {
    const MPlug list = plug("a.list");
    ASSERT_EQ(list.numElements(), 3U) << "two are set, one is connected";
    EXPECT_EQ(list.elementByPhysicalIndex(0).logicalIndex(), 2U);
    EXPECT_EQ(list[1].logicalIndex(), 7U);
    EXPECT_EQ(list[2].logicalIndex(), 9U);
    EXPECT_TRUE(list[1] == list.elementByLogicalIndex(7));
    EXPECT_TRUE(list[1].array() == list);
    MStatus status;
    EXPECT_TRUE(list.elementByPhysicalIndex(3, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(list.elementByLogicalIndex(0x80000000U, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_EQ(list.elementByLogicalIndex(1000).asDouble(&status), 0.0) << "the default of one that is not there";
    EXPECT_EQ(status, MStatus::kSuccess);
    EXPECT_TRUE(plug("a.list[2]").elementByLogicalIndex(0, &status).isNull());
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(plug("a.tx").logicalIndex(&status), 0U);
    EXPECT_EQ(status, MStatus::kFailure);
    MIntArray indices;
    EXPECT_EQ(list.getExistingArrayAttributeIndices(indices), 3U);
    EXPECT_EQ(indices[2], 9);
}

TEST_F(MPlugTest, elementsOfNumbersAloneAreFoundByPosition) {
    run("addAttr -ln numbers -at double -m a; setAttr \"a.numbers[4:6]\" 40 50 60; setAttr a.numbers[100] 1");
    const MPlug numbers = plug("a.numbers");
    ASSERT_EQ(numbers.numElements(), 4U);
    EXPECT_EQ(numbers[3].logicalIndex(), 100U);
    EXPECT_EQ(numbers[1].asDouble(), 50.0);
}

TEST_F(MPlugTest, connectedElements) {
    const MPlug list = plug("a.list");
    EXPECT_EQ(list.numConnectedElements(), 1U);
    EXPECT_EQ(list.connectionByPhysicalIndex(0).logicalIndex(), 9U);
    MStatus status;
    EXPECT_TRUE(list.connectionByPhysicalIndex(1, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_EQ(plug("a.t").numConnectedChildren(), 1U);
    run("connectAttr c.tx a.rows[5].right[2]");
    EXPECT_EQ(plug("a.rows").numConnectedElements(), 1U);
    EXPECT_EQ(plug("a.rows").connectionByPhysicalIndex(0).logicalIndex(), 5U);
}

TEST_F(MPlugTest, ancestorsGetTheirIndexLater) {
    MPlug right = fn.findPlug("right", true);
    MStatus status;
    EXPECT_TRUE(right.elementByLogicalIndex(1, &status).isNull()) << "there is no row yet";
    EXPECT_EQ(right.asDouble(&status), 0.0);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(right.selectAncestorLogicalIndex(3, fn.attribute("list")), MStatus::kInvalidParameter);
    ASSERT_EQ(right.selectAncestorLogicalIndex(3, fn.attribute("rows")), MStatus::kSuccess);
    EXPECT_EQ(right.elementByLogicalIndex(1).asDouble(), 31.0);
    ASSERT_EQ(right.selectAncestorLogicalIndex(4), MStatus::kSuccess);
    EXPECT_EQ(right.name(), "a.rows[4].right");
}

TEST_F(MPlugTest, connectionsOfExactlyThisPlug) {
    MPlugArray plugs;
    EXPECT_TRUE(plug("a.ty").connectedTo(plugs, true, false));
    ASSERT_EQ(plugs.length(), 1U);
    EXPECT_TRUE(plugs[0] == plug("b.tx"));
    EXPECT_FALSE(plug("a.ty").connectedTo(plugs, false, true));
    EXPECT_EQ(plugs.length(), 0U);
    EXPECT_TRUE(plug("b.tx").connectedTo(plugs, true, true));
    EXPECT_EQ(plugs.length(), 3U);
    EXPECT_FALSE(plug("a.t").connectedTo(plugs, true, true)) << "a child is connected, not the compound";
    EXPECT_FALSE(plug("a.t").isConnected());
    EXPECT_TRUE(plug("a.ty").isDestination());
    EXPECT_FALSE(plug("a.ty").isSource());
    EXPECT_TRUE(plug("b.tx").isSource());
    EXPECT_TRUE(plug("b.tx").isConnected());
}

TEST_F(MPlugTest, theSourceIsFoundThroughUnitConversions) {
    run("createNode unitConversion -n u; connectAttr b.rx u.input; connectAttr u.output c.sx");
    MStatus status;
    EXPECT_TRUE(plug("c.sx").source(&status) == plug("b.rx"));
    EXPECT_TRUE(plug("c.sx").sourceWithConversion() == plug("u.output"));
    EXPECT_TRUE(plug("c.sy").source(&status).isNull());
    EXPECT_EQ(status, MStatus::kSuccess) << "to have no source is no failure";
    run("createNode unitConversion -n v; connectAttr -f v.output u.input; connectAttr u.output v.input");
    EXPECT_TRUE(plug("c.sx").source(&status).isNull() || status == MStatus::kSuccess) << "a ring of them ends";
}

TEST_F(MPlugTest, whatIsLockedOrDrivenIsNotFree) {
    run("setAttr -l on a.tx; setAttr -l on a.s");
    EXPECT_TRUE(plug("a.tx").isLocked());
    EXPECT_TRUE(plug("a.sx").isLocked()) << "its compound is";
    EXPECT_EQ(plug("a.rx").isFreeToChange(), MPlug::kFreeToChange);
    EXPECT_EQ(plug("a.tx").isFreeToChange(), MPlug::kNotFreeToChange);
    EXPECT_EQ(plug("a.sx").isFreeToChange(), MPlug::kNotFreeToChange);
    EXPECT_EQ(plug("a.ty").isFreeToChange(), MPlug::kNotFreeToChange);
    EXPECT_EQ(plug("a.t").isFreeToChange(), MPlug::kChildrenNotFreeToChange);
    EXPECT_EQ(plug("a.t").isFreeToChange(true, false), MPlug::kFreeToChange);
    EXPECT_EQ(plug("a.worldMatrix[0]").isFreeToChange(), MPlug::kNotFreeToChange);
    EXPECT_EQ(plug("a.tx").setLocked(false), MStatus::kSuccess);
    EXPECT_FALSE(plug("a.tx").isLocked());
}

TEST_F(MPlugTest, flagsOfThePlugWinOverThoseOfTheAttribute) {
    EXPECT_TRUE(plug("a.tx").isKeyable());
    run("setAttr -k off a.tx; setAttr -cb on a.tx");
    EXPECT_FALSE(plug("a.tx").isKeyable());
    EXPECT_TRUE(plug("a.tx").isChannelBoxFlag());
    EXPECT_TRUE(plug("a.ty").isKeyable());
}

TEST_F(MPlugTest, defaultValues) {
    EXPECT_TRUE(plug("a.sx").isDefaultValue());
    run("setAttr a.sx 2");
    EXPECT_FALSE(plug("a.sx").isDefaultValue());
}

TEST_F(MPlugTest, equalityIsOfPlaces) {
    EXPECT_TRUE(plug("a.tx") == plug("a.translateX"));
    EXPECT_TRUE(plug("a.tx") != plug("b.tx"));
    EXPECT_TRUE(plug("a.list[2]") != plug("a.list[7]"));
    EXPECT_TRUE(plug("a.tx") == fn.attribute("tx"));
    EXPECT_TRUE(plug("a.tx") != fn.attribute("ty"));
}

} // namespace
} // namespace host
