#include "app/records/RecordAddress.h"
#include "base/Error.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

const std::string property = "tessarine://miproperty/open/";
const std::string vehicle = "tessarine://mivehicle/open/";

void ExpectRefused(const std::string& text) {
    const Error error = RaisedBy([&] { ParseRecordAddress(text); });
    EXPECT_EQ(error.Number(), ErrorNumber::General) << text;
    EXPECT_NE(error.Description().find("is not the address of a record"), std::string::npos) << error.Description();
}

}  // namespace

TEST(RecordAddressTest, AddressesGiveKindAndNumber) {
    EXPECT_EQ(ParseRecordAddress(property + "42"), (RecordAddress{RecordKind::Property, 42}));
    EXPECT_EQ(ParseRecordAddress(vehicle + "42"), (RecordAddress{RecordKind::Vehicle, 42}));
}

TEST(RecordAddressTest, ToTextAndParseAreInverse) {
    for (const RecordKind kind : {RecordKind::Property, RecordKind::Vehicle}) {
        for (const int32_t number : {1, 9, 10, 5'000'001, 2'147'483'647}) {
            const RecordAddress address{kind, number};
            EXPECT_EQ(ParseRecordAddress(address.ToText()), address);
        }
    }
    EXPECT_EQ((RecordAddress{RecordKind::Property, 42}).ToText(), property + "42");
    EXPECT_EQ((RecordAddress{RecordKind::Vehicle, 7}).ToText(), vehicle + "7");
}

TEST(RecordAddressTest, SchemeAndModuleAreCaseInsensitive) {
    for (const char* text :
         {"TESSARINE://miproperty/open/42", "Tessarine://MIProperty/open/42", "tessarine://MIPROPERTY/open/42"}) {
        EXPECT_EQ(ParseRecordAddress(text), (RecordAddress{RecordKind::Property, 42})) << text;
    }
    EXPECT_EQ(ParseRecordAddress("TESSARINE://MIVEHICLE/open/1"), (RecordAddress{RecordKind::Vehicle, 1}));
}

TEST(RecordAddressTest, TheOperationIsCaseSensitive) {
    ExpectRefused("tessarine://miproperty/OPEN/42");
    ExpectRefused("tessarine://miproperty/Open/42");
}

TEST(RecordAddressTest, OneTrailingSlashIsIgnored) {
    EXPECT_EQ(ParseRecordAddress(property + "42/"), (RecordAddress{RecordKind::Property, 42}));
    ExpectRefused(property + "42//");
    ExpectRefused(property + "/");
}

TEST(RecordAddressTest, NumbersFromOneToTheGreatestKeyAreAccepted) {
    EXPECT_EQ(ParseRecordAddress(property + "1").number, 1);
    EXPECT_EQ(ParseRecordAddress(property + "2147483647").number, 2'147'483'647);
    for (const char* number : {"0",
                               "00",
                               "-1",
                               "-42",
                               "+42",
                               "2147483648",
                               "4294967297",
                               "9223372036854775808",
                               "18446744073709551617",
                               "99999999999999999999999999",
                               "042",
                               "4 2",
                               " 42",
                               "42 ",
                               "0x2a",
                               "4.2",
                               "4e1",
                               "42,",
                               "1,000",
                               "\xD9\xA4\xD9\xA2",
                               "",
                               "open",
                               "42a",
                               "a42"}) {
        ExpectRefused(property + number);
        ExpectRefused(vehicle + number);
    }
}

TEST(RecordAddressTest, ExtraTextBeforeOrAfterIsRefused) {
    const std::string good = property + "42";
    for (const std::string& text :
         {" " + good, good + " ", "\t" + good, good + "\n", good + "\r\n", "\"" + good + "\"", "<" + good + ">",
          good + "?x=1", good + "#top", good + "/43", good + "/../43", good + ";" + good, good + " --fresh",
          "cmd /c start " + good, std::string("\xEF\xBB\xBF") + good}) {
        ExpectRefused(text);
    }
}

TEST(RecordAddressTest, OtherSchemesModulesAndPathsAreRefused) {
    for (const char* text : {"",
                             "tessarine",
                             "tessarine:",
                             "tessarine:/",
                             "tessarine://",
                             "tessarine:///",
                             "tessarine://miproperty",
                             "tessarine://miproperty/",
                             "tessarine://miproperty/open",
                             "tessarine://miproperty/open/",
                             "tessarine://miproperty/edit/42",
                             "tessarine://miproperty//open/42",
                             "tessarine://miproperty/open//42",
                             "tessarine:/miproperty/open/42",
                             "tessarine:miproperty/open/42",
                             "tessarine:///miproperty/open/42",
                             "tessarine://miproperty/42",
                             "tessarine://mipropert/open/42",
                             "tessarine://mipropertyy/open/42",
                             "tessarine://incident/open/42",
                             "tessarine://user@miproperty/open/42",
                             "tessarine://miproperty:80/open/42",
                             "tessarine://miproperty/./open/42",
                             "tessarine://miproperty\\open\\42",
                             "tessarine://miproperty/open/%34%32",
                             "tessarine://miproperty%2Fopen%2F42",
                             "tessarines://miproperty/open/42",
                             "xtessarine://miproperty/open/42",
                             "http://miproperty/open/42",
                             "file:///etc/passwd",
                             "miproperty/open/42",
                             "/open/42",
                             "42",
                             "--help"}) {
        ExpectRefused(text);
    }
}

TEST(RecordAddressTest, HostileTextsAreRefusedAnywhere) {
    for (const HostileText& each : HostileTexts()) {
        SCOPED_TRACE(each.description);
        ExpectRefused(each.text);
        ExpectRefused("tessarine://" + each.text);
        ExpectRefused("tessarine://" + each.text + "/open/42");
        ExpectRefused("tessarine://miproperty/" + each.text + "/42");
        ExpectRefused(property + each.text);
        ExpectRefused(property + "42" + each.text);
        ExpectRefused(each.text + property + "42");
    }
    ExpectRefused(TextWithNul());
    ExpectRefused(property + std::string("42\0", 3));
    ExpectRefused(property + std::string("4\0002", 3));
    ExpectRefused(std::string("\0", 1) + property + "42");
}

TEST(RecordAddressTest, TheRefusalShowsTheFormat) {
    const Error error = RaisedBy([] { ParseRecordAddress("tessarine://miproperty/open/0"); });
    EXPECT_EQ(error.Description(),
              "'tessarine://miproperty/open/0' is not the address of a record. Write "
              "tessarine://miproperty/open/NUMBER or tessarine://mivehicle/open/NUMBER, with a number from 1 to "
              "2147483647.");
}

TEST(RecordAddressTest, TheRefusalQuotesPrintableCharactersAndShortensLongTexts) {
    const Error unprintable = RaisedBy([] {
        ParseRecordAddress(
            "a\nb\x1b[31m\xE2\x80\xAE"
            "c\x7f");
    });
    EXPECT_EQ(unprintable.Description().rfind("'a?b?[31m???c?' is not", 0), 0u) << unprintable.Description();
    const Error longText = RaisedBy([] { ParseRecordAddress(std::string(1'000'000, 'x')); });
    EXPECT_EQ(longText.Description().rfind("'" + std::string(60, 'x') + "...' is not", 0), 0u);
    EXPECT_LT(longText.Description().size(), 300u);
}

TEST(RecordAddressTest, NoAddressExceedsTheMaximumLength) {
    EXPECT_EQ((property + "2147483647/").size(), LongestRecordAddress);
}

TEST(RecordAddressTest, ATextWithTheSchemeIsRecognizedAsAnAddress) {
    EXPECT_TRUE(HasRecordScheme("tessarine:"));
    EXPECT_TRUE(HasRecordScheme("TESSARINE://what"));
    for (const char* text : {"", "tessarine", "essarine:", " tessarine:", "--tessarine:", "sqlite:a"}) {
        EXPECT_FALSE(HasRecordScheme(text)) << text;
    }
}

}  // namespace quellbrook::testing
