// Real files with one byte changed, or cut off anywhere: read, or refused in a sentence, and nothing else.
#include "decode/AnimationFile.h"
#include "decode/FileError.h"
#include "decode/ModelGeometry.h"
#include "decode/ModelTextures.h"
#include "decode/PatternFile.h"
#include "decode/VisibilityFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

namespace decode {
namespace {

struct Sample {
    const char* name;
    void (*read)(const std::string&);
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.name;
}

class DamagedSamples : public testing::TestWithParam<Sample> {
protected:
    void SetUp() override {
        std::ifstream in(std::string(TVK_SOURCE_DIR "/samples/") + GetParam().name, std::ios::binary);
        text.assign(std::istreambuf_iterator<char>(in), {});
        ASSERT_FALSE(text.empty());
        GetParam().read(text);
    }

    // True when it is refused.
    static bool isRefused(const std::string& whole) {
        try {
            GetParam().read(whole);
        } catch (const FileError& error) {
            const std::string message = error.what();
            EXPECT_FALSE(message.empty());
            EXPECT_EQ(message.find('\n'), std::string::npos) << message;
            return true;
        }
        return false;
    }

    std::string text;
};

TEST_P(DamagedSamples, AreRefusedWhereverTheyAreCutOff) {
    const std::size_t end = text.find_last_not_of(" \n") + 1;
    for (std::size_t length = 0; length < end; length += 1 + length / 16) {
        EXPECT_TRUE(isRefused(text.substr(0, length))) << length;
    }
}

TEST_P(DamagedSamples, AreReadOrRefusedWithAnyByteChanged) {
    std::mt19937 random(1);
    int refused = 0;
    for (int i = 0; i < 100; ++i) {
        std::string damaged = text;
        damaged[random() % damaged.size()] = static_cast<char>(random() % 256);
        refused += isRefused(damaged) ? 1 : 0;
    }
    EXPECT_GT(refused, 0);
}

INSTANTIATE_TEST_SUITE_P(Walk, DamagedSamples,
                         testing::Values(Sample{"walk.imd",
                                                [](const std::string& text) {
                                                    const ModelFile file = readModelFile(text);
                                                    readModelGeometry(file);
                                                    readModelTextures(file.root);
                                                }},
                                         Sample{"walk.ica", [](const std::string& text) { readAnimationFile(text); }},
                                         Sample{"walk.ima", [](const std::string& text) { readAnimationFile(text); }},
                                         Sample{"walk.ita", [](const std::string& text) { readAnimationFile(text); }},
                                         Sample{"walk.itp", [](const std::string& text) { readPatternFile(text); }},
                                         Sample{"walk.iva",
                                                [](const std::string& text) { readVisibilityFile(text); }}));

} // namespace
} // namespace decode
