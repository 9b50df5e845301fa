#include "data/TransferStatements.h"

#include "base/Error.h"
#include "base/Text.h"
#include "host/HostDatabase.h"

namespace quellbrook {

namespace {

std::string NextSequenceStatement(const std::string& key) {
    return Join({"DECLARE @NextSeqNo AS INT",
                 "SELECT @NextSeqNo = MAX(SeqNo)+1 FROM {0}Tracking WHERE {0}No=" + key + " GROUP BY {0}No",
                 "UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)"},
                ";");
}

std::string InsertStatement(const std::string& key, const TransferData& xfer) {
    const HostDatabase database;
    const std::pair<std::string, std::string> cells[] = {
        {"{0}No", key},
        {"SeqNo", "(SELECT Value FROM #NextSeqNo)"},
        {"ReceivedBy", DbPrepField(xfer.ReceivedBy)},
        {"ReceivedFrom", DbPrepField(xfer.ReceivedFrom)},
        {"DateReceived", database.PrepareDate(ToText(xfer.DateReceived))},
        {"CustodyReasonNo", DbPrepField(xfer.Reason)},
        {"StorageLocNo", DbPrepStorageLocationField(xfer.Location.get())},
        {"LastUpdated", database.PrepareDate(xfer.Timestamp().ToText())},
    };
    std::vector<std::string> columns, values;
    for (const auto& [column, value] : cells) {
        columns.push_back(column);
        values.push_back(value);
    }
    return "INSERT INTO {0}Tracking (" + Join(columns, ",") + ") VALUES (" + Join(values, ",") + ")";
}

std::string PointerStatement(const std::string& key) {
    return "UPDATE {0} SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE {0}No=" + key;
}

std::string DispositionStatement(const std::string& key, const FinalDispositionData& disposition) {
    return "UPDATE {0} SET HasFinalDisposition=1,DisposalNote=" + HostDatabase().PrepareText(disposition.Notes) +
           ",CurrStatusNo=" + std::to_string(disposition.FinalDisposition) + " WHERE {0}No=" + key;
}

}  // namespace

std::string DbPrepField(const TaggedValue& value) { return value.HasNoValue() ? "NULL" : ToText(value); }

std::string DbPrepStorageLocationField(const StorageLocation* location) {
    if (Require(location, "DbPrepStorageLocationField")->IsRoot())
        Raise(ErrorNumber::General, "DbPrepStorageLocationField",
              "DbPrepStorageLocationField: Cannot use a root location in a SQL statement.");
    return std::to_string(location->ID());
}

std::vector<std::string> MakeTransferStatements(const StoredItemList& items, const TransferData& xfer) {
    std::vector<std::string> statements{"CREATE TABLE #NextSeqNo (Value INT NOT NULL)",
                                        "INSERT INTO #NextSeqNo (Value) VALUES (0)"};
    for (int32_t i = 0; i < items.Count(); ++i) {
        const StoredItemRef item = items.ItemAt(i);
        const char* kind = item->ItemType() == StoredItemTypes::Property ? "Property" : "Vehicle";
        const auto append = [&](const std::string& text) { statements.push_back(Replace(text, "{0}", kind)); };
        const std::string key = std::to_string(item->ID());
        append(NextSequenceStatement(key));
        append(InsertStatement(key, xfer));
        append(PointerStatement(key));
        if (xfer.FinalDisposition) append(DispositionStatement(key, *xfer.FinalDisposition));
    }
    statements.push_back("DROP TABLE #NextSeqNo");
    return statements;
}

}  // namespace quellbrook
