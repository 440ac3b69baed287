#include "host/scene/AttributeEditor.h"

#include <gtest/gtest.h>

namespace host {

namespace {

TEST(AttributeEditor, ALayoutEndsOnlyWhenOneIsOpen) {
    AttributeEditor editor;
    EXPECT_FALSE(editor.endLayout());
    editor.beginLayout("a");
    EXPECT_TRUE(editor.endLayout());
    EXPECT_FALSE(editor.endLayout());
}

TEST(AttributeEditor, RowsKnowTheLayoutsAroundThem) {
    AttributeEditor editor;
    editor.show("n");
    editor.addControl("first");
    editor.beginLayout("Outer");
    editor.beginLayout("Inner");
    editor.addControl("second");
    EXPECT_TRUE(editor.endLayout());
    editor.addControl("third");
    EXPECT_TRUE(editor.hasOpenLayout());
    EXPECT_EQ(editor.controlPath("first"), "first");
    EXPECT_EQ(editor.controlPath("second"), "Outer|Inner|second");
    EXPECT_EQ(editor.controlPath("third"), "Outer|third");
    EXPECT_EQ(editor.controlPath("fourth"), "");
}

TEST(AttributeEditor, AnotherNodeEmptiesIt) {
    AttributeEditor editor;
    editor.show("n");
    editor.beginLayout("Outer");
    editor.addControl("x");
    editor.show("m");
    EXPECT_EQ(editor.nodeName(), "m");
    EXPECT_FALSE(editor.hasOpenLayout());
    EXPECT_EQ(editor.controlPath("x"), "");
}

} // namespace

} // namespace host
