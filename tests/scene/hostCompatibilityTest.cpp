#include "scene/hostCompatibility.h"

#include "ExportSession.h"
#include "sceneText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

TEST(HostCompatibility, TextIsTheSameInBothDirections) {
    for (const std::string& text : {std::string(), std::string("a b"), std::string("\xE3\x82\xBD\xC3\xBC")}) {
        EXPECT_EQ(textOf(hostText(text)), text);
    }
}

TEST(HostCompatibility, PlugsAreFoundByEitherName) {
    ExportSession session;
    session.open(nodeText("transform", "a"));
    const MFnDependencyNode node(session.node("a"));
    EXPECT_TRUE(findPlug(node, "noSuchAttribute").isNull());
    EXPECT_FALSE(findPlug(node, "visibility").isNull());
    EXPECT_FALSE(findPlug(node, "v").isNull());
}

TEST(HostCompatibility, TranslationIsInCentimetresWhateverTheUnit) {
    ExportSession session;
    session.open("currentUnit -l meter;\n" + nodeText("transform", "a", "", set3("t", 1, 2, 3)));
    MStatus status;
    const MVector translation = translationOf(MFnTransform(session.path("a")), &status);
    EXPECT_TRUE(status);
    EXPECT_DOUBLE_EQ(translation.x, 100);
    EXPECT_DOUBLE_EQ(translation.y, 200);
    EXPECT_DOUBLE_EQ(translation.z, 300);
}

} // namespace
} // namespace tvk
