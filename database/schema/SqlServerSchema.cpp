#include "base/Text.h"
#include "database/schema/ServerSchema.h"

namespace quellbrook {

namespace {

const char* const plainTables[] = {
    "CREATE TABLE SchemaVersion (Version INT NOT NULL)",
    "CREATE TABLE SchemaFact (Name NVARCHAR(100) NOT NULL PRIMARY KEY)",
    "INSERT INTO SchemaFact (Name) VALUES (N'ItemsAreDistinct')",
    R"sql(
CREATE TABLE BatchMark (
    MarkNo INT IDENTITY PRIMARY KEY,
    Name NVARCHAR(40) NOT NULL UNIQUE,
    WrittenAt DATETIME NOT NULL DEFAULT GETDATE()
))sql",
    R"sql(
CREATE TABLE StorageLocation (
    IdNo INT IDENTITY PRIMARY KEY CHECK (IdNo >= 1),
    Name NVARCHAR(400) NOT NULL,
    Type INT NOT NULL CHECK (Type IN (1, 2, 4, 8, 16)),
    Path NVARCHAR(400) NOT NULL,
    ActiveFlag BIT,
    DateEntered DATETIME NOT NULL,
    LastUpdated DATETIME NOT NULL,
    ContainerNo AS NULLIF(CAST(REVERSE(SUBSTRING(REVERSE(Path), 2, CHARINDEX('/', REVERSE(Path), 2) - 2)) AS INT), 0)
        PERSISTED REFERENCES StorageLocation (IdNo),
    CONSTRAINT StorageLocationName UNIQUE (Path, Type, Name)
))sql",
    "CREATE INDEX StorageLocationContainer ON StorageLocation (ContainerNo)",
    R"sql(
CREATE TABLE Property (
    PropertyNo INT IDENTITY PRIMARY KEY CHECK (PropertyNo >= 1),
    PropertyID NVARCHAR(400),
    Description NVARCHAR(MAX),
    CategoryNo INT,
    Quantity DECIMAL(12, 3),
    PropertyValue MONEY,
    ManufacNbr NVARCHAR(400),
    ModelNbr NVARCHAR(400),
    SerialNbr NVARCHAR(400),
    RecordTypeInd INT,
    CurrTrackSeq INT,
    CurrImageSeq INT,
    HasFinalDisposition BIT NOT NULL DEFAULT 0,
    DisposalNote NVARCHAR(MAX),
    CurrStatusNo INT
))sql",
    R"sql(
CREATE TABLE Vehicle (
    VehicleNo INT IDENTITY PRIMARY KEY CHECK (VehicleNo >= 1),
    RegNumber NVARCHAR(400),
    RegStateCode NVARCHAR(400),
    VehYear NVARCHAR(400),
    ColorCode NVARCHAR(400),
    MakeCode NVARCHAR(400),
    VehModel NVARCHAR(400),
    CategoryNo INT,
    RecordTypeInd INT,
    CurrTrackSeq INT,
    CurrImageSeq INT,
    HasFinalDisposition BIT NOT NULL DEFAULT 0,
    DisposalNote NVARCHAR(MAX),
    CurrStatusNo INT
))sql",
    R"sql(
CREATE VIEW vwVehicleDisplayInfo AS
    SELECT VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle)sql",
    "CREATE INDEX PropertyByPropertyID ON Property (PropertyID)",
    "CREATE INDEX VehicleByRegNumber ON Vehicle (RegNumber)",
    R"sql(
CREATE TABLE Incident (
    IncidentNo INT IDENTITY PRIMARY KEY CHECK (IncidentNo >= 1),
    IncidentId NVARCHAR(400),
    CaseNbr NVARCHAR(400),
    IsSecured BIT NOT NULL DEFAULT 0
))sql",
    "CREATE INDEX IncidentByIncidentId ON Incident (IncidentId)",
    "CREATE INDEX IncidentByCaseNbr ON Incident (CaseNbr) WHERE CaseNbr IS NOT NULL",
    "CREATE TABLE AttachmentFolder (FolderNo INT IDENTITY PRIMARY KEY, Path NVARCHAR(MAX) NOT NULL)",
    R"sql(
CREATE TABLE AttachmentIndex (
    IdNo INT NOT NULL,
    ObjTypeInd INT NOT NULL,
    SeqNo INT NOT NULL,
    FolderNo INT REFERENCES AttachmentFolder (FolderNo),
    FileName NVARCHAR(400),
    PRIMARY KEY (IdNo, ObjTypeInd, SeqNo)
))sql",
    R"sql(
CREATE TABLE CurrentPlace (
    StorageLocNo INT NOT NULL,
    ItemType INT NOT NULL,
    ItemNo INT NOT NULL,
    PRIMARY KEY (StorageLocNo, ItemType, ItemNo)
))sql",
    R"sql(
CREATE TABLE CodeTable (
    TableNumber INT NOT NULL,
    Code INT NOT NULL,
    Name NVARCHAR(400),
    Description NVARCHAR(400),
    IsActive BIT NOT NULL DEFAULT 1,
    PRIMARY KEY (TableNumber, Code)
))sql",
    R"sql(
CREATE TABLE Person (
    PersonNo INT PRIMARY KEY,
    Title NVARCHAR(100),
    FirstName NVARCHAR(400),
    LastName NVARCHAR(400) NOT NULL,
    DisplayName AS COALESCE(Title + ' ', '') + COALESCE(FirstName + ' ', '') + LastName,
    IsActive BIT NOT NULL DEFAULT 1
))sql",
    R"sql(
CREATE TABLE Account (
    Username NVARCHAR(200) NOT NULL PRIMARY KEY,
    PasswordHash NVARCHAR(400) NOT NULL,
    PersonNo INT REFERENCES Person (PersonNo),
    IsActive BIT NOT NULL DEFAULT 1
))sql",
    R"sql(
CREATE TABLE AccountRight (
    Username NVARCHAR(200) NOT NULL REFERENCES Account (Username) ON UPDATE CASCADE ON DELETE CASCADE,
    ModuleKey NVARCHAR(100) NOT NULL,
    Value INT NOT NULL,
    PRIMARY KEY (Username, ModuleKey, Value)
))sql",
    "CREATE TABLE Setting (Name NVARCHAR(200) NOT NULL PRIMARY KEY, Value NVARCHAR(MAX))",
};

// The tree is checked at the end of each statement. A move writes the descendants first: their container may still be
// at its old place.
const char* const locationGuard = R"sql(
CREATE TRIGGER StorageLocationGuard ON StorageLocation AFTER INSERT, UPDATE AS
BEGIN
    SET NOCOUNT ON;
    IF NOT (UPDATE(Path) OR UPDATE(Type)) RETURN;
    IF EXISTS (SELECT 1 FROM inserted i LEFT JOIN deleted o ON o.IdNo = i.IdNo
        WHERE i.Path <> '/0/' AND (o.IdNo IS NULL OR i.Path <> o.Path OR i.Type <> o.Type)
        AND NOT EXISTS (SELECT 1 FROM StorageLocation c WITH (UPDLOCK, HOLDLOCK) WHERE c.IdNo = i.ContainerNo
            AND ((c.Path + CAST(c.IdNo AS NVARCHAR(11)) + '/' = i.Path AND c.Type = i.Type)
                OR (c.Path + CAST(c.IdNo AS NVARCHAR(11)) + '/' = o.Path AND c.Type = o.Type))))
        THROW 50001, 'Its container has been moved or deleted in the meantime. Refresh the locations and try again.', 1;
    IF EXISTS (SELECT 1 FROM inserted i INNER JOIN deleted o ON o.IdNo = i.IdNo
        INNER JOIN StorageLocation d ON d.Path = o.Path + CAST(o.IdNo AS NVARCHAR(11)) + '/'
        WHERE (i.Path <> o.Path OR i.Type <> o.Type) AND (i.Path <> o.Path OR d.Type <> i.Type))
        THROW 50002, {left behind}, 1;
END)sql";

// {0} is Property or Vehicle, {1} the item type.
const char* const itemStatements[] = {
    R"sql(
CREATE TABLE {0}Tracking (
    {0}No INT NOT NULL REFERENCES {0} ({0}No),
    SeqNo INT NOT NULL CHECK (SeqNo >= 1),
    ReceivedBy INT,
    ReceivedFrom INT,
    DateReceived DATETIME,
    CustodyReasonNo INT,
    StorageLocNo INT REFERENCES StorageLocation (IdNo),
    LastUpdated DATETIME NOT NULL,
    PRIMARY KEY ({0}No, SeqNo)
))sql",
    "CREATE INDEX {0}TrackingPlace ON {0}Tracking (StorageLocNo)",
    "ALTER TABLE {0} ADD FOREIGN KEY ({0}No, CurrTrackSeq) REFERENCES {0}Tracking ({0}No, SeqNo)",
    R"sql(
CREATE TABLE Incd{0} (
    IncidentNo INT NOT NULL REFERENCES Incident (IncidentNo),
    {0}No INT NOT NULL REFERENCES {0} ({0}No)
))sql",
    "CREATE INDEX Incd{0}By{0}No ON Incd{0} ({0}No)",
    "CREATE INDEX Incd{0}ByIncidentNo ON Incd{0} (IncidentNo)",
    R"sql(
CREATE TRIGGER {0}TrackingUpdateGuard ON {0}Tracking INSTEAD OF UPDATE AS
    THROW 50003, 'A custody row cannot be changed.', 1)sql",
    R"sql(
CREATE TRIGGER {0}TrackingDeleteGuard ON {0}Tracking INSTEAD OF DELETE AS
    THROW 50004, 'A custody row cannot be deleted.', 1)sql",
    R"sql(
CREATE TRIGGER {0}Place ON {0} AFTER INSERT, UPDATE, DELETE AS
BEGIN
    SET NOCOUNT ON;
    DELETE p FROM CurrentPlace p INNER JOIN deleted o ON p.ItemType = {1} AND p.ItemNo = o.{0}No
        INNER JOIN {0}Tracking t ON t.{0}No = o.{0}No AND t.SeqNo = o.CurrTrackSeq AND t.StorageLocNo = p.StorageLocNo;
    INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
        SELECT t.StorageLocNo, {1}, i.{0}No FROM inserted i
        INNER JOIN {0}Tracking t ON t.{0}No = i.{0}No AND t.SeqNo = i.CurrTrackSeq AND t.StorageLocNo IS NOT NULL
        WHERE NOT EXISTS (SELECT 1 FROM CurrentPlace p
            WHERE p.StorageLocNo = t.StorageLocNo AND p.ItemType = {1} AND p.ItemNo = i.{0}No);
END)sql",
    R"sql(
CREATE TRIGGER {0}TrackingPlace ON {0}Tracking AFTER INSERT, UPDATE, DELETE AS
BEGIN
    SET NOCOUNT ON;
    DELETE p FROM CurrentPlace p INNER JOIN deleted o
        ON p.ItemType = {1} AND p.ItemNo = o.{0}No AND p.StorageLocNo = o.StorageLocNo
        INNER JOIN {0} x ON x.{0}No = o.{0}No AND x.CurrTrackSeq = o.SeqNo;
    INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
        SELECT i.StorageLocNo, {1}, i.{0}No FROM inserted i
        INNER JOIN {0} x ON x.{0}No = i.{0}No AND x.CurrTrackSeq = i.SeqNo
        WHERE i.StorageLocNo IS NOT NULL AND NOT EXISTS (SELECT 1 FROM CurrentPlace p
            WHERE p.StorageLocNo = i.StorageLocNo AND p.ItemType = {1} AND p.ItemNo = i.{0}No);
END)sql",
};

std::vector<std::string> AllStatements() {
    std::vector<std::string> statements(std::begin(plainTables), std::end(plainTables));
    statements.push_back("INSERT INTO SchemaVersion (Version) VALUES (" + std::to_string(ServerSchemaVersion) + ")");
    // One literal, since THROW takes no expression.
    statements.push_back(Replace(locationGuard, "{left behind}",
                                 "'This location has been changed in the meantime, and sublocations would be left "
                                 "behind. Refresh the locations and try again.'"));
    for (const auto& [kind, type] : {std::pair("Property", "1"), std::pair("Vehicle", "2")})
        for (const char* text : itemStatements) statements.push_back(Replace(Replace(text, "{0}", kind), "{1}", type));
    return statements;
}

}  // namespace

const std::vector<std::string>& SqlServerSchemaStatements() {
    static const std::vector<std::string> statements = AllStatements();
    return statements;
}

}  // namespace quellbrook
