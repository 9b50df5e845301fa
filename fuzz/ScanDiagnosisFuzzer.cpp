// For any keys, the reading shows each of them in printable characters and there is at least one sentence. A valid
// barcode is recognized, and the meaning is the same as the program's.

#include "app/scanner/ScanDiagnosis.h"
#include "base/Error.h"
#include "base/Text.h"
#include "fuzz/Fail.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

using namespace quellbrook;
using quellbrook::fuzz::Check;

namespace {

using Keys = std::vector<ScannedKey>;

constexpr char32_t Stx = 2, Etx = 3;

// The scan that the program reads: the text between an STX and the next ETX. A later STX starts again.
std::string FirstScan(const Keys& keys) {
    std::string text;
    bool isScanning = false;
    for (const ScannedKey& key : keys) {
        if (key.character == Stx) {
            isScanning = true;
            text.clear();
        } else if (key.character == Etx && isScanning) {
            return text;
        } else if (isScanning) {
            AppendUtf8(text, key.character ? key.character : U'?');
        }
    }
    return {};
}

std::string ExpectedMeaning(const std::string& scan) {
    if (scan.size() < 2 || scan.find_first_not_of("0123456789", 1) != std::string::npos) return {};
    const std::string letter = FoldCase(scan.substr(0, 1));
    const char* kind = letter == FoldCase("L")   ? "Storage location"
                       : letter == FoldCase("P") ? "Property"
                       : letter == FoldCase("V") ? "Vehicle"
                                                 : nullptr;
    if (!kind) return {};
    try {
        return std::string(kind) + ", number " + std::to_string(ParseInt32(scan.substr(1)));
    } catch (const Error&) {
        return {};
    }
}

bool IsShown(const std::string& text) {
    return std::none_of(text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; });
}

void Read(const Keys& keys) {
    const ScanDiagnosis diagnosis = DiagnoseScan(keys);
    const std::string& reading = diagnosis.reading;
    Check(reading.size() >= keys.size(), "A key is missing", reading);
    Check(IsShown(reading), "The reading cannot be shown", reading);
    Check(!diagnosis.sentences.empty(), "There is no sentence", reading);
    for (const std::string& sentence : diagnosis.sentences)
        Check(!sentence.empty() && IsShown(sentence) && sentence.back() == '.', "A sentence cannot be shown", sentence);
    if (diagnosis.verdict == ScanVerdict::TypedByHand)
        Check(keys.size() < 4 && diagnosis.meaning.empty(), "A scan is taken for typing", reading);
    else
        Check(diagnosis.meaning == ExpectedMeaning(FirstScan(keys)), "Understood as something else", reading);
    const bool works = diagnosis.verdict == ScanVerdict::Correct || diagnosis.verdict == ScanVerdict::Works;
    Check(!works || !diagnosis.meaning.empty(), "There is neither a meaning nor a fault", reading);
    if (diagnosis.verdict == ScanVerdict::Correct)
        Check(keys.size() == 13 && keys.front().character == Stx && keys.back().character == Etx, "It is not", reading);
}

// Uses few characters, to reach valid barcodes quickly.
Keys FromFewCharacters(const uint8_t* data, size_t size) {
    static const char32_t characters[] = {Stx,   Etx,   U'P', U'l', U'V', U'0', U'4',   U'9',
                                          U'\r', U'\t', U'b', U'c', U'#', 0xE0, 0x202E, 0};
    Keys keys;
    for (size_t i = 0; i < size; ++i) {
        const char32_t character = characters[data[i] % std::size(characters)];
        keys.push_back(character ? ScannedKey{character, {}} : ScannedKey{0, "F2"});
    }
    return keys;
}

Keys FromBytes(const uint8_t* data, size_t size) {
    Keys keys;
    for (size_t i = 0; i + 2 < size; i += 3)
        keys.push_back({static_cast<char32_t>((data[i] << 16 | data[i + 1] << 8 | data[i + 2]) % 0x110000), {}});
    return keys;
}

Keys Framed(Keys keys) {
    keys.insert(keys.begin(), {Stx, {}});
    keys.push_back({Etx, {}});
    return keys;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Read(FromFewCharacters(data, size));
    Read(Framed(FromFewCharacters(data, size)));
    Read(FromBytes(data, size));
    Read(Framed(FromBytes(data, size)));
    return 0;
}
