#include "app/scanner/ScanDiagnosis.h"

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// "[STX]" and the like mean one key, "[F2]" a key without a character.
std::vector<ScannedKey> Keys(std::u32string_view text) {
    static const std::pair<std::u32string_view, char32_t> controls[] = {
        {U"[STX]", 2}, {U"[ETX]", 3}, {U"[Tab]", 9}, {U"[LF]", 10}, {U"[Enter]", 13}, {U"[Esc]", 27}};
    std::vector<ScannedKey> keys;
    while (!text.empty()) {
        size_t length = 1;
        ScannedKey key{text.front(), {}};
        if (text.substr(0, 4) == U"[F2]") {
            key = {0, "F2"};
            length = 4;
        }
        for (const auto& [name, character] : controls) {
            if (text.substr(0, name.size()) != name) continue;
            key.character = character;
            length = name.size();
        }
        keys.push_back(key);
        text.remove_prefix(length);
    }
    return keys;
}

ScanDiagnosis Diagnose(std::u32string_view text) { return DiagnoseScan(Keys(text)); }

const std::string Control = "Let the scanner send control characters as Ctrl and a letter, or set its ";
const std::string SetStart = " " + Control + "prefix to STX (Ctrl+B, ASCII 2).";
const std::string SetEnd = " " + Control + "suffix to ETX (Ctrl+C, ASCII 3).";
const std::string CtrlLost = " The Ctrl key was lost. A remote desktop or a terminal program may intercept it.";
const std::string SetPrefix = " Remove it from the scanner's prefix.";
const std::string SetSuffix = " Remove it from the scanner's suffix. The program ignores it only within 0.1 seconds.";
const std::string SetLayout = " Set the scanner's keyboard layout to the one of this computer.";
const std::string NoStart = "STX is missing before the barcode." + SetStart;
const std::string NoEnd = "ETX is missing after the barcode." + SetEnd;
const std::string SmallLetter =
    "The type letter is lower-case. The program reads it anyway. Caps Lock "
    "may be on, or the scanner changes the case of letters.";
const std::string Twice =
    "STX or ETX came twice, from the barcode and from the scanner's prefix or suffix. This "
    "works, but this scanner needs no prefix and no suffix.";
const std::string More =
    "More characters came after ETX, with another STX. Scan one barcode at a time. If one scan does "
    "this, the scanner sends more than the barcode.";
const std::string NoLetter =
    "The type letter is missing before the number. The barcode is not from this "
    "program, or the scanner is set to omit the first character.";
const std::string Unknown = " is unknown. Barcodes of this program begin with L, P or V.";
const std::string Lost =
    " instead of 10. If keys are lost or doubled, let the scanner wait a few "
    "milliseconds between characters.";
const std::string TooGreat = "The number is too large for this program. This is the barcode of something else.";
const std::string Strange = "The number contains characters other than digits: ";
const std::string AllWell = "This scanner is set up correctly.";
const std::string ByHand =
    "This looks like typing, not like a scan. If it was a scan, the scanner waits too "
    "long between characters. Set that delay to a few milliseconds at most.";

struct Case {
    std::u32string keys;
    ScanVerdict verdict;
    std::string meaning;
    std::vector<std::string> sentences;
};

std::vector<Case> Table() {
    using enum ScanVerdict;
    return {
        {U"[STX]P0000004711[ETX]", Correct, "Property, number 4711", {AllWell}},
        {U"[STX]V0000000012[ETX]", Correct, "Vehicle, number 12", {AllWell}},
        {U"[STX]L0000000005[ETX]", Correct, "Storage location, number 5", {AllWell}},
        {U"[STX]P0000000000[ETX]", Correct, "Property, number 0", {AllWell}},
        {U"[STX]P2147483647[ETX]", Correct, "Property, number 2147483647", {AllWell}},

        {U"[STX]p0000004711[ETX]", Works, "Property, number 4711", {SmallLetter}},
        {U"[STX]l0000000005[ETX]", Works, "Storage location, number 5", {SmallLetter}},
        {U"[STX][STX]P0000004711[ETX][ETX]", Works, "Property, number 4711", {Twice}},
        {U"[STX][STX]P0000004711[ETX]", Works, "Property, number 4711", {Twice}},
        {U"[STX]P0000004711[ETX][ETX]", Works, "Property, number 4711", {Twice}},
        {U"[STX][STX]v0000004711[ETX]", Works, "Vehicle, number 4711", {SmallLetter, Twice}},

        {U"P0000004711[ETX]", NeedsChange, "", {NoStart}},
        {U"[Tab]P0000004711[ETX]", NeedsChange, "", {"<Tab> came before the barcode instead of STX." + SetStart}},
        {U"[F2]P0000004711[ETX]", NeedsChange, "", {"<F2> came before the barcode instead of STX." + SetStart}},
        {U"##P0000004711[ETX]", NeedsChange, "", {"## came before the barcode instead of STX." + SetStart}},
        {U"bP0000004711[ETX]", NeedsChange, "", {"b came before the barcode instead of STX." + CtrlLost}},
        {U"#[STX]P0000004711[ETX]", NeedsChange, "Property, number 4711", {"# came before STX." + SetPrefix}},

        {U"[STX]P0000004711", NeedsChange, "", {NoEnd}},
        {U"[STX]P0000004711[Enter]", NeedsChange, "", {"<Enter> came after the barcode instead of ETX." + SetEnd}},
        {U"[STX]P0000004711[Tab]", NeedsChange, "", {"<Tab> came after the barcode instead of ETX." + SetEnd}},
        {U"[STX]P0000004711#", NeedsChange, "", {"# came after the barcode instead of ETX." + SetEnd}},
        {U"[STX]P0000004711C", NeedsChange, "", {"C came after the barcode instead of ETX." + CtrlLost}},
        {U"[STX]P0000004711[ETX][Enter]",
         NeedsChange,
         "Property, number 4711",
         {"<Enter> came after ETX." + SetSuffix}},
        {U"[STX]P0000004711[ETX][Enter][LF]",
         NeedsChange,
         "Property, number 4711",
         {"<Enter><LF> came after ETX." + SetSuffix}},
        {U"[STX]P0000004711[ETX][ETX][Tab]",
         NeedsChange,
         "Property, number 4711",
         {"<Tab> came after ETX." + SetSuffix, Twice}},
        {U"[STX]P0000004711[ETX][STX]P0000004711[ETX]", NeedsChange, "Property, number 4711", {More}},
        {U"[STX]P0000004711[ETX][STX]", NeedsChange, "Property, number 4711", {More}},

        {U"P0000004711", NeedsChange, "", {NoStart, NoEnd}},
        {U"P0000004711[Enter]", NeedsChange, "", {NoStart, "<Enter> came after the barcode instead of ETX." + SetEnd}},
        {U"bP0000004711c",
         NeedsChange,
         "",
         {"b came before the barcode instead of STX." + CtrlLost,
          "c came after the barcode instead of ETX." + CtrlLost}},
        {U"bp00004711c",
         NeedsChange,
         "",
         {"b came before the barcode instead of STX." + CtrlLost, "c came after the barcode instead of ETX." + CtrlLost,
          "The number has 8 digits" + Lost, SmallLetter}},
        {U"[F2]P0000004711[F2]",
         NeedsChange,
         "",
         {"<F2> came before the barcode instead of STX." + SetStart,
          "<F2> came after the barcode instead of ETX." + SetEnd}},

        {U"[STX]X0000004711[ETX]", NeedsChange, "", {"The type letter X" + Unknown}},
        {U"[STX]x0000004711[ETX]", NeedsChange, "", {"The type letter x" + Unknown}},
        {U"[STX]\u04170000004711[ETX]", NeedsChange, "", {"The type letter \u0417" + Unknown + SetLayout}},
        {U"[STX]0000004711[ETX]", NeedsChange, "", {NoLetter}},
        {U"4006381333931[Enter]",
         NeedsChange,
         "",
         {NoStart, "<Enter> came after the barcode instead of ETX." + SetEnd, NoLetter,
          "The number has 13 digits" + Lost, TooGreat}},

        {U"[STX]P[ETX]", NeedsChange, "", {"There is no number after the type letter."}},
        {U"[STX]P000004711[ETX]", NeedsChange, "Property, number 4711", {"The number has 9 digits" + Lost}},
        {U"[STX]P00000004711[ETX]", NeedsChange, "Property, number 4711", {"The number has 11 digits" + Lost}},
        {U"[STX]P7[ETX]", NeedsChange, "Property, number 7", {"The number has 1 digit" + Lost}},
        {U"[STX]P2147483648[ETX]", NeedsChange, "", {TooGreat}},
        {U"[STX]P9999999999[ETX]", NeedsChange, "", {TooGreat}},
        {U"[STX]P\u00E0\u00E0\u00E0\u00E0\u00E0\u00E0'\u00E8&&[ETX]",
         NeedsChange,
         "",
         {Strange + "\u00E0'\u00E8&." + SetLayout}},
        {U"[STX]P))))))$&!![ETX]", NeedsChange, "", {Strange + ")$&!." + SetLayout}},
        {U"[STX]P00000O4711[ETX]", NeedsChange, "", {Strange + "O." + SetLayout}},
        {U"[STX]P0000004711[Enter][ETX]",
         NeedsChange,
         "",
         {"<Enter> came in the middle of the barcode. Remove it from the characters that the scanner adds."}},

        {U"[STX][ETX]", NeedsChange, "", {"It contains no barcode."}},
        {U"[STX]L1[STX]P0000000002[ETX]", NeedsChange, "Property, number 2", {"<STX>L1 came before STX." + SetPrefix}},

        {U"p", TypedByHand, "", {ByHand}},
        {U"[STX]", TypedByHand, "", {ByHand}},
        {U"[F2]", TypedByHand, "", {ByHand}},
        {U"47[Enter]", TypedByHand, "", {ByHand}},
        {U"", TypedByHand, "", {ByHand}},
    };
}

}  // namespace

TEST(ScanDiagnosis, EachReadingGetsItsDiagnosis) {
    for (const Case& each : Table()) {
        const ScanDiagnosis diagnosis = Diagnose(each.keys);
        SCOPED_TRACE(diagnosis.reading);
        EXPECT_EQ(diagnosis.verdict, each.verdict);
        EXPECT_EQ(diagnosis.meaning, each.meaning);
        EXPECT_EQ(diagnosis.sentences, each.sentences);
    }
}

TEST(ScanDiagnosis, TheMostImportantFaultComesFirst) {
    const ScanDiagnosis diagnosis = Diagnose(U"[Tab]x00O0[Enter]");
    EXPECT_THAT(diagnosis.sentences,
                ElementsAre(HasSubstr("instead of STX"), HasSubstr("instead of ETX"), HasSubstr("The type letter x"),
                            HasSubstr("characters other than digits: O.")));
}

TEST(ScanDiagnosis, TheReadingNamesInvisibleCharacters) {
    EXPECT_EQ(DiagnoseScan(Keys(U"[STX]P0000004711[ETX][Enter]")).reading, "<STX>P0000004711<ETX><Enter>");
    EXPECT_EQ(DiagnoseScan(Keys(U"[F2]a b[Tab][LF][Esc]")).reading, "<F2>a b<Tab><LF><Esc>");
    EXPECT_EQ(DiagnoseScan({{0, {}}, {1, {}}, {0x1F, {}}, {0x7F, {}}, {0x80, {}}}).reading,
              "<NUL><SOH><US><DEL><U+0080>");
    EXPECT_EQ(DiagnoseScan({{0xA0, {}}, {0x200B, {}}, {0x202E, {}}, {0xFEFF, {}}, {0xE0001, {}}}).reading,
              "<U+00A0><U+200B><U+202E><U+FEFF><U+E0001>");
    EXPECT_EQ(DiagnoseScan({{0xE0, {}}, {0x0417, {}}, {0x1F600, {}}}).reading, "\u00E0\u0417\U0001F600");
}

TEST(ScanDiagnosis, AKeyWithoutTextInTheMiddleOfANumberIsNotTakenForAWrongLayout) {
    const auto problemOf = [](char32_t character) {
        auto keys = Keys(U"[STX]P0000?04711[ETX]");
        keys[6].character = character;
        return DiagnoseScan(keys).sentences.at(0);
    };
    for (const char32_t control : {0x1F, 0x7F, 0x9F})
        EXPECT_THAT(problemOf(control), HasSubstr(" came in the middle of the barcode. Remove it"));
    for (const char32_t text : {0x20, 0x7E, 0xA0})
        EXPECT_THAT(problemOf(text), HasSubstr("The number contains characters other than digits: "));
}

TEST(ScanDiagnosis, ALongReadingIsReadCompletely) {
    const std::u32string zeros(10'000, U'0');
    EXPECT_EQ(Diagnose(U"[STX]P" + zeros + U"7[ETX]").meaning, "Property, number 7");
    EXPECT_EQ(Diagnose(U"[STX]P" + std::u32string(10'000, U'9') + U"[ETX]").meaning, "");
}

}  // namespace quellbrook::testing
