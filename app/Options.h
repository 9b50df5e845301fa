#pragma once

#include "app/records/RecordAddress.h"
#include "base/Error.h"

#include <QStringList>

#include <cstdint>
#include <optional>
#include <string>

namespace quellbrook {

// The command line.
struct Options {
    std::optional<std::string> databasePath;  // of --database sqlite:PATH
    std::optional<std::string> server;        // the connection string of --database odbc:CONNECTION STRING
    bool create = false;
    bool sample = false;
    std::optional<std::string> user;
    std::optional<int32_t> size;
    std::optional<std::string> tourDirectory;
    std::optional<RecordAddress> record;
    std::optional<Error> refusedRecord;  // why the address of a record is refused; shown on the screen
    bool fresh = false;
    bool uncategorized = false;
    bool registerScheme = false;
    bool verify = false;
    bool repair = false;
    bool help = false;
};

// The first argument is the program's name. A value follows its option or "=". Error 5 with a sentence for arguments
// that are invalid or cannot be combined. Addresses come from a desktop, which shows no output of the program, so a
// wrong one raises no error here.
Options ParseOptions(const QStringList& arguments);

std::string HelpText();

}  // namespace quellbrook
