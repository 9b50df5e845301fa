#include "demo/sample/EdgeCases.h"

#include "demo/sample/Codes.h"

#include <array>

namespace quellbrook::sample {

namespace {

struct Frame {
    const char* before;
    const char* behind;
};

constexpr std::array<Frame, 14> descriptionFrames = {{
    {"", ", owner's name inside"},
    {"\"", "\", as written by the finder"},
    {"   ", "  "},
    {"", ", надпись «Привет»"},
    {"", ", étiquette nº 12"},
    {"", ", z naklejką „Łódź”"},
    {"", ", ετικέτα 7"},
    {"", ", Aufschrift \"Größe 3\""},
    {"", ", cafe\u0301 sticker"},
    {"<b>", "</b> & co. <img src=x>"},
    {"", ", 100% [a_b] c*d e\\f"},
    {"", ", line one\r\nline two"},
    {"", "; {0} -- /* %s */ ?"},
    {"",
     ", found under the seat together with a receipt, two tickets, a folded map with pencil marks along the coast "
     "road, "
     "a pair of reading glasses and a note that lists seventeen further objects, each of which has a number of its own "
     "and is described there at the same length as this one"},
}};

constexpr std::array<Frame, 9> nameFrames = {{
    {"", " \"oversize\""},
    {"  ", " "},
    {"", " (O'Dowd's)"},
    {"", " – Übergröße"},
    {"Полка: ", ""},
    {"", " ράφια"},
    {"", " – dolní police č. 4"},
    {"", " <b>&</b>"},
    {"", " 100%_[x]*, the one behind the second door on the left that was renumbered in the spring"},
}};

std::string Framed(const Frame& frame, const std::string& text) { return frame.before + text + frame.behind; }

// Whether the position is one of every `every`, starting at `first`.
constexpr bool Comes(int32_t index, int32_t every, int32_t first) { return index % every == first; }

// The index of a position among `count` variants.
constexpr size_t Turn(int32_t index, int32_t every, size_t count) { return static_cast<size_t>(index / every) % count; }

}  // namespace

void AddEdgeCases(int32_t index, Property& property) {
    if (Comes(index, 31, 7)) {
        property.description =
            Framed(descriptionFrames[Turn(index, 31, descriptionFrames.size())], property.description);
    }
    if (Comes(index, 101, 5)) property.category.reset();
    if (Comes(index, 103, 8)) property.id.reset();
    if (Comes(index, 107, 11)) property.id = "";
    if (Comes(index, 109, 13)) property.id = "  " + property.id.value_or("") + " ";
    if (Comes(index, 113, 17)) property.quantity.reset();
    if (Comes(index, 127, 19)) property.quantity = 0;
    if (Comes(index, 131, 23)) property.quantity = 2.5;
    if (Comes(index, 137, 29)) property.quantity = 1500;
    if (Comes(index, 139, 31)) property.description.clear();
    if (Comes(index, 149, 37)) property.tagged = false;
    if (Comes(index, 151, 41)) {
        property.make = "D'Aumont & Söhne";
        property.model = "\"No. 9\"";
        property.serial = " 00-1 ";
    }
}

void AddEdgeCases(int32_t index, Vehicle& vehicle) {
    if (Comes(index, 23, 3)) vehicle.state.clear();
    if (Comes(index, 29, 5)) vehicle.tag.clear();
    if (Comes(index, 31, 8)) vehicle.category.reset();
    if (Comes(index, 37, 11)) vehicle.year = 0;
    if (Comes(index, 41, 13)) {
        vehicle.color.clear();
        vehicle.make.clear();
        vehicle.model.clear();
    }
    if (Comes(index, 43, 17)) {
        vehicle.make = "D'Aumont";
        vehicle.model = "\"Éclair\" 2%";
    }
    if (Comes(index, 47, 19)) vehicle.tagged = false;
}

std::string EdgeCaseName(int32_t index, const std::string& name) {
    if (!Comes(index, 11, 4)) return name;
    return Framed(nameFrames[Turn(index, 11, nameFrames.size())], name);
}

bool IsLinkedTwice(int32_t index) { return Comes(index, 19, 6); }

std::optional<Filing> FilingOf(int32_t index) {
    if (!Comes(index, 6, 0)) return std::nullopt;
    constexpr Filing filings[] = {Filing::One,    Filing::One, Filing::One,      Filing::Several, Filing::One,
                                  Filing::NoMain, Filing::One, Filing::NoFolder, Filing::One,     Filing::Gone};
    return filings[Turn(index, 6, std::size(filings))];
}

void AddEdgeCasePersons(int32_t index, std::vector<Custody>& chain) {
    if (!Comes(index, 17, 9)) return;
    const auto rename = [](std::optional<int32_t>& person) {
        if (!person) return;
        for (const StandIn& standIn : EdgeCaseStandIns()) {
            if (*person == standIn.forPerson) person = standIn.person.no;
        }
    };
    for (Custody& custody : chain) {
        rename(custody.receivedBy);
        rename(custody.receivedFrom);
    }
}

}  // namespace quellbrook::sample
