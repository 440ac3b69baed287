#include <maya/MFnDependencyNode.h>

#include "HostTest.h"

#include <maya/MFnBase.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnIkJoint.h>
#include <maya/MFnMatrixData.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnSet.h>
#include <maya/MFnStringData.h>
#include <maya/MFnTransform.h>
#include <maya/MPlugArray.h>

#include <functional>

namespace host {
namespace {

class MFnDependencyNodeTest : public HostTest {
protected:
    MFnDependencyNodeTest() {
        run("createNode transform -n a; createNode transform -n b; createNode lambert -n red");
        fn.setObject(node("a"));
    }

    MFnDependencyNode fn;
};

/// A function set that is attached to an object, and what it may be attached to.
struct Attachment {
    const char* name;
    std::function<MStatus(const MObject&)> attach;
    std::function<MStatus(const MDagPath&)> attachPath; // of those for DAG nodes
    std::vector<std::string> fits;
};

template <class Fn>
MStatus attach(const MObject& object) {
    MStatus status;
    Fn fn(object, &status);
    MStatus again = fn.setObject(object);
    EXPECT_EQ(status, again);
    EXPECT_EQ(fn.object().isNull(), status != MStatus::kSuccess);
    return status;
}

template <class Fn>
MStatus attachPath(const MDagPath& path) {
    MStatus status;
    const Fn fn(path, &status);
    return status;
}

TEST_F(MFnDependencyNodeTest, functionSetsRefuseWhatTheyAreNotFor) {
    run("createNode joint -n j; createNode mesh -n m -p a; createNode objectSet -n s");
    const Attachment rows[] = {
        {"MFnDependencyNode", attach<MFnDependencyNode>, nullptr, {"a", "j", "m", "s", "red"}},
        {"MFnDagNode", attach<MFnDagNode>, attachPath<MFnDagNode>, {"a", "j", "m"}},
        {"MFnTransform", attach<MFnTransform>, attachPath<MFnTransform>, {"a", "j"}},
        {"MFnIkJoint", attach<MFnIkJoint>, attachPath<MFnIkJoint>, {"j"}},
        {"MFnSet", attach<MFnSet>, nullptr, {"s"}},
        {"MFnMatrixData", attach<MFnMatrixData>, nullptr, {}},
        {"MFnStringData", attach<MFnStringData>, nullptr, {}},
        {"MFnNumericData", attach<MFnNumericData>, nullptr, {}},
    };
    for (const Attachment& row : rows) {
        for (const std::string name : {"a", "j", "m", "s", "red"}) {
            const bool fits = std::find(row.fits.begin(), row.fits.end(), name) != row.fits.end();
            EXPECT_EQ(row.attach(node(name.c_str())), fits ? MStatus::kSuccess : MStatus::kInvalidParameter)
                << row.name << " on " << name;
            if (row.attachPath && name != "s" && name != "red") {
                EXPECT_EQ(row.attachPath(path(name.c_str())), fits ? MStatus::kSuccess : MStatus::kInvalidParameter)
                    << row.name << " on the path of " << name;
            }
        }
        EXPECT_EQ(row.attach(MObject()), MStatus::kInvalidParameter) << row.name;
        EXPECT_EQ(row.attach(fn.attribute("translate")), MStatus::kInvalidParameter) << row.name;
        if (row.attachPath) {
            EXPECT_EQ(row.attachPath(MDagPath()), MStatus::kInvalidParameter) << row.name;
        }
    }
}

TEST_F(MFnDependencyNodeTest, aRefusedObjectLeavesTheOldOne) {
    MFnTransform transform(node("a"));
    EXPECT_EQ(transform.setObject(node("red")), MStatus::kInvalidParameter);
    EXPECT_EQ(transform.name(), "a");
    EXPECT_TRUE(transform.hasObj(MFn::kDagNode));
    EXPECT_TRUE(transform.hasObj(node("b")));
    EXPECT_FALSE(transform.hasObj(node("red")));
}

const std::vector<std::pair<const char*, std::function<MStatus(MFnDependencyNode&)>>>& questions() {
    static const std::vector<std::pair<const char*, std::function<MStatus(MFnDependencyNode&)>>> rows = {
#define QUESTION(call)                                                                                                 \
    {                                                                                                                  \
#call, [](MFnDependencyNode& fn) {                                                                                \
         MStatus status;                                                                                               \
         fn.call;                                                                                                      \
         return status;                                                                                                \
     }    \
    }
        QUESTION(object(&status)),
        QUESTION(name(&status)),
        QUESTION(absoluteName(&status)),
        QUESTION(setName("other", &status)),
        QUESTION(uniqueName(&status)),
        QUESTION(typeName(&status)),
        QUESTION(parentNamespace(&status)),
        QUESTION(hasUniqueName(&status)),
        QUESTION(isDefaultNode(&status)),
        QUESTION(isFromReferencedFile(&status)),
        QUESTION(attributeCount(&status)),
        QUESTION(attribute(0, &status)),
        QUESTION(attribute("translate", &status)),
        QUESTION(hasAttribute("translate", &status)),
        QUESTION(findPlug("translate", true, &status)),
        QUESTION(findPlug("translate", &status)),
        QUESTION(findPlug(MObject(), true, &status)),
        QUESTION(plugsAlias(MPlug(), &status)),
#undef QUESTION
        {"getConnections",
         [](MFnDependencyNode& fn) {
             MPlugArray plugs;
             return fn.getConnections(plugs);
         }},
        {"getAliasList",
         [](MFnDependencyNode& fn) {
             MStatus status;
             MStringArray pairs;
             fn.getAliasList(pairs, &status);
             return status;
         }},
        {"findAlias",
         [](MFnDependencyNode& fn) {
             MStatus status;
             MObject attribute;
             fn.findAlias("x", attribute, &status);
             return status;
         }},
    };
    return rows;
}

TEST_F(MFnDependencyNodeTest, nothingAttachedFailsEveryQuestion) {
    MFnDependencyNode none;
    for (const auto& [name, ask] : questions()) {
        EXPECT_NE(ask(none), MStatus::kSuccess) << name;
    }
}

TEST_F(MFnDependencyNodeTest, aDeletedNodeFailsEveryQuestion) {
    run("delete a");
    for (const auto& [name, ask] : questions()) {
        EXPECT_NE(ask(fn), MStatus::kSuccess) << name;
    }
}

TEST_F(MFnDependencyNodeTest, namesTypesAndNamespaces) {
    run("createNode transform -n \"ns:deep:x\"");
    const MFnDependencyNode x(node("ns:deep:x"));
    EXPECT_EQ(x.name(), "ns:deep:x");
    EXPECT_EQ(x.absoluteName(), ":ns:deep:x");
    EXPECT_EQ(x.parentNamespace(), "ns:deep");
    EXPECT_EQ(fn.parentNamespace(), "");
    EXPECT_EQ(fn.typeName(), "transform");
    EXPECT_FALSE(fn.isFromReferencedFile());
    EXPECT_FALSE(fn.isDefaultNode());
    EXPECT_TRUE(MFnDependencyNode(node("time1")).isDefaultNode());
    EXPECT_TRUE(fn.hasUniqueName());
    run("createNode transform -n a -p b");
    EXPECT_FALSE(fn.hasUniqueName());
    EXPECT_EQ(fn.uniqueName(), "|a");
}

TEST_F(MFnDependencyNodeTest, renamingFindsAFreeName) {
    EXPECT_EQ(fn.setName("b"), "b1");
    EXPECT_EQ(fn.setName("two words"), "two_words");
    MStatus status;
    EXPECT_EQ(MFnDependencyNode(node("time1")).setName("mine", &status), "");
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MFnDependencyNodeTest, attributesByNameAndIndex) {
    EXPECT_TRUE(fn.attribute("translateX") == fn.attribute("tx"));
    EXPECT_TRUE(fn.hasAttribute("rotateOrder"));
    EXPECT_FALSE(fn.hasAttribute("color"));
    MStatus status;
    EXPECT_TRUE(fn.attribute("color", &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(fn.attribute(fn.attributeCount(), &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    const unsigned int before = fn.attributeCount();
    run("addAttr -ln extra -sn ex -at long a");
    EXPECT_EQ(fn.attributeCount(), before + 1);
    EXPECT_TRUE(fn.attribute(before) == fn.attribute("extra"));
}

struct FindRow {
    const char* name;
    const char* found; // the plug's name without the node, "" when there is none
};

class FindPlugTest : public MFnDependencyNodeTest, public testing::WithParamInterface<FindRow> {};

TEST_P(FindPlugTest, byAnyName) {
    run("addAttr -ln extra -sn ex -at long a; addAttr -ln many -at double -m a");
    Node& owner = *host.scene().find("a").node;
    host.graph().setAlias(owner, "nick", {owner.findAttribute("rotateY"), 0, {}});
    MStatus status;
    const MPlug found = fn.findPlug(GetParam().name, true, &status);
    const std::string wanted = GetParam().found;
    EXPECT_EQ(found.partialName(false, false, true, false, false, true), wanted.c_str());
    EXPECT_EQ(status, wanted.empty() ? MStatus::kInvalidParameter : MStatus::kSuccess);
    EXPECT_TRUE(fn.findPlug(GetParam().name) == found);
}

INSTANTIATE_TEST_SUITE_P(Names, FindPlugTest,
                         testing::Values(FindRow{"translate", "translate"}, FindRow{"t", "translate"},
                                         FindRow{"translateX", "translateX"}, FindRow{"tx", "translateX"},
                                         FindRow{"t.tx", "translateX"}, FindRow{"translate.translateX", "translateX"},
                                         FindRow{"extra", "extra"}, FindRow{"ex", "extra"}, FindRow{"many", "many"},
                                         FindRow{"many[3]", "many[3]"}, FindRow{"nick", "rotateY"},
                                         FindRow{"worldMatrix", "worldMatrix"}, FindRow{"", ""}, FindRow{"none", ""},
                                         FindRow{"Translate", ""}, FindRow{"many[-1]", ""}, FindRow{"many[", ""},
                                         FindRow{"t.rx", ""}, FindRow{"a.tx", ""}));

TEST_F(MFnDependencyNodeTest, plugsByAttribute) {
    EXPECT_TRUE(fn.findPlug(fn.attribute("tx"), true) == fn.findPlug("tx"));
    MStatus status;
    EXPECT_TRUE(fn.findPlug(MFnDependencyNode(node("red")).attribute("color"), true, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
}

TEST_F(MFnDependencyNodeTest, connectionsOfTheWholeNode) {
    MPlugArray plugs;
    EXPECT_EQ(fn.getConnections(plugs), MStatus::kFailure);
    run("connectAttr a.tx b.tx; connectAttr a.tx b.ty; connectAttr b.rx a.rx");
    EXPECT_EQ(fn.getConnections(plugs), MStatus::kSuccess);
    EXPECT_EQ(plugs.length(), 2U) << "a plug counts once";
}

/// Attributes that tools add to shaders, as scenes hold them.
TEST_F(MFnDependencyNodeTest, attributesThatScenesAdd) {
    run("createNode lambert -n shader;"
        "addAttr -ci true -sn \"pm\" -ln \"paint_mode\" -min 0 -max 3 -en \"modulate:decal:toon=3\" -at \"enum\" "
        "shader;"
        "addAttr -ci true -sn \"fo\" -ln \"paint_fog\" -min 0 -max 1 -at \"bool\" shader;"
        "addAttr -ci true -sn \"id\" -ln \"paint_id\" -dv 7 -at \"long\" shader;"
        "addAttr -ci true -sn \"we\" -ln \"paint_weight\" -dv 0.5 -at \"double\" shader;"
        "addAttr -ci true -sn \"mx\" -ln \"paint_mtx\" -dt \"matrix\" shader;"
        "addAttr -ci true -sn \"no\" -ln \"paint_note\" -dt \"string\" shader;"
        "setAttr shader.pm 3; setAttr shader.fo yes; setAttr shader.no -type \"string\" \"hello\"");
    const MFnDependencyNode shader(node("shader"));
    short mode = 0;
    EXPECT_EQ(shader.findPlug("paint_mode", true).getValue(mode), MStatus::kSuccess);
    EXPECT_EQ(mode, 3);
    bool fog = false;
    EXPECT_EQ(shader.findPlug("paint_fog", true).getValue(fog), MStatus::kSuccess);
    EXPECT_TRUE(fog);
    int number = 0;
    EXPECT_EQ(shader.findPlug("id", true).getValue(number), MStatus::kSuccess) << "by its short name";
    EXPECT_EQ(number, 7) << "its default";
    EXPECT_EQ(shader.findPlug("paint_mode", true).getValue(number), MStatus::kSuccess) << "an enum as a number";
    EXPECT_EQ(number, 3);
    double weight = 0.0;
    EXPECT_EQ(shader.findPlug("paint_weight", true).getValue(weight), MStatus::kSuccess);
    EXPECT_EQ(weight, 0.5);
    MString note;
    EXPECT_EQ(shader.findPlug("paint_note", true).getValue(note), MStatus::kSuccess);
    EXPECT_EQ(note, "hello");
    run("setAttr shader.mx -type \"matrix\" 1 0 0 0 0 2 0 0 0 0 3 0 4 5 6 1");
    MObject data;
    ASSERT_EQ(shader.findPlug("paint_mtx", true).getValue(data), MStatus::kSuccess);
    EXPECT_EQ(MFnMatrixData(data).matrix()(3, 1), 5.0);
    MStatus status;
    EXPECT_TRUE(shader.findPlug("paint_nothing", true, &status).isNull());
    EXPECT_NE(status, MStatus::kSuccess);
}

} // namespace
} // namespace host
