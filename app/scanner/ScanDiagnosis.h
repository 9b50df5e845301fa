#pragma once

#include <string>
#include <vector>

namespace quellbrook {

// A key as a scanner pressed it: by the character it gave, or by its name where it gives none.
struct ScannedKey {
    char32_t character = 0;
    std::string name;  // "F2"; only without a character

    bool operator==(const ScannedKey&) const = default;
};

enum class ScanVerdict {
    AsItShouldBe,
    Works,        // the program reads it, though something could be better
    NeedsChange,  // the program does not read it, or reads more than the barcode
    TypedByHand   // no scan at all, as far as can be told
};

// What may be said of a scanner by what it typed in one go.
struct ScanDiagnosis {
    ScanVerdict verdict = ScanVerdict::AsItShouldBe;
    std::string reading;                 // all keys, those that can't be seen by their names: "<STX>P0000004711<ETX>"
    std::string meaning;                 // what the program understands, "Property, number 4711"; empty for nothing
    std::vector<std::string> sentences;  // at least one: what is wrong and what to change, what matters most first
};

// A barcode of this program is STX, a type letter, ten digits, ETX.
ScanDiagnosis DiagnoseScan(const std::vector<ScannedKey>& keys);

// The keys one by one, readable. Characters that can't be seen on the screen by their names or numbers.
std::string ReadingOf(const std::vector<ScannedKey>& keys);

}  // namespace quellbrook
