#include "scene/plugSource.h"

#include "ExportSession.h"
#include "sceneText.h"

#include "scene/hostCompatibility.h"

#include <maya/MFnDependencyNode.h>

#include <gtest/gtest.h>

namespace tvk {
namespace {

class PlugSource : public testing::Test {
protected:
    MPlug plug(const std::string& node, const char* attribute) const {
        return findPlug(MFnDependencyNode(session.node(node)), attribute);
    }
    static std::string nameOf(const MObject& node) { return textOf(MFnDependencyNode(node).name()); }

    ExportSession session;
};

TEST_F(PlugSource, WhatIsNotConnectedHasNone) {
    session.open(nodeText("lambert", "skin"));
    EXPECT_TRUE(sourceOf(MPlug()).isNull());
    EXPECT_TRUE(sourceOf(plug("skin", "color")).isNull());
    EXPECT_TRUE(firstSourceNode(MPlug()).isNull());
    EXPECT_TRUE(firstSourceNode(plug("skin", "color")).isNull());
    EXPECT_TRUE(firstSourceNode(plug("skin", "diffuse")).isNull());
}

TEST_F(PlugSource, ItIsThatOfThisVeryPlug) {
    session.open(nodeText("lambert", "skin") + nodeText("checker", "squares") + nodeText("checker", "dots") +
                 "connectAttr \"squares.oc\" \"skin.c\";\nconnectAttr \"dots.ocg\" \"skin.itg\";\n");
    EXPECT_EQ(sourceOf(plug("skin", "color")), plug("squares", "outColor"));
    EXPECT_TRUE(sourceOf(plug("skin", "colorR")).isNull());
    EXPECT_TRUE(sourceOf(plug("skin", "transparency")).isNull());
    EXPECT_EQ(sourceOf(plug("skin", "transparencyG")), plug("dots", "outColorG"));
    EXPECT_TRUE(sourceOf(plug("squares", "outColor")).isNull()); // what it drives is not asked for
}

TEST_F(PlugSource, ACompoundWithoutOneAsksItsChildrenInTheirOrder) {
    session.open(nodeText("lambert", "skin") + nodeText("checker", "red") + nodeText("checker", "blue") +
                 nodeText("checker", "all") +
                 "connectAttr \"blue.ocb\" \"skin.cb\";\nconnectAttr \"red.ocr\" \"skin.cr\";\n"
                 "connectAttr \"all.oc\" \"skin.ambc\";\nconnectAttr \"blue.ocb\" \"skin.itb\";\n");
    EXPECT_EQ(nameOf(firstSourceNode(plug("skin", "color"))), "red");
    EXPECT_EQ(nameOf(firstSourceNode(plug("skin", "ambientColor"))), "all");
    EXPECT_EQ(nameOf(firstSourceNode(plug("skin", "transparency"))), "blue");
    EXPECT_EQ(nameOf(firstSourceNode(plug("skin", "colorB"))), "blue");
}

} // namespace
} // namespace tvk
