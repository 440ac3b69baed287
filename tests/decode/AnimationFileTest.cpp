#include "decode/AnimationFile.h"

#include "fileTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace decode {
namespace {

using testing::ElementsAre;

std::string placement(const std::string& info) {
    return kDeclarationLine + "<ita><body>\n<tex_srt_info frame_size=\"5\" " + info + R"(/>
<tex_scale_data size="1">1.000000</tex_scale_data>
<tex_rotate_data size="1">90.000000</tex_rotate_data>
<tex_translate_data size="3">0.000000 2.000000 4.000000</tex_translate_data>
<tex_srt_anm_array size="1">
<tex_srt_anm index="0" material_name="m">
<tex_scale_s frame_step="1" data_size="1" data_head="0"/>
<tex_scale_t frame_step="1" data_size="1" data_head="0"/>
<tex_rotate frame_step="1" data_size="1" data_head="0"/>
<tex_translate_s frame_step="2" data_size="3" data_head="0"/>
<tex_translate_t frame_step="1" data_size="1" data_head="2"/>
</tex_srt_anm></tex_srt_anm_array></body></ita>)";
}

const char* const kLinear = "interpolation=\"linear\" interp_end_to_start=\"off\"";

TEST(AnimationFile, RefusesWhatAReaderWouldStumbleOver) {
    const std::string text = placement(kLinear);
    ASSERT_EQ(complaintOf(readAnimationFile, text), "");
    for (const Damage& row : {
             Damage{"frame_size=\"5\"", "frame_size=\"0\"", "line 3: tex_srt_info: frame_size is 0"},
             {"frame_size=\"5\"", "frame_size=\"2000000000\"",
              "line 9: tex_scale_s: more frames to play than this file is worth"},
             {"\"linear\"", "\"cubic\"", "line 3: tex_srt_info: an unknown interpolation: cubic"},
             {"\"linear\"", "\"frame\"",
              "line 3: tex_srt_info: interp_end_to_start with frames, or without it with others"},
             {"size=\"3\"", "size=\"4\"", "line 6: tex_translate_data: size is 4, but there are 3 numbers"},
             {"2.000000", "2.000100", "line 6: tex_translate_data: a number between the steps of its values"},
             {"2.000000", "1e30", "line 6: tex_translate_data: a number of more than 32 bits"},
             {"index=\"0\"", "index=\"1\"", "line 8: tex_srt_anm: index is 1 at place 0"},
             {"<tex_scale_t", "<tex_scale_s", "line 10: tex_scale_s: should be tex_scale_t"},
             {"frame_step=\"2\"", "frame_step=\"3\"", "line 12: tex_translate_s: a frame_step other than 1, 2 and 4"},
             {"frame_step=\"2\"", "frame_step=\"4\"", "line 12: tex_translate_s: 3 values at step 4 of 5 frames"},
             {"data_head=\"2\"", "data_head=\"3\"", "line 13: tex_translate_t: the values 3 to 4 are not there"},
             {"data_head=\"2\"", "data_head=\"-1\"", "line 13: tex_translate_t: the values -1 to 0 are not there"},
             {"data_size=\"3\"", "data_size=\"2147483647\"",
              "line 12: tex_translate_s: the values 0 to 2147483647 are not there"},
         }) {
        EXPECT_EQ(complaintOf(readAnimationFile, damaged(text, row)), row.message) << row.with;
    }
}

TEST(AnimationFile, PlaysEveryFrame) {
    const AnimationFile mixed = readAnimationFile(placement(kLinear));
    EXPECT_THAT(mixed.of("m").channel("tex_translate_s").frames, ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(mixed.of("m").channel("tex_rotate").frames, ElementsAre(90, 90, 90, 90, 90));
    const AnimationFile held = readAnimationFile(placement("interpolation=\"frame\""));
    EXPECT_THAT(held.of("m").channel("tex_translate_s").frames, ElementsAre(0, 0, 2, 2, 4));
    EXPECT_THROW(held.of("n"), FileError);
}

TEST(AnimationFile, FitsOneModelOnly) {
    EXPECT_THROW(posed(ModelFile(), readAnimationFile(placement(kLinear)), 0), FileError);
}

} // namespace
} // namespace decode
