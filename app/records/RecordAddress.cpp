#include "app/records/RecordAddress.h"

#include "base/Error.h"
#include "base/Text.h"

#include <charconv>

namespace quellbrook {

namespace {

constexpr size_t longestQuote = 60;

struct Module {
    RecordKind kind;
    std::string_view word;
};
constexpr Module modules[] = {{RecordKind::Property, "miproperty"}, {RecordKind::Vehicle, "mivehicle"}};

std::string BeginningOf(std::string_view module) {
    return std::string(RecordScheme) + "://" + std::string(module) + "/";
}

bool StartsWithNoCase(std::string_view text, std::string_view beginning) {
    return text.size() >= beginning.size() && EqualsNoCase(text.substr(0, beginning.size()), beginning);
}

std::string Quoted(std::string_view text) {
    std::string quoted;
    for (const char c : text.substr(0, longestQuote)) quoted += c >= ' ' && c <= '~' ? c : '?';
    return "'" + quoted + (text.size() > longestQuote ? "..." : "") + "'";
}

[[noreturn]] void Refuse(std::string_view text) {
    Raise(ErrorNumber::General, "ParseRecordAddress",
          Quoted(text) + " is not the address of a record. Write " + BeginningOf(modules[0].word) + "open/NUMBER or " +
              BeginningOf(modules[1].word) + "open/NUMBER, with a number from 1 to 2147483647.");
}

// 0 for a text that is not a record number.
int32_t NumberOf(std::string_view digits) {
    if (digits.empty() || digits.front() < '1' || digits.front() > '9') return 0;
    int32_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, failure] = std::from_chars(digits.data(), end, number);
    return failure == std::errc() && rest == end ? number : 0;
}

}  // namespace

std::string RecordAddress::ToText() const {
    const Module& module = modules[kind == RecordKind::Property ? 0 : 1];
    return BeginningOf(module.word) + "open/" + std::to_string(number);
}

RecordAddress ParseRecordAddress(std::string_view text) {
    constexpr std::string_view operation = "open/";
    for (const Module& module : modules) {
        const std::string beginning = BeginningOf(module.word);
        if (!StartsWithNoCase(text, beginning)) continue;
        std::string_view rest = text.substr(beginning.size());
        if (!rest.starts_with(operation)) break;
        rest.remove_prefix(operation.size());
        if (rest.ends_with('/')) rest.remove_suffix(1);
        if (const int32_t number = NumberOf(rest)) return {module.kind, number};
        break;
    }
    Refuse(text);
}

bool HasRecordScheme(std::string_view text) { return StartsWithNoCase(text, std::string(RecordScheme) + ":"); }

}  // namespace quellbrook
