#include "app/records/RecordReader.h"

#include "base/Error.h"
#include "base/Text.h"
#include "component/Items.h"
#include "host/CodeTableLookup.h"
#include "host/HostDatabase.h"

#include <algorithm>
#include <tuple>

namespace quellbrook {

namespace {

bool IsProperty(const RecordAddress& address) { return address.kind == RecordKind::Property; }

StoredItemTypes TypeOf(const RecordAddress& address) {
    return IsProperty(address) ? StoredItemTypes::Property : StoredItemTypes::vehicle;
}

std::string PathOf(const StorageLocationRef& location) { return location ? location->FullPath(" > ") : ""; }

// The host's own fields, which the component does not have.
void ReadHostFields(const Row& row, Record& record) {
    const auto text = [&row](const char* column) { return ToTextOrEmpty(row.Value(column)); };
    if (IsProperty(record.address)) {
        record.identifier = text("PropertyID");
    } else {
        record.identifier = text("RegNumber");
        const std::string state = text("RegStateCode");
        if (!record.identifier.empty() && !state.empty()) record.identifier += " (" + state + ")";
        record.year = text("VehYear");
        record.color = text("ColorCode");
    }
    record.hasFinalDisposition = ToBool(row.Value("HasFinalDisposition"));
    record.finalDisposition =
        ToTextOrEmpty(CodeTableLookup().Description(CodeTable::FinalDispositionStatus, row.Value("CurrStatusNo")));
    record.dispositionNote = text("DisposalNote");
}

void ReadPicture(const StoredItem& item, Record& record) {
    try {
        record.picture = item.Thumbnail();
    } catch (...) {
        record.pictureFailure = CurrentError().Description();
    }
}

std::vector<RecordIncident> IncidentsOf(StoredItem& item) {
    std::vector<RecordIncident> incidents;
    for (const auto& info : item.RelatedIncidents()) {
        const TaggedValue caseNumber =
            HostDatabase().LookupValue("Incident", "CaseNbr", {"IncidentNo = " + std::to_string(info->ID())});
        incidents.push_back({info->DisplayID(), ToTextOrEmpty(caseNumber), info->IsSecured()});
    }
    std::stable_sort(incidents.begin(), incidents.end(),
                     [](const RecordIncident& a, const RecordIncident& b) { return a.number < b.number; });
    return incidents;
}

std::vector<CustodyStep> CustodyOf(const StoredItem& item) {
    std::vector<CustodyStep> steps;
    for (const auto& record : item.TrackingRecords()) {
        const TaggedValue received = record->DateReceived();
        steps.push_back({record->Sequence(), received.HasNoValue() ? std::nullopt : std::optional(ToDateTime(received)),
                         record->StorageReason(), record->ReceivedFrom(), record->ReceivedBy(),
                         PathOf(record->Location())});
    }
    // The component does not define the order of steps with equal dates.
    std::stable_sort(steps.begin(), steps.end(), [](const CustodyStep& a, const CustodyStep& b) {
        return std::tie(a.received, a.sequence) > std::tie(b.received, b.sequence);
    });
    return steps;
}

Record RecordOf(const RecordAddress& address, StoredItem& item, const Row& row) {
    Record record;
    record.address = address;
    ReadHostFields(row, record);
    // The component adds a blank after each part of a vehicle's texts.
    const auto composed = [&](const std::string& text) { return IsProperty(address) ? text : std::string(Trim(text)); };
    record.description = composed(item.Description());
    record.category = item.CategoryName();
    record.make = composed(item.Make());
    record.model = item.Model();
    record.quantity = item.Quantity();
    record.value = item.Value();
    record.serialNumber = item.SerialNumber();
    ReadPicture(item, record);
    record.status = StatusOf(item);
    record.location = PathOf(item.Location());
    record.incidents = IncidentsOf(item);
    if (MayViewChainOfCustody()) record.custody = CustodyOf(item);
    return record;
}

}  // namespace

RecordAnswer ReadRecord(const RecordAddress& address) {
    if (!MayViewItems(TypeOf(address)))
        return RecordRefusal{IsProperty(address) ? "You do not have the appropriate permissions to view property."
                                                 : "You do not have the appropriate permissions to view vehicles."};
    // Another workstation may have changed the locations.
    GetSingletons().StorageLocation().Refresh();
    const std::string sql = IsProperty(address) ? "SELECT * FROM Property WHERE PropertyNo = ?"
                                                : "SELECT * FROM Vehicle WHERE VehicleNo = ?";
    const auto row = HostDatabase().QueryRow(sql, {address.number});
    const StoredItemRef item = row ? LoadItem(TypeOf(address), address.number) : nullptr;
    if (!item)
        return RecordRefusal{
            (IsProperty(address) ? "There is no property with the number " : "There is no vehicle with the number ") +
            std::to_string(address.number) + "."};
    return RecordOf(address, *item, *row);
}

}  // namespace quellbrook
