#include "app/records/RecordReader.h"

#include "app/records/LocationPaths.h"
#include "base/Error.h"
#include "base/Text.h"
#include "host/CodeTableLookup.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"
#include "host/PersonDirectory.h"

#include <filesystem>
#include <map>
#include <utility>

namespace quellbrook {

namespace {

// The host's own names and numbers for a kind of record.
struct Kind {
    const char* word;  // as sentences say it, of one and of many
    const char* words;
    const char* table;
    const char* module;
    int16_t categories;
    int32_t attachmentOwner;  // value of ObjTypeInd
};
constexpr Kind property{"property", "property", "Property", "MIProperty", CodeTable::PropertyCategory, 6};
constexpr Kind vehicle{"vehicle", "vehicles", "Vehicle", "MIVehicle", CodeTable::VehicleCategory, 7};

constexpr int16_t viewRecords = 0, viewCustody = 0;
constexpr int16_t secured[] = {5, 6};  // either of these rights to incidents

bool MayView(const char* module, int16_t right) {
    return HostServices::Current().Session().HasPermission(module, right);
}

bool SeesSecuredIncidents() { return MayView("Incident", secured[0]) || MayView("Incident", secured[1]); }

RecordStatus StatusAt(int32_t locationType) {
    switch (locationType) {
    case 1: return RecordStatus::Uncategorized;
    case 2: return RecordStatus::InStorage;
    case 4: return RecordStatus::SignedOut;
    case 8: return RecordStatus::Disposed;
    default: return RecordStatus::NeedsReview;
    }
}

// The picture that stands for an attachment of this full name.
RecordPicture PictureFor(const std::string& attachment) {
    RecordPicture picture;
    try {
        picture.fileName = HostServices::Current().Thumbnails().Read(attachment);
    } catch (...) {
        picture.refusal = CurrentError().Description();
        return picture;
    }
    std::error_code unknown;
    picture.written = std::filesystem::last_write_time(picture.fileName, unknown);
    return picture;
}

// One reading of one record; what several rows name is looked up once.
class Reader {
public:
    explicit Reader(const RecordAddress& address)
        : m_kind(address.kind == RecordKind::Property ? property : vehicle),
          m_key(std::string(m_kind.table) + "No = " + std::to_string(address.number)) {
        m_record.address = address;
    }

    const Kind& RecordsKind() const { return m_kind; }

    // False when there is no such record.
    bool Read() {
        const auto row = HostDatabase().QueryRow("SELECT * FROM " + std::string(m_kind.table) + " WHERE " + m_key);
        if (!row) return false;
        ReadFields(*row);
        ReadPicture(row->Value("CurrImageSeq"));
        ReadPlace(row->Value("CurrTrackSeq"));
        ReadIncidents();
        if (MayView("Storage", viewCustody)) ReadCustody();
        return true;
    }

    Record Take() { return std::move(m_record); }

private:
    void ReadFields(const Row& row) {
        const auto text = [&row](const char* column) { return ToTextOrEmpty(row.Value(column)); };
        if (m_record.address.kind == RecordKind::Property) {
            m_record.identifier = text("PropertyID");
            m_record.description = text("Description");
            m_record.quantity = row.Value("Quantity");
            m_record.value = row.Value("PropertyValue");
            m_record.make = text("ManufacNbr");
            m_record.model = text("ModelNbr");
            m_record.serialNumber = text("SerialNbr");
        } else {
            m_record.identifier = text("RegNumber");
            const std::string state = text("RegStateCode");
            if (!m_record.identifier.empty() && !state.empty()) m_record.identifier += " (" + state + ")";
            m_record.year = text("VehYear");
            m_record.color = text("ColorCode");
            m_record.make = text("MakeCode");
            m_record.model = text("VehModel");
            m_record.description = VehicleDescription();
        }
        m_record.category = ToTextOrEmpty(CodeTableLookup().Name(m_kind.categories, row.Value("CategoryNo")));
        m_record.hasFinalDisposition = ToBool(row.Value("HasFinalDisposition"));
        m_record.finalDisposition =
            ToTextOrEmpty(CodeTableLookup().Description(CodeTable::FinalDispositionStatus, row.Value("CurrStatusNo")));
        m_record.dispositionNote = text("DisposalNote");
    }

    std::string VehicleDescription() const {
        std::vector<std::string> parts;
        for (const std::string& part : {m_record.year, m_record.color, m_record.make, m_record.model})
            if (!part.empty()) parts.push_back(part);
        return Join(parts, " ");
    }

    void ReadPicture(const TaggedValue& mainAttachment) {
        if (mainAttachment.HasNoValue()) return;
        const auto row = HostDatabase().QueryRow(
            "SELECT f.Path, i.FileName FROM AttachmentIndex i INNER JOIN AttachmentFolder f ON f.FolderNo = i.FolderNo"
            " WHERE i.IdNo = " +
            std::to_string(m_record.address.number) + " AND i.ObjTypeInd = " + std::to_string(m_kind.attachmentOwner) +
            " AND i.SeqNo = " + std::to_string(ToInt32(mainAttachment)));
        const std::string fileName = row ? ToTextOrEmpty(row->Value("FileName")) : "";
        if (fileName.empty()) return;
        const std::filesystem::path folder = ToTextOrEmpty(row->Value("Path"));
        m_record.picture = PictureFor((folder / std::filesystem::path(fileName).relative_path()).string());
    }

    std::string TrackingTable() const { return std::string(m_kind.table) + "Tracking"; }

    // An item that has been somewhere and is nowhere now was disposed of.
    void ReadPlace(const TaggedValue& currentStep) {
        TaggedValue place = Null();
        if (!currentStep.HasNoValue()) {
            place = HostDatabase().LookupValue(TrackingTable(), "StorageLocNo",
                                               {m_key, "SeqNo = " + std::to_string(ToInt32(currentStep))});
        }
        m_record.location = m_locations.FullPath(place);
        if (const auto type = m_locations.Type(place)) {
            m_record.status = StatusAt(*type);
        } else if (HostDatabase().QueryRow("SELECT SeqNo FROM " + TrackingTable() + " WHERE " + m_key)) {
            m_record.status = RecordStatus::Disposed;
        }
    }

    void ReadIncidents() {
        const std::string link = "Incd" + std::string(m_kind.table);
        const std::string sql = "SELECT DISTINCT i.IncidentId, i.CaseNbr, i.IsSecured, i.IncidentNo FROM " + link +
                                " l INNER JOIN Incident i ON i.IncidentNo = l.IncidentNo WHERE l." + m_key +
                                (SeesSecuredIncidents() ? "" : " AND i.IsSecured = 0") +
                                " ORDER BY i.IncidentId, i.IncidentNo";
        for (const Row& row : HostDatabase().QueryRows(sql)) {
            m_record.incidents.push_back({ToTextOrEmpty(row.Value("IncidentId")), ToTextOrEmpty(row.Value("CaseNbr")),
                                          ToBool(row.Value("IsSecured"))});
        }
    }

    void ReadCustody() {
        std::vector<CustodyStep>& steps = m_record.custody.emplace();
        const RowList rows = HostDatabase().QueryRows("SELECT * FROM " + TrackingTable() + " WHERE " + m_key +
                                                      " ORDER BY DateReceived DESC, LastUpdated DESC, SeqNo DESC");
        for (const Row& row : rows) {
            CustodyStep step;
            const TaggedValue& received = row.Value("DateReceived");
            if (!received.HasNoValue()) step.received = ToDateTime(received);
            step.reason = Reason(row.Value("CustodyReasonNo"));
            step.receivedFrom = Person(row.Value("ReceivedFrom"));
            step.receivedBy = Person(row.Value("ReceivedBy"));
            step.location = m_locations.FullPath(row.Value("StorageLocNo"));
            steps.push_back(std::move(step));
        }
    }

    std::string Reason(const TaggedValue& code) {
        return Remembered(m_reasons, code,
                          [&] { return ToTextOrEmpty(CodeTableLookup().Description(CodeTable::CustodyReason, code)); });
    }

    std::string Person(const TaggedValue& id) {
        return Remembered(m_persons, id, [&] { return PersonDirectory().NameForId(id); });
    }

    template <typename LookUp>
    static std::string Remembered(std::map<int32_t, std::string>& known, const TaggedValue& key, LookUp&& lookUp) {
        if (key.HasNoValue()) return {};
        const auto [entry, isNew] = known.try_emplace(ToInt32(key));
        if (isNew) entry->second = lookUp();
        return entry->second;
    }

    const Kind& m_kind;
    const std::string m_key;  // the condition that names the item, in its own table and in those about it
    Record m_record;
    LocationPaths m_locations;
    std::map<int32_t, std::string> m_reasons;
    std::map<int32_t, std::string> m_persons;
};

}  // namespace

RecordAnswer ReadRecord(const RecordAddress& address) {
    Reader reader(address);
    const Kind& kind = reader.RecordsKind();
    if (!MayView(kind.module, viewRecords)) {
        return RecordRefusal{"You do not have the appropriate permissions to view " + std::string(kind.words) + "."};
    }
    if (!reader.Read()) {
        return RecordRefusal{"There is no " + std::string(kind.word) + " with the number " +
                             std::to_string(address.number) + "."};
    }
    return reader.Take();
}

}  // namespace quellbrook
