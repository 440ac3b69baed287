#include "decode/ModelFile.h"

#include "fileTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace decode {
namespace {

using testing::ElementsAre;

std::string node(int index, const std::string& name, const std::string& links, const std::string& placed) {
    return "<node index=\"" + std::to_string(index) + "\" name=\"" + name + "\" kind=\"null\" " + links +
           " draw_mtx=\"off\" scale_compensate=\"on\" billboard=\"off\" " + placed +
           " visibility=\"on\" display_size=\"0\"></node>\n";
}

// A root that is turned a quarter about z and twice as wide, with two children.
std::string family() {
    return kDeclarationLine + "<imd><body>\n<model_info/>\n<node_array size=\"3\">\n" +
           node(0, "root", R"(parent="-1" child="1" brother_next="-1" brother_prev="-1")",
                R"(scale="2 1 1" rotate="0 0 90" translate="1 0 0")") +
           node(1, "a", R"(parent="0" child="-1" brother_next="2" brother_prev="-1")",
                R"(scale="1 1 1" rotate="0 0 0" translate="1 0 0")") +
           node(2, "b", R"(parent="0" child="-1" brother_next="-1" brother_prev="1")",
                R"(scale="1 1 1" rotate="0 0 0" translate="0 0 3")") +
           "</node_array></body></imd>";
}

TEST(ModelFile, RefusesWhatAReaderWouldStumbleOver) {
    ASSERT_EQ(complaintOf(readModelFile, family()), "");
    for (const Damage& row : {
             Damage{"<imd>", "<ica>", "line 8: expected ica instead of \"imd>\""},
             {"<model_info/>", "", "line 2: body: has no model_info"},
             {"size=\"3\"", "size=\"2\"", "line 4: node_array: size is 2, but there are 3 elements"},
             {"size=\"3\"", "size=\"2000000000\"", "line 4: node_array: size is 2000000000, but there are 3 elements"},
             {"index=\"1\"", "index=\"5\"", "line 6: node: index is 5 at place 1"},
             {"name=\"b\"", "name=\"a\"", "line 7: node: a: stands there twice"},
             {"parent=\"0\"", "parent=\"1\"", "line 5: node: root: child does not lead back"},
             {"parent=\"-1\"", "parent=\"0\"", "line 5: node: root: the first node, and it alone, is the root"},
             {"brother_next=\"2\"", "brother_next=\"77\"", "line 6: node: a: links to a node that is not there"},
             {"brother_next=\"2\"", "brother_next=\"-1\"", "line 7: node: b: brother_prev does not lead back"},
             {"brother_prev=\"1\"", "brother_prev=\"-1\"", "line 6: node: a: brother_next does not lead back"},
             {"child=\"1\"", "child=\"2\"", "line 5: node: root: child does not lead back"},
             {"child=\"1\"", "child=\"-1\"", "line 6: node: a: is nobody's first child and has no brother before it"},
             {"scale_compensate=\"on\" ", "",
              "line 6: node: a: has scale_compensate and others do not, or the reverse"},
             {"display_size=\"0\"", "display_size=\"1\"",
              "line 5: node: display_size of root is 1, but there are 0 displays"},
             {"draw_mtx=\"off\"", "draw_mtx=\"OFF\"", "line 5: node: draw_mtx is neither on nor off: OFF"},
             {"rotate=\"0 0 90\"", "rotate=\"0 0\"", "line 5: node: rotate is not 3 numbers: 0 0"},
         }) {
        EXPECT_EQ(complaintOf(readModelFile, damaged(family(), row)), row.message) << row.with;
    }
    std::string other = family();
    for (const char* tag : {"<imd>", "</imd>"}) {
        const std::string word = tag;
        other.replace(other.find(word), word.size(), std::string(word).replace(word.find("imd"), 3, "iva"));
    }
    EXPECT_EQ(complaintOf(readModelFile, other), "line 2: iva: is no model");
}

TEST(ModelFile, BuildsMatricesFromThePartsUpTheParents) {
    const ModelFile file = readModelFile(family());
    EXPECT_THAT(file.childrenOf("root"), ElementsAre("a", "b"));
    // Row vectors: scaled, turned from x to y, moved.
    const Imath::V3d tip = Imath::V3d(1, 0, 0) * file.node("root").world;
    EXPECT_NEAR((tip - Imath::V3d(1, 2, 0)).length(), 0.0, 1e-12);
    // The child's own size does not know the parent's scale, its place does.
    const Imath::V3d childTip = Imath::V3d(1, 0, 0) * file.node("a").world;
    EXPECT_NEAR((childTip - Imath::V3d(1, 3, 0)).length(), 0.0, 1e-12);
    EXPECT_THROW(file.node("c"), FileError);
}

} // namespace
} // namespace decode
