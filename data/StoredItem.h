#pragma once

#include "base/Object.h"
#include "base/Picture.h"
#include "base/TaggedValue.h"
#include "data/StorageLocation.h"
#include "data/Types.h"
#include "sql/Row.h"

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

// One piece of property or one vehicle as the evidence room sees it: a snapshot of one search row, which fetches by
// itself what the row does not hold. Always held by shared reference.
class StoredItem : public Object {
public:
    std::string TypeName() const override { return "StoredItem"; }

    StoredItemTypes ItemType() const { return m_itemType; }
    std::string ItemTypeCode() const;  // "P" or "V"; Error 5 for any other type
    int32_t ID() const;
    const std::string& DisplayID() const { return m_displayId; }
    const std::string& Description() const { return m_description; }
    // Null without a location number, and where the location's row has gone. Fetched once, until Refresh.
    StorageLocationRef Location();
    int32_t CategoryID() const;
    std::string CategoryName() const;  // looked up at each call
    const TaggedValue& Quantity() const { return m_quantity; }
    const TaggedValue& Value() const { return m_value; }
    const std::string& Make() const { return m_make; }
    const std::string& Model() const { return m_model; }
    const std::string& SerialNumber() const { return m_serialNumber; }

    // Each incident and case number once, in first-seen order; fetched once and kept, over Refresh too. A user without
    // either of the host's two rights to secured incidents does not learn of them.
    const IncidentList& RelatedIncidents();
    const CaseList& RelatedCases();
    // The chain of custody, newest first (by DateReceived, then LastUpdated; the order among ties is the engine's).
    // Each record's Previous is the one older by a row. Read anew at each call.
    TrackingRecordList TrackingRecords() const;

    // The main attachment as a picture; nothing where there is none, or where it is not wholly filed. Read anew at each
    // call. Failures of the database, of the thumbnail reader and of the picture's file pass on.
    std::optional<Picture> Thumbnail() const;

    // Prints the evidence label of the item. Any failure is error 5 with a sentence that names the item.
    void PrintBarcodeLabel() const;
    // The item's barcode, with the same text as on its label, for this display. Error 5 for an unknown kind of item,
    // Error 380 for a height that no control has.
    Picture GetBarcodeImage(double heightTwips) const;

    // Takes the values of this item's search row again. Changes nothing when the search, which keeps to items with a
    // location, does not find it.
    void Refresh();

    // For the module's own use.
    void LoadFromRow(const Row& row);

private:
    StoredItemTypes m_itemType{};
    std::string m_id;
    std::string m_displayId;
    std::string m_description;
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
};

}  // namespace quellbrook
