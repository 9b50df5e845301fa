#include "labels/SvgStyles.h"

#include <string>

#include <gtest/gtest.h>

namespace quellbrook::svg {
namespace {

class SvgStyles : public ::testing::Test {
protected:
    // A property of the first text in the drawing.
    std::string Of(const std::string& drawing, const char* property) {
        EXPECT_TRUE(m_document.load_string(("<svg>" + drawing + "</svg>").c_str()));
        const pugi::xml_node root = m_document.document_element();
        const pugi::xml_node text = root.find_node([](const auto& node) { return node.name() == std::string("text"); });
        return std::string(StyleSheet(root).InheritedProperty(text, property));
    }
    std::string FillOf(const std::string& css, const std::string& text) {
        return Of("<style>" + css + "</style>" + text, "fill");
    }

    pugi::xml_document m_document;
};

TEST_F(SvgStyles, StyleOverridesAttributeAndElementOverridesParents) {
    const std::string drawing =
        "<g fill='red' style='font-size: 12px ;stroke:none' font-weight='700'>"
        "<text fill='blue' style='fill:green' font-size='inherit'/></g>";
    EXPECT_EQ(Of(drawing, "fill"), "green");
    EXPECT_EQ(Of(drawing, "font-size"), "12px");
    EXPECT_EQ(Of(drawing, "font-weight"), "700");
    EXPECT_EQ(Of(drawing, "stroke"), "none");
    EXPECT_EQ(Of(drawing, "font"), "");
    const pugi::xml_node group = m_document.document_element().child("g");
    EXPECT_EQ(OwnProperty(group, "font-size"), "12px");
    EXPECT_EQ(OwnProperty(group.child("text"), "font-weight"), "");
}

TEST_F(SvgStyles, ARuleMatchesAClassAnIdOrAnElement) {
    EXPECT_EQ(FillOf(".a{fill:red}", "<text class='b a'/>"), "red");
    EXPECT_EQ(FillOf(".a{fill:red}", "<text class='ab'/>"), "");
    EXPECT_EQ(FillOf("#one { fill : red ; }", "<text id='one'/>"), "red");
    EXPECT_EQ(FillOf("text{fill:red}", "<text/>"), "red");
    EXPECT_EQ(FillOf("rect{fill:red}", "<text/>"), "");
    EXPECT_EQ(FillOf(".b, .a{fill:red}", "<text class='a'/>"), "red");
    EXPECT_EQ(FillOf(".a{fill:red}", "<g class='a'><text/></g>"), "red") << "inherited";
}

TEST_F(SvgStyles, TheMoreSpecificOrLaterRuleWins) {
    EXPECT_EQ(FillOf("#one{fill:blue}.a{fill:red}text{fill:green}", "<text id='one' class='a'/>"), "blue");
    EXPECT_EQ(FillOf(".a{fill:red}text{fill:green}", "<text class='a'/>"), "red");
    EXPECT_EQ(FillOf(".a{fill:red}.b{fill:green}", "<text class='b a'/>"), "green");
    EXPECT_EQ(FillOf(".a{fill:red;fill:green}", "<text class='a'/>"), "green");
    EXPECT_EQ(FillOf(".a{fill:red}.a{font-size:3px}", "<text class='a'/>"), "red");
}

TEST_F(SvgStyles, ARuleOverridesTheAttributeButNotTheStyle) {
    EXPECT_EQ(FillOf("#one{fill:blue}", "<text id='one' style='fill:red'/>"), "red");
    EXPECT_EQ(FillOf("text{fill:blue}", "<text fill='red'/>"), "blue");
    EXPECT_EQ(FillOf(".a{fill:blue}", "<g class='a'><text fill='red'/></g>"), "red");
}

TEST_F(SvgStyles, IgnoresCommentsAndOtherRules) {
    EXPECT_EQ(FillOf("/* .a{fill:blue} */.a{fill:/**/red}", "<text class='a'/>"), "red");
    EXPECT_EQ(FillOf("@import url(x);\n.a{fill:red}", "<text class='a'/>"), "red");
    EXPECT_EQ(FillOf("@font-face{font-family:'X';src:url(x)}.a{fill:red}", "<text class='a'/>"), "red");
    EXPECT_EQ(FillOf("g .a{fill:blue}.a:hover{fill:blue}", "<g><text class='a'/></g>"), "");
    for (const char* css : {".a", ".a{", ".a{fill:red", "}", "{}", "}.a{", "/*", "/*/", ",{fill:red}", ".{fill:red}"})
        EXPECT_EQ(FillOf(css, "<text class='a'/>"), "") << css;
}

TEST_F(SvgStyles, ReadsAllStyleElementsAndCharacterData) {
    EXPECT_EQ(Of("<defs><style><![CDATA[.a{fill:red}]]></style></defs><style>.b{stroke:none}</style>"
                 "<text class='a b'/>",
                 "fill"),
              "red");
    EXPECT_EQ(Of("<text class='b'/><style>.b{stroke:none}</style>", "stroke"), "none");
}

}  // namespace
}  // namespace quellbrook::svg
