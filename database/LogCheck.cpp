#include "database/LogCheck.h"

#include "database/PageCheck.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <vector>

namespace quellbrook {

namespace {

constexpr size_t logHeaderSize = 32, frameHeaderSize = 24;
constexpr size_t saltSize = 8, saltInLogHeader = 16, saltInFrameHeader = 8;
constexpr size_t cookieInFirstPage = 40;
constexpr unsigned char tableLeaf = 13;

using Bytes = std::vector<unsigned char>;

uint32_t NumberAt(const Bytes& bytes, size_t offset, size_t length) {
    uint32_t number = 0;
    for (size_t i = 0; i < length; ++i) number = number << 8 | bytes.at(offset + i);
    return number;
}

// A number of the file format: seven bits in each byte but the ninth.
int64_t VariableNumber(const Bytes& bytes, size_t& offset) {
    uint64_t number = 0;
    for (int i = 0; i < 9; ++i) {
        const unsigned char byte = bytes.at(offset++);
        if (i == 8) return static_cast<int64_t>(number << 8 | byte);
        number = number << 7 | (byte & 0x7Fu);
        if (byte < 0x80) break;
    }
    return static_cast<int64_t>(number);
}

// The greatest key of a table with one page; nothing if the page is not that of such a table.
std::optional<int64_t> LastKeyOf(const Bytes& page) {
    const uint32_t cells = NumberAt(page, 3, 2);
    if (page.at(0) != tableLeaf || cells == 0) return std::nullopt;
    size_t offset = NumberAt(page, 8 + 2 * (static_cast<size_t>(cells) - 1), 2);
    VariableNumber(page, offset);  // the size of the row
    return VariableNumber(page, offset);
}

struct MarkState {
    uint32_t schemaCookie;
    uint32_t markPage;
    uint32_t pageSize;
    int64_t lastMark;
};

SQLite::Database OpenWithoutLog(const std::string& path) {
    std::string address = "file://";
    for (const char c : std::filesystem::absolute(path).string()) {
        if (c == '?' || c == '#' || c == '%') {
            constexpr const char* digits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(c);
            address += {'%', digits[byte >> 4], digits[byte & 15]};
        } else {
            address += c;
        }
    }
    return SQLite::Database(address + "?immutable=1", SQLite::OPEN_READONLY | SQLite::OPEN_URI);
}

MarkState StateWithoutLog(const std::string& path) {
    SQLite::Database database = OpenWithoutLog(path);
    return {database.execAndGet("PRAGMA schema_version").getUInt(),
            database.execAndGet("SELECT rootpage FROM sqlite_schema WHERE name = 'BatchMark'").getUInt(),
            database.execAndGet("PRAGMA page_size").getUInt(),
            database.execAndGet("SELECT COALESCE(MAX(MarkNo), 0) FROM BatchMark").getInt64()};
}

bool Read(std::ifstream& stream, Bytes& bytes) {
    return static_cast<bool>(stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<long>(bytes.size())));
}

// The mark of the first batch in the log.
std::optional<int64_t> FirstMarkInLog(const std::string& path, const MarkState& file) {
    std::ifstream log(path + "-wal", std::ios::binary);
    Bytes header(logHeaderSize), frame(frameHeaderSize), page(file.pageSize);
    if (!Read(log, header)) return std::nullopt;
    while (Read(log, frame) && Read(log, page)) {
        const auto salt = frame.begin() + saltInFrameHeader;
        const bool isOfThisLog = std::equal(salt, salt + saltSize, header.begin() + saltInLogHeader);
        if (!isOfThisLog) break;
        const uint32_t pageNumber = NumberAt(frame, 0, 4);
        const bool changesSchema = pageNumber == 1 && NumberAt(page, cookieInFirstPage, 4) != file.schemaCookie;
        if (changesSchema) break;  // it may have moved the marks to another page
        if (pageNumber == file.markPage) return LastKeyOf(page);
    }
    return std::nullopt;
}

bool ReadsLikeLogOfAnotherFile(const std::string& path) {
    try {
        const MarkState file = StateWithoutLog(path);
        const std::optional<int64_t> firstMark = FirstMarkInLog(path, file);
        return firstMark && *firstMark > file.lastMark + 1;
    } catch (const std::exception&) {
        return false;  // without such a table, or damaged, which is reported elsewhere
    }
}

}  // namespace

// Another program may move its log into the file between the two reads, but not each time.
bool HasLogOfAnotherFile(const std::string& path) {
    for (int tries = 0; tries < 3; ++tries)
        if (!ReadsLikeLogOfAnotherFile(path)) return false;
    return true;
}

bool IsWholeWithoutLog(const std::string& path) {
    try {
        SQLite::Database database = OpenWithoutLog(path);
        return IsFileSound(database);
    } catch (const SQLite::Exception&) {
        return false;
    }
}

}  // namespace quellbrook
