#include "app/Options.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

Options Parsed(const std::vector<std::string>& arguments) {
    const auto result = ParseOptions(arguments);
    const auto* error = std::get_if<OptionError>(&result);
    EXPECT_EQ(error, nullptr) << (error ? error->sentence : "");
    return error ? Options() : std::get<Options>(result);
}

std::string Refusal(const std::vector<std::string>& arguments) {
    const auto result = ParseOptions(arguments);
    const auto* error = std::get_if<OptionError>(&result);
    return error ? error->sentence : "";
}

}  // namespace

TEST(Options, NoneOpensTheSample) {
    const Options options = Parsed({});
    EXPECT_FALSE(options.databasePath || options.user || options.size || options.tourDirectory);
    EXPECT_FALSE(options.fresh);
    EXPECT_FALSE(options.help);
}

TEST(Options, ValuesStandBehindTheOptionOrAnEqualsSign) {
    EXPECT_EQ(Parsed({"--database", "sqlite:/data/room.sqlite"}).databasePath, "/data/room.sqlite");
    EXPECT_EQ(Parsed({"--database=sqlite:a=b"}).databasePath, "a=b");
    EXPECT_EQ(Parsed({"--user", "clerk"}).user, "clerk");
    EXPECT_EQ(Parsed({"--tour=out"}).tourDirectory, "out");
    EXPECT_EQ(Parsed({"--size", "100000"}).size, 100000);
}

TEST(Options, FlagsAndValuesCombine) {
    const Options options = Parsed({"--fresh", "--size", "500", "--user=clerk"});
    EXPECT_TRUE(options.fresh);
    EXPECT_EQ(options.size, 500);
    EXPECT_EQ(options.user, "clerk");
    EXPECT_TRUE(Parsed({"--tour", "out", "--fresh"}).fresh);
    EXPECT_TRUE(Parsed({"--help"}).help);
}

TEST(Options, TheGalleryStandsAlone) {
    EXPECT_TRUE(Parsed({"--gallery"}).gallery);
    EXPECT_FALSE(Parsed({"--gallery"}).galleryDirectory);
    EXPECT_EQ(Parsed({"--gallery-pictures", "out"}).galleryDirectory, "out");
    EXPECT_EQ(Parsed({"--gallery", "--gallery-pictures=out"}).galleryDirectory, "out");
    const std::string alone = "The gallery shows controls, not a department; it can't be combined with other options.";
    for (const char* other : {"--fresh", "--user=clerk", "--size=5", "--tour=out", "--database=sqlite:a"}) {
        EXPECT_EQ(Refusal({"--gallery", other}), alone) << other;
        EXPECT_EQ(Refusal({other, "--gallery-pictures=out"}), alone) << other;
    }
}

TEST(Options, AnUnknownOneIsNamed) {
    EXPECT_EQ(Refusal({"--colour"}), "There is no option --colour; --help lists them all.");
    EXPECT_EQ(Refusal({"--galery"}), "There is no option --galery; --help lists them all.");
    EXPECT_EQ(Refusal({"--colour=red"}), "There is no option --colour; --help lists them all.");
    EXPECT_EQ(Refusal({"sample.sqlite"}), "'sample.sqlite' is no option; --help lists them all.");
}

TEST(Options, AMissingValueIsNamed) {
    EXPECT_EQ(Refusal({"--user"}), "The option --user needs a value.");
    EXPECT_EQ(Refusal({"--tour="}), "The option --tour needs a value.");
    EXPECT_EQ(Refusal({"--gallery-pictures"}), "The option --gallery-pictures needs a value.");
    EXPECT_EQ(Refusal({"--fresh=yes"}), "The option --fresh takes no value.");
    EXPECT_EQ(Refusal({"--gallery=dark"}), "The option --gallery takes no value.");
}

TEST(Options, ADatabaseIsNamedByItsScheme) {
    for (const char* value : {"room.sqlite", "sqlite:", "mysql:room", "odbc:DSN=room"}) {
        EXPECT_EQ(Refusal({"--database", value}), "'" + std::string(value) + "' names no database; write sqlite:PATH.");
    }
}

TEST(Options, ASizeIsAWholeNumberInItsRange) {
    for (const char* value : {"0", "-5", "many", "1e6", "2000001", "99999999999"}) {
        EXPECT_EQ(Refusal({"--size", value}),
                  "'" + std::string(value) + "' is no size; write a number of items from 1 to 2000000.");
    }
    EXPECT_EQ(Parsed({"--size", "2000000"}).size, 2000000);
}

TEST(Options, WhatExcludesEachOtherIsRefused) {
    const std::string standing = "--database opens what stands there; it can't be combined with --fresh or --size.";
    EXPECT_EQ(Refusal({"--database", "sqlite:a", "--fresh"}), standing);
    EXPECT_EQ(Refusal({"--size", "5", "--database", "sqlite:a"}), standing);
    const std::string tour =
        "--tour plays on a scratch copy of the sample; it can't be combined with --database, --size or --user.";
    EXPECT_EQ(Refusal({"--tour", "out", "--database", "sqlite:a"}), tour);
    EXPECT_EQ(Refusal({"--tour", "out", "--user", "clerk"}), tour);
    EXPECT_EQ(Refusal({"--tour", "out", "--size", "5"}), tour);
}

TEST(Options, TheAddressOfARecordStandsByItself) {
    EXPECT_EQ(Parsed({"tessarine://miproperty/open/42"}).record, (RecordAddress{RecordKind::Property, 42}));
    const Options options = Parsed({"--database=sqlite:a", "TESSARINE://mivehicle/open/7/", "--user", "clerk"});
    EXPECT_EQ(options.record, (RecordAddress{RecordKind::Vehicle, 7}));
    EXPECT_EQ(options.databasePath, "a");
    EXPECT_EQ(options.user, "clerk");
    EXPECT_FALSE(Parsed({}).record);
}

TEST(Options, AnAddressOfNoRecordIsRefusedWithItsOwnSentence) {
    EXPECT_EQ(Refusal({"tessarine://miproperty/open/0"}),
              "'tessarine://miproperty/open/0' is not the address of a record; write "
              "tessarine://miproperty/open/NUMBER or tessarine://mivehicle/open/NUMBER, with a number from 1 to "
              "2147483647.");
    EXPECT_NE(Refusal({"tessarine:--fresh=1"}).find("is not the address of a record"), std::string::npos);
    EXPECT_EQ(Refusal({"tessarine://miproperty/open/1", "tessarine://miproperty/open/2"}),
              "One record can be opened at a time.");
}

TEST(Options, RegisteringOpensNothing) {
    const Options options = Parsed({"--register", "--database", "sqlite:a"});
    EXPECT_TRUE(options.registerScheme);
    EXPECT_EQ(options.databasePath, "a");
    EXPECT_EQ(Parsed({"--size", "5", "--register"}).size, 5);
    EXPECT_FALSE(Parsed({}).registerScheme);
    EXPECT_EQ(Refusal({"--register=yes"}), "The option --register takes no value.");
    const std::string alone = "--register opens nothing; it can be combined with --database or --size alone.";
    EXPECT_EQ(Refusal({"--register", "--fresh"}), alone);
    EXPECT_EQ(Refusal({"--register", "--user", "clerk"}), alone);
    EXPECT_EQ(Refusal({"--tour", "out", "--register"}), alone);
    EXPECT_EQ(Refusal({"--register", "tessarine://miproperty/open/42"}), alone);
}

TEST(Options, ATourOpensNoRecord) {
    EXPECT_EQ(Refusal({"--tour", "out", "tessarine://miproperty/open/42"}),
              "--tour plays on a scratch copy of the sample; it can't be combined with the address of a record.");
}

TEST(Options, TheHelpNamesEveryOption) {
    for (const char* option : {"--database", "--size", "--fresh", "--user", "--tour", "--gallery ",
                               "--gallery-pictures", "--register", "tessarine://miproperty/open/NUMBER", "--help"}) {
        EXPECT_NE(HelpText().find(option), std::string::npos) << option;
    }
}

}  // namespace quellbrook::testing
