#pragma once

#include "data/StorageLocation.h"
#include "sql/Row.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace quellbrook {

// One row of an item's chain of custody. Coded columns are looked up on demand and cached.
class TrackingRecord : public Object {
public:
    std::string TypeName() const override { return "TrackingRecord"; }

    int32_t Sequence() const;
    TaggedValue DateReceived() const;  // may be NULL
    std::string StorageReason();       // empty without a reason
    std::string ReceivedBy();          // empty without a person
    std::string ReceivedFrom();
    StorageLocationRef Location();  // null without a location or if its row was deleted
    std::shared_ptr<TrackingRecord> Previous() const { return m_previous; }

    // Internal to the module.
    void SetRow(Row row);
    void SetPrevious(std::shared_ptr<TrackingRecord> record) { m_previous = std::move(record); }

    bool IsCached(const std::string& key) const;
    TaggedValue GetCached(const std::string& key) const;  // Error 5 if absent
    TaggedValue SetCached(const std::string& key, TaggedValue value);

private:
    const Row& RequireRow() const;  // Error 91 before SetRow
    std::string PersonName(const std::string& column);

    std::map<std::string, TaggedValue> m_cache;
    std::optional<Row> m_row;
    std::shared_ptr<TrackingRecord> m_previous;
};

class IncidentInfo : public Object {
public:
    std::string TypeName() const override { return "IncidentInfo"; }
    int32_t ID() const { return m_id; }
    const std::string& DisplayID() const { return m_displayId; }
    bool IsSecured() const { return m_isSecured; }
    void LoadFromRow(const Row& row);

private:
    int32_t m_id = 0;
    std::string m_displayId;
    bool m_isSecured = false;
};

class CaseInfo : public Object {
public:
    std::string TypeName() const override { return "CaseInfo"; }
    const std::string& CaseNumber() const { return m_caseNumber; }
    void LoadFromRow(const Row& row);

private:
    std::string m_caseNumber;
};

}  // namespace quellbrook
