#include "geometry/tableWriters.h"

#include "FreshRun.h"
#include "common/numberText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tvk {
namespace {

std::string written(void (*writer)(std::ostream&)) {
    std::ostringstream out;
    setupStream(out);
    writer(out);
    return out.str();
}

std::string boxTest(const Vector3& lowest, const Vector3& highest, bool raw = false) {
    const FreshRun fresh;
    run().options.rawValues = raw;
    run().scene.polygons.emplace_back();
    run().scene.boxMin = lowest;
    run().scene.boxMax = highest;
    return written(writeBoxTest);
}

TEST(BoxTest, OfAModelWithoutPolygonsIsNotWritten) {
    const FreshRun fresh;
    EXPECT_EQ(written(writeBoxTest), "");
    run().scene.polygons.emplace_back().dropped = true;
    EXPECT_EQ(written(writeBoxTest), "");
}

TEST(BoxTest, IsCornerAndSizeInUnits) {
    EXPECT_EQ(boxTest({-1, 0, 0.5}, {1, 2, 1}),
              "<box_test pos_scale=\"0\" xyz=\"-1.000000 0.000000 0.500000\" whd=\"2.000000 2.000000 0.500000\"/>\n\n");
    EXPECT_EQ(boxTest({-1, 0, 0.5}, {1, 2, 1}, true),
              "<box_test pos_scale=\"0\" xyz=\"-4096 0 2048\" whd=\"8192 8192 2048\"/>\n\n");
}

struct ScaleCase {
    double lowest, highest;
    const char* scale;
};

class BoxTestScale : public testing::TestWithParam<ScaleCase> {};

TEST_P(BoxTestScale, IsTheFewestHalvings) {
    const std::string text = boxTest({GetParam().lowest, 0, 0}, {GetParam().highest, 0, 0}, true);
    EXPECT_EQ(text.substr(0, text.find(" xyz")), std::string("<box_test pos_scale=\"") + GetParam().scale + "\"");
}

INSTANTIATE_TEST_SUITE_P(Boxes, BoxTestScale,
                         testing::Values(ScaleCase{-8, -0.5, "0"}, ScaleCase{0, 7.9997, "0"}, ScaleCase{0, 8, "1"},
                                         ScaleCase{-4, 4, "1"}, // the size no longer fits
                                         ScaleCase{-8.001, 0, "1"}, ScaleCase{-20, 20, "3"},
                                         ScaleCase{-1e9, 1e9, "17"})); // clamped to 32 bits

TEST(BoxTest, HalvingsOfNegativeValuesGoDown) {
    EXPECT_EQ(boxTest({-8 - 1.0 / 4096, 0, 0}, {0, 0, 0}, true),
              "<box_test pos_scale=\"1\" xyz=\"-16385 0 0\" whd=\"16384 0 0\"/>\n\n");
}

TEST(VertexTables, OfNothingAreNotWritten) {
    const FreshRun fresh;
    EXPECT_EQ(written(writeVertexPositions) + written(writeVertexColors), "");
}

TEST(VertexTables, HaveALinePerEntry) {
    const FreshRun fresh;
    run().scene.tables.positions.findOrAdd({4096, -2048, 1});
    run().scene.tables.positions.findOrAdd({0, 0, 0});
    run().scene.tables.colors.findOrAdd(static_cast<ColorWord>(31 | (2 << 5) | (7 << 10)));
    EXPECT_EQ(written(writeVertexPositions), "<vtx_pos_data pos_size=\"2\">\n\t1.000000 -0.500000 0.000244\n"
                                             "\t0.000000 0.000000 0.000000\n</vtx_pos_data>\n\n");
    EXPECT_EQ(written(writeVertexColors), "<vtx_color_data color_size=\"1\">\n\t31 2 7\n</vtx_color_data>\n\n");
    run().options.rawValues = true;
    EXPECT_EQ(written(writeVertexPositions),
              "<vtx_pos_data pos_size=\"2\">\n\t4096 -2048 1\n\t0 0 0\n</vtx_pos_data>\n\n");
}

TEST(Envelope, OfNoBlendsIsNotWritten) {
    const FreshRun fresh;
    EXPECT_EQ(written(writeEnvelope), "");
}

TEST(Envelope, ListsTenValuesALine) {
    const FreshRun fresh;
    for (int32_t i = 0; i < 12; ++i) {
        run().scene.envelope.push_back({50 + i, nullptr, i});
    }
    EXPECT_EQ(written(writeEnvelope), "<envelope>\n\t<weight size=\"12\">\n"
                                      "\t\t50 51 52 53 54 55 56 57 58 59\n\t\t60 61\n\t</weight>\n"
                                      "\t<node_idx size=\"12\">\n"
                                      "\t\t0 1 2 3 4 5 6 7 8 9\n\t\t10 11\n\t</node_idx>\n</envelope>\n\n");
}

TEST(Envelope, EndsAFullLastLineOnce) {
    const FreshRun fresh;
    run().scene.envelope.assign(10, {10, nullptr, 3});
    EXPECT_EQ(written(writeEnvelope),
              "<envelope>\n\t<weight size=\"10\">\n\t\t10 10 10 10 10 10 10 10 10 10\n\t</weight>\n"
              "\t<node_idx size=\"10\">\n\t\t3 3 3 3 3 3 3 3 3 3\n\t</node_idx>\n</envelope>\n\n");
}

TEST(MatrixArray, OfNoMatricesIsNotWritten) {
    const FreshRun fresh;
    EXPECT_EQ(written(writeMatrixArray), "");
}

TEST(MatrixArray, NamesNodesAndHeadsOfBlends) {
    const FreshRun fresh;
    run().scene.matrices.resize(2);
    run().scene.matrices[0].nodeIndex = 5;
    run().scene.matrices[1].weightCount = 3;
    run().scene.matrices[1].envelopeHead = 4;
    EXPECT_EQ(written(writeMatrixArray),
              "<matrix_array size=\"2\">\n\t<matrix index=\"0\" mtx_weight=\"1\" node_idx=\"5\"/>\n"
              "\t<matrix index=\"1\" mtx_weight=\"3\" envelope_head=\"4\"/>\n</matrix_array>\n\n");
}

} // namespace
} // namespace tvk
