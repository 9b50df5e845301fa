#include "ui/printing/TextFit.h"

#include "tests/support/ui/QtTestMain.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

constexpr int largest = 40, smallest = 17;
const QSizeF bounds(600, 100);

FittedText Fit(const QString& text, const QSizeF& size = bounds) {
    return FitText(text, QFont(QStringLiteral("Inter")), largest, smallest, size);
}

// Every line fits the width, all lines fit the height.
void ExpectFits(const FittedText& fitted, const QSizeF& size = bounds) {
    const QFontMetricsF metrics(fitted.font);
    for (const QString& line : fitted.lines)
        EXPECT_LE(metrics.horizontalAdvance(line), size.width() + 0.5) << line.toStdString();
    EXPECT_LE(fitted.lineHeight * fitted.lines.size(), size.height() + 0.5);
}

TEST(TextFit, AShortTextKeepsItsSize) {
    const FittedText fitted = Fit("Steel wheel");
    EXPECT_EQ(fitted.font.pixelSize(), largest);
    EXPECT_EQ(fitted.lines, QStringList{"Steel wheel"});
    ExpectFits(fitted);
}

TEST(TextFit, ATextIsBrokenBetweenWordsBeforeItShrinks) {
    const FittedText fitted = Fit("Steel wheel of a bicycle, bent, 26 inch");
    EXPECT_EQ(fitted.font.pixelSize(), largest);
    EXPECT_EQ(fitted.lines.size(), 2);
    EXPECT_EQ(fitted.lines.join(" "), "Steel wheel of a bicycle, bent, 26 inch");
    ExpectFits(fitted);
}

TEST(TextFit, ALongerTextShrinksBeforeItIsShortened) {
    const QString text = "Steel wheel of a bicycle, bent, 26 inch, found behind the shed of the neighbor's house";
    const FittedText fitted = Fit(text);
    EXPECT_LT(fitted.font.pixelSize(), largest);
    EXPECT_GT(fitted.font.pixelSize(), smallest);
    EXPECT_EQ(fitted.lines.join(" "), text);
    ExpectFits(fitted);
}

TEST(TextFit, AWordThatIsTooWideShrinksRatherThanBreaks) {
    const FittedText fitted = Fit("20260001234567LONGIDENTIFIER", QSizeF(400, 100));
    EXPECT_LT(fitted.font.pixelSize(), largest);
    EXPECT_EQ(fitted.lines.join(""), "20260001234567LONGIDENTIFIER");
    ExpectFits(fitted, QSizeF(400, 100));
}

TEST(TextFit, ATextTooLongForTheSmallestSizeEndsInAnEllipsis) {
    const QString text = QString("Steel wheel of a bicycle ").repeated(40);
    const FittedText fitted = Fit(text);
    EXPECT_EQ(fitted.font.pixelSize(), smallest);
    EXPECT_GE(fitted.lines.size(), 4);
    EXPECT_TRUE(fitted.lines.back().endsWith(QChar(0x2026))) << fitted.lines.back().toStdString();
    EXPECT_TRUE(fitted.lines.front().startsWith("Steel wheel"));
    ExpectFits(fitted);
}

TEST(TextFit, AVeryLongWordIsBrokenIntoLines) {
    const FittedText fitted = Fit(QString(5000, 'W'));
    EXPECT_EQ(fitted.font.pixelSize(), smallest);
    EXPECT_TRUE(fitted.lines.back().endsWith(QChar(0x2026)));
    ExpectFits(fitted);
}

TEST(TextFit, ControlCharactersAreBlanks) {
    EXPECT_EQ(Fit("  a\r\n\r\nb\tc  ").lines, QStringList{"a b c"});
    EXPECT_EQ(Fit("\x01"
                  "a\x1b[31m\x7f")
                  .lines,
              QStringList{"a [31m"});
}

TEST(TextFit, OtherScriptsFitToo) {
    for (const char* text : {"Документы из сейфа, опечатанные в присутствии свидетелей, три папки и один конверт",
                             "جواز سفر عليه كتابة باللغة العربية وصور", "Διαβατήριο με σφραγίδες"}) {
        const FittedText fitted = Fit(QString::fromUtf8(text));
        EXPECT_EQ(fitted.lines.join(" "), QString::fromUtf8(text));
        ExpectFits(fitted);
    }
}

TEST(TextFit, AnEmptyTextHasNothingToDraw) {
    EXPECT_EQ(Fit("").lines.join("").toStdString(), "");
    EXPECT_EQ(Fit(" \n ").lines.join("").toStdString(), "");
}

TEST(TextFit, ABoxThatIsTooLowHasOneLineAtTheSmallestSize) {
    const FittedText fitted = Fit("Steel wheel of a bicycle", QSizeF(600, 5));
    EXPECT_EQ(fitted.lines.size(), 1);
    EXPECT_EQ(fitted.font.pixelSize(), smallest);
}

TEST(TextFit, ASizeBelowTheSmallestIsKept) {
    const FittedText fitted = FitText("abc", QFont(QStringLiteral("Inter")), 9, smallest, bounds);
    EXPECT_EQ(fitted.font.pixelSize(), 9);
}

}  // namespace
}  // namespace quellbrook::testing
