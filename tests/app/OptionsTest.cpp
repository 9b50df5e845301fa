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

TEST(Options, AnUnknownOneIsNamed) {
    EXPECT_EQ(Refusal({"--colour"}), "There is no option --colour; --help lists them all.");
    EXPECT_EQ(Refusal({"--gallery"}), "There is no option --gallery; --help lists them all.");
    EXPECT_EQ(Refusal({"--colour=red"}), "There is no option --colour; --help lists them all.");
    EXPECT_EQ(Refusal({"sample.sqlite"}), "'sample.sqlite' is no option; --help lists them all.");
}

TEST(Options, AMissingValueIsNamed) {
    EXPECT_EQ(Refusal({"--user"}), "The option --user needs a value.");
    EXPECT_EQ(Refusal({"--tour="}), "The option --tour needs a value.");
    EXPECT_EQ(Refusal({"--fresh=yes"}), "The option --fresh takes no value.");
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

TEST(Options, TheHelpNamesEveryOption) {
    for (const char* option : {"--database", "--size", "--fresh", "--user", "--tour", "--help"}) {
        EXPECT_NE(HelpText().find(option), std::string::npos) << option;
    }
}

}  // namespace quellbrook::testing
