#include "host/nodes/traxCompute.h"

#include "MeshFixture.h"

#include "host/geometry/ArrayData.h"
#include "host/nodes/characterMapping.h"

#include <gmock/gmock.h>

namespace host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double kFrame = kTicksPerSecond / 24.0;

/// A character of two channels, joint1.rotateZ and joint1.translateX, with a library of one source clip (frames 1 to
/// 11, in which rotateZ goes from 0 to 1 and translateX from 2 to 12) and nothing on its timeline.
class Trax : public MeshFixture {
protected:
    Trax() {
        connect(scheduler, "ce", character, "cer");
        connect(library, "cf", scheduler, "cfr");
        connect(character, "am", library, "cd[0].cm");
        connect(character, "cim", library, "cd[0].cim");
        connect(character, "av[1]", joint, "rz");
        connect(character, "lv[2]", joint, "tx");
        auto mapping = std::make_shared<CharacterMapping>();
        mapping->channels = {{"joint1.rotateZ", ChannelKind::kAngular, 1},
                             {"joint1.translateX", ChannelKind::kLinear, 2}};
        EXPECT_EQ(graph.setData(plug(character, "am"), mapping).error, "");
        setClipIndices({0, 1});
        set(character, "av[1]", 0.25);
        set(character, "lv[2]", 7);
        set(source, "ci", 0);
        setFrames(source, 1, 11);
        connect(source, "cl", library, "sc[0]");
        connect(addCurve("animCurveTA", 0, 1), "a", library, "cel[0].cev[0].cevr");
        connect(addCurve("animCurveTL", 2, 12), "a", library, "cel[0].cev[1].cevr");
    }

    Node& addCurve(const char* type, double first, double last) {
        Node& curve = make(type, "curve");
        set(curve, "tan", 2);
        setRows(curve, "ktv", {1 * kFrame, first, 11 * kFrame, last});
        return curve;
    }
    void setFrames(Node& clip, double first, double last) {
        set(clip, "ss", first * kFrame);
        set(clip, "se", last * kFrame);
    }
    /// Puts the source on the timeline.
    Node& schedule(const char* name, double startFrame) {
        Node& clip = make("animClip", name);
        setFrames(clip, 1, 11);
        set(clip, "startFrame", startFrame * kFrame);
        connect(clip, "cl", scheduler, "cp[" + std::to_string(clipCount_++) + "]");
        return clip;
    }
    void setClipIndices(std::vector<std::int32_t> indices) {
        EXPECT_EQ(graph.setData(plug(character, "cim"), std::make_shared<IntArrayData>(std::move(indices))).error, "");
    }
    void setFrame(double frame) { graph.setTime(static_cast<Ticks>(frame * kFrame)); }
    double turn(double frame) {
        setFrame(frame);
        return number(joint, "rz");
    }
    double place(double frame) {
        setFrame(frame);
        return number(joint, "tx");
    }

    Node& joint = make("joint", "joint1");
    Node& character = make("character", "set1");
    Node& scheduler = make("clipScheduler", "set1Scheduler");
    Node& library = make("clipLibrary", "set1Clips");
    Node& source = make("animClip", "walkSource");

private:
    int clipCount_ = 0;
};

TEST_F(Trax, KeepsTheElementsOfACharacterWithoutClipsOnItsTimeline) {
    tieClips(graph);
    EXPECT_EQ(turn(6), 0.25);
    EXPECT_EQ(place(6), 7.0);
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(Trax, PlaysAClipWhereItStandsOnTheTimeline) {
    schedule("walk1", 21);
    tieClips(graph);
    EXPECT_EQ(turn(20), 0.25) << "before the first clip elements keep what they hold";
    EXPECT_NEAR(turn(21), 0.0, 1e-12);
    EXPECT_NEAR(turn(26), 0.5, 1e-12);
    EXPECT_NEAR(place(26), 7.0, 1e-12);
    EXPECT_NEAR(place(29), 10.0, 1e-12);
    EXPECT_NEAR(turn(50), 1.0, 1e-12);
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(Trax, TakesTheTimingFromTheSchedulerWhereItHasOne) {
    schedule("walk1", 21);
    set(scheduler, "start[0]", 101 * kFrame);
    set(scheduler, "scale[0]", 2);
    tieClips(graph);
    EXPECT_EQ(turn(26), 0.25);
    EXPECT_NEAR(turn(111), 0.5, 1e-12);
}

TEST_F(Trax, FollowsWhatIsChangedLater) {
    Node& clip = schedule("walk1", 21);
    tieClips(graph);
    EXPECT_NEAR(turn(26), 0.5, 1e-12);
    set(clip, "startFrame", 26 * kFrame);
    EXPECT_NEAR(turn(31), 0.5, 1e-12);
    EXPECT_NEAR(turn(26), 0.0, 1e-12);
    set(clip, "enable", 0);
    EXPECT_EQ(turn(26), 0.25);
}

TEST_F(Trax, GoesOnWithRelativeChannels) {
    Node& first = schedule("walk1", 1);
    Node& second = schedule("walk2", 11);
    for (Node* clip : {&first, &second}) {
        set(*clip, "ac[1]", 0);
        set(*clip, "ac[0]", 1);
    }
    set(second, "postCycle", 1);
    tieClips(graph);
    EXPECT_NEAR(place(6), 7.0, 1e-9);
    EXPECT_NEAR(place(16), 12.0 + 5.0, 1e-9);
    EXPECT_NEAR(place(31), 12.0 + 20.0, 1e-9);
    EXPECT_NEAR(turn(26), 0.5, 1e-12) << "the other channel is absolute";
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(Trax, FindsCurvesByTheMapOfTheCharacter) {
    setClipIndices({3, 1});
    connect(addCurve("animCurveTA", 5, 6), "a", library, "cel[0].cev[3].cevr");
    schedule("walk1", 1);
    tieClips(graph);
    EXPECT_NEAR(turn(6), 5.5, 1e-12);
}

TEST_F(Trax, LeavesElementsWithKeysAlone) {
    schedule("walk1", 1);
    Node& curve = addCurve("animCurveTA", 3, 3);
    connect(curve, "o", character, "av[1]");
    tieClips(graph);
    EXPECT_EQ(turn(6), 3.0);
    EXPECT_NEAR(place(6), 7.0, 1e-12);
}

TEST_F(Trax, KeepsElementsOfWhichAClipHasNoCurve) {
    ASSERT_EQ(graph.disconnect(graph.sourceOf(plug(library, "cel[0].cev[0].cevr")), plug(library, "cel[0].cev[0].cevr"))
                  .error,
              "");
    schedule("walk1", 1);
    tieClips(graph);
    EXPECT_EQ(turn(6), 0.25);
    EXPECT_NEAR(place(6), 7.0, 1e-12);
}

TEST_F(Trax, PlaysAnotherSourceWhenTheClipIsConnectedToIt) {
    Node& jump = make("animClip", "jumpSource");
    set(jump, "ci", 0);
    connect(jump, "cl", library, "sc[1]");
    connect(addCurve("animCurveTA", 10, 20), "a", library, "cel[1].cev[0].cevr");
    Node& clip = schedule("jump1", 1);
    Attribute link;
    link.longName = link.shortName = "link";
    link.kind = AttrKind::kMessage;
    jump.addAttribute(link);
    connect(clip, "msg", jump, "link");
    tieClips(graph);
    EXPECT_NEAR(turn(6), 15.0, 1e-9);
    EXPECT_EQ(place(6), 7.0) << "it has no such curve";
}

TEST_F(Trax, TakesTheSourceOfItsNameWhenThereAreSeveral) {
    Node& jump = make("animClip", "jumpSource");
    connect(jump, "cl", library, "sc[1]");
    connect(addCurve("animCurveTA", 10, 20), "a", library, "cel[1].cev[0].cevr");
    schedule("jump2", 1);
    tieClips(graph);
    EXPECT_NEAR(turn(6), 15.0, 1e-9);
    EXPECT_THAT(warnings, ElementsAre("clip jump2 is taken to play jumpSource, by its name"));
}

TEST_F(Trax, SaysWhichClipsItCannotPlay) {
    Node& jump = make("animClip", "jumpSource");
    connect(jump, "cl", library, "sc[1]");
    schedule("walking1", 1);
    tieClips(graph);
    EXPECT_THAT(warnings,
                ElementsAre("clip walking1 is not played: the scene does not tell its source; its channels keep "
                            "their stored values"));
    EXPECT_EQ(turn(6), 0.25);
}

TEST_F(Trax, SaysWhatItPlaysOtherwiseThanTheRealHost) {
    Node& first = schedule("walk1", 1);
    Node& second = schedule("walk2", 6);
    set(first, "weight", 0.5);
    set(second, "timeWarpEnable", 1);
    set(scheduler, "trackState[2]", 2);
    Node& blend = make("animCurveTU", "blend");
    connect(blend, "o", scheduler, "blendList[0]");
    tieClips(graph);
    EXPECT_THAT(warnings, ElementsAre("clip walk1: its weight counts for what has changed since the clip began",
                                      "clip walk2: its time warp is not evaluated; it plays at an even pace",
                                      "the blends of set1Scheduler are not evaluated: each clip begins at once",
                                      "tracks of set1Scheduler are muted or alone: all are played",
                                      HasSubstr("clips walk1 and walk2 overlap: they are not blended")));
}

} // namespace
} // namespace host
