#include "ui/printing/LabelPainter.h"

#include "base/Error.h"
#include "labels/BarcodeSymbol.h"
#include "labels/LabelTemplate.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/QtTestMain.h"
#include "ui/printing/LabelOutput.h"

#include <QImage>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

const std::string barcode = "\x02P0000004711\x03";
constexpr int dpi = 254;  // ten dots to a millimeter

// The label without the barcode that every template needs, so that a test paints only its own fields.
FilledLabel Fill(const std::string& content, LabelTemplate::Fields fields) {
    fields.emplace_back("code", barcode);
    FilledLabel label =
        LabelTemplate("<svg xmlns='http://www.w3.org/2000/svg' width='100mm' height='60mm' viewBox='0 0 100 60'>" +
                      content + "<rect id='code' x='0' y='0' width='1' height='1'/></svg>")
            .Fill(fields);
    label.barcodes.pop_back();
    return label;
}

bool IsDark(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)) < 128; }

// The smallest rectangle around everything that is not white.
QRect InkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 250) ink = ink.united(QRect(x, y, 1, 1));
    return ink;
}

// The lengths of the runs of one shade along a row, from the first bar to the last.
std::vector<int> RunsOf(const QImage& image, int y) {
    std::vector<int> runs;
    const QRect ink = InkOf(image);
    for (int x = ink.left(); x <= ink.right();) {
        int end = x;
        while (end <= ink.right() && IsDark(image, end, y) == IsDark(image, x, y)) ++end;
        runs.push_back(end - x);
        x = end;
    }
    return runs;
}

std::vector<int> ExpectedRuns(int module) {
    const BarcodeSymbol symbol = EncodeCode128(barcode);
    std::vector<int> runs;
    for (size_t k = 0; k < symbol.modules.size(); ++k) {
        if (k > 0 && symbol.modules[k] == symbol.modules[k - 1])
            runs.back() += module;
        else
            runs.push_back(module);
    }
    return runs;
}

TEST(LabelPainter, BarsAreWholeDotsWideAndTheSymbolFillsItsRectangle) {
    const FilledLabel label =
        Fill("<rect id='barcode' x='5.03' y='10' width='90' height='7'/>", {{"barcode", barcode}});
    const QImage image = MakeLabelImage(label, dpi);
    const QRect ink = InkOf(image);
    EXPECT_EQ(RunsOf(image, 120), ExpectedRuns(5)) << "900 dots for 165 modules";
    EXPECT_EQ(ink.top(), 100);
    EXPECT_EQ(ink.bottom(), 169) << "too low for a text under it";
    EXPECT_GE(ink.left() - 50, 10 * 5) << "quiet zone";
    EXPECT_GE(950 - ink.right() - 1, 10 * 5) << "quiet zone";
}

TEST(LabelPainter, ASymbolIsCenteredInItsRectangle) {
    const FilledLabel label = Fill("<rect id='barcode' x='0' y='10' width='98' height='7'/>", {{"barcode", barcode}});
    const QRect ink = InkOf(MakeLabelImage(label, dpi));
    EXPECT_NEAR(ink.left(), 980 - ink.right() - 1, 1);
}

TEST(LabelPainter, ATallSymbolHasItsReadableTextBelow) {
    const FilledLabel label = Fill("<rect id='barcode' x='5' y='10' width='90' height='20'/>", {{"barcode", barcode}});
    const QImage image = MakeLabelImage(label, dpi);
    EXPECT_EQ(RunsOf(image, 120), ExpectedRuns(5));
    const QImage under = image.copy(0, 263, image.width(), 40);
    const QRect text = InkOf(under);
    EXPECT_GT(text.width(), 150);
    EXPECT_LT(text.width(), 500);
    EXPECT_LE(263 + text.bottom(), 299);
}

TEST(LabelPainter, ARotatedSymbolIsTheSameSymbol) {
    for (const auto& [transform, turns] :
         std::vector<std::pair<std::string, int>>{{"translate(30,2) rotate(90)", 1},
                                                  {"translate(90,40) rotate(180)", 2},
                                                  {"translate(30,58) rotate(270)", 3}}) {
        const FilledLabel label = Fill("<rect id='barcode' width='" + std::string(turns == 2 ? "80" : "56") +
                                           "' height='7' transform='" + transform + "'/>",
                                       {{"barcode", barcode}});
        const QImage image = MakeLabelImage(label, dpi);
        const QImage upright = image.transformed(QTransform().rotate(-90.0 * turns));
        const QRect ink = InkOf(upright);
        EXPECT_EQ(RunsOf(upright, ink.center().y()), ExpectedRuns(turns == 2 ? 4 : 3)) << transform;
        EXPECT_EQ(ink.height(), 70) << transform;
    }
}

TEST(LabelPainter, TheDrawingUnderASymbolIsCovered) {
    const FilledLabel label = Fill(
        "<rect x='0' y='0' width='100' height='60' fill='#888888'/>"
        "<rect id='barcode' x='5' y='10' width='90' height='7'/>",
        {{"barcode", barcode}});
    const QImage image = MakeLabelImage(label, dpi);
    for (int x = 50; x < 100; ++x) EXPECT_EQ(image.pixel(x, 120), QColor(Qt::white).rgb()) << x;
}

TEST(LabelPainter, ARectangleTooNarrowForItsSymbolIsRejected) {
    const FilledLabel label = Fill("<rect id='barcode' x='5' y='10' width='30' height='7'/>", {{"barcode", barcode}});
    EXPECT_EQ(RaisedBy([&] { MakeLabelImage(label, 203); }).Description(),
              "The rectangle of the label template is too narrow for its barcode, which needs 42 mm on this printer.");
    EXPECT_EQ(RaisedBy([&] { MakeLabelImage(label, 300); }).Description(),
              "The rectangle of the label template is too narrow for its barcode, which needs 42 mm on this printer.")
        << "two dots are too narrow there";
    const FilledLabel wide = Fill("<rect id='barcode' x='5' y='10' width='42' height='7'/>", {{"barcode", barcode}});
    EXPECT_FALSE(MakeLabelImage(wide, 203).isNull());
}

TEST(LabelPainter, ALongTextStaysInItsBox) {
    for (const char* anchor : {"start", "middle", "end"})
        for (const QString& text :
             {QString("short"), QString("words and more words ").repeated(60), QString(900, 'W')}) {
            const FilledLabel label = Fill("<text id='name' font-size='5' text-anchor='" + std::string(anchor) +
                                               "'/><rect id='name_box' x='20' y='10' width='50' height='12'/>",
                                           {{"name", text.toStdString()}});
            const QRect ink = InkOf(MakeLabelImage(label, dpi));
            EXPECT_TRUE(QRect(200, 100, 500, 120).contains(ink))
                << anchor << " " << text.left(9).toStdString() << " " << ink.x() << " " << ink.y() << " " << ink.width()
                << "x" << ink.height();
        }
}

TEST(LabelPainter, StackedCombiningMarksStayInTheBox) {
    std::string piled = "Z";
    for (int mark = 0; mark < 40; ++mark) piled += "\xCC\x81";
    const FilledLabel label = Fill(
        "<text id='name' font-size='5'/>"
        "<rect id='name_box' x='20' y='30' width='50' height='6'/>",
        {{"name", piled}});
    const QRect ink = InkOf(MakeLabelImage(label, dpi));
    EXPECT_TRUE(QRect(200, 300, 500, 60).contains(ink)) << ink.top() << " to " << ink.bottom();
}

TEST(LabelPainter, ATextIsAtItsAnchor) {
    const auto inkAt = [](const std::string& anchor) {
        return InkOf(MakeLabelImage(Fill("<text id='name' font-size='5' text-anchor='" + anchor +
                                             "'/><rect id='name_box' x='20' y='10' width='50' height='12'/>",
                                         {{"name", "HIH"}}),
                                    dpi));
    };
    EXPECT_NEAR(inkAt("start").left(), 200, 8);
    EXPECT_NEAR(inkAt("middle").center().x(), 450, 8);
    EXPECT_NEAR(inkAt("end").right(), 700, 8);
}

TEST(LabelPainter, ATextWithoutABoxReplacesTheTemplatesText) {
    const QRect ink =
        InkOf(MakeLabelImage(Fill("<text id='name' x='20' y='30' font-size='5'/>", {{"name", "HIH"}}), dpi));
    EXPECT_NEAR(ink.left(), 204, 6);
    EXPECT_NEAR(ink.bottom(), 300, 4) << "its baseline";
}

TEST(LabelPainter, MarkupIsPlainText) {
    const auto widthOf = [](const char* text) {
        return InkOf(MakeLabelImage(Fill("<text id='name' x='2' y='30' font-size='5'/>", {{"name", text}}), dpi))
            .width();
    };
    EXPECT_GT(widthOf("<b>x</b>"), 3 * widthOf("x"));
}

TEST(LabelPainter, TheDrawingAndTheColorOfATextAreKept) {
    const auto hasColor = [](const std::string& fill, const QColor& expected) {
        const FilledLabel label = Fill(
            "<rect x='10' y='50' width='20' height='5' fill='#ff0000'/>"
            "<text id='name' x='20' y='30' font-size='12' font-weight='900' fill='" +
                fill + "'/>",
            {{"name", "III"}});
        const QImage image = MakeLabelImage(label, dpi);
        EXPECT_EQ(image.pixel(200, 525), QColor(Qt::red).rgb());
        bool found = false;
        for (int x = 200; x < 400; ++x) found = found || image.pixel(x, 270) == expected.rgb();
        return found;
    };
    EXPECT_TRUE(hasColor("#0000ff", Qt::blue));
    EXPECT_TRUE(hasColor("blue", Qt::blue));
    EXPECT_TRUE(hasColor("rgb(0, 0,255)", Qt::blue));
    EXPECT_TRUE(hasColor("rgb(0 0 256)", Qt::black));
    EXPECT_TRUE(hasColor("none of these", Qt::black));
}

// A text of the properties of a PDF file.
QByteArray InPdf(const char* text) {
    QByteArray wide;
    for (const char* at = text; *at; ++at) wide.append('\0').append(*at);
    return wide;
}

TEST(LabelPainter, APdfHasAPageForEachLabelInItsSize) {
    const FilledLabel label = Fill("<text id='name' x='20' y='30' font-size='5'/>", {{"name", "a"}});
    const QByteArray pdf = MakeLabelPdf({label, label, label}, 203);
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 3);
    EXPECT_EQ(pdf.count("/MediaBox [0 0 283.000000 170.000000]"), 3) << "points";
    EXPECT_TRUE(pdf.contains(InPdf("Label"))) << "its title";
    EXPECT_TRUE(pdf.contains(InPdf("Quellbrook"))) << "its creator";
}

}  // namespace
}  // namespace quellbrook::testing
