#include "host/app/report/animationCosts.h"

#include "SmallFolder.h"

#include <gtest/gtest.h>

namespace host::app::report {
namespace {

TEST(AnimationCosts, SharingSavesWhatChannelsTakeBeyondWhatIsStored) {
    const SmallFolder folder;
    folder.writeAll();
    struct Row {
        const char* kind;
        const char* pool;
        const char* unit;
        int channels, moving, stored, withoutSharing, saved;
    };
    static constexpr Row kRows[] = {
        {"ica", "node_scale_data", "values", 9, 0, 1, 9, 8},
        {"ica", "node_rotate_data", "values", 9, 2, 3, 3 + 3 + 7, 10},
        {"ica", "node_translate_data", "values", 9, 0, 1, 9, 8},
        {"ima", "mat_color_data", "keys", 13, 0, 2, 26, 24},
        {"itp", "tex_pattern_data", "keys", 1, 1, 3, 3, 0},
        {"iva", "visibility_data", "keys", 3, 1, 3, 5, 2},
    };
    std::size_t at = 0;
    for (const AnimationCosts& animation : costsOfAnimations(folder.read())) {
        EXPECT_EQ(animation.frames, 3) << animation.kind;
        for (const PoolCosts& pool : animation.pools) {
            ASSERT_LT(at, std::size(kRows));
            const Row& row = kRows[at++];
            EXPECT_EQ(animation.kind, row.kind);
            EXPECT_EQ(pool.name, row.pool);
            EXPECT_EQ(pool.unit, row.unit) << pool.name;
            EXPECT_EQ(pool.channels, row.channels) << pool.name;
            EXPECT_EQ(pool.moving, row.moving) << pool.name;
            EXPECT_EQ(pool.stored, row.stored) << pool.name;
            EXPECT_EQ(pool.withoutSharing, row.withoutSharing) << pool.name;
            EXPECT_EQ(pool.saved(), row.saved) << pool.name;
        }
    }
    EXPECT_EQ(at, std::size(kRows));
}

TEST(AnimationCosts, AFileWithoutAnimationHasNoPools) {
    const SmallFolder folder;
    folder.write("ita", smallPlacementAnimation());
    const std::vector<AnimationCosts> all = costsOfAnimations(folder.read());
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].kind, "ita");
    EXPECT_TRUE(all[0].pools.empty());
}

TEST(AnimationCosts, PlacementChannelsTakeTheirPoolsByTheirWords) {
    const SmallFolder folder;
    folder.write("ita", changed(smallPlacementAnimation(), "</body>", R"(<tex_scale_data size="2">
1.000000 2.000000
</tex_scale_data>
<tex_rotate_data size="1">
0.000000
</tex_rotate_data>
<tex_translate_data size="3">
0.000000 1.000000 2.000000
</tex_translate_data>
<tex_srt_anm_array size="1">
<tex_srt_anm index="0" material_name="ground">
<tex_scale_s frame_step="1" data_size="1" data_head="0"/>
<tex_scale_t frame_step="1" data_size="1" data_head="1"/>
<tex_rotate frame_step="1" data_size="1" data_head="0"/>
<tex_translate_s frame_step="1" data_size="3" data_head="0"/>
<tex_translate_t frame_step="1" data_size="3" data_head="0"/>
</tex_srt_anm>
</tex_srt_anm_array>
</body>)"));
    const std::vector<AnimationCosts> all = costsOfAnimations(folder.read());
    ASSERT_EQ(all.at(0).pools.size(), 3U);
    EXPECT_EQ(all[0].pools[0].name, "tex_scale_data");
    EXPECT_EQ(all[0].pools[0].channels, 2);
    EXPECT_EQ(all[0].pools[0].saved(), 0);
    EXPECT_EQ(all[0].pools[1].name, "tex_rotate_data");
    EXPECT_EQ(all[0].pools[1].channels, 1);
    EXPECT_EQ(all[0].pools[2].name, "tex_translate_data");
    EXPECT_EQ(all[0].pools[2].moving, 2);
    EXPECT_EQ(all[0].pools[2].saved(), 3);
}

} // namespace
} // namespace host::app::report
