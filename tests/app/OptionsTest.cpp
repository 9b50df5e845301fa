#include "app/Options.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

Options Parsed(const QStringList& arguments) { return ParseOptions(QStringList{"quellbrook-host"} + arguments); }

std::string Refusal(const QStringList& arguments) {
    return RaisedBy([&] { Parsed(arguments); }).Description();
}

}  // namespace

TEST(Options, NoArgumentOpensTheSample) {
    const Options options = Parsed({});
    EXPECT_FALSE(options.databasePath || options.user || options.size || options.tourDirectory || options.record);
    EXPECT_FALSE(options.fresh || options.registerScheme || options.help);
}

TEST(Options, AValueFollowsItsOptionOrAnEqualsSign) {
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

TEST(Options, AnUnknownOptionIsNamed) {
    EXPECT_EQ(Refusal({"--colors"}), "Unknown option '--colors'. See --help.");
    EXPECT_EQ(Refusal({"--tuor"}), "Unknown option '--tuor'. See --help.");
    EXPECT_EQ(Refusal({"--colors=red"}), "Unknown option '--colors'. See --help.");
    EXPECT_EQ(Refusal({"-v"}), "Unknown option '-v'. See --help.");
    EXPECT_EQ(Refusal({"sample.sqlite"}),
              "'sample.sqlite' is neither an option nor the address of a record. See --help.");
}

TEST(Options, AMissingOrUnexpectedValueIsNamed) {
    EXPECT_EQ(Refusal({"--user"}), "Missing value after '--user'.");
    EXPECT_EQ(Refusal({"--tour="}), "Missing value after '--tour'.");
    EXPECT_EQ(Refusal({"--tour"}), "Missing value after '--tour'.");
    EXPECT_EQ(Refusal({"--fresh=yes"}), "Unexpected value after '--fresh'.");
    EXPECT_EQ(Refusal({"--register=yes"}), "Unexpected value after '--register'.");
}

TEST(Options, ADatabaseIsNamedByItsScheme) {
    EXPECT_EQ(Parsed({"--database", "odbc:DSN=room;Pwd=a=b"}).server, "DSN=room;Pwd=a=b");
    EXPECT_FALSE(Parsed({"--database", "odbc:DSN=room"}).databasePath.has_value());
    EXPECT_FALSE(Parsed({"--database", "sqlite:a"}).server.has_value());
    for (const char* value : {"room.sqlite", "sqlite:", "mysql:room", "odbc:"})
        EXPECT_EQ(Refusal({"--database", value}),
                  "'" + std::string(value) + "' is not a database. Write sqlite:PATH or odbc:CONNECTION STRING.");
}

TEST(Options, ASizeIsAWholeNumberInItsRange) {
    for (const char* value : {"0", "-5", "many", "1e6", "2000001", "99999999999"})
        EXPECT_EQ(Refusal({"--size", value}),
                  "'" + std::string(value) + "' is not a valid size. Write a number of items from 1 to 2000000.");
    EXPECT_EQ(Parsed({"--size", "2000000"}).size, 2000000);
}

TEST(Options, ConflictingOptionsAreRefused) {
    const std::string existing =
        "--database opens an existing department. It can't be combined with --fresh or --size.";
    EXPECT_EQ(Refusal({"--database", "sqlite:a", "--fresh"}), existing);
    EXPECT_EQ(Refusal({"--size", "5", "--database", "sqlite:a"}), existing);
    const std::string tour =
        "--tour plays on a scratch copy of the sample, or in an empty database on a server. It can't be combined with "
        "--database sqlite:PATH, --size, --user or the address of a record.";
    for (const char* other : {"--database=sqlite:a", "--user=clerk", "--size=5", "tessarine://miproperty/open/42"})
        EXPECT_EQ(Refusal({"--tour", "out", other}), tour) << other;
}

TEST(Options, TheUncategorizedSampleIsAlwaysAScratchCopy) {
    EXPECT_TRUE(Parsed({"--fresh", "--uncategorized"}).uncategorized);
    EXPECT_TRUE(Parsed({"--tour=out", "--uncategorized"}).uncategorized);
    EXPECT_FALSE(Parsed({"--fresh"}).uncategorized);
    const std::string sentence =
        "--uncategorized selects another sample. It needs --fresh or --tour, and it can't be combined with --size.";
    EXPECT_EQ(Refusal({"--uncategorized"}), sentence);
    EXPECT_EQ(Refusal({"--uncategorized", "--fresh", "--size=5"}), sentence);
    EXPECT_EQ(Refusal({"--uncategorized", "--database=sqlite:a"}), sentence);
    EXPECT_EQ(Refusal({"--uncategorized", "--verify"}), sentence);
}

TEST(Options, ADepartmentIsCreatedOnAServerOnly) {
    const Options options = Parsed({"--create", "--database", "odbc:DSN=room", "--size", "50"});
    EXPECT_TRUE(options.create);
    EXPECT_EQ(options.size, 50);
    const std::string file = "--create needs --database odbc:CONNECTION STRING. A file is created on first use.";
    EXPECT_EQ(Refusal({"--create"}), file);
    EXPECT_EQ(Refusal({"--create", "--database", "sqlite:a"}), file);
    const std::string alone = "--create opens no window. It can only be combined with --database, --sample and --size.";
    for (const char* other :
         {"--fresh", "--user=clerk", "--tour=out", "--register", "--verify", "tessarine://miproperty/open/7"})
        EXPECT_EQ(Refusal({"--create", "--database=odbc:DSN=room", other}), alone) << other;
}

TEST(Options, ANewDepartmentHasTheRowsOfTheSampleOrAsManyItemsAsAsked) {
    EXPECT_TRUE(Parsed({"--create", "--sample", "--database=odbc:DSN=room"}).sample);
    EXPECT_FALSE(Parsed({"--create", "--database=odbc:DSN=room"}).sample);
    EXPECT_EQ(Refusal({"--create", "--sample", "--size=5", "--database=odbc:DSN=room"}),
              "--sample and --size are two departments. --create fills a database with one of them.");
    for (const char* database : {"--database=odbc:DSN=room", "--database=sqlite:a", "--fresh"})
        EXPECT_EQ(Refusal({"--sample", database}),
                  "--sample fills a database that --create creates. It needs --create.")
            << database;
}

TEST(Options, TheTourAndTheVerificationAlsoWorkOnAServer) {
    const Options tour = Parsed({"--tour", "out", "--database=odbc:DSN=room", "--uncategorized"});
    EXPECT_EQ(tour.server, "DSN=room");
    EXPECT_TRUE(tour.uncategorized);
    EXPECT_EQ(Refusal({"--tour", "out", "--database=odbc:DSN=room", "--fresh"}),
              "--database opens an existing department. It can't be combined with --fresh or --size.");
    for (const char* flag : {"--verify", "--repair"})
        EXPECT_EQ(Parsed({flag, "--database=odbc:DSN=room"}).server, "DSN=room") << flag;
}

TEST(Options, RegisteringNeedsAFile) {
    EXPECT_EQ(Refusal({"--register", "--database=odbc:DSN=room"}), "--register works with a database file only.");
}

TEST(Options, ARecordAddressNeedsNoOption) {
    EXPECT_EQ(Parsed({"tessarine://miproperty/open/42"}).record, (RecordAddress{RecordKind::Property, 42}));
    const Options options = Parsed({"--database=sqlite:a", "TESSARINE://mivehicle/open/7/", "--user", "clerk"});
    EXPECT_EQ(options.record, (RecordAddress{RecordKind::Vehicle, 7}));
    EXPECT_EQ(options.databasePath, "a");
    EXPECT_EQ(options.user, "clerk");
}

TEST(Options, AnInvalidRecordAddressIsRefusedWithItsOwnSentence) {
    for (const char* address : {"tessarine://miproperty/open/0", "tessarine:--fresh=1"}) {
        const Options options = Parsed({address});
        ASSERT_TRUE(options.refusedRecord.has_value()) << address;
        EXPECT_EQ(options.refusedRecord->Description(), RaisedBy([&] { ParseRecordAddress(address); }).Description());
        EXPECT_FALSE(options.record.has_value());
    }
    EXPECT_EQ(Refusal({"tessarine://miproperty/open/1", "tessarine://miproperty/open/2"}),
              "Only one record can be opened at a time.");
}

TEST(Options, RegisteringCombinesWithDatabaseAndSizeOnly) {
    const Options options = Parsed({"--register", "--database", "sqlite:a"});
    EXPECT_TRUE(options.registerScheme);
    EXPECT_EQ(options.databasePath, "a");
    EXPECT_EQ(Parsed({"--size", "5", "--register"}).size, 5);
    const std::string alone = "--register opens nothing. It can only be combined with --database or --size.";
    for (const char* other : {"--fresh", "--user=clerk", "--tour=out", "tessarine://miproperty/open/42"})
        EXPECT_EQ(Refusal({"--register", other}), alone) << other;
}

TEST(Options, TheHelpNamesEveryOption) {
    const std::string help = HelpText();
    for (const char* text :
         {"--database <URL>", "--create", "--sample  ", "--size <N>", "--fresh", "--uncategorized", "--user <NAME>",
          "--tour <DIR>", "--register", "tessarine://miproperty/open/NUMBER", "--verify", "--repair ", "--help"})
        EXPECT_NE(help.find(text), std::string::npos) << text << "\n" << help;
}

TEST(Options, VerifyingCombinesWithADepartmentOnly) {
    EXPECT_TRUE(Parsed({"--verify"}).verify);
    EXPECT_FALSE(Parsed({"--verify"}).repair);
    EXPECT_TRUE(Parsed({"--repair", "--database=sqlite:a"}).repair);
    EXPECT_EQ(Parsed({"--verify", "--size=5"}).size, 5);
    for (const char* flag : {"--verify", "--repair"}) {
        for (const char* other :
             {"--fresh", "--user=clerk", "--tour=out", "--register", "tessarine://miproperty/open/7"})
            EXPECT_EQ(Refusal({flag, other}),
                      "--verify and --repair open no window. They can only be combined with --database or --size.")
                << flag << " " << other;
    }
}

}  // namespace quellbrook::testing
