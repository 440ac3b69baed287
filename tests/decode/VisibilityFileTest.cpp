#include "decode/VisibilityFile.h"

#include "fileTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace decode {
namespace {

const std::string kBlink = kDeclarationLine + R"(<iva><body>
<visibility_info frame_size="4"/>
<visibility_data>
<frame_idx size="2">0 2</frame_idx>
<visibility size="2">1 0</visibility></visibility_data>
<visibility_anm_array size="1">
<visibility_anm index="0" data_size="2" data_head="0"/>
</visibility_anm_array></body></iva>)";

TEST(VisibilityFile, RefusesWhatAReaderWouldStumbleOver) {
    ASSERT_EQ(complaintOf(readVisibilityFile, kBlink), "");
    for (const Damage& row : {
             Damage{"frame_size=\"4\"", "frame_size=\"2\"", "line 8: visibility_anm: a key at frame 2 of 2"},
             {"frame_size=\"4\"", "frame_size=\"2000000000\"",
              "line 8: visibility_anm: more frames to play than this file is worth"},
             {"0 2", "1 2", "line 8: visibility_anm: its first key is at frame 1"},
             {"0 2", "0 0", "line 8: visibility_anm: a key at frame 0 that does not ascend"},
             {"0 2", "0 1.5", "line 5: frame_idx: one of its numbers is no integer"},
             {"1 0", "1 1", "line 8: visibility_anm: a key at frame 2 that changes nothing"},
             {"1 0", "2 0", "line 8: visibility_anm: a visibility of 2"},
             {"data_size=\"2\"", "data_size=\"3\"", "line 8: visibility_anm: keys 0 + 3 of 2"},
             {"data_head=\"0\"", "data_head=\"2147483647\"", "line 8: visibility_anm: keys 2147483647 + 2 of 2"},
         }) {
        EXPECT_EQ(complaintOf(readVisibilityFile, damaged(kBlink, row)), row.message) << row.with;
    }
}

TEST(VisibilityFile, PlaysEveryFrame) {
    EXPECT_THAT(readVisibilityFile(kBlink).nodes.front().frames, testing::ElementsAre(1, 1, 0, 0));
}

} // namespace
} // namespace decode
