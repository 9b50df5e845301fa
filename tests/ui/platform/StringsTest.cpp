#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Label.h"
#include "ui/platform/Strings.h"

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

}  // namespace
}  // namespace quellbrook::testing
