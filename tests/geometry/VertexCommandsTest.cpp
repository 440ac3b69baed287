#include "geometry/VertexCommands.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace tvk {
namespace {

// Commands of a polygon, one a line without their tabs.
class Commands {
public:
    explicit Commands(const VertexCommandOptions& options = {}) : commands_(out_, tables, options) {
        slots.load({0, 1, 2});
    }

    /// A vertex at a position in 1/4096.
    Commands& at(FixedPosition position, Corner corner = {}) {
        corner.position = tables.positions.findOrAdd(position);
        commands_.write(corner, slots);
        return *this;
    }

    std::string text() const {
        std::string lines;
        for (const char character : out_.str()) {
            if (character != '\t') {
                lines += character;
            }
        }
        return lines;
    }

    ModelTables tables;
    MatrixSlots slots;

private:
    std::ostringstream out_;
    VertexCommands commands_;
};

VertexCommandOptions raw() {
    VertexCommandOptions options;
    options.rawValues = true;
    return options;
}

struct PositionCase {
    const char* name;
    FixedPosition previous;
    FixedPosition position;
    const char* command;
};

class SecondPosition : public testing::TestWithParam<PositionCase> {};

TEST_P(SecondPosition, TakesTheFirstCommandThatFits) {
    Commands commands(raw());
    commands.at(GetParam().previous);
    const std::size_t before = commands.text().size();
    commands.at(GetParam().position);
    EXPECT_EQ(commands.text().substr(before), std::string(GetParam().command) + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Commands, SecondPosition,
    testing::Values(
        PositionCase{"EqualZGivesXyEvenWhereADifferenceWouldFit", {1, 2, 3}, {4, 5, 3}, R"(<pos_xy xy="4 5"/>)"},
        PositionCase{"EqualYGivesXz", {1, 2, 3}, {4, 2, 6}, R"(<pos_xz xz="4 6"/>)"},
        PositionCase{"EqualXGivesYz", {1, 2, 3}, {1, 5, 6}, R"(<pos_yz yz="5 6"/>)"},
        PositionCase{"TheSamePlaceGivesXy", {1, 2, 3}, {1, 2, 3}, R"(<pos_xy xy="1 2"/>)"},
        PositionCase{"MultiplesOf64GiveTheShortForm", {1, 2, 3}, {64, -128, 192}, R"(<pos_s xyz="1 -2 3"/>)"},
        PositionCase{"ADifferenceOf511GivesTheDifference", {0, 0, 0}, {511, 1, 1}, R"(<pos_diff xyz="511 1 1"/>)"},
        PositionCase{"ADifferenceOf512GivesTheWholePosition", {1, 0, 0}, {513, 1, 1}, R"(<pos_xyz xyz="513 1 1"/>)"},
        PositionCase{
            "ADifferenceOf512WithZeroLowBitsGivesTheShortForm", {1, 1, 1}, {576, 64, 64}, R"(<pos_s xyz="9 1 1"/>)"},
        PositionCase{
            "ADifferenceOfMinus512GivesTheDifference", {1, 1, 1}, {-511, 2, 2}, R"(<pos_diff xyz="-512 1 1"/>)"},
        PositionCase{
            "ADifferenceOfMinus513GivesTheWholePosition", {1, 1, 1}, {-512, 2, 2}, R"(<pos_xyz xyz="-512 2 2"/>)"}),
    [](const testing::TestParamInfo<PositionCase>& tested) { return tested.param.name; });

TEST(VertexCommands, TheFirstVertexIsShortWhenItsLowBitsAreZero) {
    EXPECT_EQ(Commands(raw()).at({64, 128, -64}).text(), "<pos_s xyz=\"1 2 -1\"/>\n");
    EXPECT_EQ(Commands(raw()).at({64, 128, -63}).text(), "<pos_xyz xyz=\"64 128 -63\"/>\n");
}

TEST(VertexCommands, DecimalsAreTheFullValuesInUnits) {
    Commands commands;
    commands.at({64, 4096, -64}).at({65, 4097, -63}).at({65, 0, -62});
    EXPECT_EQ(commands.text(), "<pos_s xyz=\"0.015625 1.000000 -0.015625\"/>\n"
                               "<pos_diff xyz=\"0.000244 0.000244 0.000244\"/>\n"
                               "<pos_yz yz=\"0.000000 -0.015137\"/>\n");
}

TEST(VertexCommands, IndexedVerticesNameTheirPlacesInTheTables) {
    VertexCommandOptions options;
    options.indexed = true;
    options.colors = true;
    Commands commands(options);
    Corner corner;
    corner.color = 7;
    commands.at({1, 2, 3}, corner).at({4, 2, 3}, corner);
    EXPECT_EQ(commands.text(), "<clr_idx idx=\"7\"/>\n<pos_idx idx=\"0\"/>\n<pos_idx idx=\"1\"/>\n");
}

TEST(VertexCommands, OnlyChangesOfStateAreSent) {
    VertexCommandOptions options = raw();
    options.matrices = options.texCoords = options.colors = options.normals = true;
    Commands commands(options);
    Corner corner;
    corner.matrix = 2;
    corner.texCoord = commands.tables.texCoords.findOrAdd({16, -32});
    corner.color = commands.tables.colors.findOrAdd(31 | (1 << 5) | (2 << 10));
    corner.normal = commands.tables.normals.findOrAdd({0, 511, -512});
    commands.at({1, 1, 1}, corner).at({2, 1, 1}, corner);
    EXPECT_EQ(commands.text(), "<mtx idx=\"2\"/>\n<tex st=\"16 -32\"/>\n<clr rgb=\"31 1 2\"/>\n"
                               "<nrm xyz=\"0 511 -512\"/>\n<pos_xyz xyz=\"1 1 1\"/>\n<pos_xy xy=\"2 1\"/>\n");
}

TEST(VertexCommands, DecimalStateIsInItsUnits) {
    VertexCommandOptions options;
    options.texCoords = options.normals = true;
    Commands commands(options);
    Corner corner;
    corner.texCoord = commands.tables.texCoords.findOrAdd({24, -1});
    corner.normal = commands.tables.normals.findOrAdd({0, 256, -512});
    commands.at({0, 0, 0}, corner);
    EXPECT_EQ(commands.text(), "<tex st=\"1.500000 -0.062500\"/>\n<nrm xyz=\"0.000000 0.500000 -1.000000\"/>\n"
                               "<pos_s xyz=\"0.000000 0.000000 0.000000\"/>\n");
}

// What makes the same normal be sent once more.
struct ResetCase {
    const char* name;
    void (*change)(Corner& corner);
    bool resetNormalAfterTexture;
    bool sendsNormalAgain;
};

class AfterAChange : public testing::TestWithParam<ResetCase> {};

TEST_P(AfterAChange, TheSameNormal) {
    VertexCommandOptions options = raw();
    options.matrices = options.texCoords = options.colors = options.normals = true;
    options.resetNormalAfterTexture = GetParam().resetNormalAfterTexture;
    Commands commands(options);
    commands.tables.normals.findOrAdd({0, 0, 511});
    for (const int16_t value : {int16_t{1}, int16_t{2}}) {
        commands.tables.texCoords.findOrAdd({value, value});
        commands.tables.colors.findOrAdd(static_cast<ColorWord>(value));
    }
    Corner corner{0, 0, 0, 0, 0};
    commands.at({1, 1, 1}, corner);
    const std::size_t before = commands.text().size();
    GetParam().change(corner);
    commands.at({2, 1, 1}, corner);
    const bool again = commands.text().find("<nrm", before) != std::string::npos;
    EXPECT_EQ(again, GetParam().sendsNormalAgain) << commands.text();
}

INSTANTIATE_TEST_SUITE_P(
    Changes, AfterAChange,
    testing::Values(ResetCase{"OfNothingStays", [](Corner&) {}, true, false},
                    ResetCase{"OfTheColourIsWrittenAgain", [](Corner& corner) { corner.color = 1; }, false, true},
                    ResetCase{"OfTheMatrixIsWrittenAgain", [](Corner& corner) { corner.matrix = 1; }, false, true},
                    ResetCase{"OfTheTextureStays", [](Corner& corner) { corner.texCoord = 1; }, false, false},
                    ResetCase{"OfATextureMadeFromNormalsIsWrittenAgain", [](Corner& corner) { corner.texCoord = 1; },
                              true, true}),
    [](const testing::TestParamInfo<ResetCase>& tested) { return tested.param.name; });

TEST(VertexCommands, AMatrixInNoSlotIsMinusOne) {
    VertexCommandOptions options = raw();
    options.matrices = true;
    Corner corner;
    corner.matrix = 9;
    EXPECT_EQ(Commands(options).at({1, 1, 1}, corner).text(), "<mtx idx=\"-1\"/>\n<pos_xyz xyz=\"1 1 1\"/>\n");
}

TEST(VertexCommands, WhatThePolygonDoesNotHaveIsNeverSent) {
    Commands commands(raw());
    commands.at({1, 1, 1}, Corner{1, 0, 0, 0, 0});
    EXPECT_EQ(commands.text(), "<pos_xyz xyz=\"1 1 1\"/>\n");
}

} // namespace
} // namespace tvk
