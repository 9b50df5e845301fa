#pragma once

#include "app/records/RecordAddress.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quellbrook {

// What the command line asks for.
struct Options {
    std::optional<std::string> databasePath;  // of --database sqlite:PATH
    std::optional<std::string> user;
    std::optional<int32_t> size;
    std::optional<std::string> tourDirectory;
    std::optional<std::string> galleryDirectory;  // where to write the gallery's pictures
    std::optional<RecordAddress> record;          // the record to show
    bool fresh = false;
    bool gallery = false;
    bool registerScheme = false;
    bool help = false;
};

// Why the command line can't be followed: one sentence.
struct OptionError {
    std::string sentence;
};

// The arguments behind the program's name. A value stands behind its option or behind "="; the address of a record
// stands by itself.
std::variant<Options, OptionError> ParseOptions(const std::vector<std::string>& arguments);

std::string HelpText();

}  // namespace quellbrook
