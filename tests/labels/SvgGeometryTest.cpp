#include "labels/SvgGeometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::svg {
namespace {

using ::testing::ElementsAre;

TEST(SvgNumbers, LengthsAreInPixels) {
    EXPECT_DOUBLE_EQ(*ParseLength("12"), 12);
    EXPECT_DOUBLE_EQ(*ParseLength(" 12px "), 12);
    EXPECT_DOUBLE_EQ(*ParseLength("4in"), 384);
    EXPECT_DOUBLE_EQ(*ParseLength("25.4mm"), 96);
    EXPECT_DOUBLE_EQ(*ParseLength("2.54cm"), 96);
    EXPECT_DOUBLE_EQ(*ParseLength("72pt"), 96);
    EXPECT_DOUBLE_EQ(*ParseLength("6pc"), 96);
    EXPECT_DOUBLE_EQ(*ParseLength("+.5e2"), 50);
}

TEST(SvgNumbers, RejectsInvalidLengths) {
    for (const char* text : {"", " ", "px", "12em", "50%", "12 mm", "1,5mm", "nan", "inf", "1e999", "0x10"})
        EXPECT_EQ(ParseLength(text), std::nullopt) << text;
}

TEST(SvgNumbers, ListsAreSeparatedByBlanksCommasAndSigns) {
    EXPECT_THAT(*ParseNumbers(" 0 0,1016\n508 "), ElementsAre(0, 0, 1016, 508));
    EXPECT_THAT(*ParseNumbers("1-2+3"), ElementsAre(1, -2, 3));
    EXPECT_THAT(*ParseNumbers(""), ElementsAre());
    EXPECT_EQ(ParseNumbers("1 two"), std::nullopt);
}

TEST(SvgTransform, IsAppliedFromTheLastToTheFirst) {
    const auto transform = ParseTransform("translate(10, 20) scale(2)");
    ASSERT_TRUE(transform);
    EXPECT_DOUBLE_EQ(transform->a, 2);
    EXPECT_DOUBLE_EQ(transform->e, 10);
    EXPECT_DOUBLE_EQ(transform->f, 20);
    const auto other = ParseTransform("scale(2),translate(10 20)");
    ASSERT_TRUE(other);
    EXPECT_DOUBLE_EQ(other->e, 20);
}

TEST(SvgTransform, ScalesBothAxesOrEach) {
    EXPECT_DOUBLE_EQ(ParseTransform("scale(3)")->d, 3);
    EXPECT_DOUBLE_EQ(ParseTransform("scale(3, 5)")->a, 3);
    EXPECT_DOUBLE_EQ(ParseTransform("scale(3, 5)")->d, 5);
    EXPECT_EQ(ParseTransform("scale(1 2 3)"), std::nullopt);
    EXPECT_EQ(ParseTransform("scale()"), std::nullopt);
}

TEST(SvgTransform, RotatesAboutAPoint) {
    const auto transform = ParseTransform("rotate(90 10 10)");
    ASSERT_TRUE(transform);
    EXPECT_NEAR(transform->a * 20 + transform->c * 10 + transform->e, 10, 1e-9);
    EXPECT_NEAR(transform->b * 20 + transform->d * 10 + transform->f, 20, 1e-9);
}

TEST(SvgTransform, QuarterTurnsAreCounted) {
    EXPECT_EQ(ParseTransform("")->QuarterTurns(), 0);
    EXPECT_EQ(ParseTransform("scale(3) translate(5)")->QuarterTurns(), 0);
    EXPECT_EQ(ParseTransform("rotate(90)")->QuarterTurns(), 1);
    EXPECT_EQ(ParseTransform("rotate(-180)")->QuarterTurns(), 2);
    EXPECT_EQ(ParseTransform("matrix(0 -1 1 0 3 4)")->QuarterTurns(), 3);
    EXPECT_DOUBLE_EQ(ParseTransform("rotate(270) scale(3)")->Scale(), 3);
}

TEST(SvgTransform, SlantedMirroredOrStretchedIsNotAQuarterTurn) {
    for (const char* text : {"rotate(5)", "scale(1,-1)", "scale(-1,1)", "scale(1,2)", "skewX(10)", "skewY(10)",
                             "scale(0)", "scale(1e300) scale(1e300)"})
        EXPECT_EQ(ParseTransform(text)->QuarterTurns(), std::nullopt) << text;
}

TEST(SvgTransform, RejectsInvalidTransforms) {
    for (const char* text : {"rotate", "rotate(", "rotate()", "rotate(1 2)", "turn(90)", "matrix(1 2 3)", ")(",
                             "scale(a)", "translate(1,2,3)", "scale(2) nonsense"})
        EXPECT_FALSE(ParseTransform(text)) << text;
}

TEST(SvgElements, IgnoresTheNamespacePrefix) {
    pugi::xml_document document;
    document.load_string("<svg:rect/>");
    EXPECT_EQ(LocalName(document.document_element()), "rect");
}

}  // namespace
}  // namespace quellbrook::svg
