#include "database/schema/SqliteSchema.h"

#include "base/Text.h"
#include "database/schema/SchemaTriggers.h"
#include "database/schema/SideTables.h"

namespace quellbrook {

namespace {

const char* const locationTable = R"sql(
CREATE TABLE StorageLocation (
    IdNo INTEGER PRIMARY KEY AUTOINCREMENT CHECK (IdNo BETWEEN 1 AND 2147483647),
    Name TEXT NOT NULL COLLATE NOCASE,
    Type INTEGER NOT NULL CHECK (Type IN (1, 2, 4, 8, 16)),
    Path TEXT NOT NULL COLLATE NOCASE,
    ActiveFlag BOOLEAN,
    DateEntered DATETIME NOT NULL,
    LastUpdated DATETIME NOT NULL,
    ContainerNo INTEGER GENERATED ALWAYS AS (
        NULLIF(CAST(SUBSTR(RTRIM(Path, '/'), LENGTH(RTRIM(RTRIM(Path, '/'), '0123456789')) + 1) AS INTEGER), 0)
    ) VIRTUAL REFERENCES StorageLocation (IdNo),
    ContainerPath TEXT COLLATE NOCASE GENERATED ALWAYS AS (RTRIM(RTRIM(Path, '/'), '0123456789')) VIRTUAL,
    UNIQUE (Path, Type, Name),
    FOREIGN KEY (ContainerNo, ContainerPath, Type) REFERENCES StorageLocation (IdNo, Path, Type)
        DEFERRABLE INITIALLY DEFERRED
))sql";

const char* const locationIndexes[] = {
    "CREATE UNIQUE INDEX StorageLocationPlace ON StorageLocation (IdNo, Path, Type)",
    "CREATE INDEX StorageLocationContainer ON StorageLocation (ContainerNo, ContainerPath, Type)",
};

const char* const propertyTable = R"sql(
CREATE TABLE Property (
    PropertyNo INTEGER PRIMARY KEY AUTOINCREMENT CHECK (PropertyNo BETWEEN 1 AND 2147483647),
    PropertyID TEXT COLLATE NOCASE,
    Description TEXT COLLATE NOCASE,
    CategoryNo INTEGER,
    Quantity DECIMAL(12, 3),
    PropertyValue MONEY,
    ManufacNbr TEXT COLLATE NOCASE,
    ModelNbr TEXT COLLATE NOCASE,
    SerialNbr TEXT COLLATE NOCASE,
    RecordTypeInd INTEGER,
    CurrTrackSeq INTEGER,
    CurrImageSeq INTEGER,
    HasFinalDisposition BOOLEAN NOT NULL DEFAULT 0,
    DisposalNote TEXT,
    CurrStatusNo INTEGER,
    FOREIGN KEY (PropertyNo, CurrTrackSeq) REFERENCES PropertyTracking (PropertyNo, SeqNo)
        DEFERRABLE INITIALLY DEFERRED
))sql";

const char* const vehicleTable = R"sql(
CREATE TABLE Vehicle (
    VehicleNo INTEGER PRIMARY KEY AUTOINCREMENT CHECK (VehicleNo BETWEEN 1 AND 2147483647),
    RegNumber TEXT COLLATE NOCASE,
    RegStateCode TEXT COLLATE NOCASE,
    VehYear TEXT COLLATE NOCASE,
    ColorCode TEXT COLLATE NOCASE,
    MakeCode TEXT COLLATE NOCASE,
    VehModel TEXT COLLATE NOCASE,
    CategoryNo INTEGER,
    RecordTypeInd INTEGER,
    CurrTrackSeq INTEGER,
    CurrImageSeq INTEGER,
    HasFinalDisposition BOOLEAN NOT NULL DEFAULT 0,
    DisposalNote TEXT,
    CurrStatusNo INTEGER,
    FOREIGN KEY (VehicleNo, CurrTrackSeq) REFERENCES VehicleTracking (VehicleNo, SeqNo)
        DEFERRABLE INITIALLY DEFERRED
))sql";

const char* const vehicleView = R"sql(CREATE VIEW vwVehicleDisplayInfo AS
SELECT VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle)sql";

const char* const factTable = "CREATE TABLE SchemaFact (Name TEXT NOT NULL PRIMARY KEY) WITHOUT ROWID";

// Below, {0} is Property or Vehicle.
const char* const custodyStatements[] = {
    R"sql(
CREATE TABLE {0}Tracking (
    {0}No INTEGER NOT NULL REFERENCES {0} ({0}No),
    SeqNo INTEGER NOT NULL CHECK (SeqNo BETWEEN 1 AND 2147483647),
    ReceivedBy INTEGER,
    ReceivedFrom INTEGER,
    DateReceived DATETIME,
    CustodyReasonNo INTEGER,
    StorageLocNo INTEGER REFERENCES StorageLocation (IdNo),
    LastUpdated DATETIME NOT NULL,
    PRIMARY KEY ({0}No, SeqNo)
) WITHOUT ROWID)sql",
    "CREATE INDEX {0}TrackingPlace ON {0}Tracking (StorageLocNo)",
};

const char* const recordStatements[] = {
    R"sql(
CREATE TABLE Incident (
    IncidentNo INTEGER PRIMARY KEY AUTOINCREMENT CHECK (IncidentNo BETWEEN 1 AND 2147483647),
    IncidentId TEXT COLLATE NOCASE,
    CaseNbr TEXT COLLATE NOCASE,
    IsSecured BOOLEAN NOT NULL DEFAULT 0
))sql",
    "CREATE INDEX IncidentByIncidentId ON Incident (IncidentId)",
    "CREATE INDEX IncidentByCaseNbr ON Incident (CaseNbr) WHERE CaseNbr IS NOT NULL",
    R"sql(
CREATE TABLE IncdProperty (
    IncidentNo INTEGER NOT NULL REFERENCES Incident (IncidentNo),
    PropertyNo INTEGER NOT NULL REFERENCES Property (PropertyNo)
))sql",
    "CREATE INDEX IncdPropertyByPropertyNo ON IncdProperty (PropertyNo)",
    "CREATE INDEX IncdPropertyByIncidentNo ON IncdProperty (IncidentNo)",
    R"sql(
CREATE TABLE IncdVehicle (
    IncidentNo INTEGER NOT NULL REFERENCES Incident (IncidentNo),
    VehicleNo INTEGER NOT NULL REFERENCES Vehicle (VehicleNo)
))sql",
    "CREATE INDEX IncdVehicleByVehicleNo ON IncdVehicle (VehicleNo)",
    "CREATE INDEX IncdVehicleByIncidentNo ON IncdVehicle (IncidentNo)",
    R"sql(
CREATE TABLE AttachmentFolder (
    FolderNo INTEGER PRIMARY KEY,
    Path TEXT NOT NULL
))sql",
    R"sql(
CREATE TABLE AttachmentIndex (
    IdNo INTEGER NOT NULL,
    ObjTypeInd INTEGER NOT NULL,
    SeqNo INTEGER NOT NULL,
    FolderNo INTEGER REFERENCES AttachmentFolder (FolderNo),
    FileName TEXT,
    PRIMARY KEY (IdNo, ObjTypeInd, SeqNo)
) WITHOUT ROWID)sql",
};

const char* const hostStatements[] = {
    R"sql(
CREATE TABLE CodeTable (
    TableNumber INTEGER NOT NULL,
    Code INTEGER NOT NULL,
    Name TEXT COLLATE NOCASE,
    Description TEXT COLLATE NOCASE,
    IsActive BOOLEAN NOT NULL DEFAULT 1,
    PRIMARY KEY (TableNumber, Code)
) WITHOUT ROWID)sql",
    R"sql(
CREATE TABLE Person (
    PersonNo INTEGER PRIMARY KEY CHECK (PersonNo BETWEEN -2147483648 AND 2147483647),
    Title TEXT COLLATE NOCASE,
    FirstName TEXT COLLATE NOCASE,
    LastName TEXT NOT NULL COLLATE NOCASE,
    DisplayName TEXT COLLATE NOCASE GENERATED ALWAYS AS (
        COALESCE(Title || ' ', '') || COALESCE(FirstName || ' ', '') || LastName) VIRTUAL,
    IsActive BOOLEAN NOT NULL DEFAULT 1
))sql",
    R"sql(
CREATE TABLE Account (
    Username TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    PasswordHash TEXT NOT NULL,
    PersonNo INTEGER REFERENCES Person (PersonNo),
    IsActive BOOLEAN NOT NULL DEFAULT 1
) WITHOUT ROWID)sql",
    R"sql(
CREATE TABLE AccountRight (
    Username TEXT NOT NULL COLLATE NOCASE REFERENCES Account (Username) ON UPDATE CASCADE ON DELETE CASCADE,
    ModuleKey TEXT NOT NULL COLLATE NOCASE,
    Value INTEGER NOT NULL,
    PRIMARY KEY (Username, ModuleKey, Value)
) WITHOUT ROWID)sql",
    R"sql(
CREATE TABLE Setting (
    Name TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    Value TEXT
) WITHOUT ROWID)sql",
};

const char* const batchMarkTable = R"sql(
CREATE TABLE BatchMark (
    MarkNo INTEGER PRIMARY KEY,
    Token INTEGER NOT NULL
))sql";

template <typename Texts>
void Append(std::vector<std::string>& statements, const Texts& texts) {
    statements.insert(statements.end(), std::begin(texts), std::end(texts));
}

}  // namespace

std::vector<std::string> SqliteSchemaStatements() {
    std::vector<std::string> statements = {locationTable};
    Append(statements, locationIndexes);
    Append(statements, std::initializer_list<const char*>{propertyTable, vehicleTable, vehicleView, factTable});
    statements.push_back("INSERT INTO SchemaFact (Name) VALUES ('" + std::string(ItemsAreDistinctFact) + "')");
    statements.push_back("CREATE INDEX PropertyByPropertyID ON Property (PropertyID)");
    statements.push_back("CREATE INDEX VehicleByRegNumber ON Vehicle (RegNumber)");
    for (const char* kind : {"Property", "Vehicle"})
        for (const char* text : custodyStatements) statements.push_back(Replace(text, "{0}", kind));
    Append(statements, SideTableStatements());
    Append(statements, recordStatements);
    Append(statements, hostStatements);
    statements.push_back(batchMarkTable);
    for (const SchemaTrigger& trigger : SchemaTriggers()) statements.push_back(trigger.sql);
    Append(statements, SideTableProofStatements());
    return statements;
}

}  // namespace quellbrook
