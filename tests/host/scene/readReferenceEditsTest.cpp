#include "host/scene/readReferenceEdits.h"

#include "host/scene/SceneArguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<ReferenceEditBlock> blocksOf(const std::string& text, std::string* error = nullptr) {
    mel::Lexer lexer(text);
    SceneArguments arguments(lexer);
    std::vector<ReferenceEditBlock> blocks;
    const Outcome outcome = readReferenceEdits(arguments, blocks);
    if (error != nullptr) {
        *error = outcome.text;
    }
    return blocks;
}

// "block: kind(text, text) kind(…); block: …", without the nameless first block when it has no edits.
std::string shown(const std::string& text) {
    std::string line;
    bool isFirst = true;
    for (const ReferenceEditBlock& block : blocksOf(text)) {
        if (isFirst && block.edits.empty()) {
            isFirst = false;
            continue;
        }
        isFirst = false;
        line += (line.empty() ? "" : "; ") + block.reference + ":";
        for (const ReferenceEdit& edit : block.edits) {
            line += " " + std::to_string(edit.kind) + "(";
            for (const std::string& each : edit.texts) {
                line += (line.back() == '(' ? "" : ",") + each;
            }
            line += ")";
        }
    }
    return line;
}

struct EditsRow {
    const char* name;
    const char* text;
    const char* edits;
};

void PrintTo(const EditsRow& row, std::ostream* out) {
    *out << row.name;
}

TEST(ReadReferenceEdits, NeedTextsAndNumbers) {
    std::string error;
    EXPECT_THAT(blocksOf(";", &error), IsEmpty());
    EXPECT_EQ(error, "expected the name of a reference node, found ';'");
    EXPECT_THAT(blocksOf("\"xRN\" (1);", &error), IsEmpty());
    EXPECT_EQ(error, "expected an edit of a reference, found '('");
}

class Edits : public testing::TestWithParam<EditsRow> {};

TEST_P(Edits, AreSortedIntoBlocks) {
    EXPECT_EQ(shown(GetParam().text), GetParam().edits);
}

INSTANTIATE_TEST_SUITE_P(
    All, Edits,
    testing::Values(
        EditsRow{"None", "\"xRN\";", ""}, EditsRow{"EmptyBlock", "\"xRN\" \"xRN\" 0;", "xRN:"},
        EditsRow{"TwoBlocks", "\"xRN\" \"xRN\" 1 2 \"a\" \"tx\" \" 1\" \"x:yRN\" 1 2 \"b\" \"tx\" \" 2\";",
                 "xRN: 2(a,tx, 1); x:yRN: 2(b,tx, 2)"},
        EditsRow{"EmptyThenFull", "\"xRN\" \"xRN\" 0 \"xRN\" 1 2 \"a\" \"tx\" \" 1\";", "xRN:; xRN: 2(a,tx, 1)"},
        EditsRow{"ShorterThanItsKind", "\"xRN\" \"xRN\" 1 4 \"a\" \"b\" \"yRN\" 1 2 \"c\" \"d\" \"e\";",
                 "xRN: 4(a,b); yRN: 2(c,d,e)"},
        EditsRow{"CountTooHigh", "\"xRN\" \"xRN\" 9 2 \"a\" \"tx\" \" 1\" \"yRN\" 1 8 \"c\" \"d\";",
                 "xRN: 2(a,tx, 1); yRN: 8(c,d)"},
        EditsRow{"WhichEnd",
                 "\"xRN\" \"xRN\" 2 5 4 \"xRN\" \"a.tx\" \"xRN.phl[1]\" \"\" 5 0 \"xRN\" \"a\" \"b\" "
                 "\"xRN.phl[2]\" \"xRN.phl[3]\" \"\";",
                 "xRN: 5(xRN,a.tx,xRN.phl[1],) 5(xRN,a,b,xRN.phl[2],xRN.phl[3],)"},
        EditsRow{"Members", "\"xRN\" \"xRN\" 2 7 \"link\" \":l\" 2 \"a.msg\" \"b.msg\" 2 \"c\" \"d\" \"e\";",
                 "xRN: 7(link,:l,a.msg,b.msg) 2(c,d,e)"},
        EditsRow{"NoMembers", "\"xRN\" \"xRN\" 2 7 \"link\" \":l\" 2 \"c\" \"d\" \"e\";", "xRN: 7(link,:l) 2(c,d,e)"},
        EditsRow{"WithoutQuotes", "\"xRN\" \"xRN\" 1 1 |x:a|x:b \"n\" \"n\" \" -at \\\"long\\\"\";",
                 "xRN: 1(|x:a|x:b,n,n, -at \"long\")"},
        EditsRow{"InPieces", "\"xRN\" \"xRN\" 1 2 \"a\" \"notes\" (\" -type \" + \"\\\"string\\\"\");",
                 "xRN: 2(a,notes, -type \"string\")"},
        EditsRow{"WithoutABlock", "\"xRN\" 2 \"a\" \"tx\" \" 1\";", "xRN: 2(a,tx, 1)"},
        EditsRow{"UnknownKinds", "\"xRN\" \"xRN\" 2 77 \"a\" -5 \"b\";", "xRN: -1(a) -1(b)"}),
    [](const auto& row) { return row.param.name; });

// As the host wrote them: an empty block, then 182 edits.
TEST(ReadReferenceEdits, OfARealScene) {
    std::ifstream stream(std::string(TVK_TEST_DATA) + "/scenes/missing-reference-rig/anim_001.ma", std::ios::binary);
    const std::string scene{std::istreambuf_iterator<char>(stream), {}};
    const std::string start = "\"dataReferenceEdits\"";
    ASSERT_NE(scene.find(start), std::string::npos);
    const std::vector<ReferenceEditBlock> blocks = blocksOf(scene.substr(scene.find(start) + start.size()));
    ASSERT_EQ(blocks.size(), 3U);
    EXPECT_THAT(blocks[0].edits, IsEmpty());
    EXPECT_THAT(blocks[1].edits, IsEmpty());
    EXPECT_EQ(blocks[2].reference, "rhino_rig_029RN");
    std::map<int, int> kinds;
    for (const ReferenceEdit& edit : blocks[2].edits) {
        ++kinds[edit.kind];
        const bool isBoth = edit.texts.size() > 2 && edit.texts[2].find("placeHolderList") == std::string::npos;
        const std::size_t ofConnection = isBoth ? 6 : 4;
        EXPECT_EQ(edit.texts.size(), edit.kind == ReferenceEdit::kConnect ? ofConnection : 3U);
    }
    EXPECT_THAT(kinds,
                ElementsAre(testing::Pair(ReferenceEdit::kSetAttribute, 67),
                            testing::Pair(ReferenceEdit::kDisconnect, 1), testing::Pair(ReferenceEdit::kConnect, 114)));
}

} // namespace

} // namespace host
