#include "host/CodeTableLookup.h"

#include "base/Text.h"
#include "host/HostDatabase.h"
#include "host/PersonDirectory.h"

#include <algorithm>

namespace quellbrook {

namespace {

TaggedValue OfficerName(int32_t code) {
    const auto person = HostDatabase().QueryRow("SELECT LastName, FirstName FROM Person WHERE PersonNo = ?", {code});
    return person ? TaggedValue(PersonDirectory::NameOf(*person)) : TaggedValue(Null());
}

TaggedValue LookUp(const char* column, int16_t tableNumber, const TaggedValue& code) {
    if (code.HasNoValue()) return Null();
    if (tableNumber == CodeTable::Officers) return OfficerName(ToInt32(code));
    const std::string sql = std::string("SELECT ") + column + " FROM CodeTable WHERE TableNumber = ? AND Code = ?";
    const auto row = HostDatabase().QueryRow(sql, {tableNumber, ToInt32(code)});
    return row ? row->At(0) : TaggedValue(Null());
}

CodeEntry OfficerEntry(const Row& person) {
    const std::string title = ToTextOrEmpty(person.Value("Title"));
    const std::string name = PersonDirectory::NameOf(person);
    return {ToInt32(person.Value("PersonNo")), title.empty() ? name : name + " (" + title + ")"};
}

CodeEntry TableEntry(const Row& row) {
    const TaggedValue& description = row.Value("Description");
    return {ToInt32(row.Value("Code")), ToTextOrEmpty(description.IsNull() ? row.Value("Name") : description)};
}

}  // namespace

TaggedValue CodeTableLookup::Description(int16_t tableNumber, const TaggedValue& code) {
    return LookUp("Description", tableNumber, code);
}

TaggedValue CodeTableLookup::Name(int16_t tableNumber, const TaggedValue& code) {
    return LookUp("Name", tableNumber, code);
}

std::vector<CodeEntry> CodeTableLookup::Entries(int16_t tableNumber) {
    const bool isOfficers = tableNumber == CodeTable::Officers;
    const RowList rows = HostDatabase().QueryRows(
        isOfficers ? "SELECT PersonNo, LastName, FirstName, Title FROM Person WHERE IsActive = 1"
                   : "SELECT Code, Name, Description FROM CodeTable WHERE TableNumber = " +
                         std::to_string(tableNumber) + " AND IsActive = 1");
    std::vector<CodeEntry> entries;
    for (const Row& row : rows) entries.push_back(isOfficers ? OfficerEntry(row) : TableEntry(row));
    std::sort(entries.begin(), entries.end(), [](const CodeEntry& a, const CodeEntry& b) {
        return std::pair(FoldCase(a.text), a.code) < std::pair(FoldCase(b.text), b.code);
    });
    return entries;
}

}  // namespace quellbrook
