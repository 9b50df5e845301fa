#include "host/MomentText.h"

#include <gtest/gtest.h>

namespace quellbrook {
namespace {

std::string TextOf(const char* date, const char* time, int hour = 13) {
    HostFormats formats;
    formats.date = date;
    formats.time = time;
    return MomentText(DateTime::FromParts({2026, 3, 9, hour, 4, 5, 678}), formats);
}

TEST(MomentText, TheDefaultIsTheAmericanFormat) {
    EXPECT_EQ(MomentText(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123}), HostFormats()), "11/20/2026 1:14 PM");
}

TEST(MomentText, ADoubledLetterHasALeadingZero) {
    EXPECT_EQ(TextOf("d.M.yy", "H:m:s"), "9.3.26 13:4:5");
    EXPECT_EQ(TextOf("dd.MM.yyyy", "HH:mm:ss"), "09.03.2026 13:04:05");
}

TEST(MomentText, WithAmAndPmTheHourIsOneToTwelve) {
    EXPECT_EQ(TextOf("d", "h:mm AP", 0), "9 12:04 AM");
    EXPECT_EQ(TextOf("d", "hh:mm ap", 9), "9 09:04 AM");
    EXPECT_EQ(TextOf("d", "h:mm A", 12), "9 12:04 PM");
    EXPECT_EQ(TextOf("d", "h:mma", 23), "9 11:04PM");
}

TEST(MomentText, WithoutAmAndPmTheHourIsZeroToTwentyThree) {
    EXPECT_EQ(TextOf("d", "h:mm", 0), "9 0:04");
    EXPECT_EQ(TextOf("d", "h:mm", 23), "9 23:04");
}

TEST(MomentText, MonthsAreAlwaysNumbers) { EXPECT_EQ(TextOf("d-MMM-yy", "H"), "9-03-26 13"); }

TEST(MomentText, QuotedTextAndOtherCharactersStay) {
    EXPECT_EQ(TextOf("yyyy'-Md'/M", "H 'h' ''m"), "2026-Md/3 13 h '4");
    EXPECT_EQ(TextOf("d. M. 'unfinished", "HH"), "9. 3. unfinished 13");
}

}  // namespace
}  // namespace quellbrook
