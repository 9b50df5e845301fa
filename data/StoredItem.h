#pragma once

#include "base/Object.h"
#include "base/Picture.h"
#include "base/TaggedValue.h"
#include "data/StorageLocation.h"
#include "data/Types.h"
#include "sql/Row.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

class IncidentInfo;
class CaseInfo;
class TrackingRecord;
class StoredItem;
using StoredItemRef = std::shared_ptr<StoredItem>;
using IncidentList = std::vector<std::shared_ptr<IncidentInfo>>;
using CaseList = std::vector<std::shared_ptr<CaseInfo>>;
using TrackingRecordList = std::vector<std::shared_ptr<TrackingRecord>>;

// One piece of property or one vehicle: a snapshot of one search row. Data that is not in the row is fetched on demand.
// Use it only through shared references.
class StoredItem : public Object {
public:
    std::string TypeName() const override { return "StoredItem"; }

    StoredItemTypes ItemType() const { return m_itemType; }
    std::string ItemTypeCode() const;  // "P" or "V"; Error 5 for any other type
    int32_t ID() const;
    const std::string& DisplayID() const { return m_displayId; }
    const std::string& Description() const { return m_description; }
    // Null without a location number or if the location's row was deleted. Cached until Refresh.
    StorageLocationRef Location();
    int32_t CategoryID() const;
    std::string CategoryName() const;  // looked up at each call
    const TaggedValue& Quantity() const { return m_quantity; }
    const TaggedValue& Value() const { return m_value; }
    const std::string& Make() const { return m_make; }
    const std::string& Model() const { return m_model; }
    const std::string& SerialNumber() const { return m_serialNumber; }

    // Each incident and case number once, in the order of their first appearance. Cached, also across Refresh. Omits
    // secured incidents for a user with neither of the host's rights to them.
    const IncidentList& RelatedIncidents();
    const CaseList& RelatedCases();
    // The chain of custody, newest first (by DateReceived, then LastUpdated; ties in the engine's order). Each record's
    // Previous is the next older one. Not cached.
    TrackingRecordList TrackingRecords() const;

    // The main attachment as a picture; empty if there is none or its record is incomplete. Not cached. Throws if the
    // database, the thumbnail reader or reading the file fails.
    std::optional<Picture> Thumbnail() const;

    // Prints the item's evidence label. Error 5 with a message that names the item for any failure.
    void PrintBarcodeLabel() const;
    // The item's barcode for the screen, with the same text as on its label. Error 5 for an unknown kind of item, Error
    // 380 for an invalid height.
    Picture GetBarcodeImage(double heightTwips) const;

    // Reads this item's search row again. Changes nothing if the search does not find it, for example because the item
    // has no location.
    void Refresh();

    // Internal to the module.
    void LoadFromRow(const Row& row);
    // Called with each row that Refresh has read.
    void SetRefreshed(std::function<void(const Row&)> refreshed) { m_refreshed = std::move(refreshed); }
    // The SeqNo of the latest custody row, as of the search row; NULL for an item without custody rows.
    const TaggedValue& CurrTrackSeq() const { return m_currTrackSeq; }

private:
    StoredItemTypes m_itemType{};
    std::string m_id;
    std::string m_displayId;
    std::string m_description;
    TaggedValue m_currTrackSeq;
    TaggedValue m_locationNo;
    StorageLocationRef m_location;
    TaggedValue m_categoryNo;
    TaggedValue m_quantity;
    TaggedValue m_value;
    std::string m_make;
    std::string m_model;
    std::string m_serialNumber;
    std::shared_ptr<const IncidentList> m_relatedIncidents;
    std::shared_ptr<const CaseList> m_relatedCases;
    std::function<void(const Row&)> m_refreshed;
};

}  // namespace quellbrook
