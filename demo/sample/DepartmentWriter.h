#pragma once

#include "demo/sample/BulkLoad.h"
#include "demo/sample/Codes.h"
#include "demo/sample/Rows.h"

#include <string>
#include <vector>

namespace quellbrook::sample {

// Writes a department's rows into a new database through BulkLoad.
class DepartmentWriter {
public:
    explicit DepartmentWriter(const std::string& path);

    void AddLocation(const Location& location);
    void AddCodes(int16_t table, const std::vector<Code>& codes);
    void AddPerson(const Person& person);
    void AddAccount(const std::string& username, const std::string& passwordHash, int32_t person);
    void AddRight(const std::string& username, const std::string& module, int32_t value);
    void AddSetting(const std::string& name, const std::string& value);
    void AddIncident(const Incident& incident);
    void AddFolder(int32_t folder, const std::string& path);
    // The item with its attachments and its chain, oldest row first. The last row becomes the current one.
    void AddProperty(const Property& property, const std::vector<Custody>& chain);
    void AddVehicle(const Vehicle& vehicle, const std::vector<Custody>& chain);
    void LinkProperty(int32_t incident, int32_t property);
    void LinkVehicle(int32_t incident, int32_t vehicle);

    // The last call. Error 5 with a sentence if the rows are inconsistent.
    void Finish(const SampleProgress& progress) { m_load.Finish(progress); }

private:
    static void Add(SQLite::Statement& insert);
    static void AddChain(SQLite::Statement& insert, int32_t item, const std::vector<Custody>& chain);
    void AddAttachments(int32_t owner, int32_t ownerKind, const std::vector<Attachment>& files);

    BulkLoad m_load;
    SQLite::Database& m_database = m_load.Database();
    SQLite::Statement m_location;
    SQLite::Statement m_code;
    SQLite::Statement m_person;
    SQLite::Statement m_account;
    SQLite::Statement m_right;
    SQLite::Statement m_setting;
    SQLite::Statement m_incident;
    SQLite::Statement m_folder;
    SQLite::Statement m_attachment;
    SQLite::Statement m_property;
    SQLite::Statement m_propertyCustody;
    SQLite::Statement m_propertyLink;
    SQLite::Statement m_vehicle;
    SQLite::Statement m_vehicleCustody;
    SQLite::Statement m_vehicleLink;
};

}  // namespace quellbrook::sample
