#include "data/CustodyRecords.h"

#include "base/Error.h"
#include "data/StorageLocationStatic.h"
#include "host/CodeTableLookup.h"
#include "host/PersonDirectory.h"

namespace quellbrook {

const Row& TrackingRecord::RequireRow() const { return *Require(m_row, "TrackingRecord"); }

void TrackingRecord::SetRow(Row row) { m_row = std::move(row); }

int32_t TrackingRecord::Sequence() const { return ToInt32(RequireRow().Value("SeqNo")); }

TaggedValue TrackingRecord::DateReceived() const { return RequireRow().Value("DateReceived"); }

std::string TrackingRecord::StorageReason() {
    if (IsCached("StorageReason")) return ToText(GetCached("StorageReason"));
    const TaggedValue& reason = RequireRow().Value("CustodyReasonNo");
    if (reason.IsNull()) return {};
    const TaggedValue text = CodeTableLookup().Description(CodeTable::CustodyReason, reason);
    return ToText(SetCached("StorageReason", ToTextOrEmpty(text)));
}

std::string TrackingRecord::PersonName(const std::string& column) {
    if (IsCached(column)) return ToText(GetCached(column));
    const TaggedValue& person = RequireRow().Value(column);
    if (person.IsNull()) return {};
    return ToText(SetCached(column, PersonDirectory().NameForId(person)));
}

std::string TrackingRecord::ReceivedBy() { return PersonName("ReceivedBy"); }

std::string TrackingRecord::ReceivedFrom() { return PersonName("ReceivedFrom"); }

StorageLocationRef TrackingRecord::Location() {
    const auto asLocation = [](const TaggedValue& value) {
        return std::static_pointer_cast<StorageLocation>(*value.If<ObjectRef>());
    };
    if (IsCached("Location")) return asLocation(GetCached("Location"));
    const TaggedValue& location = RequireRow().Value("StorageLocNo");
    if (location.IsNull()) return nullptr;
    return asLocation(SetCached("Location", GetStorageLocationStatic().FindByID(ToInt32(location))));
}

bool TrackingRecord::IsCached(const std::string& key) const { return m_cache.count(key) > 0; }

TaggedValue TrackingRecord::GetCached(const std::string& key) const {
    const auto found = m_cache.find(key);
    if (found == m_cache.end())
        Raise(ErrorNumber::General, "TrackingRecord.GetCached", "Item '" + key + "' is not cached.");
    return found->second;
}

TaggedValue TrackingRecord::SetCached(const std::string& key, TaggedValue value) {
    return m_cache.insert_or_assign(key, std::move(value)).first->second;
}

void IncidentInfo::LoadFromRow(const Row& row) {
    m_id = ToInt32(row.Value("IncidentNo"));
    m_displayId = ToText(row.Value("IncidentId"));
    m_isSecured = ToBool(row.Value("IsSecured"));
}

void CaseInfo::LoadFromRow(const Row& row) { m_caseNumber = ToTextOrEmpty(row.Value("CaseNbr")); }

}  // namespace quellbrook
