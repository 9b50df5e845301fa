// Rewrites and normalizes any text. The first byte selects the first words, to reach the rest of the grammar.

#include "fuzz/TransactSqlChecks.h"

#include <cstdint>

namespace {

constexpr const char* beginnings[] = {
    "",
    "SELECT ",
    "SELECT Value FROM Setting WHERE ",
    "SELECT Value FROM Setting WHERE Name='x'",
    "SELECT Value FROM Setting WHERE Name LIKE ",
    "SELECT Value FROM Setting WHERE Name LIKE 'x' ESCAPE '",
    "UPDATE Property SET Description=",
    "INSERT INTO Setting (Name,Value) VALUES (",
    "DECLARE @x INT;SELECT @x = MAX(a)+1 FROM t WHERE b=7 GROUP BY b;UPDATE #Next SET Value=@x,b="};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const std::string beginning = beginnings[data[0] % std::size(beginnings)];
    quellbrook::fuzz::CheckText(beginning + std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
    return 0;
}
