#include "data/Transfer.h"

#include "base/Error.h"
#include "base/FormatCount.h"
#include "base/Text.h"
#include "data/StorageLocationStatic.h"
#include "data/TransferStatements.h"
#include "host/HostDatabase.h"
#include "host/MomentText.h"
#include "host/PersonDirectory.h"

#include <algorithm>
#include <unordered_map>

namespace quellbrook {

namespace {

using BatchQuery = HostDatabase::BatchQuery;
using Sequences = std::unordered_map<int32_t, TaggedValue>;  // CurrTrackSeq by key

constexpr size_t mostNamedItems = 5;
constexpr const char* newLine = "\r\n\u2022 ";
constexpr const char* pathSeparator = " > ";

// Lists of a few lengths only, so that their statements stay prepared.
constexpr size_t listLengths[] = {1, 8, 64, 512};

size_t ListLengthFor(size_t count) {
    for (const size_t length : listLengths)
        if (length >= count) return length;
    return std::end(listLengths)[-1];
}

// Replaces {0} by the table of the item.
std::string ForKind(bool isProperty, const char* text) {
    return Replace(text, "{0}", isProperty ? "Property" : "Vehicle");
}

bool IsProperty(const StoredItem& item) { return item.ItemType() == StoredItemTypes::Property; }

// Adds the queries for the rows of these items, in the order of their keys.
void AddSequenceQueries(std::vector<int32_t> keys, bool isProperty, std::vector<SelectStatement>& queries) {
    std::sort(keys.begin(), keys.end());
    for (size_t at = 0, length = 0; at < keys.size(); at += length) {
        length = ListLengthFor(keys.size() - at);
        std::vector<TaggedValue> list;
        for (size_t i = at; i < at + length; ++i) list.emplace_back(keys[std::min(i, keys.size() - 1)]);
        const std::string select = ForKind(isProperty, "SELECT {0}No, CurrTrackSeq FROM {0} WHERE {0}No IN (");
        const std::string marks = Join(std::vector<std::string>(length, "?"), ",");
        queries.push_back({select + marks + ")", std::move(list)});
    }
}

struct StaleItem {
    StoredItemRef item;
    std::optional<TaggedValue> trackSeq;  // the present one; not set if the item's row was deleted
};

// The destination, then the items of each kind.
struct CurrentQueries {
    std::vector<SelectStatement> queries;
    size_t endOfProperties = 0;
};

CurrentQueries MakeCurrentQueries(const TransferItems& items, const TransferData& xfer) {
    std::vector<int32_t> properties, vehicles;
    for (int32_t i = 0; i < items.Count(); ++i) {
        const StoredItemRef item = items.ItemAt(i);
        (IsProperty(*item) ? properties : vehicles).push_back(item->ID());
    }
    CurrentQueries current;
    current.queries.push_back({"SELECT Type, ActiveFlag FROM StorageLocation WHERE IdNo = ?", {xfer.Location->ID()}});
    AddSequenceQueries(std::move(properties), true, current.queries);
    current.endOfProperties = current.queries.size();
    AddSequenceQueries(std::move(vehicles), false, current.queries);
    return current;
}

std::vector<StaleItem> FindStaleItems(const TransferItems& items, const std::vector<RowList>& results,
                                      size_t endOfProperties) {
    Sequences ofProperties, ofVehicles;
    for (size_t i = 1; i < results.size(); ++i)
        for (const Row& row : results[i])
            (i < endOfProperties ? ofProperties : ofVehicles)[ToInt32(row.At(0))] = row.At(1);

    std::vector<StaleItem> stale;
    for (int32_t i = 0; i < items.Count(); ++i) {
        const StoredItemRef item = items.ItemAt(i);
        const Sequences& sequences = IsProperty(*item) ? ofProperties : ofVehicles;
        const auto present = sequences.find(item->ID());
        if (present == sequences.end())
            stale.push_back({item, std::nullopt});
        else if (present->second != items.TrackSeqAt(i))
            stale.push_back({item, present->second});
    }
    return stale;
}

// What has become of the destination; empty if nothing has.
std::string DestinationFault(const TransferData& xfer, const RowList& rows) {
    StorageLocation& location = *xfer.Location;
    const auto hasBeen = [&](const std::string& change) {
        return "The destination '" + location.FullPath(pathSeparator) + "' has been " + change + ".";
    };
    if (rows.empty()) return hasBeen("deleted");
    const auto type = static_cast<StorageLocationTypes>(ToInt32(rows[0].At(0)));
    if (type != xfer.LocationType.value_or(location.LocationType()))
        return hasBeen("moved to '" + GetStorageLocationStatic().GetRoot(type)->Name() + "'");
    const TaggedValue& isActive = rows[0].At(1);
    return isActive.HasNoValue() || ToBool(isActive) ? "" : hasBeen("disabled");
}

std::string PlaceText(const TaggedValue& locationNo) {
    if (locationNo.HasNoValue()) return "no location";
    const StorageLocationRef location = GetStorageLocationStatic().FindByID(ToInt32(locationNo));
    return location ? "'" + location->FullPath(pathSeparator) + "'" : "a deleted location";
}

// Where the item is now, who received it there and when.
std::string StateText(const StaleItem& stale, const BatchQuery& query) {
    const StoredItem& item = *stale.item;
    if (!stale.trackSeq) return "has been deleted";
    const RowList rows = query(ForKind(IsProperty(item),
                                       "SELECT StorageLocNo, ReceivedBy, DateReceived FROM {0}Tracking "
                                       "WHERE {0}No = ? AND SeqNo = ?"),
                               {item.ID(), *stale.trackSeq});
    if (rows.empty()) return "has no current custody row";
    std::string receipt;
    if (!rows[0].At(1).HasNoValue()) receipt += " by " + PersonDirectory().NameForId(rows[0].At(1));
    if (!rows[0].At(2).HasNoValue())
        receipt += " on " + MomentText(ToDateTime(rows[0].At(2)), HostServices::Current().Formats());
    return "is now in " + PlaceText(rows[0].At(0)) + (receipt.empty() ? "" : ", received" + receipt);
}

std::string StaleItemsText(const std::vector<StaleItem>& stale, const BatchQuery& query) {
    std::string text = stale.size() == 1 ? "This item has changed since it was added to the batch:"
                                         : "These items have changed since they were added to the batch:";
    for (size_t i = 0; i < std::min(stale.size(), mostNamedItems); ++i) {
        const StoredItem& item = *stale[i].item;
        text += newLine + item.DisplayID();
        if (!item.Description().empty()) text += " ('" + item.Description() + "')";
        text += " " + StateText(stale[i], query);
    }
    if (stale.size() > mostNamedItems)
        text +=
            newLine + FormatCount(static_cast<int64_t>(stale.size() - mostNamedItems), "%d more item", "%d more items");
    return text;
}

// Raises an error if anything has changed. Gets the results of MakeCurrentQueries.
void RequireCurrent(const TransferItems& items, const TransferData& xfer, size_t endOfProperties,
                    const std::vector<RowList>& results, const BatchQuery& query) {
    std::vector<std::string> faults;
    if (const std::string fault = DestinationFault(xfer, results[0]); !fault.empty()) faults.push_back(fault);
    const std::vector<StaleItem> stale = FindStaleItems(items, results, endOfProperties);
    if (faults.empty() && stale.empty()) return;
    // The next batch must be able to see what has changed.
    GetStorageLocationStatic().Refresh();
    if (!stale.empty()) faults.push_back(StaleItemsText(stale, query));
    Raise(ErrorNumber::General, "Transfer.RequireCurrent", Join(faults, "\r\n\r\n"));
}

}  // namespace

void ExecuteTransfer(const TransferItems& items, const TransferData& xfer) {
    const std::vector<std::string> statements = MakeTransferStatements(items, xfer);
    if (items.Count() == 0) return GetHostDatabase().ExecuteBatch(statements);
    const CurrentQueries current = MakeCurrentQueries(items, xfer);
    GetHostDatabase().ExecuteBatch(statements,
                                   {current.queries, [&](const std::vector<RowList>& results, const BatchQuery& query) {
                                        RequireCurrent(items, xfer, current.endOfProperties, results, query);
                                    }});
}

}  // namespace quellbrook
