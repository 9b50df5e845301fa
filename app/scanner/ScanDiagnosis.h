#pragma once

#include <string>
#include <vector>

namespace quellbrook {

// A key that a scanner sent: its character, or its name if it has no character.
struct ScannedKey {
    char32_t character = 0;
    std::string name;  // "F2"; only without a character

    bool operator==(const ScannedKey&) const = default;
};

enum class ScanVerdict {
    Correct,
    Works,        // the program reads it, but something could be better
    NeedsChange,  // the program does not read it, or receives more than the barcode
    TypedByHand   // probably not a scan
};

// The result for one burst of keys.
struct ScanDiagnosis {
    ScanVerdict verdict = ScanVerdict::Correct;
    std::string reading;                 // all keys, invisible ones by name: "<STX>P0000004711<ETX>"
    std::string meaning;                 // the result for the program, "Property, number 4711"; may be empty
    std::vector<std::string> sentences;  // at least one: what to change, most important first
};

// A barcode of this program is STX, a type letter, ten digits, ETX.
ScanDiagnosis DiagnoseScan(const std::vector<ScannedKey>& keys);

}  // namespace quellbrook
