// Files that are not of one export, or not of this scene: told in a line, whatever they are.
#include "VerifiedExport.h"
#include "meshScene.h"
#include "sceneText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace tvk {
namespace {

class MixedFiles : public testing::Test {
protected:
    void SetUp() override {
        session.exportSample("walk", VerifiedExport::kAllFiles);
        ASSERT_EQ(session.firstFinding(), "");
    }

    VerifiedExport session;
};

TEST_F(MixedFiles, OfTwoScenesAreTold) {
    for (const auto& [kind, text] : std::map<std::string, std::string>(session.texts)) {
        VerifiedExport other;
        other.exportSample("golem", VerifiedExport::kAllFiles);
        const std::string foreign = other.texts.at(kind);
        session.exportSample("walk", VerifiedExport::kAllFiles);
        if (kind != "ima" && kind != "itp" && kind != "ita") { // which have nothing but a range in the other scene
            EXPECT_NE(session.findingWith(kind, foreign), "") << kind;
        }
    }
}

TEST_F(MixedFiles, OfTwoRangesAreTold) {
    const std::map<std::string, std::string> whole = session.texts;
    session.exportSample("walk", VerifiedExport::kAllFiles + "frame_range=2;start_frame=1;end_frame=30");
    for (const char* const kind : {"ica", "ima", "itp", "iva", "ita"}) {
        EXPECT_THAT(session.findingWith(kind, whole.at(kind)), testing::HasSubstr("frames")) << kind;
    }
}

TEST_F(MixedFiles, OfAnotherKindAreTold) {
    EXPECT_NE(session.findingWith("ica", session.texts.at("ima")), "");
    EXPECT_NE(session.findingWith("iva", session.texts.at("imd")), "");
    EXPECT_NE(session.findingWith("imd", ""), "");
}

// Any byte, in any file: seen, or of no matter; but never the end of the program.
TEST_F(MixedFiles, OfChangedBytesDoNotEndTheProgram) {
    std::mt19937 random(1);
    int seen = 0;
    for (const auto& [kind, text] : session.texts) {
        for (int i = 0; i < 15; ++i) {
            std::string changed = text;
            changed[random() % changed.size()] = static_cast<char>('0' + random() % 10);
            seen += session.findingWith(kind, changed).empty() ? 0 : 1;
        }
    }
    EXPECT_GT(seen, 30);
}

} // namespace
} // namespace tvk
