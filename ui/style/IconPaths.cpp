#include "ui/style/IconPaths.h"

#include <array>

namespace quellbrook {

namespace {

struct Entry {
    std::string_view name;
    std::string_view path;
};

constexpr std::array Entries = {
    Entry{"location",
          "M6 3.5h12A1.5 1.5 0 0 1 19.5 5v14a1.5 1.5 0 0 1-1.5 1.5H6A1.5 1.5 0 0 1 4.5 19V5A1.5 1.5 0 0 1 6 3.5"
          "zM4.5 12h15M10.3 7.8h3.4M10.3 16.2h3.4"},
    Entry{"empty_location",
          "M6 3.5h12A1.5 1.5 0 0 1 19.5 5v14a1.5 1.5 0 0 1-1.5 1.5H6A1.5 1.5 0 0 1 4.5 19V5A1.5 1.5 0 0 1 6 3.5"
          "zM4.5 12h15"},
    Entry{"sign_in", "M14 4h4.5A1.5 1.5 0 0 1 20 5.5v13a1.5 1.5 0 0 1-1.5 1.5H14M3.5 12H14M9.8 7.8 14 12l-4.2 4.2"},
    Entry{"sign_out", "M10 4H5.5A1.5 1.5 0 0 0 4 5.5v13A1.5 1.5 0 0 0 5.5 20H10M10 12h10.5M16.3 7.8l4.2 4.2-4.2 4.2"},
    Entry{"dispose",
          "M4 9h16v9.5a1.5 1.5 0 0 1-1.5 1.5h-13A1.5 1.5 0 0 1 4 18.5zM4 9l2.2-5h11.6L20 9M9.9 12.4l4.2 4.2"
          "M14.1 12.4l-4.2 4.2"},
    Entry{"other", "M12 3.5a8.5 8.5 0 1 1 0 17 8.5 8.5 0 0 1 0-17zM8 12h.01M12 12h.01M16 12h.01"},
    Entry{"uncategorized",
          "M4 8V5.5A1.5 1.5 0 0 1 5.5 4H8M16 4h2.5A1.5 1.5 0 0 1 20 5.5V8M20 16v2.5a1.5 1.5 0 0 1-1.5 1.5H16"
          "M8 20H5.5A1.5 1.5 0 0 1 4 18.5V16M9.7 9.9a2.4 2.4 0 1 1 3.6 2.1c-.9.5-1.3 1-1.3 1.9M12 16.7h.01"},
    Entry{"tag",
          "M12.6 3.8h6.2a1.4 1.4 0 0 1 1.4 1.4v6.2a1.6 1.6 0 0 1-.46 1.1l-7.2 7.2a1.6 1.6 0 0 1-2.24 0L4.3 13.7"
          "a1.6 1.6 0 0 1 0-2.24l7.2-7.2a1.6 1.6 0 0 1 1.1-.46zM15.9 8.1h.01"},
    Entry{"move", "M3.5 8.5h12.8M13 5l3.5 3.5L13 12M20.5 15.5H7.7M11 12l-3.5 3.5L11 19"},
    Entry{"check", "M5 12.6l4.6 4.6L19 7.4"},
    Entry{"print",
          "M7 8.5V4h10v4.5M7 17H5.5A1.5 1.5 0 0 1 4 15.5V10a1.5 1.5 0 0 1 1.5-1.5h13A1.5 1.5 0 0 1 20 10v5.5"
          "a1.5 1.5 0 0 1-1.5 1.5H17M7 14h10v6H7zM16.6 11.4h.01"},
    Entry{"edit", "M4.5 19.5l1-4.2L15.6 5.2a1.6 1.6 0 0 1 2.2 0l1 1a1.6 1.6 0 0 1 0 2.2L8.7 18.5zM13.6 7.2l3.2 3.2"},
    Entry{"delete",
          "M4.5 6.8h15M9.3 6.8V5a1 1 0 0 1 1-1h3.4a1 1 0 0 1 1 1v1.8M6.4 6.8l.8 11.8A1.5 1.5 0 0 0 8.7 20h6.6"
          "a1.5 1.5 0 0 0 1.5-1.4l.8-11.8M10.2 10.6v5.6M13.8 10.6v5.6"},
    Entry{"add", "M12 5v14M5 12h14"},
    Entry{"search", "M10.5 4a6.5 6.5 0 1 1 0 13 6.5 6.5 0 0 1 0-13zM15.3 15.3 20 20"},
    Entry{"close", "M6.5 6.5l11 11M17.5 6.5l-11 11"},
    Entry{"vehicle",
          "M4.8 17H4a1.2 1.2 0 0 1-1.2-1.2V7A1.2 1.2 0 0 1 4 5.8h9.8V17H9.2M13.8 9.5h3.7l3.7 3.9V17h-2M7 15"
          "a2.1 2.1 0 1 1 0 4.2A2.1 2.1 0 0 1 7 15zM17 15a2.1 2.1 0 1 1 0 4.2 2.1 2.1 0 0 1 0-4.2zM14.9 17h-1.1"},
    Entry{"secured",
          "M6.6 10.5h10.8a1.3 1.3 0 0 1 1.3 1.3v6.9a1.3 1.3 0 0 1-1.3 1.3H6.6a1.3 1.3 0 0 1-1.3-1.3v-6.9"
          "a1.3 1.3 0 0 1 1.3-1.3zM8.4 10.5V7.6a3.6 3.6 0 0 1 7.2 0v2.9M12 14.3v1.9"},
    Entry{"error", "M8.5 3.5h7l5 5v7l-5 5h-7l-5-5v-7zM9 9l6 6M15 9l-6 6"},
    Entry{"warning",
          "M10.7 4.8 3 18.2A1.5 1.5 0 0 0 4.3 20.5h15.4a1.5 1.5 0 0 0 1.3-2.3L13.3 4.8a1.5 1.5 0 0 0-2.6 0z"
          "M12 9.6v4.6M12 17.2h.01"},
    Entry{"question",
          "M12 3.5a8.5 8.5 0 1 1 0 17 8.5 8.5 0 0 1 0-17zM9.4 9.6a2.6 2.6 0 1 1 3.9 2.3c-.9.5-1.3 1-1.3 2"
          "M12 16.6h.01"},
    Entry{"chevron", "M7 9.8l5 5 5-5"},
    Entry{"chevron_r", "M9.8 7l5 5-5 5"},
    Entry{"open",
          "M18 13.5v5a1.5 1.5 0 0 1-1.5 1.5h-11A1.5 1.5 0 0 1 4 18.5v-11A1.5 1.5 0 0 1 5.5 6h5M14 4h6v6M20 4"
          "l-9 9"},
    Entry{"basic",
          "M5.5 4h13A1.5 1.5 0 0 1 20 5.5v13a1.5 1.5 0 0 1-1.5 1.5h-13A1.5 1.5 0 0 1 4 18.5v-13"
          "A1.5 1.5 0 0 1 5.5 4zM8 8.5h8M8 12h8M8 15.5h5"},
    Entry{"identifiers", "M4 6v12M7.5 6v12M10.5 6v8.5M13.5 6v12M17 6v8.5M20 6v12"},
    Entry{"notes",
          "M6 4h12a1.2 1.2 0 0 1 1.2 1.2v9L13.5 20H6a1.2 1.2 0 0 1-1.2-1.2V5.2A1.2 1.2 0 0 1 6 4zM19.2 14.2"
          "h-4.5a1.2 1.2 0 0 0-1.2 1.2V20M8.5 9h7"},
    Entry{"box", "M4 9h16v9.5a1.5 1.5 0 0 1-1.5 1.5h-13A1.5 1.5 0 0 1 4 18.5zM4 9l2.2-5h11.6L20 9M10 13h4"},
};

}  // namespace

std::string_view IconPath(std::string_view name) {
    for (const Entry& entry : Entries)
        if (entry.name == name) return entry.path;
    return {};
}

std::vector<std::string_view> IconPathNames() {
    std::vector<std::string_view> names;
    for (const Entry& entry : Entries) names.push_back(entry.name);
    return names;
}

}  // namespace quellbrook
