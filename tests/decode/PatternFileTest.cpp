#include "decode/PatternFile.h"

#include "fileTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace decode {
namespace {

const std::string kFlip = kDeclarationLine + R"(<itp><body>
<tex_pattern_info frame_size="3"/>
<tex_pattern_list_data image_size="2" palette_size="1">
<image_name index="0" name="a"/>
<image_name index="1" name="b"/>
<palette_name index="0" name="p"/></tex_pattern_list_data>
<tex_pattern_data>
<frame_idx size="2">0 1</frame_idx>
<image_idx size="2">1 0</image_idx>
<palette_idx size="2">0 -1</palette_idx></tex_pattern_data>
<tex_pattern_anm_array size="1">
<tex_pattern_anm index="0" material_name="m" data_size="2" data_head="0"/>
</tex_pattern_anm_array></body></itp>)";

TEST(PatternFile, RefusesWhatAReaderWouldStumbleOver) {
    ASSERT_EQ(complaintOf(readPatternFile, kFlip), "");
    for (const Damage& row : {
             Damage{"frame_size=\"3\"", "frame_size=\"2000000000\"",
                    "line 13: tex_pattern_anm: more frames to play than this file is worth"},
             {"image_size=\"2\"", "image_size=\"3\"",
              "line 4: tex_pattern_list_data: image_size is 3, but there are 2"},
             {"index=\"1\"", "index=\"0\"", "line 6: image_name: index is 0 at place 1"},
             {"0 1<", "0 3<", "line 13: tex_pattern_anm: a key at frame 3 behind 0 of 3"},
             {"0 1<", "1 2<", "line 13: tex_pattern_anm: its first key is at frame 1"},
             {"1 0<", "2 0<", "line 13: tex_pattern_anm: there is no image 2"},
             {"1 0<", "0 0<", "line 4: tex_pattern_list_data: names an image that is never shown"},
             {"0 -1<", "1 -1<", "line 13: tex_pattern_anm: there is no palette 1"},
             {"data_size=\"2\"", "data_size=\"3\"", "line 13: tex_pattern_anm: keys 0 + 3 of 2"},
         }) {
        EXPECT_EQ(complaintOf(readPatternFile, damaged(kFlip, row)), row.message) << row.with;
    }
}

TEST(PatternFile, PlaysEveryFrame) {
    EXPECT_THAT(readPatternFile(kFlip).of("m").images, testing::ElementsAre("b", "a", "a"));
    EXPECT_THROW(readPatternFile(kFlip).of("n"), FileError);
}

} // namespace
} // namespace decode
