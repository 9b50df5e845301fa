#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Label.h"
#include "ui/platform/Strings.h"

#include <QLabel>
#include <QTextDocument>

namespace quellbrook::testing {
namespace {

TEST(Strings, Utf8RoundTrips) {
    const std::string text = "Müller \u00BB \U0001F512 \u20AC";
    EXPECT_EQ(ToUtf8(ToQString(text)), text);
    EXPECT_EQ(ToQString("\u00BB"), QString(QChar(0xBB)));
    EXPECT_TRUE(ToQString("").isEmpty());
}

TEST(Strings, ALineEndOfTwoCharactersBecomesOne) {
    EXPECT_EQ(ToQString("a\r\n\r\nb"), "a\n\nb");
    EXPECT_EQ(ToQString("a\nb"), "a\nb");
}

TEST(Strings, AmpersandsAreDoubledForCaptionsWithMnemonics) {
    EXPECT_EQ(EscapeMnemonic("A & B"), "A && B");
    EXPECT_EQ(EscapeMnemonic("none"), "none");
}

TEST(Strings, TooltipsShowExactlyTheseCharacters) {
    for (const char* text :
         {"<b>Box</b>", "a &lt; b", "a & b", "two  blanks", "\"quoted\"", "<img src='/etc/passwd'>"}) {
        QTextDocument shown;
        shown.setHtml(PlainTooltip(text));
        EXPECT_EQ(shown.toPlainText(), QString(text));
    }
    QTextDocument lines;
    lines.setHtml(PlainTooltip("one\ntwo"));
    EXPECT_EQ(lines.toPlainText(), "one\ntwo");
    EXPECT_TRUE(PlainTooltip("").isEmpty());
}

TEST(Strings, OnlyTooltipsWithLongLinesAreWrapped) {
    const auto linesOf = [](const QString& tooltip) {
        QLabel label(tooltip);
        label.setTextFormat(Qt::RichText);
        label.setWordWrap(true);
        return label.sizeHint().height() / label.fontMetrics().height();
    };
    EXPECT_EQ(linesOf(PlainTooltip("Audio recording, sleeve marked <b>LIVE</b> & numbered")), 1);
    EXPECT_EQ(linesOf(PlainTooltip("Audio recording, sleeve marked\n<b>LIVE</b> & numbered")), 2);
    EXPECT_GT(linesOf(PlainTooltip("The text has more than eighty characters, and each of its words is "
                                   "needed, so it does not fit into one line of a tooltip.")),
              1);
}

}  // namespace
}  // namespace quellbrook::testing
