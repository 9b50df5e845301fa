#include "host/HostLocationData.h"

#include "base/Text.h"
#include "host/HostDatabase.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace quellbrook {

namespace {

constexpr const char* rowName = "StorageLocation";

std::shared_ptr<const LocationDocument> cached;

std::optional<int32_t> WholeNumber(std::string_view text) {
    text = Trim(text);
    int32_t number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

// A database server may return the names of columns in small letters.
std::vector<std::string> ElementNames(const ColumnSet& columns) {
    std::vector<std::string> names = columns.Names();
    for (const char* known : {"IdNo", "Name", "Path", "Type", "ActiveFlag", "DateEntered", "LastUpdated"})
        if (const int at = columns.Find(known); at >= 0) names[static_cast<size_t>(at)] = known;
    return names;
}

void AppendRow(pugi::xml_node& documentElement, const std::vector<std::string>& names, const Row& row) {
    pugi::xml_node node = documentElement.append_child(rowName);
    for (size_t i = 0; i < names.size(); ++i) {
        const TaggedValue& value = row.At(static_cast<int>(i));
        if (value.IsNull()) continue;
        pugi::xml_node text = node.append_child(names[i].c_str()).append_child(pugi::node_pcdata);
        if (const auto* plain = value.If<std::string>())
            text.set_value(plain->c_str());
        else
            text.set_value(ToText(value).c_str());
    }
}

// Rows whose names do not differ in natural order stay in the order of the query.
void SortNaturally(pugi::xml_node& documentElement) {
    std::vector<std::pair<std::string_view, pugi::xml_node>> rows;
    for (const pugi::xml_node row : documentElement.children()) rows.emplace_back(row.child_value("Name"), row);
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto& a, const auto& b) { return ComesBefore(a.first, b.first); });
    for (const auto& [name, row] : rows) documentElement.append_move(row);
}

std::shared_ptr<const LocationDocument> LoadDocument() {
    auto document = std::make_unique<pugi::xml_document>();
    pugi::xml_node documentElement = document->append_child("StorageLocations");
    std::vector<std::string> names;
    HostDatabase().ForEachRow("SELECT * FROM StorageLocation ORDER BY Name, IdNo", [&](const Row& row) {
        if (names.empty()) names = ElementNames(row.Columns());
        AppendRow(documentElement, names, row);
        return true;
    });
    SortNaturally(documentElement);
    return std::make_shared<const LocationDocument>(std::move(document));
}

}  // namespace

size_t LocationDocument::PathAndTypeHash::operator()(const std::pair<std::string_view, int32_t>& key) const {
    return std::hash<std::string_view>()(key.first) * 31 + static_cast<size_t>(key.second);
}

LocationDocument::LocationDocument(std::unique_ptr<pugi::xml_document> document) : m_document(std::move(document)) {
    for (const pugi::xml_node row : Root().children(rowName)) {
        if (const auto id = WholeNumber(row.child_value("IdNo"))) m_byId.try_emplace(*id, row);
        const pugi::xml_node path = row.child("Path");
        const auto type = WholeNumber(row.child_value("Type"));
        if (path && type) m_byPathAndType[{path.child_value(), *type}].push_back(row);
    }
}

pugi::xml_node LocationDocument::FindByID(int32_t id) const {
    const auto found = m_byId.find(id);
    return found == m_byId.end() ? pugi::xml_node() : found->second;
}

const std::vector<pugi::xml_node>& LocationDocument::Children(std::string_view path, int32_t type) const {
    static const std::vector<pugi::xml_node> none;
    const auto found = m_byPathAndType.find({path, type});
    return found == m_byPathAndType.end() ? none : found->second;
}

std::shared_ptr<const LocationDocument> HostLocationData::GetDocument() {
    if (!cached) cached = LoadDocument();
    return cached;
}

TaggedValue HostLocationData::Reload() {
    cached = LoadDocument();
    return TaggedValue();
}

void HostLocationData::Discard() { cached.reset(); }

}  // namespace quellbrook
