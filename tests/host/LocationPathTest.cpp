#include "host/LocationPath.h"

#include "base/Error.h"
#include "base/Text.h"
#include "host/HostDatabase.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

namespace quellbrook::testing {
namespace {

LocationPath PathOf(std::vector<int32_t> ids) { return LocationPath(std::move(ids)); }

TEST(LocationPath, IsEmptyAtFirst) {
    EXPECT_TRUE(LocationPath().Ids().empty());
    EXPECT_EQ(LocationPath().ToText(), "");
}

TEST(LocationPath, AppendingZeroToTheEmptyPathReturnsTheTopLevel) {
    const LocationPath top = LocationPath().Append(0);
    EXPECT_EQ(top.Ids(), std::vector<int32_t>{0});
    EXPECT_EQ(top.ToText(), "/0/");
}

TEST(LocationPath, AppendLeavesTheOriginalAlone) {
    const LocationPath path = PathOf({0, 5});
    EXPECT_EQ(path.Append(57).Ids(), (std::vector<int32_t>{0, 5, 57}));
    EXPECT_EQ(path.Ids(), (std::vector<int32_t>{0, 5}));
}

TEST(LocationPath, TextsReadBack) {
    for (const LocationPath& path :
         {LocationPath(), PathOf({0}), PathOf({0, 5, 57}), PathOf({0, 2147483647}), PathOf({0, -1})})
        EXPECT_TRUE(LocationPath().Parse(path.ToText()).Equals(path)) << path.ToText();
}

TEST(LocationPath, ParseReturnsANewPath) {
    const LocationPath path = PathOf({0, 9});
    EXPECT_EQ(path.Parse("/0/5/").Ids(), (std::vector<int32_t>{0, 5}));
    EXPECT_EQ(path.Ids(), (std::vector<int32_t>{0, 9}));
}

TEST(LocationPath, ATextThatNoPathHasIsRefused) {
    for (const char* text : {"/", "0", "0/5/", "/0/5", "/0//5/", "//", "/0/05/", "/0/+5/", "/0/ 5/", "/0/-0/", "/0/x/",
                             "/0/2147483648/", "/0/5/ ", " /0/5/", "/0/1.0/"}) {
        const Error error = RaisedBy([&] { LocationPath().Parse(text); });
        EXPECT_EQ(error.Number(), ErrorNumber::General) << text;
        EXPECT_EQ(error.Description(), "'" + std::string(text) + "' is not the path of a storage location.");
    }
}

TEST(LocationPath, KnowsARepeatedIdentifier) {
    EXPECT_FALSE(LocationPath().HasRepeatedId());
    EXPECT_FALSE(PathOf({0, 5, 57, 7}).HasRepeatedId());
    EXPECT_TRUE(PathOf({0, 5, 57, 5}).HasRepeatedId());
    EXPECT_TRUE(PathOf({0, 0}).HasRepeatedId());
}

TEST(LocationPath, EqualsComparesTheLists) {
    EXPECT_TRUE(PathOf({0, 5}).Equals(PathOf({0, 5})));
    EXPECT_FALSE(PathOf({0, 5}).Equals(PathOf({0, 57})));
    EXPECT_FALSE(PathOf({0, 5}).Equals(PathOf({0})));
    EXPECT_TRUE(LocationPath().Equals(LocationPath()));
}

LocationPath RandomPath(std::mt19937& random) {
    std::vector<int32_t> ids = {0};
    const auto limit = static_cast<unsigned>(random() % 3 == 0 ? std::numeric_limits<int32_t>::max() : 60);
    for (auto depth = random() % 5; depth > 0; --depth) ids.push_back(static_cast<int32_t>(1 + random() % limit));
    return LocationPath(std::move(ids));
}

bool ListBegins(const LocationPath& start, const LocationPath& path) {
    return start.Ids().size() <= path.Ids().size() &&
           std::equal(start.Ids().begin(), start.Ids().end(), path.Ids().begin());
}

TEST(LocationPath, ATextBeginsTheTextsOfItsExtensionsAndNoOthers) {
    std::mt19937 random(2026);
    int extensions = 0;
    for (int pair = 0; pair < 100000; ++pair) {
        const LocationPath p = RandomPath(random);
        const LocationPath q =
            pair % 2 == 0 ? RandomPath(random) : LocationPath(p).Append(static_cast<int32_t>(1 + random() % 99));
        ASSERT_EQ(q.ToText().starts_with(p.ToText()), ListBegins(p, q)) << p.ToText() << " " << q.ToText();
        extensions += ListBegins(p, q);
    }
    EXPECT_GT(extensions, 50000);
}

TEST(LocationPath, ReplacingTheTextOfAPathMovesTheSubtree) {
    std::mt19937 random(7);
    for (int pair = 0; pair < 100000; ++pair) {
        const LocationPath from = RandomPath(random);
        const LocationPath to = RandomPath(random);
        LocationPath descendant = from;
        LocationPath expected = to;
        for (auto depth = random() % 5; depth > 0; --depth) {
            const auto id =
                static_cast<int32_t>(random() % 3 == 0 ? from.Ids().back() : 1 + static_cast<int32_t>(random() % 60));
            if (id == 0) continue;
            descendant = descendant.Append(id);
            expected = expected.Append(id);
        }
        ASSERT_EQ(Replace(descendant.ToText(), from.ToText(), to.ToText()), expected.ToText())
            << from.ToText() << " -> " << to.ToText();
    }
}

TEST(LocationPath, ATextNeedsNoQuotingAndContainsNoWildcard) {
    std::mt19937 random(3);
    for (int i = 0; i < 1000; ++i) {
        const std::string text = RandomPath(random).ToText();
        EXPECT_EQ(text.find_first_not_of("/0123456789"), std::string::npos) << text;
        EXPECT_EQ(HostDatabase().PrepareLike(text + "*"), "'" + text + "%'");
    }
}

}  // namespace
}  // namespace quellbrook::testing
