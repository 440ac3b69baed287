#include "host/nodes/numberRefusal.h"

#include "MeshFixture.h"

#include "host/nodes/historySettings.h"

#include <gtest/gtest.h>

namespace host {

namespace {

/// A cube with a history, each node behind the one before, shown as "body".
class NumberedHistory : public MeshFixture {
protected:
    Node& add(const char* type, const char* name) {
        Node& node = make(type, name);
        const bool isModifier = node.type().isKindOf("polyModifier");
        connect(*last_, lastOutput_, node, isModifier ? "inputPolymesh" : "inputGeometry");
        lastOutput_ = isModifier ? "output" : "outputGeometry";
        last_ = &node;
        return node;
    }
    std::string refusal() {
        if (!isShown_) {
            connect(*last_, lastOutput_, shown, "inMesh");
            isShown_ = true;
        }
        return findNumberRefusal(graph, shown, "body");
    }

    Node& shown = makeMesh("bodyShape");

private:
    Node* last_ = &make("polyCube", "cube");
    std::string lastOutput_ = "output";
    bool isShown_ = false;
};

TEST_F(NumberedHistory, MayNameWhatItNumbersAsTheRealHost) {
    setComponents(add("polySoftEdge", "soft"), "inputComponents", {"e[3]"});
    setComponents(add("polyDelFacet", "erased"), "inputComponents", {"f[3]"});
    set(add("polyTweak", "tweak"), "tweak[1].tweakX", 1);
    EXPECT_EQ(refusal(), "");
}

TEST_F(NumberedHistory, MayNotNamePartsWhoseNumbersAreThisHostsOwn) {
    add("polyQuad", "polyQuad1");
    Node& erased = add("polyDelFacet", "polyDelFacet1");
    setComponents(erased, "inputComponents", {"f[3]"});
    EXPECT_EQ(refusal(),
              "node type 'polyQuad' before 'polyDelFacet' is not supported: body.polyDelFacet1 names parts of "
              "the mesh by numbers that body.polyQuad1 gives them (delete the history of 'body', or export "
              "from Maya)");
    setComponents(erased, "inputComponents", {"vtx[3]"});
    EXPECT_EQ(refusal(), "") << "vertices keep their numbers";
}

TEST_F(NumberedHistory, MayNameAllOfAKind) {
    setComponents(add("polySubdFace", "divided"), "inputComponents", {"f[*]"});
    Node& soft = add("polySoftEdge", "soft");
    setComponents(soft, "inputComponents", {"e[*]"});
    EXPECT_EQ(refusal(), "");
    setComponents(soft, "inputComponents", {"e[0:30]", "e[31:47]"});
    EXPECT_EQ(refusal(), "") << "these are all of them";
    setComponents(soft, "inputComponents", {"e[0:46]"});
    EXPECT_NE(refusal(), "");
}

TEST_F(NumberedHistory, MayNotMovePartsWhoseNumbersAreThisHostsOwn) {
    setComponents(add("polySubdFace", "divided"), "inputComponents", {"f[*]"});
    Node& tweak = add("polyTweak", "tweak");
    set(tweak, "tweak[1].tweakX", 0);
    EXPECT_EQ(refusal(), "") << "nothing is moved";
    set(tweak, "tweak[1].tweakX", 1);
    EXPECT_NE(refusal(), "");
}

TEST_F(NumberedHistory, LooksAtTheShapeToo) {
    setComponents(add("polySubdFace", "divided"), "inputComponents", {"f[*]"});
    EXPECT_EQ(refusal(), "");
    setRows(shown, "pnts", {0, 0, 0, 0, 1, 0});
    EXPECT_EQ(refusal(),
              "node type 'polySubdFace' before 'mesh' is not supported: body.bodyShape names parts of the mesh "
              "by numbers that body.divided gives them (delete the history of 'body', or export from Maya)");
}

TEST_F(NumberedHistory, DoesNotMindWhatComesBeforeOrHasNoEffect) {
    set(add("polyTweak", "tweak"), "tweak[1].tweakX", 1);
    Node& divided = add("polySubdFace", "divided");
    setComponents(add("groupParts", "parts"), "inputComponents", {"f[3]"});
    EXPECT_NE(refusal(), "");
    set(divided, "nodeState", 1);
    EXPECT_EQ(refusal(), "");
}

TEST_F(NumberedHistory, DependsOnSettings) {
    Node& eraser = add("deleteComponent", "eraser");
    Node& normals = add("polyNormal", "normals");
    Node& soft = add("polySoftEdge", "soft");
    setComponents(soft, "inputComponents", {"e[2]"});
    setComponents(eraser, "deleteComponents", {"f[3]"});
    EXPECT_EQ(refusal(), "");
    setComponents(eraser, "deleteComponents", {"e[3]"});
    EXPECT_NE(refusal(), "");
    setComponents(eraser, "deleteComponents", {});
    set(normals, "normalMode", 2);
    EXPECT_EQ(refusal(), "");
    set(normals, "normalMode", 3);
    EXPECT_NE(refusal(), "");
}

// --- settings

struct SettingRow {
    const char* type;
    const char* attribute;
    double value;
    const char* expected; // the attribute that is named
};

void PrintTo(const SettingRow& row, std::ostream* out) {
    *out << row.type << "." << row.attribute;
}

class Setting : public MeshFixture, public testing::WithParamInterface<SettingRow> {};

TEST_P(Setting, IsFoundUnlessItIsAsUsual) {
    const SettingRow& row = GetParam();
    Node& node = make(row.type, "node");
    EXPECT_EQ(findUnsupportedSetting(graph, node), "");
    set(node, row.attribute, row.value);
    EXPECT_EQ(findUnsupportedSetting(graph, node), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, Setting,
                         testing::Values(SettingRow{"polyCylinder", "roundCap", 1, "roundCap"},
                                         SettingRow{"polyCone", "subdivisionsCap", 2, "subdivisionsCap"},
                                         SettingRow{"polyNormal", "normalMode", 5, "normalMode"},
                                         SettingRow{"polySubdFace", "mode", 1, "mode"},
                                         SettingRow{"polySubdFace", "subdMethod", 1, "subdMethod"},
                                         SettingRow{"polySmoothFace", "osdSmoothTriangles", 1, "osdSmoothTriangles"},
                                         SettingRow{"polySmoothFace", "continuity", 0.5, "continuity"},
                                         SettingRow{"polySmoothFace", "keepBorder", 0, "keepBorder"},
                                         SettingRow{"polyMoveVertex", "scaleY", 2, "scale"},
                                         SettingRow{"polyMoveFace", "localTranslateZ", 2, "localTranslate"},
                                         SettingRow{"polyChipOff", "offset", 0.1, "offset"},
                                         SettingRow{"polyChipOff", "rotateX", 0.1, "rotate"},
                                         SettingRow{"polyExtrudeFace", "localTranslateX", 1, "localTranslateX"},
                                         SettingRow{"polyExtrudeFace", "divisions", 2, "divisions"},
                                         SettingRow{"polyExtrudeFace", "localScaleX", 0.5, "localScale"},
                                         SettingRow{"polyExtrudeFace", "taper", 0.5, "taper"}));

TEST_F(NumberedHistory, WithSettingsThatMoveIsNotSupported) {
    Node& divided = add("polySubdFace", "divided");
    connect(make("transform", "driver"), "translateX", divided, "divisions");
    EXPECT_EQ(findUnsupportedSetting(graph, divided), "") << "any number will do";
    connect(make("transform", "driver"), "translateX", divided, "mode");
    EXPECT_EQ(findUnsupportedSetting(graph, divided), "mode") << "at another time it may be another";
}

TEST_F(NumberedHistory, ThatSmoothsByTheNewerRuleMustBeClosed) {
    Node& open = add("polyDelFacet", "open");
    Node& smooth = add("polySmoothFace", "smooth");
    setComponents(smooth, "inputComponents", {"f[*]"});
    set(smooth, "subdivisionType", 2);
    EXPECT_EQ(findUnsupportedSetting(graph, smooth), "");
    set(smooth, "osdFvarBoundary", 1);
    EXPECT_EQ(findUnsupportedSetting(graph, smooth), "subdivisionType");
    set(smooth, "osdFvarBoundary", 3);
    setComponents(open, "inputComponents", {"f[0]"});
    EXPECT_EQ(findUnsupportedSetting(graph, smooth), "subdivisionType");
    set(smooth, "subdivisionType", 0);
    EXPECT_EQ(findUnsupportedSetting(graph, smooth), "");
}

TEST_F(NumberedHistory, ThatSmoothsCreasesIsNotSupported) {
    add("polyCrease", "crease");
    add("polySoftEdge", "soft");
    Node& smooth = add("polySmoothFace", "smooth");
    setComponents(smooth, "inputComponents", {"f[*]"});
    EXPECT_EQ(findUnsupportedSetting(graph, smooth), "inputPolymesh");
}

TEST_F(NumberedHistory, ThatExtrudesWhatIsNotFlatIsNotSupported) {
    Node& extrude = add("polyExtrudeFace", "extrude");
    setComponents(extrude, "inputComponents", {"f[0:1]"});
    EXPECT_EQ(findUnsupportedSetting(graph, extrude), "");
    set(extrude, "localTranslateZ", 1);
    EXPECT_EQ(findUnsupportedSetting(graph, extrude), "localTranslateZ");
    set(extrude, "keepFacesTogether", 0);
    EXPECT_EQ(findUnsupportedSetting(graph, extrude), "");
    set(extrude, "keepFacesTogether", 1);
    set(extrude, "localTranslateZ", 0);
    set(extrude, "thickness", 1);
    EXPECT_EQ(findUnsupportedSetting(graph, extrude), "thickness");
    set(extrude, "thickness", 0);
    connect(make("transform", "driver"), "translateX", extrude, "offset");
    EXPECT_EQ(findUnsupportedSetting(graph, extrude), "offset") << "at another time it is more than 0";
}

TEST_F(NumberedHistory, ThatSmoothsOrDeletesInPartIsNotSupported) {
    Node& smooth = add("polySmoothFace", "smooth");
    setComponents(smooth, "inputComponents", {"f[0:5]"});
    EXPECT_EQ(findUnsupportedSetting(graph, smooth), "");
    setComponents(smooth, "inputComponents", {"f[0:4]"});
    EXPECT_EQ(findUnsupportedSetting(graph, smooth), "inputComponents");
    setComponents(smooth, "inputComponents", {});
    EXPECT_EQ(findUnsupportedSetting(graph, smooth), "");
    Node& eraser = add("deleteComponent", "eraser");
    setComponents(eraser, "deleteComponents", {"f[0]", "f[3]"});
    EXPECT_EQ(findUnsupportedSetting(graph, eraser), "");
    setComponents(eraser, "deleteComponents", {"f[0]", "e[3]"});
    EXPECT_EQ(findUnsupportedSetting(graph, eraser), "deleteComponents");
    setComponents(eraser, "deleteComponents", {"vtx[0]"});
    EXPECT_EQ(findUnsupportedSetting(graph, eraser), "deleteComponents");
}

} // namespace

} // namespace host
