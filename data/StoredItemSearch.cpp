#include "data/StoredItemSearch.h"

#include "base/Error.h"
#include "data/PackedRows.h"

#include <map>

namespace quellbrook {

namespace {

class SearchResult : public StoredItemList {
public:
    explicit SearchResult(PackedRows rows) : m_rows(std::move(rows)), m_items(m_rows.Count()) {}

    std::string TypeName() const override { return "Collection"; }
    int32_t Count() const override { return static_cast<int32_t>(m_rows.Count()); }

    StoredItemRef ItemAt(int32_t index) const override {
        if (index < 0 || index >= Count()) Raise(ErrorNumber::SubscriptOutOfRange, "StoredItemList.ItemAt");
        const auto position = static_cast<size_t>(index);
        if (StoredItemRef held = m_items[position].lock()) return held;
        // Not make_shared: the weak reference would then keep the memory of a released item allocated.
        StoredItemRef item(new StoredItem);
        const auto refreshed = m_refreshed->find(position);
        item->LoadFromRow(refreshed == m_refreshed->end() ? m_rows.At(position) : refreshed->second);
        item->SetRefreshed([rows = m_refreshed, position](const Row& row) { rows->insert_or_assign(position, row); });
        m_items[position] = item;
        return item;
    }

private:
    PackedRows m_rows;
    mutable std::vector<std::weak_ptr<StoredItem>> m_items;
    // The rows of refreshed items by their position. Shared with the items, which may live longer.
    std::shared_ptr<std::map<size_t, Row>> m_refreshed = std::make_shared<std::map<size_t, Row>>();
};

}  // namespace

StoredItemSearch& StoredItemSearch::InLocation(StorageLocationRef location) {
    m_criteria.location = std::move(location);
    return *this;
}

StoredItemSearch& StoredItemSearch::OfType(StoredItemTypes itemType) {
    m_criteria.itemType = static_cast<int32_t>(itemType);
    return *this;
}

StoredItemSearch& StoredItemSearch::WithNumber(NumberSearchTypes numberType, const std::string& number) {
    m_criteria.numberType = static_cast<int32_t>(numberType);
    m_criteria.number = number;
    return *this;
}

StoredItemSearch& StoredItemSearch::WithDescription(const std::string& description) {
    m_criteria.description = description;
    return *this;
}

StoredItemSearch& StoredItemSearch::Untracked() {
    m_criteria.untracked = true;
    return *this;
}

StoredItemSearch& StoredItemSearch::Tagged() {
    m_criteria.tagged = true;
    return *this;
}

std::shared_ptr<StoredItemList> StoredItemSearch::Execute() {
    PackedRows rows;
    ForEachStoredItem(m_criteria, [&](const Row& row) { rows.Add(row); });
    rows.ShrinkToFit();
    return std::make_shared<SearchResult>(std::move(rows));
}

RowList StoredItemSearch::ExecuteRaw() { return QueryStoredItems(m_criteria); }

int32_t StoredItemSearch::Count() { return CountStoredItems(m_criteria); }

}  // namespace quellbrook
