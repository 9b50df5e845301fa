#include "base/DateTime.h"

#include <gtest/gtest.h>

#include <random>

namespace quellbrook {
namespace {

const DateTime noonish = DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123});

TEST(DateTime, WritesMillisecondsAlways) {
    EXPECT_EQ(noonish.ToText(), "2026-11-20T13:14:15.123");
    EXPECT_EQ(DateTime::FromParts({26, 1, 2, 3, 4, 5, 6}).ToText(), "0026-01-02T03:04:05.006");
}

TEST(DateTime, CountsFromTheEpochWithoutATimeZone) {
    EXPECT_EQ(DateTime::FromParts({1970, 1, 1, 0, 0, 0, 0}).milliseconds, 0);
    EXPECT_EQ(DateTime::FromParts({1969, 12, 31, 23, 59, 59, 999}).milliseconds, -1);
}

TEST(DateTime, ReadsWhatItWrites) {
    std::mt19937_64 random(1);
    std::uniform_int_distribution<int64_t> moment(-62135596800000, 253402300799999);  // the years 1 to 9999
    for (int i = 0; i < 20000; ++i) {
        const DateTime original{moment(random)};
        EXPECT_EQ(DateTime::Parse(original.ToText()), original) << original.ToText();
    }
}

TEST(DateTime, PartsRoundTrip) {
    const DateTime::Parts parts = DateTime::FromParts({1968, 2, 29, 23, 59, 58, 7}).ToParts();
    EXPECT_EQ(parts.year, 1968);
    EXPECT_EQ(parts.month, 2);
    EXPECT_EQ(parts.day, 29);
    EXPECT_EQ(parts.hour, 23);
    EXPECT_EQ(parts.minute, 59);
    EXPECT_EQ(parts.second, 58);
    EXPECT_EQ(parts.millisecond, 7);
}

TEST(DateTime, ReadsASpaceInsteadOfTheT) { EXPECT_EQ(DateTime::Parse("2026-11-20 13:14:15.123"), noonish); }

TEST(DateTime, ReadsADateAloneAsMidnight) {
    EXPECT_EQ(DateTime::Parse("2026-11-20"), DateTime::FromParts({2026, 11, 20, 0, 0, 0, 0}));
}

TEST(DateTime, ReadsAnyFractionOfASecond) {
    const DateTime::Parts whole{2026, 11, 20, 13, 14, 15, 0};
    const auto withFraction = [&](const std::string& fraction) {
        return DateTime::Parse("2026-11-20T13:14:15" + fraction);
    };
    EXPECT_EQ(withFraction(""), DateTime::FromParts(whole));
    EXPECT_EQ(withFraction(".5"), DateTime{DateTime::FromParts(whole).milliseconds + 500});
    EXPECT_EQ(withFraction(".1239999"), noonish);
    EXPECT_EQ(withFraction(".000000001"), DateTime::FromParts(whole));
}

TEST(DateTime, ReadsATimeWithoutSeconds) {
    EXPECT_EQ(DateTime::Parse("2026-11-20T13:14"), DateTime::FromParts({2026, 11, 20, 13, 14, 0, 0}));
}

TEST(DateTime, KnowsLeapYears) {
    EXPECT_TRUE(DateTime::Parse("2024-02-29"));
    EXPECT_TRUE(DateTime::Parse("2000-02-29"));
    EXPECT_FALSE(DateTime::Parse("2026-02-29"));
    EXPECT_FALSE(DateTime::Parse("1900-02-29"));
}

TEST(DateTime, ReturnsNothingForAnyOtherText) {
    for (const char* text : {"",
                             " ",
                             "2026",
                             "2026-11",
                             "2026-11-2",
                             "2026-13-01",
                             "2026-00-10",
                             "2026-04-31",
                             "11/20/2026",
                             "2026-11-20T",
                             "2026-11-20T24:00:00",
                             "2026-11-20T13:60:00",
                             "2026-11-20T13:14:60",
                             "2026-11-20T13:14:15.",
                             "2026-11-20T13:14:15Z",
                             "2026-11-20T13:14:15.123 ",
                             " 2026-11-20",
                             "2026-11-20x13:14:15",
                             "-026-11-20",
                             "2026-11-20T13:14:15,5"})
        EXPECT_FALSE(DateTime::Parse(text)) << text;
}

TEST(DateTime, ComparesInTheOrderOfTime) {
    EXPECT_LT(noonish, DateTime{noonish.milliseconds + 1});
    EXPECT_GT(noonish, DateTime{noonish.milliseconds - 1});
}

}  // namespace
}  // namespace quellbrook
