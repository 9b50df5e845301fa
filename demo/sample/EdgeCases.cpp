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
    {"", ", 東京駅の札付き"},
    {"", ", عليه كتابة"},
    {"", ", ετικέτα 7"},
    {"", ", Aufschrift \"Größe 3\""},
    {"", ", cafe\u0301 sticker \U0001F4E6"},
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
    {"", " 棚"},
    {"", " رف علوي"},
    {"", " <b>&</b>"},
    {"", " 100%_[x]*, the one behind the second door on the left that was renumbered in the spring"},
}};

std::string Framed(const Frame& frame, const std::string& text) { return frame.before + text + frame.behind; }

// Whether the position is one of every `every`, starting at `first`.
constexpr bool Comes(int32_t place, int32_t every, int32_t first) { return place % every == first; }

// The index of a position among `count` variants.
constexpr size_t Turn(int32_t place, int32_t every, size_t count) { return static_cast<size_t>(place / every) % count; }

}  // namespace

void AddEdgeCases(int32_t place, Property& property) {
    if (Comes(place, 31, 7)) {
        property.description =
            Framed(descriptionFrames[Turn(place, 31, descriptionFrames.size())], property.description);
    }
    if (Comes(place, 101, 5)) property.category.reset();
    if (Comes(place, 103, 8)) property.id.reset();
    if (Comes(place, 107, 11)) property.id = "";
    if (Comes(place, 109, 13)) property.id = "  " + property.id.value_or("") + " ";
    if (Comes(place, 113, 17)) property.quantity.reset();
    if (Comes(place, 127, 19)) property.quantity = 0;
    if (Comes(place, 131, 23)) property.quantity = 2.5;
    if (Comes(place, 137, 29)) property.quantity = 1500;
    if (Comes(place, 139, 31)) property.description.clear();
    if (Comes(place, 149, 37)) property.tagged = false;
    if (Comes(place, 151, 41)) {
        property.make = "D'Aumont & Söhne";
        property.model = "\"No. 9\"";
        property.serial = " 00-1 ";
    }
}

void AddEdgeCases(int32_t place, Vehicle& vehicle) {
    if (Comes(place, 23, 3)) vehicle.state.clear();
    if (Comes(place, 29, 5)) vehicle.tag.clear();
    if (Comes(place, 31, 8)) vehicle.category.reset();
    if (Comes(place, 37, 11)) vehicle.year = 0;
    if (Comes(place, 41, 13)) {
        vehicle.color.clear();
        vehicle.make.clear();
        vehicle.model.clear();
    }
    if (Comes(place, 43, 17)) {
        vehicle.make = "D'Aumont";
        vehicle.model = "\"Éclair\" 2%";
    }
    if (Comes(place, 47, 19)) vehicle.tagged = false;
}

std::string EdgeCaseName(int32_t place, const std::string& name) {
    if (!Comes(place, 11, 4)) return name;
    return Framed(nameFrames[Turn(place, 11, nameFrames.size())], name);
}

bool IsLinkedTwice(int32_t place) { return Comes(place, 19, 6); }

std::optional<Filing> FilingOf(int32_t place) {
    if (!Comes(place, 6, 0)) return std::nullopt;
    constexpr Filing filings[] = {Filing::One,    Filing::One, Filing::One,      Filing::Several, Filing::One,
                                  Filing::NoMain, Filing::One, Filing::NoFolder, Filing::One,     Filing::Gone};
    return filings[Turn(place, 6, std::size(filings))];
}

void AddEdgeCasePersons(int32_t place, std::vector<Custody>& chain) {
    if (!Comes(place, 17, 9)) return;
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
