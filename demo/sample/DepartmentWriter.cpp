#include "demo/sample/DepartmentWriter.h"

namespace quellbrook::sample {

namespace {

const char* const locationDate = "2023-11-01T08:00:00.000";

// Kinds of an attachment's owner.
constexpr int32_t ownedByProperty = 6, ownedByVehicle = 7;

template <typename Number>
void BindNumber(SQLite::Statement& statement, int index, const std::optional<Number>& value) {
    if (value) {
        statement.bind(index, *value);
    } else {
        statement.bind(index);
    }
}

// Stores an empty text as NULL. The text must outlive the statement's next step.
void BindText(SQLite::Statement& statement, int index, const std::string& value) {
    if (value.empty()) {
        statement.bind(index);
    } else {
        statement.bindNoCopy(index, value);
    }
}

void BindDisposition(SQLite::Statement& statement, int index, const std::optional<Disposition>& disposition) {
    statement.bind(index, disposition ? 1 : 0);
    if (disposition) {
        BindText(statement, index + 1, disposition->note);
        statement.bind(index + 2, disposition->status);
    } else {
        statement.bind(index + 1);
        statement.bind(index + 2);
    }
}

std::optional<int32_t> CurrentSequence(const std::vector<Custody>& chain) {
    if (chain.empty()) return std::nullopt;
    return static_cast<int32_t>(chain.size());
}

}  // namespace

DepartmentWriter::DepartmentWriter(const std::string& path)
    : m_load(path),
      m_location(m_database,
                 "INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) "
                 "VALUES (?, ?, ?, ?, ?, ?, ?)"),
      m_code(m_database,
             "INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (?, ?, ?, ?, ?)"),
      m_person(m_database,
               "INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (?, ?, ?, ?, ?)"),
      m_account(m_database, "INSERT INTO Account (Username, PasswordHash, PersonNo) VALUES (?, ?, ?)"),
      m_right(m_database, "INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES (?, ?, ?)"),
      m_setting(m_database, "INSERT INTO Setting (Name, Value) VALUES (?, ?)"),
      m_incident(m_database, "INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (?, ?, ?, ?)"),
      m_folder(m_database, "INSERT INTO AttachmentFolder (FolderNo, Path) VALUES (?, ?)"),
      m_attachment(m_database,
                   "INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (?, ?, ?, ?, ?)"),
      m_property(m_database,
                 "INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, "
                 "ManufacNbr, ModelNbr, SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, "
                 "DisposalNote, CurrStatusNo) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      m_propertyCustody(m_database,
                        "INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, "
                        "CustodyReasonNo, StorageLocNo, LastUpdated) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
      m_propertyLink(m_database, "INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (?, ?)"),
      m_vehicle(m_database,
                "INSERT INTO Vehicle (VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel, "
                "CategoryNo, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, "
                "CurrStatusNo) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      m_vehicleCustody(m_database,
                       "INSERT INTO VehicleTracking (VehicleNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, "
                       "CustodyReasonNo, StorageLocNo, LastUpdated) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
      m_vehicleLink(m_database, "INSERT INTO IncdVehicle (IncidentNo, VehicleNo) VALUES (?, ?)") {}

void DepartmentWriter::Add(SQLite::Statement& insert) {
    insert.exec();
    insert.reset();
}

void DepartmentWriter::AddLocation(const Location& location) {
    m_location.bind(1, location.id);
    m_location.bindNoCopy(2, location.name);
    m_location.bind(3, location.type);
    m_location.bindNoCopy(4, location.path);
    BindNumber(m_location, 5, location.active);
    m_location.bind(6, locationDate);
    m_location.bind(7, locationDate);
    Add(m_location);
}

void DepartmentWriter::AddCodes(int16_t table, const std::vector<Code>& codes) {
    for (const Code& code : codes) {
        m_code.bind(1, table);
        m_code.bind(2, code.code);
        m_code.bindNoCopy(3, code.text);
        m_code.bindNoCopy(4, code.text);
        m_code.bind(5, code.active ? 1 : 0);
        Add(m_code);
    }
}

void DepartmentWriter::AddPerson(const Person& person) {
    m_person.bind(1, person.no);
    m_person.bindNoCopy(2, person.title);
    m_person.bindNoCopy(3, person.firstName);
    m_person.bindNoCopy(4, person.lastName);
    m_person.bind(5, person.active ? 1 : 0);
    Add(m_person);
}

void DepartmentWriter::AddAccount(const std::string& username, const std::string& passwordHash, int32_t person) {
    m_account.bindNoCopy(1, username);
    m_account.bindNoCopy(2, passwordHash);
    m_account.bind(3, person);
    Add(m_account);
}

void DepartmentWriter::AddRight(const std::string& username, const std::string& module, int32_t value) {
    m_right.bindNoCopy(1, username);
    m_right.bindNoCopy(2, module);
    m_right.bind(3, value);
    Add(m_right);
}

void DepartmentWriter::AddSetting(const std::string& name, const std::string& value) {
    m_setting.bindNoCopy(1, name);
    m_setting.bindNoCopy(2, value);
    Add(m_setting);
}

void DepartmentWriter::AddIncident(const Incident& incident) {
    m_incident.bind(1, incident.no);
    m_incident.bindNoCopy(2, incident.id);
    BindText(m_incident, 3, incident.caseNumber);
    m_incident.bind(4, incident.secured ? 1 : 0);
    Add(m_incident);
}

void DepartmentWriter::AddFolder(int32_t folder, const std::string& path) {
    m_folder.bind(1, folder);
    m_folder.bindNoCopy(2, path);
    Add(m_folder);
}

void DepartmentWriter::AddProperty(const Property& property, const std::vector<Custody>& chain) {
    m_property.bind(1, property.no);
    if (property.id) {
        m_property.bindNoCopy(2, *property.id);
    } else {
        m_property.bind(2);
    }
    BindText(m_property, 3, property.description);
    BindNumber(m_property, 4, property.category);
    BindNumber(m_property, 5, property.quantity);
    if (property.cents) {
        m_property.bind(6, *property.cents / 100.0);
    } else {
        m_property.bind(6);
    }
    BindText(m_property, 7, property.make);
    BindText(m_property, 8, property.model);
    BindText(m_property, 9, property.serial);
    m_property.bind(10, property.tagged ? 1 : 0);
    BindNumber(m_property, 11, CurrentSequence(chain));
    BindNumber(m_property, 12, property.attachments.image);
    BindDisposition(m_property, 13, property.disposition);
    Add(m_property);
    AddChain(m_propertyCustody, property.no, chain);
    AddAttachments(property.no, ownedByProperty, property.attachments.files);
}

void DepartmentWriter::AddVehicle(const Vehicle& vehicle, const std::vector<Custody>& chain) {
    const std::string year = vehicle.year > 0 ? std::to_string(vehicle.year) : "";
    m_vehicle.bind(1, vehicle.no);
    BindText(m_vehicle, 2, vehicle.tag);
    BindText(m_vehicle, 3, vehicle.state);
    BindText(m_vehicle, 4, year);
    BindText(m_vehicle, 5, vehicle.color);
    BindText(m_vehicle, 6, vehicle.make);
    BindText(m_vehicle, 7, vehicle.model);
    BindNumber(m_vehicle, 8, vehicle.category);
    m_vehicle.bind(9, vehicle.tagged ? 1 : 0);
    BindNumber(m_vehicle, 10, CurrentSequence(chain));
    BindNumber(m_vehicle, 11, vehicle.attachments.image);
    BindDisposition(m_vehicle, 12, vehicle.disposition);
    Add(m_vehicle);
    AddChain(m_vehicleCustody, vehicle.no, chain);
    AddAttachments(vehicle.no, ownedByVehicle, vehicle.attachments.files);
}

void DepartmentWriter::AddAttachments(int32_t owner, int32_t ownerKind, const std::vector<Attachment>& files) {
    int32_t sequence = 0;
    for (const Attachment& file : files) {
        m_attachment.bind(1, owner);
        m_attachment.bind(2, ownerKind);
        m_attachment.bind(3, ++sequence);
        BindNumber(m_attachment, 4, file.folder);
        BindText(m_attachment, 5, file.fileName);
        Add(m_attachment);
    }
}

void DepartmentWriter::AddChain(SQLite::Statement& insert, int32_t item, const std::vector<Custody>& chain) {
    int32_t sequence = 0;
    for (const Custody& custody : chain) {
        const std::string received = custody.received.ToText();
        const std::string written = custody.written.ToText();
        insert.bind(1, item);
        insert.bind(2, ++sequence);
        BindNumber(insert, 3, custody.receivedBy);
        BindNumber(insert, 4, custody.receivedFrom);
        insert.bindNoCopy(5, received);
        BindNumber(insert, 6, custody.reason);
        BindNumber(insert, 7, custody.location);
        insert.bindNoCopy(8, written);
        Add(insert);
    }
}

void DepartmentWriter::LinkProperty(int32_t incident, int32_t property) {
    m_propertyLink.bind(1, incident);
    m_propertyLink.bind(2, property);
    Add(m_propertyLink);
}

void DepartmentWriter::LinkVehicle(int32_t incident, int32_t vehicle) {
    m_vehicleLink.bind(1, incident);
    m_vehicleLink.bind(2, vehicle);
    Add(m_vehicleLink);
}

}  // namespace quellbrook::sample
