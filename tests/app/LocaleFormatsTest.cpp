#include "app/LocaleFormats.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace quellbrook::testing {

TEST(LocaleFormats, TheCLocaleGivesTheDefaults) {
    const HostFormats formats = FormatsOf(QLocale::c());
    EXPECT_EQ(formats.date, "MM/dd/yyyy");
    EXPECT_EQ(formats.time, "h:mm AP");
    EXPECT_EQ(formats.currency, "$%d");
}

TEST(LocaleFormats, ACountryGivesItsShortFormats) {
    const HostFormats formats = FormatsOf(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(formats.date, "dd.MM.yy");
    EXPECT_EQ(formats.time, "HH:mm");
    EXPECT_EQ(formats.currency, "%d\u00A0\u20AC");
}

TEST(LocaleFormats, TheCurrencyFormatKeepsThePositionOfTheAmount) {
    EXPECT_EQ(FormatsOf(QLocale(QLocale::English, QLocale::UnitedStates)).currency, "$%d");
}

}  // namespace quellbrook::testing
