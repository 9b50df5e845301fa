#include "base/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace quellbrook;

namespace {

using Texts = std::vector<std::string>;

void ExpectOrder(const Texts& sorted) {
    for (size_t i = 0; i < sorted.size(); ++i)
        for (size_t k = 0; k < sorted.size(); ++k)
            EXPECT_EQ(ComesBefore(sorted[i], sorted[k]), i < k) << "'" << sorted[i] << "', '" << sorted[k] << "'";
}

void ExpectEqual(const std::string& a, const std::string& b) {
    EXPECT_FALSE(ComesBefore(a, b)) << a << ", " << b;
    EXPECT_FALSE(ComesBefore(b, a)) << a << ", " << b;
}

}  // namespace

TEST(NaturalOrderTest, NumbersCompareByTheirValue) {
    ExpectOrder({"Bin 1", "Bin 2", "Bin 9", "Bin 10", "Bin 11", "Bin 20", "Bin 100"});
    ExpectOrder({"1", "1-2", "1-10", "2", "10a", "10b", "A", "A1B2", "A1B10", "A2"});
    ExpectOrder({"9", "99999999999999999999", "100000000000000000000"});
}

TEST(NaturalOrderTest, CaseDoesNotMatter) {
    ExpectOrder({"annex", "Box", "court", "Desk"});
    ExpectEqual("SHELF a", "shelf A");
    ExpectOrder({"[", "a", "Z", "{"});
}

TEST(NaturalOrderTest, LeadingZerosDoNotMatter) {
    ExpectEqual("Bin 007", "Bin 7");
    ExpectEqual("0", "000");
    ExpectOrder({"Bin 0", "Bin 01", "Bin 2"});
    ExpectOrder({"x00a", "x00b", "x1"});
}

TEST(NaturalOrderTest, APrefixComesFirstAndOtherScriptsFollow) { ExpectOrder({"", "Row", "Row 1", "Z", "\xC3\x84"}); }

TEST(NaturalOrderTest, AnyTextsAreSortedConsistently) {
    std::mt19937 random(7);
    Texts texts;
    for (int i = 0; i < 300; ++i) {
        std::string text(random() % 6, ' ');
        for (char& c : text) c = "0019aAbB -"[random() % 10];
        texts.push_back(text);
    }
    std::sort(texts.begin(), texts.end(), ComesBefore);
    for (size_t i = 0; i < texts.size(); ++i)
        for (size_t k = i; k < texts.size(); ++k)
            EXPECT_FALSE(ComesBefore(texts[k], texts[i])) << "'" << texts[i] << "', '" << texts[k] << "'";
}
