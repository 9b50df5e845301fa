#include "data/PlannedQueries.h"
#include "data/StoredItem.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"
#include "host/QueryServices.h"
#include "sql/query/QueryFactory.h"

#include <filesystem>

namespace quellbrook {

namespace {

constexpr int32_t PropertyOwner = 6, VehicleOwner = 7;  // values of ObjTypeInd

// Its only parameter is the item's key.
QuerySource ComposeMainAttachment(const StoredItemTypes& kind) {
    const bool isProperty = kind == StoredItemTypes::Property;
    const QuerySource table = QueryServices::Factory().Table(isProperty ? "Property" : "Vehicle");
    const QuerySource index = QueryServices::Factory().Table("AttachmentIndex");
    const QuerySource folder = QueryServices::Factory().Table("AttachmentFolder");
    const QueryExpression key = table.Column(isProperty ? "PropertyNo" : "VehicleNo");
    const QuerySource filed =
        table.Join(index, 0)
            .On(index.Column("IdNo")
                    .Equals(key)
                    .And(index.Column("ObjTypeInd").Equals(isProperty ? PropertyOwner : VehicleOwner))
                    .And(index.Column("SeqNo").Equals(table.Column("CurrImageSeq"))))
            .Join(folder, 0)
            .On(folder.Column("FolderNo").Equals(index.Column("FolderNo")));
    QuerySource query = filed.Select({filed.Column("Path"), filed.Column("FileName")});
    return query.Where(key.Equals(QueryServices::Factory().Parameter(0)));
}

}  // namespace

std::optional<Picture> StoredItem::Thumbnail() const {
    static PlannedQueries<StoredItemTypes> queries(ComposeMainAttachment);
    const ParameterizedQuery& query = queries.Get(m_itemType);
    const std::optional<Row> row = HostDatabase().QueryRow(query.text, query.ValuesFor({ID()}));
    if (!row) return std::nullopt;
    const std::string fileName = ToTextOrEmpty(row->Value("FileName"));
    if (fileName.empty()) return std::nullopt;
    const std::filesystem::path full =
        std::filesystem::path(ToTextOrEmpty(row->Value("Path"))) / std::filesystem::path(fileName).relative_path();
    return LoadPicture(HostServices::Current().Thumbnails().Read(full.string()));
}

}  // namespace quellbrook
