#include "database/schema/SqliteSchema.h"

#include "base/Text.h"

namespace quellbrook {

namespace {

const char* const containerGoneText =
    "Its container has been moved or deleted in the meantime. Refresh the locations and try again.";
const char* const leftBehindText =
    "This location has been changed in the meantime, and sublocations would be left behind. Refresh the locations and "
    "try again.";

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
    UNIQUE (Path, Type, Name)
))sql";

const char* const locationContainerIndex = "CREATE INDEX StorageLocationContainer ON StorageLocation (ContainerNo)";

const char* const locationInsertGuard = R"sql(
CREATE TRIGGER StorageLocationInsertGuard BEFORE INSERT ON StorageLocation
WHEN NEW.Path <> '/0/' AND NOT EXISTS (
    SELECT 1 FROM StorageLocation c
    WHERE c.IdNo = CAST(SUBSTR(RTRIM(NEW.Path, '/'), LENGTH(RTRIM(RTRIM(NEW.Path, '/'), '0123456789')) + 1) AS INTEGER)
        AND c.Path || c.IdNo || '/' = NEW.Path AND c.Type = NEW.Type)
BEGIN
    SELECT RAISE(ABORT, '{container gone}');
END)sql";

// A move writes the descendants first. When such a row is written, its container is still at the old location or has
// just been written.
const char* const locationUpdateGuard = R"sql(
CREATE TRIGGER StorageLocationUpdateGuard BEFORE UPDATE OF Path, Type ON StorageLocation
WHEN (NEW.Path <> OLD.Path OR NEW.Type <> OLD.Type) AND NEW.Path <> '/0/' AND NOT EXISTS (
    SELECT 1 FROM StorageLocation c
    WHERE c.IdNo = CAST(SUBSTR(RTRIM(NEW.Path, '/'), LENGTH(RTRIM(RTRIM(NEW.Path, '/'), '0123456789')) + 1) AS INTEGER)
        AND ((c.Path || c.IdNo || '/' = NEW.Path AND c.Type = NEW.Type)
            OR (c.Path || c.IdNo || '/' = OLD.Path AND c.Type = OLD.Type)))
BEGIN
    SELECT RAISE(ABORT, '{container gone}');
END)sql";

// For the moved location itself, not a descendant: it gets another container, or another category at the top level.
const char* const locationMoveGuard = R"sql(
CREATE TRIGGER StorageLocationMoveGuard BEFORE UPDATE OF Path, Type ON StorageLocation
WHEN (NEW.ContainerNo IS NOT OLD.ContainerNo OR (NEW.Path = '/0/' AND NEW.Type <> OLD.Type)) AND EXISTS (
    SELECT 1 FROM StorageLocation d
    WHERE d.Path >= OLD.Path || OLD.IdNo || '/' AND d.Path < OLD.Path || OLD.IdNo || '0'
        AND (NEW.Path <> OLD.Path OR d.Type <> NEW.Type))
BEGIN
    SELECT RAISE(ABORT, '{left behind}');
END)sql";

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
    CurrStatusNo INTEGER
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
    CurrStatusNo INTEGER
))sql";

const char* const vehicleView = R"sql(CREATE VIEW vwVehicleDisplayInfo AS
SELECT VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle)sql";

const char* const factTable = "CREATE TABLE SchemaFact (Name TEXT NOT NULL PRIMARY KEY) WITHOUT ROWID";

// Below, {0} is Property or Vehicle, and {1} is the item type.
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
    R"sql(
CREATE TRIGGER {0}TrackingUpdateGuard BEFORE UPDATE ON {0}Tracking
BEGIN
    SELECT RAISE(ABORT, 'A custody row cannot be changed.');
END)sql",
    R"sql(
CREATE TRIGGER {0}TrackingDeleteGuard BEFORE DELETE ON {0}Tracking
BEGIN
    SELECT RAISE(ABORT, 'A custody row cannot be deleted.');
END)sql",
};

const char* const currentPlaceTable = R"sql(
CREATE TABLE CurrentPlace (
    StorageLocNo INTEGER NOT NULL,
    ItemType INTEGER NOT NULL,
    ItemNo INTEGER NOT NULL,
    PRIMARY KEY (StorageLocNo, ItemType, ItemNo)
) WITHOUT ROWID)sql";

struct NamedTrigger {
    const char* name;
    const char* text;
};

// Only a change of the item's current custody row deletes a row of CurrentPlace, not one of an older row at the same
// location.
const NamedTrigger currentPlaceTriggers[] = {
    {"{0}PlaceAfterInsert", R"sql(
CREATE TRIGGER {0}PlaceAfterInsert AFTER INSERT ON {0} WHEN NEW.CurrTrackSeq IS NOT NULL
BEGIN
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT StorageLocNo, {1}, {0}No FROM {0}Tracking
    WHERE {0}No = NEW.{0}No AND SeqNo = NEW.CurrTrackSeq AND StorageLocNo IS NOT NULL;
END)sql"},
    {"{0}PlaceAfterUpdate", R"sql(
CREATE TRIGGER {0}PlaceAfterUpdate AFTER UPDATE OF {0}No, CurrTrackSeq ON {0}
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = {1} AND ItemNo = OLD.{0}No AND StorageLocNo =
        (SELECT StorageLocNo FROM {0}Tracking WHERE {0}No = OLD.{0}No AND SeqNo = OLD.CurrTrackSeq);
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT StorageLocNo, {1}, {0}No FROM {0}Tracking
    WHERE {0}No = NEW.{0}No AND SeqNo = NEW.CurrTrackSeq AND StorageLocNo IS NOT NULL;
END)sql"},
    {"{0}PlaceAfterDelete", R"sql(
CREATE TRIGGER {0}PlaceAfterDelete AFTER DELETE ON {0} WHEN OLD.CurrTrackSeq IS NOT NULL
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = {1} AND ItemNo = OLD.{0}No AND StorageLocNo =
        (SELECT StorageLocNo FROM {0}Tracking WHERE {0}No = OLD.{0}No AND SeqNo = OLD.CurrTrackSeq);
END)sql"},
    {"{0}TrackingPlaceAfterInsert", R"sql(
CREATE TRIGGER {0}TrackingPlaceAfterInsert AFTER INSERT ON {0}Tracking WHEN NEW.StorageLocNo IS NOT NULL
BEGIN
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT NEW.StorageLocNo, {1}, {0}No FROM {0} WHERE {0}No = NEW.{0}No AND CurrTrackSeq = NEW.SeqNo;
END)sql"},
    {"{0}TrackingPlaceAfterUpdate", R"sql(
CREATE TRIGGER {0}TrackingPlaceAfterUpdate AFTER UPDATE OF {0}No, SeqNo, StorageLocNo ON {0}Tracking
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = {1} AND ItemNo = OLD.{0}No AND StorageLocNo = OLD.StorageLocNo
        AND EXISTS (SELECT 1 FROM {0} WHERE {0}No = OLD.{0}No AND CurrTrackSeq = OLD.SeqNo);
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT NEW.StorageLocNo, {1}, {0}No FROM {0}
    WHERE {0}No = NEW.{0}No AND CurrTrackSeq = NEW.SeqNo AND NEW.StorageLocNo IS NOT NULL;
END)sql"},
    {"{0}TrackingPlaceAfterDelete", R"sql(
CREATE TRIGGER {0}TrackingPlaceAfterDelete AFTER DELETE ON {0}Tracking
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = {1} AND ItemNo = OLD.{0}No AND StorageLocNo = OLD.StorageLocNo
        AND EXISTS (SELECT 1 FROM {0} WHERE {0}No = OLD.{0}No AND CurrTrackSeq = OLD.SeqNo);
END)sql"},
};

const char* const descriptionIndex = R"sql(
CREATE VIRTUAL TABLE PropertyDescription USING fts5(Description, content='Property', content_rowid='PropertyNo',
    tokenize='trigram', detail='none', columnsize=0))sql";

const NamedTrigger descriptionTriggers[] = {
    {"PropertyDescriptionAfterInsert", R"sql(
CREATE TRIGGER PropertyDescriptionAfterInsert AFTER INSERT ON Property
BEGIN
    INSERT INTO PropertyDescription (rowid, Description) VALUES (NEW.PropertyNo, NEW.Description);
END)sql"},
    {"PropertyDescriptionAfterUpdate", R"sql(
CREATE TRIGGER PropertyDescriptionAfterUpdate AFTER UPDATE OF PropertyNo, Description ON Property
BEGIN
    INSERT INTO PropertyDescription (PropertyDescription, rowid, Description)
    VALUES ('delete', OLD.PropertyNo, OLD.Description);
    INSERT INTO PropertyDescription (rowid, Description) VALUES (NEW.PropertyNo, NEW.Description);
END)sql"},
    {"PropertyDescriptionAfterDelete", R"sql(
CREATE TRIGGER PropertyDescriptionAfterDelete AFTER DELETE ON Property
BEGIN
    INSERT INTO PropertyDescription (PropertyDescription, rowid, Description)
    VALUES ('delete', OLD.PropertyNo, OLD.Description);
END)sql"},
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

const std::pair<const char*, const char*> itemKinds[] = {{"Property", "1"}, {"Vehicle", "2"}};

std::string ForKind(const char* text, const std::pair<const char*, const char*>& kind) {
    return Replace(Replace(text, "{0}", kind.first), "{1}", kind.second);
}

std::vector<std::string> FirstVersion() {
    std::vector<std::string> statements = {locationTable, locationContainerIndex};
    for (const char* guard : {locationInsertGuard, locationUpdateGuard, locationMoveGuard})
        statements.push_back(
            Replace(Replace(guard, "{container gone}", containerGoneText), "{left behind}", leftBehindText));
    statements.insert(statements.end(), {propertyTable, vehicleTable, vehicleView, currentPlaceTable, factTable});
    statements.push_back("INSERT INTO SchemaFact (Name) VALUES ('" + std::string(ItemsAreDistinctFact) + "')");
    statements.push_back("CREATE INDEX PropertyByPropertyID ON Property (PropertyID)");
    statements.push_back("CREATE INDEX VehicleByRegNumber ON Vehicle (RegNumber)");
    for (const auto& kind : itemKinds) {
        for (const char* text : custodyStatements) statements.push_back(ForKind(text, kind));
        for (const NamedTrigger& trigger : currentPlaceTriggers) statements.push_back(ForKind(trigger.text, kind));
    }
    statements.push_back(descriptionIndex);
    for (const NamedTrigger& trigger : descriptionTriggers) statements.push_back(trigger.text);
    statements.insert(statements.end(), std::begin(recordStatements), std::end(recordStatements));
    statements.insert(statements.end(), std::begin(hostStatements), std::end(hostStatements));
    return statements;
}

std::vector<std::string> NamesOfCurrentPlaceTriggers() {
    std::vector<std::string> names;
    for (const auto& kind : itemKinds)
        for (const NamedTrigger& trigger : currentPlaceTriggers) names.push_back(ForKind(trigger.name, kind));
    return names;
}

}  // namespace

const std::vector<SchemaScript>& SqliteSchemaScripts() {
    static const std::vector<SchemaScript> scripts = {{1, FirstVersion()}, {SchemaVersion, {batchMarkTable}}};
    return scripts;
}

const std::vector<std::string>& CurrentPlaceTriggers() {
    static const std::vector<std::string> names = NamesOfCurrentPlaceTriggers();
    return names;
}

const std::vector<std::string>& DescriptionIndexTriggers() {
    static const std::vector<std::string> names = {descriptionTriggers[0].name, descriptionTriggers[1].name,
                                                   descriptionTriggers[2].name};
    return names;
}

}  // namespace quellbrook
