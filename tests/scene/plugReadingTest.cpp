#include "scene/plugReading.h"

#include "ExportSession.h"
#include "sceneText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

TEST(PlugReading, WhatIsNotThereLeavesTheValueAlone) {
    ExportSession session;
    session.open(nodeText("transform", "a", "", "addAttr -ln \"word\" -sn \"word\" -dt \"string\";"));
    int value = 7;
    EXPECT_FALSE(readAttribute(session.node("a"), "noSuchAttribute", value));
    EXPECT_FALSE(readAttribute(MObject(), "visibility", value));
    EXPECT_FALSE(readPlug(MPlug(), value));
    EXPECT_FALSE(readAttribute(session.node("a"), "word", value)); // of another type
    EXPECT_EQ(value, 7);
    EXPECT_EQ(attributeOr(session.node("a"), "noSuchAttribute", 3), 3);
}

TEST(PlugReading, ReadsTheValueAtTheCurrentTime) {
    ExportSession session;
    session.open(nodeText("transform", "a", "", "setAttr \".sx\" 2.5;") + visibilityKeys("a", "1 1 5 0", 2));
    EXPECT_EQ(attributeOr(session.node("a"), "scaleX", 0.0), 2.5);
    session.mel("currentTime 1");
    EXPECT_TRUE(attributeOr(session.node("a"), "visibility", false));
    session.mel("currentTime 5");
    EXPECT_FALSE(attributeOr(session.node("a"), "visibility", true));
}

} // namespace
} // namespace tvk
