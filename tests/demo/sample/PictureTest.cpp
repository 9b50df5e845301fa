#include "demo/sample/Picture.h"

#include <gtest/gtest.h>

namespace quellbrook::sample {

namespace {

using Kind = Shape::Kind;

// The shape on an empty picture, a row a line.
std::string Drawn(int32_t width, int32_t height, const Shape& shape) {
    Picture picture{width, height, {}, {}};
    picture.dots.assign(static_cast<size_t>(width * height), 0);
    Draw(picture, shape);
    std::string rows;
    for (size_t dot = 0; dot < picture.dots.size(); ++dot) {
        rows += picture.dots[dot] == shape.colour ? '#' : '.';
        if ((dot + 1) % static_cast<size_t>(width) == 0) rows += '\n';
    }
    return rows;
}

}  // namespace

TEST(Picture, ABoxEndsBeforeItsFarEdges) {
    EXPECT_EQ(Drawn(5, 4, {Kind::Box, 1, 1, 1, 4, 3}), ".....\n.###.\n.###.\n.....\n");
}

TEST(Picture, ADiscTouchesTheFourSidesOfItsBox) {
    EXPECT_EQ(Drawn(6, 6, {Kind::Disc, 1, 0, 0, 6, 6}), ".####.\n######\n######\n######\n######\n.####.\n");
}

TEST(Picture, ALineHasItsThicknessAndRoundedEnds) {
    EXPECT_EQ(Drawn(9, 5, {Kind::Line, 1, 2, 2, 6, 2, 3}), ".........\n.#######.\n.#######.\n.#######.\n.........\n");
    EXPECT_EQ(Drawn(5, 5, {Kind::Line, 1, 0, 0, 4, 4, 1}), "#....\n.#...\n..#..\n...#.\n....#\n");
}

TEST(Picture, AWedgeIsTheSameWhicheverWayItsCornersGo) {
    const std::string expected = "#....\n##...\n###..\n####.\n#####\n";
    EXPECT_EQ(Drawn(5, 5, {Kind::Wedge, 1, 0, 0, 0, 4, 4, 4}), expected);
    EXPECT_EQ(Drawn(5, 5, {Kind::Wedge, 1, 4, 4, 0, 4, 0, 0}), expected);
}

TEST(Picture, WhatLiesOutsideIsCutOff) {
    EXPECT_EQ(Drawn(3, 3, {Kind::Box, 1, -5, -5, 9, 9}), "###\n###\n###\n");
    EXPECT_EQ(Drawn(3, 3, {Kind::Disc, 1, 5, 5, 9, 9}), "...\n...\n...\n");
    EXPECT_EQ(Drawn(3, 3, {Kind::Line, 1, -9, 1, 9, 1, 1}), "...\n###\n...\n");
}

}  // namespace quellbrook::sample
