#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace quellbrook::testing {
namespace {

struct Symbol {
    char kind;
    std::string name;
    bool operator<(const Symbol& other) const { return name < other.name; }
};

// What nm prints for the file: an address, a letter for the kind, a name.
std::vector<Symbol> SymbolsOf(const std::string& file, const std::string& options) {
    std::vector<Symbol> symbols;
    FILE* const nm = popen(("nm -C --defined-only " + options + " '" + file + "'").c_str(), "r");
    char* line = nullptr;
    size_t size = 0;
    while (nm && getline(&line, &size, nm) > 0) {
        const std::string text(line, std::char_traits<char>::length(line) - 1);
        const size_t kind = text.find(' ') + 1;
        symbols.push_back({text.at(kind), text.substr(kind + 2)});
    }
    free(line);
    EXPECT_EQ(nm ? pclose(nm) : -1, 0);
    return symbols;
}

bool IsStrong(const Symbol& symbol) { return symbol.kind == 'T' || symbol.kind == 'D' || symbol.kind == 'B'; }

std::vector<std::string> RecordedNames() {
    std::vector<std::string> names;
    std::ifstream file(QUELLBROOK_SOURCE_DIR "/tests/library/ExportedSymbols.txt");
    for (std::string line; std::getline(file, line);) names.push_back(line);
    return names;
}

TEST(ExportedSymbols, AreTheRecordedOnes) {
    std::set<std::string> names;
    for (const Symbol& symbol : SymbolsOf(QUELLBROOK_LIBRARY, "-D"))
        if (IsStrong(symbol)) names.insert(symbol.name);
    EXPECT_THAT(std::vector<std::string>(names.begin(), names.end()), ::testing::ContainerEq(RecordedNames()));
}

// The compiler decides which of the inline functions of a class become symbols.
TEST(ExportedSymbols, OthersAreInlineMembersAndTypesOfThisSystem) {
    for (const Symbol& symbol : SymbolsOf(QUELLBROOK_LIBRARY, "-D")) {
        if (IsStrong(symbol)) continue;
        EXPECT_TRUE(symbol.kind == 'W' || symbol.kind == 'V') << symbol.kind << " " << symbol.name;
        EXPECT_NE(symbol.name.find("quellbrook::"), std::string::npos) << symbol.name;
        EXPECT_FALSE(symbol.name.starts_with("std::")) << symbol.name;
    }
}

TEST(ExportedSymbols, TheReferenceHostHasNoCopyOfThem) {
    std::vector<Symbol> library = SymbolsOf(QUELLBROOK_LIBRARY, "-D"), program = SymbolsOf(QUELLBROOK_PROGRAM, "");
    for (std::vector<Symbol>* symbols : {&library, &program}) {
        symbols->erase(
            std::remove_if(symbols->begin(), symbols->end(), [](const auto& each) { return !IsStrong(each); }),
            symbols->end());
        std::sort(symbols->begin(), symbols->end());
    }
    std::vector<Symbol> twice;
    std::set_intersection(library.begin(), library.end(), program.begin(), program.end(), std::back_inserter(twice));
    for (const Symbol& symbol : twice)
        if (!symbol.name.starts_with('_')) ADD_FAILURE() << symbol.name;
    EXPECT_GT(program.size(), 100u);
}

}  // namespace
}  // namespace quellbrook::testing
