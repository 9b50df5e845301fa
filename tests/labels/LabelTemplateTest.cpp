#include "labels/LabelTemplate.h"

#include "base/Error.h"
#include "host/HostServices.h"
#include "host/LabelEngine.h"
#include "tests/support/LabelServices.h"
#include "tests/support/RaisedBy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string barcode = "\x02P0000000012\x03";

std::string Svg(const std::string& content, const std::string& attributes =
                                                "width='100mm' height='50mm' "
                                                "viewBox='0 0 100 50'") {
    return "<svg xmlns='http://www.w3.org/2000/svg' " + attributes + ">" + content + "</svg>";
}

// Fills the fields and a barcode, which every label has, in a rectangle of its own behind the others.
FilledLabel Fill(std::string svg, LabelTemplate::Fields fields) {
    svg.insert(svg.rfind("</svg"), "<rect id='code' x='0' y='0' width='1' height='1'/>");
    fields.emplace_back("code", barcode);
    FilledLabel label = LabelTemplate(svg).Fill(fields);
    EXPECT_EQ(label.barcodes.back().text, barcode);
    label.barcodes.pop_back();
    return label;
}

std::string RefusalOf(const std::string& svg, const LabelTemplate::Fields& fields = {{"name", "x"}}) {
    const Error error = RaisedBy([&] { LabelTemplate(svg).Fill(fields); });
    EXPECT_EQ(error.Number(), ErrorNumber::General) << svg;
    return error.Description();
}

void ExpectBox(const LabelArea& area, const LabelBox& expected, int quarterTurns = 0) {
    EXPECT_NEAR(area.box.left, expected.left, 1e-6);
    EXPECT_NEAR(area.box.top, expected.top, 1e-6);
    EXPECT_NEAR(area.box.width, expected.width, 1e-6);
    EXPECT_NEAR(area.box.height, expected.height, 1e-6);
    EXPECT_EQ(area.quarterTurns, quarterTurns);
}

TEST(LabelTemplate, TakesItsSizeFromTheDrawing) {
    const std::string content = "<text id='name' x='1' y='5' font-size='4'/>";
    EXPECT_NEAR(Fill(Svg(content), {{"name", "x"}}).width, 100, 1e-9);
    const FilledLabel inches = Fill(Svg(content, "width='4in' height='2in'"), {{"name", "x"}});
    EXPECT_NEAR(inches.width, 101.6, 1e-9);
    EXPECT_NEAR(inches.height, 50.8, 1e-9);
}

TEST(LabelTemplate, ARectangleShowsTheBarcode) {
    const FilledLabel label =
        Fill(Svg("<rect id='barcode' x='10' y='20' width='80' height='25'/>"), {{"barcode", barcode}});
    ASSERT_EQ(label.barcodes.size(), 1u);
    EXPECT_EQ(label.barcodes[0].text, barcode);
    ExpectBox(label.barcodes[0].area, {10, 20, 80, 25});
}

TEST(LabelTemplate, TheElementNotTheValueMakesAFieldABarcode) {
    const FilledLabel label = Fill(Svg("<text id='name' x='5' y='9' font-size='4'/>"
                                       "<rect id='number' x='10' y='20' width='80' height='25'/>"),
                                   {{"name", barcode}, {"number", "12"}});
    ASSERT_EQ(label.texts.size(), 1u);
    EXPECT_EQ(label.texts[0].text, barcode);
    ASSERT_EQ(label.barcodes.size(), 1u);
    EXPECT_EQ(label.barcodes[0].text, "12");
}

TEST(LabelTemplate, ATextIsReplacedAndKeepsItsStyle) {
    const FilledLabel label =
        Fill(Svg("<g font-family=\"'Some Face', sans-serif\" style='font-weight:bold'><text id='name' x='50' y='10' "
                 "font-size='5' text-anchor='middle' style='fill:#123456;font-style:italic'>sample</text></g>"),
             {{"name", "<b>a & b</b>"}});
    ASSERT_EQ(label.texts.size(), 1u);
    const LabelText& text = label.texts[0];
    EXPECT_EQ(text.text, "<b>a & b</b>");
    EXPECT_EQ(text.family, "Some Face");
    EXPECT_NEAR(text.size, 5, 1e-9);
    EXPECT_EQ(text.weight, 700);
    EXPECT_TRUE(text.italic);
    EXPECT_EQ(text.anchor, LabelAnchor::Middle);
    EXPECT_EQ(text.color, "#123456");
}

TEST(LabelTemplate, TheInnerSpanSetsTheStyle) {
    const FilledLabel label = Fill(
        Svg("<text id='name' style='font-size:10px'><tspan x='3' y='9' style='font-size:4px;font-weight:600'>s</tspan>"
            "</text>"),
        {{"name", "x"}});
    EXPECT_NEAR(label.texts[0].size, 4, 1e-9);
    EXPECT_EQ(label.texts[0].weight, 600);
    EXPECT_NEAR(label.texts[0].area.box.left, 3, 1e-9);
}

TEST(LabelTemplate, TheInnermostSpanSetsTheStyleAndTheFirstPositionCounts) {
    const FilledLabel label =
        Fill(Svg("<text id='name'><tspan font-size='4px'><tspan x='3' y='9'><tspan font-weight='700'>a</tspan></tspan>"
                 "</tspan><tspan x='3' y='14' font-size='9px'>b</tspan></text>"),
             {{"name", "x"}});
    EXPECT_NEAR(label.texts[0].size, 4, 1e-9);
    EXPECT_EQ(label.texts[0].weight, 700);
    ExpectBox(label.texts[0].area, {3, 9 - 3.8, 100 - 3 - 1.5, 5});
}

TEST(LabelTemplate, AppliesClassesOfTheStyleSheet) {
    const FilledLabel label =
        Fill(Svg("<style type='text/css'>\n\t.st0{font-family:'Some Face';}\n\t.st1{font-size:5px;font-weight:600;"
                 "fill:#123456;text-anchor:end;}\n</style><text id='name' class='st0' transform='matrix(1 0 0 1 90 9)'>"
                 "<tspan x='0' y='0' class='st1'>s</tspan></text>"),
             {{"name", "x"}});
    EXPECT_EQ(label.texts[0].family, "Some Face");
    EXPECT_NEAR(label.texts[0].size, 5, 1e-9);
    EXPECT_EQ(label.texts[0].weight, 600);
    EXPECT_EQ(label.texts[0].color, "#123456");
    EXPECT_EQ(label.texts[0].anchor, LabelAnchor::End);
    EXPECT_THAT(label.drawing, HasSubstr(".st1{"));
}

// As saved by an editor: a metadata block, layers that are moved and hidden, styles, everything with an id.
TEST(LabelTemplate, ReadsLayersAndMetadataOfAnEditor) {
    const FilledLabel label = Fill(R"svg(<?xml version="1.0" encoding="UTF-8" standalone="no"?>
<!-- Created with an editor -->
<svg width="101.6mm" height="50.8mm" viewBox="0 0 101.6 50.8" version="1.1" id="svg5" e:docname="label.svg"
    xmlns:e="http://example.org/editor" xmlns="http://www.w3.org/2000/svg" xmlns:svg="http://www.w3.org/2000/svg">
  <e:view id="view7" pagecolor="#ffffff"><e:grid type="xygrid" id="grid1"/></e:view>
  <defs id="defs2"><rect x="10" y="60" width="100" height="20" id="rect88"/></defs>
  <g e:label="Boxes" id="layer2" style="display:none" transform="translate(-52.3,-100.25)">
    <rect style="fill:none;stroke:#9ab4c4" id="name_box" width="93.6" height="7.8" x="56.3" y="108.05" ry="0.5"/>
  </g>
  <g e:label="Layer 1" id="layer1" transform="translate(-52.3,-100.25)">
    <g id="g10" transform="matrix(0.26458333,0,0,0.26458333,50,100)">
      <text xml:space="preserve" id="place" x="200" y="24" style="font-size:12px;-e-font:'Inter';text-anchor:middle"
        ><tspan e:role="line" id="tspan1" x="200" y="24">sample</tspan></text>
    </g>
    <text xml:space="preserve" id="name" x="56.3" y="114" style="font-size:6.35px;line-height:1.25;fill:#800000"
      ><tspan e:role="line" id="tspan2" x="56.3" y="114" style="stroke-width:0.26">sample</tspan></text>
    <svg:rect style="fill:#d8dde0" id="barcode" width="85" height="18.2" x="56.3" y="130.65"/>
  </g>
</svg>)svg",
                                   {{"name", "x"}, {"place", "y"}, {"barcode", barcode}});
    ExpectBox(label.texts[0].area, {4, 7.8, 93.6, 7.8});
    EXPECT_NEAR(label.texts[0].size, 6.35, 1e-9);
    EXPECT_EQ(label.texts[0].color, "#800000");
    EXPECT_NEAR(label.texts[1].size, 3.175, 1e-6);
    EXPECT_NEAR(label.texts[1].area.box.left + label.texts[1].area.box.width / 2, 50 - 52.3 + 200 * 0.26458333, 1e-6);
    ExpectBox(label.barcodes[0].area, {4, 30.4, 85, 18.2});
    EXPECT_THAT(label.drawing, Not(HasSubstr("sample")));
}

TEST(LabelTemplate, ABoxBoundsTheText) {
    const FilledLabel label = Fill(Svg("<text id='name' x='5' y='9' font-size='4'/>"
                                       "<rect id='name_box' x='20' y='10' width='30' height='12'/>"),
                                   {{"name", "x"}});
    ExpectBox(label.texts[0].area, {20, 10, 30, 12});
}

TEST(LabelTemplate, WithoutABoxATextHasOneLineToTheEdge) {
    const auto area = [](const std::string& attributes) {
        return Fill(Svg("<text id='name' y='10' font-size='4' " + attributes + "/>"), {{"name", "x"}}).texts[0].area;
    };
    ExpectBox(area("x='20'"), {20, 10 - 3.8, 100 - 20 - 1.5, 5});
    ExpectBox(area("x='20' text-anchor='end'"), {1.5, 6.2, 18.5, 5});
    ExpectBox(area("x='30' text-anchor='middle'"), {1.5, 6.2, 57, 5});
}

TEST(LabelTemplate, GroupsMoveAndScaleTheirFields) {
    const FilledLabel label = Fill(Svg("<g transform='translate(10,5)'><g transform='scale(0.5)'>"
                                       "<rect id='barcode' x='20' y='10' width='100' height='40'/>"
                                       "<text id='name' y='20' font-size='10'/></g></g>"),
                                   {{"barcode", barcode}, {"name", "x"}});
    ExpectBox(label.barcodes[0].area, {20, 10, 50, 20});
    EXPECT_NEAR(label.texts[0].size, 5, 1e-9);
}

TEST(LabelTemplate, FieldsCanBeRotatedByQuarterTurns) {
    const FilledLabel label =
        Fill(Svg("<rect id='barcode' width='40' height='10' transform='translate(60,2) rotate(90)'/>"
                 "<text id='name' transform='translate(8,45) rotate(-90)' font-size='4'/>"),
             {{"barcode", barcode}, {"name", "x"}});
    ExpectBox(label.barcodes[0].area, {50, 2, 10, 40}, 1);
    ExpectBox(label.texts[0].area, {8 - 3.8, 1.5, 5, 43.5}, 3);
}

TEST(LabelTemplate, TheDrawingIsCenteredOnASheetOfOtherProportions) {
    const FilledLabel label = Fill(Svg("<rect id='barcode' x='0' y='0' width='10' height='10'/>",
                                       "width='100mm' height='50mm' viewBox='0 0 10 10'"),
                                   {{"barcode", barcode}});
    ExpectBox(label.barcodes[0].area, {25, 0, 50, 50});
}

TEST(LabelTemplate, FieldsAreRemovedFromTheDrawing) {
    const FilledLabel label = Fill(Svg("<text id='name' x='5' y='9' font-size='4'>sample</text>"
                                       "<rect id='name_box' x='20' y='10' width='30' height='12'/>"
                                       "<rect id='barcode' x='10' y='30' width='80' height='15'/>"
                                       "<text id='other'>stays</text><path d='M0 0h5'/>"),
                                   {{"name", "x"}, {"barcode", barcode}});
    EXPECT_THAT(label.drawing, Not(HasSubstr("sample")));
    EXPECT_THAT(label.drawing, Not(HasSubstr("name_box")));
    EXPECT_THAT(label.drawing, Not(HasSubstr("barcode")));
    EXPECT_THAT(label.drawing, HasSubstr("stays"));
    EXPECT_THAT(label.drawing, HasSubstr("M0 0h5"));
}

TEST(LabelTemplate, AFieldThatTheTemplateLacksIsLeftOut) {
    const FilledLabel label = Fill(Svg("<text id='name' x='5' y='9' font-size='4'/>"), {{"name", "x"}, {"none", "y"}});
    EXPECT_EQ(label.texts.size(), 1u);
}

TEST(LabelTemplate, CanBeFilledAgain) {
    const LabelTemplate twice(
        Svg("<text id='name' x='5' y='9' font-size='4'/>"
            "<rect id='barcode' x='10' y='20' width='80' height='25'/>"));
    EXPECT_EQ(twice.Fill({{"name", "first"}, {"barcode", barcode}}).texts[0].text, "first");
    EXPECT_EQ(twice.Fill({{"name", "second"}, {"barcode", barcode}}).texts[0].text, "second");
}

TEST(LabelTemplate, FieldsCanBeNested) {
    const FilledLabel label =
        Fill(Svg("<text id='name' x='5' y='9' font-size='4'><rect id='name_box' x='1' y='1' width='9' height='9'/>"
                 "<rect id='barcode' x='1' y='1' width='50' height='9'/></text>"),
             {{"name", "x"}, {"barcode", barcode}});
    EXPECT_EQ(label.texts.size() + label.barcodes.size(), 2u);
    EXPECT_THAT(label.drawing, Not(HasSubstr("rect")));
}

TEST(LabelTemplate, ReadsDeclaredEncodings) {
    const std::string latin =
        "<?xml version='1.0' encoding='ISO-8859-1'?>" + Svg("<text id='name' x='5' y='9' font-size='4'/><text>Stra\xDF"
                                                            "e</text>");
    EXPECT_THAT(Fill(latin, {{"name", "x"}}).drawing, HasSubstr("Stra\xC3\x9F"
                                                                "e"));
    EXPECT_THAT(Fill("\xEF\xBB\xBF" + Svg("<text id='name' x='5' y='9' font-size='4'/>"), {{"name", "x"}}).drawing,
                HasSubstr("svg"));
}

TEST(LabelTemplateRefuses, AnythingButADrawing) {
    for (const char* text : {"", "not xml", "<svg", "<svg></sv>", "<svg width='1mm'/><svg/>"})
        EXPECT_THAT(RefusalOf(text), StartsWith("The label template ")) << text;
    EXPECT_EQ(RefusalOf("<html/>"), "The label template is not an SVG drawing.");
    EXPECT_THAT(RefusalOf("<svg"), StartsWith("The label template is not well-formed: "));
}

TEST(LabelTemplateRefuses, ALinkToAnImage) {
    const std::string field = "<text id='name' x='20' y='25'>A</text>";
    for (const char* link :
         {"/tmp/pipe", "logo.png", "file:///etc/logo.png", "data", "data/../../etc/logo.png",
          "data:image/../../logo.png;base64,AAAA", "data:text/plain;base64,AAAA",
          "data:image/png;base64,PHN2ZyB4bWxucz0=", "data:image/png;base64,iVBORw0KGgo;base64,PHN2ZyB4bWxucz0=",
          "data:image/png;base64,ivborw0kggo", "data:image/png,iVBORw0KGgo", ""}) {
        for (const std::string attribute : {"href", "xlink:href"}) {
            const std::string image = "<g><image " + attribute + "='" + link + "'/></g>";
            EXPECT_EQ(RefusalOf(Svg(field + image)),
                      std::string("The label template links to the image '") + link + "': embed the image instead.");
        }
    }
    for (const char* image : {" data:image/png;base64,iVBORw0KGgo=", "data:image/PNG;BASE64,base64, iVBORw0KGgo=",
                              "data:image/jpeg;base64,/9j/4AAQ", "data:image/gif;base64,R0lGODlh"})
        EXPECT_NO_THROW(Fill(Svg(field + "<image xlink:href='" + image + "'/>"), {{"name", "x"}})) << image;
}

TEST(LabelTemplate, OtherElementsMayReferToPartsOfTheDrawing) {
    const std::string field = "<text id='name' x='20' y='25'>A</text>";
    EXPECT_NO_THROW(Fill(Svg(field + "<defs><g id='frame'/></defs><use href='#frame'/>"), {{"name", "x"}}));
}

TEST(LabelTemplateRefuses, ADrawingWithoutASize) {
    EXPECT_EQ(RefusalOf("<svg/>"), "The label template has no width: set it in millimeters or inches.");
    EXPECT_EQ(RefusalOf("<svg width='100mm' height='100%'/>"),
              "The label template has no height: set it in millimeters or inches.");
    EXPECT_EQ(RefusalOf("<svg width='2mm' height='50mm'/>"), "The label template has a width outside 5 to 1000 mm.");
    EXPECT_EQ(RefusalOf("<svg width='20mm' height='2000mm'/>"),
              "The label template has a height outside 5 to 1000 mm.");
    for (const char* viewBox : {"0 0 0 10", "0 0 10", "a b c d", "0 0 -5 5"})
        EXPECT_EQ(RefusalOf(Svg("", "width='100mm' height='50mm' viewBox='" + std::string(viewBox) + "'")),
                  "The label template has a viewBox that can't be read: '" + std::string(viewBox) + "'.");
}

TEST(LabelTemplateRefuses, ATemplateWithNoneOfTheFields) {
    EXPECT_EQ(RefusalOf(Svg("<text id='other'/>"), {{"name", "x"}, {"place", "y"}}),
              "The label template has none of the fields 'name', 'place'.");
}

TEST(LabelTemplateRefuses, ATemplateWithoutABarcode) {
    const std::string text = "<text id='name' x='5' y='9' font-size='4'/>";
    EXPECT_EQ(RefusalOf(Svg(text), {{"name", "x"}, {"barcode", barcode}}),
              "The label template has no barcode: none of the fields 'name', 'barcode' is a rectangle.");
    EXPECT_EQ(RefusalOf(Svg(text), {{"name", barcode}}),
              "The label template has no barcode: none of the fields 'name' is a rectangle.");
}

TEST(LabelTemplateRefuses, AnElementThatShowsNeitherATextNorABarcode) {
    EXPECT_EQ(RefusalOf(Svg("<path id='name'/>")), "The template field 'name' is neither a text nor a rectangle.");
}

TEST(LabelTemplateRefuses, ARepeatedId) {
    EXPECT_EQ(RefusalOf(Svg("<text id='name'/><g><text id='name'/></g>")),
              "The template field 'name' occurs twice; an id must be unique.");
}

TEST(LabelTemplateRefuses, InvalidPositions) {
    const std::string outside = "The template field 'name' has no size or is outside the label.";
    EXPECT_EQ(RefusalOf(Svg("<rect id='name' x='90' y='0' width='20' height='5'/>")), outside);
    EXPECT_EQ(RefusalOf(Svg("<rect id='name' x='9' y='0' width='20'/>")), outside);
    EXPECT_EQ(RefusalOf(Svg("<rect id='name' x='9' y='0' width='-20' height='5' transform='rotate(7)'/>")),
              "The template field 'name' is slanted, mirrored or stretched; it can only be rotated by "
              "90 degrees.");
    EXPECT_EQ(RefusalOf(Svg("<rect id='name' x='9%' y='0' width='20' height='5'/>")),
              "The template field 'name' has a position that can't be read: x='9%'.");
    EXPECT_EQ(RefusalOf(Svg("<g transform='twist(3)'><rect id='name' width='20' height='5'/></g>")),
              "The label template has a transform that can't be read: 'twist(3)'.");
    EXPECT_EQ(RefusalOf(Svg("<text id='name' x='99' y='9' font-size='4'/>")),
              "The template field 'name' is outside the label or too close to its edge.");
    EXPECT_EQ(RefusalOf(Svg("<text id='name' x='9' y='9' font-size='4'/><path id='name_box'/>")),
              "The template field 'name_box' is not a rectangle.");
}

TEST(LabelTemplateRefuses, InvalidFonts) {
    EXPECT_EQ(RefusalOf(Svg("<text id='name' x='9' y='9' font-size='large'/>")),
              "The template field 'name' has a font size that can't be read: 'large'.");
    EXPECT_EQ(RefusalOf(Svg("<text id='name' x='9' y='9' font-size='0'/>")),
              "The template field 'name' has a font size outside 0.5 to 100 mm.");
}

TEST(LabelTemplateRefuses, ADrawingNestedTooDeeply) {
    std::string deep;
    for (int level = 0; level < 100'000; ++level) deep += "<g>";
    for (int level = 0; level < 100'000; ++level) deep += "</g>";
    EXPECT_EQ(RefusalOf(Svg(deep)), "The label template is nested too deeply.");
}

TEST(BarcodeLabel, AFieldThatIsSetAgainTakesTheLaterValue) {
    BarcodeLabel label = GetLabelEngine().Parse(LabelServices::TemplateOf({"name"}, "barcode"));
    label.SetField("name", "first");
    label.SetField("barcode", barcode);
    label.SetField("name", "second");
    EXPECT_EQ(label.Filled().texts.at(0).text, "second");
    EXPECT_EQ(label.Filled().texts.size(), 1u);
}

TEST(BarcodeLabel, PrintsOnTheWorkstationsPrinter) {
    const LabelServices services;
    BarcodeLabel label = GetLabelEngine().Parse(LabelServices::TemplateOf({"name"}, "barcode"));
    label.SetField("name", "a");
    label.SetField("barcode", barcode);
    label.Print();
    ASSERT_EQ(services.printer->labels.size(), 1u);
    EXPECT_EQ(ValueAt(services.printer->labels[0], 10), "a");
}

}  // namespace
}  // namespace quellbrook::testing
