#include "app/scanner/ScanDiagnosis.h"

#include "base/FormatCount.h"
#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <optional>
#include <span>

namespace quellbrook {

namespace {

using Keys = std::span<const ScannedKey>;

constexpr char32_t Stx = 2, Etx = 3;
constexpr size_t NumberLength = 10;
constexpr size_t ShortestScan = 4;  // fewer keys may come from pressing two at once

constexpr std::string_view SetStart =
    "Let the scanner send control characters as Ctrl and a letter, or set its prefix to STX (Ctrl+B, ASCII 2).";
constexpr std::string_view SetEnd =
    "Let the scanner send control characters as Ctrl and a letter, or set its suffix to ETX (Ctrl+C, ASCII 3).";
constexpr std::string_view CtrlWasLost =
    "The Ctrl key was lost. A remote desktop or a terminal program may intercept it.";
constexpr std::string_view SetLayout = "Set the scanner's keyboard layout to the one of this computer.";

bool IsStx(const ScannedKey& key) { return key.character == Stx; }
bool IsEtx(const ScannedKey& key) { return key.character == Etx; }
bool IsDigit(const ScannedKey& key) { return key.character >= U'0' && key.character <= U'9'; }

// A key that enters no text.
bool IsControl(const ScannedKey& key) {
    return key.character < U' ' || (key.character >= 0x7F && key.character < 0xA0);
}

// Control characters, special blanks, invisible marks and characters without a glyph.
bool IsUnseen(char32_t c) {
    return c < U' ' || (c >= 0x7F && c <= 0xA0) || c == 0xAD || c == 0x61C || (c >= 0x2000 && c <= 0x200F) ||
           (c >= 0x2028 && c <= 0x202F) || (c >= 0x205F && c <= 0x206F) || (c >= 0xD800 && c <= 0xF8FF) ||
           c == 0xFEFF || (c >= 0xFFF0 && c <= 0xFFFF) || c >= 0xE0000;
}

std::string NameOf(char32_t c) {
    static const char* const controls[] = {"NUL",       "SOH", "STX", "ETX", "EOT", "ENQ",   "ACK", "BEL",
                                           "Backspace", "Tab", "LF",  "VT",  "FF",  "Enter", "SO",  "SI",
                                           "DLE",       "DC1", "DC2", "DC3", "DC4", "NAK",   "SYN", "ETB",
                                           "CAN",       "EM",  "SUB", "Esc", "FS",  "GS",    "RS",  "US"};
    if (c < std::size(controls)) return controls[c];
    if (c == 0x7F) return "DEL";
    char number[16];
    std::snprintf(number, sizeof number, "U+%04X", static_cast<unsigned>(c));
    return number;
}

std::string Readable(Keys keys) {
    std::string text;
    for (const ScannedKey& key : keys) {
        if (key.character == 0 && !key.name.empty())
            text += "<" + key.name + ">";
        else if (IsUnseen(key.character))
            text += "<" + NameOf(key.character) + ">";
        else
            AppendUtf8(text, key.character);
    }
    return text;
}

// The type letter in upper case; nothing for any other key.
std::optional<char> TypeLetterOf(const ScannedKey& key) {
    switch (key.character) {
    case U'L':
    case U'l': return 'L';
    case U'P':
    case U'p': return 'P';
    case U'V':
    case U'v': return 'V';
    default: return std::nullopt;
    }
}

const char* KindOf(char typeLetter) {
    switch (typeLetter) {
    case 'L': return "Storage location";
    case 'P': return "Property";
    default: return "Vehicle";
    }
}

bool BeginsWithBarcode(Keys keys) { return keys.size() > 1 && TypeLetterOf(keys[0]) && IsDigit(keys[1]); }

// The parts of a reading. Without STX or ETX, whatever replaces them is in `front` or `behind`.
struct Parts {
    Keys front, barcode, behind;
    bool hasStart = false, hasEnd = false;
};

// The number of leading keys that cannot belong to the barcode.
size_t LengthOfFront(Keys keys) {
    for (size_t i = 0; i < keys.size(); ++i)
        if (BeginsWithBarcode(keys.subspan(i))) return i;
    return static_cast<size_t>(std::find_if_not(keys.begin(), keys.end(), IsControl) - keys.begin());
}

// The length of the barcode if no ETX ends it.
size_t LengthOfBarcode(Keys keys) {
    if (BeginsWithBarcode(keys)) {
        const auto end = std::find_if_not(keys.begin() + 1, keys.end(), IsDigit);
        if (std::none_of(end, keys.end(), IsDigit)) return static_cast<size_t>(end - keys.begin());
    }
    const auto last = std::find_if_not(keys.rbegin(), keys.rend(), IsControl);
    return static_cast<size_t>(keys.rend() - last);
}

// Finds the first barcode that the program would accept, where a later STX restarts it, or the closest match.
Parts TakeApart(Keys keys) {
    std::optional<size_t> start, end;
    for (size_t i = 0; i < keys.size() && !end; ++i) {
        if (IsStx(keys[i])) start = i;
        if (IsEtx(keys[i]) && start) end = i;
    }
    Parts parts;
    parts.hasStart = start.has_value();
    if (!start) {
        const auto etx = std::find_if(keys.begin(), keys.end(), IsEtx);
        if (etx != keys.end()) end = static_cast<size_t>(etx - keys.begin());
    }
    parts.hasEnd = end.has_value();
    const Keys before = keys.first(end.value_or(keys.size()));
    const size_t frontLength = start ? *start : LengthOfFront(before);
    const Keys rest = before.subspan(frontLength + (start ? 1 : 0));
    const size_t length = end ? rest.size() : LengthOfBarcode(rest);
    parts.front = keys.first(frontLength);
    parts.barcode = rest.first(length);
    parts.behind = end ? keys.subspan(*end + 1) : rest.subspan(length);
    return parts;
}

bool IsPlainLetter(Keys keys, char32_t lower, char32_t upper) {
    return keys.size() == 1 && (keys[0].character == lower || keys[0].character == upper);
}

class Judge {
public:
    explicit Judge(Keys keys) : m_parts(TakeApart(keys)) {
        JudgeFront();
        JudgeBehind();
        if (m_parts.barcode.empty()) {
            Fault("It contains no barcode.");
        } else {
            JudgeTypeLetter();
            JudgeNumber();
        }
        if (m_isDoubled)
            m_notes.push_back(
                "STX or ETX came twice, from the barcode and from the scanner's prefix or suffix. This "
                "works, but this scanner needs no prefix and no suffix.");
    }

    ScanVerdict Verdict() const {
        if (!m_faults.empty()) return ScanVerdict::NeedsChange;
        return m_notes.empty() ? ScanVerdict::Correct : ScanVerdict::Works;
    }

    std::string Meaning() const {
        if (!m_parts.hasStart || !m_parts.hasEnd || !m_typeLetter || !m_number) return {};
        return std::string(KindOf(*m_typeLetter)) + ", number " + std::to_string(*m_number);
    }

    std::vector<std::string> Sentences() const {
        std::vector<std::string> sentences = m_faults;
        sentences.insert(sentences.end(), m_notes.begin(), m_notes.end());
        if (sentences.empty()) sentences.push_back("This scanner is set up correctly.");
        return sentences;
    }

private:
    void Fault(std::string sentence, std::string_view remedy = {}) {
        if (!remedy.empty()) sentence.append(1, ' ').append(remedy);
        m_faults.push_back(std::move(sentence));
    }

    void JudgeFront() {
        const Keys front = m_parts.front;
        if (m_parts.hasStart) {
            if (std::all_of(front.begin(), front.end(), IsStx))
                m_isDoubled = m_isDoubled || !front.empty();
            else
                Fault(Readable(front) + " came before STX.", "Remove it from the scanner's prefix.");
        } else if (front.empty()) {
            Fault("STX is missing before the barcode.", SetStart);
        } else {
            Fault(Readable(front) + " came before the barcode instead of STX.",
                  IsPlainLetter(front, U'b', U'B') ? CtrlWasLost : SetStart);
        }
    }

    void JudgeBehind() {
        Keys behind = m_parts.behind;
        if (!m_parts.hasEnd) {
            if (behind.empty()) return Fault("ETX is missing after the barcode.", SetEnd);
            return Fault(Readable(behind) + " came after the barcode instead of ETX.",
                         IsPlainLetter(behind, U'c', U'C') ? CtrlWasLost : SetEnd);
        }
        while (!behind.empty() && IsEtx(behind.front())) {
            m_isDoubled = true;
            behind = behind.subspan(1);
        }
        if (std::any_of(behind.begin(), behind.end(), IsStx))
            Fault("More characters came after ETX, with another STX.",
                  "Scan one barcode at a time. If one scan does this, the scanner sends more than the barcode.");
        else if (!behind.empty())
            Fault(Readable(behind) + " came after ETX.",
                  "Remove it from the scanner's suffix. The program ignores it only within 0.1 seconds.");
    }

    void JudgeTypeLetter() {
        const ScannedKey& key = m_parts.barcode[0];
        m_typeLetter = TypeLetterOf(key);
        if (m_typeLetter) {
            if (key.character != static_cast<char32_t>(*m_typeLetter))
                m_notes.push_back(
                    "The type letter is lower-case. The program reads it anyway. Caps "
                    "Lock may be on, or the scanner changes the case of letters.");
        } else if (IsDigit(key)) {
            Fault(
                "The type letter is missing before the number. The barcode is not from this program, or the "
                "scanner is set to omit the first character.");
        } else {
            const std::string sentence = "The type letter " + Readable(m_parts.barcode.first(1)) +
                                         " is unknown. Barcodes of this program begin with L, P or V.";
            Fault(sentence, key.character >= 0x80 ? SetLayout : std::string_view());
        }
    }

    void JudgeNumber() {
        const Keys number = IsDigit(m_parts.barcode[0]) ? m_parts.barcode : m_parts.barcode.subspan(1);
        if (number.empty()) return Fault("There is no number after the type letter.");
        std::vector<ScannedKey> strange;
        for (const ScannedKey& key : number) {
            const bool isNew = std::find(strange.begin(), strange.end(), key) == strange.end();
            if (!IsDigit(key) && isNew) strange.push_back(key);
        }
        if (std::any_of(strange.begin(), strange.end(), IsControl))
            return Fault(Readable(strange) + " came in the middle of the barcode.",
                         "Remove it from the characters that the scanner adds.");
        if (!strange.empty())
            return Fault("The number contains characters other than digits: " + Readable(strange) + ".", SetLayout);
        JudgeDigits(Readable(number));
    }

    void JudgeDigits(const std::string& digits) {
        if (digits.size() != NumberLength)
            Fault("The number has " + FormatCount(static_cast<int64_t>(digits.size()), "%d digit", "%d digits") +
                      " instead of 10.",
                  "If keys are lost or doubled, let the scanner wait a few milliseconds between "
                  "characters.");
        int64_t number = 0;
        for (const char digit : digits) number = std::min<int64_t>(number * 10 + (digit - '0'), int64_t{1} << 40);
        if (number > std::numeric_limits<int32_t>::max())
            return Fault("The number is too large for this program. This is the barcode of something else.");
        m_number = static_cast<int32_t>(number);
    }

    Parts m_parts;
    std::optional<char> m_typeLetter;
    std::optional<int32_t> m_number;
    bool m_isDoubled = false;
    std::vector<std::string> m_faults, m_notes;
};

bool LooksTyped(const std::vector<ScannedKey>& keys) {
    if (keys.size() < 2) return true;
    const auto isFrame = [](const ScannedKey& key) { return IsStx(key) || IsEtx(key); };
    return keys.size() < ShortestScan && std::none_of(keys.begin(), keys.end(), isFrame);
}

}  // namespace

ScanDiagnosis DiagnoseScan(const std::vector<ScannedKey>& keys) {
    ScanDiagnosis diagnosis;
    diagnosis.reading = Readable(keys);
    if (LooksTyped(keys)) {
        diagnosis.verdict = ScanVerdict::TypedByHand;
        diagnosis.sentences = {
            "This looks like typing, not like a scan. If it was a scan, the scanner waits "
            "too long between characters. Set that delay to a few milliseconds at most."};
        return diagnosis;
    }
    const Judge judge(keys);
    diagnosis.verdict = judge.Verdict();
    diagnosis.meaning = judge.Meaning();
    diagnosis.sentences = judge.Sentences();
    return diagnosis;
}

}  // namespace quellbrook
