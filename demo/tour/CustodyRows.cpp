#include "demo/tour/CustodyRows.h"

#include "database/Connection.h"

namespace quellbrook::tour {

namespace {

struct Kind {
    const char* table;
    const char* key;
};
constexpr Kind kinds[] = {{"PropertyTracking", "PropertyNo"}, {"VehicleTracking", "VehicleNo"}};

}  // namespace

CustodyRows::CustodyRows(std::shared_ptr<Engine> engine) : m_engine(std::move(engine)) {
    for (const Kind& kind : kinds) {
        auto& greatest = m_before[kind.key];
        const std::string key = kind.key;
        for (const Row& row :
             Query("SELECT " + key + " AS ItemNo, MAX(SeqNo) AS SeqNo FROM " + kind.table + " GROUP BY " + key)) {
            greatest[ToInt32(row.Value("ItemNo"))] = ToInt32(row.Value("SeqNo"));
        }
    }
}

RowList CustodyRows::Written() const {
    RowList written;
    for (const Kind& kind : kinds) {
        const auto& before = m_before.at(kind.key);
        const std::string key = kind.key;
        for (Row& row : Query("SELECT * FROM " + std::string(kind.table) + " ORDER BY " + key + ", SeqNo")) {
            const auto greatest = before.find(ToInt32(row.Value(kind.key)));
            if (greatest == before.end() || ToInt32(row.Value("SeqNo")) > greatest->second)
                written.push_back(std::move(row));
        }
    }
    return written;
}

TaggedValue CustodyRows::Ask(const std::string& select) const {
    const RowList rows = Query(select);
    return rows.empty() ? TaggedValue() : rows.front().At(0);
}

RowList CustodyRows::Query(const std::string& select) const {
    RowList rows;
    m_engine->Open()->Query(select, {}, [&rows](const Row& row) {
        rows.push_back(row);
        return true;
    });
    return rows;
}

}  // namespace quellbrook::tour
