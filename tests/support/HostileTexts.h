#pragma once

#include <string>
#include <vector>

namespace quellbrook::testing {

struct HostileText {
    const char* description;
    std::string text;
};

// Texts that a custodian can type or paste and that a careless program misinterprets. All differ, even when case is
// ignored.
inline const std::vector<HostileText>& HostileTexts() {
    static const std::vector<HostileText> texts = {
        {"one quote", "'"},
        {"quotes", "O'Neil's \"best\" `shelf` ''"},
        {"a quote at the end", "Shelf'"},
        {"percent", "50% off%"},
        {"underscores", "a_b__c"},
        {"an opening bracket", "[shelf"},
        {"brackets", "[a-z] ]["},
        {"backslashes", "C:\\room\\"},
        {"a backslash before a quote", "\\'"},
        {"a star", "aisle * 5"},
        {"a comment", "x'; DELETE FROM StorageLocation; --"},
        {"a block comment", "/* shelf */"},
        {"markers", "? ?1 :name @x $y #z"},
        {"a template's place", "{0} and {0}No {1}"},
        {"a path", "/0/1/"},
        {"markup", "<b>Box</b> &amp; <![CDATA[x]]>"},
        {"line ends", "first\r\nsecond\rthird\nfourth"},
        {"a tab", "left\tright"},
        {"blanks at both ends", "  Box  "},
        {"control characters", "\x01\x02\x1b[31m\x7f"},
        {"accents",
         "\xC3\x9C"
         "bergabe \xC3\xA9t\xC3\xA9 \xD0\xA1\xD0\xBA\xD0\xBB\xD0\xB0\xD0\xB4"},
        {"combining characters", "e\xCC\x81"},
        {"characters outside the basic plane", "\xF0\x9F\x9A\x97 \xF0\x9D\x95\x8A \xF0\xA0\x80\x80"},
        {"text from right to left",
         "\xD9\x85\xD8\xAE\xD8\xB2\xD9\x86 \xE2\x80\xAE"
         "abc"},
        {"the word NULL", "NULL"},
        {"10,000 characters", std::string(10000, 'x')},
        {"10,000 quotes", std::string(10000, '\'')},
        {"10,000 brackets", std::string(10000, '[')},
    };
    return texts;
}

inline std::string TextWithNul() { return std::string("before\0after", 12); }
inline constexpr const char* NulRefusal = "A text with a NUL character can't be stored or searched for.";

}  // namespace quellbrook::testing
