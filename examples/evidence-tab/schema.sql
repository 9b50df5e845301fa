-- The smallest schema of a host's own that the component works on, for SQLite. A real host has these tables already,
-- with more columns, or offers them as views.
--
-- Declared types matter: a column with DATE or TIME in its type is read as a date, with BOOL as a boolean, with INT as
-- a whole number, with DECIMAL or MONEY as a number. Dates are texts such as 2026-03-01T09:30:00.000, in local time.
-- Texts that users look for ignore the case of letters with COLLATE NOCASE.
--
-- Foreign keys are part of the contract: the component deletes a location and relies on the database to refuse that
-- while items are there.

CREATE TABLE StorageLocation (
    IdNo INTEGER PRIMARY KEY AUTOINCREMENT,
    Name TEXT NOT NULL COLLATE NOCASE,
    Type INTEGER NOT NULL,         -- 1 uncategorized, 2 sign-in, 4 sign-out, 8 final disposition, 16 other
    Path TEXT NOT NULL,            -- the keys of the containers: /0/ at the top, /0/5/ in location 5
    ActiveFlag BOOLEAN,            -- NULL counts as enabled
    DateEntered DATETIME NOT NULL,
    LastUpdated DATETIME NOT NULL,
    UNIQUE (Path, Type, Name)
);

CREATE TABLE Property (
    PropertyNo INTEGER PRIMARY KEY AUTOINCREMENT,
    PropertyID TEXT COLLATE NOCASE,
    Description TEXT COLLATE NOCASE,
    CategoryNo INTEGER,            -- code table 31
    Quantity DECIMAL(12, 3),
    PropertyValue MONEY,
    ManufacNbr TEXT,
    ModelNbr TEXT,
    SerialNbr TEXT,
    RecordTypeInd INTEGER,         -- 1: tagged as evidence
    CurrTrackSeq INTEGER,          -- the SeqNo of the item's latest custody row; NULL for new evidence
    CurrImageSeq INTEGER,          -- the SeqNo of its main attachment
    HasFinalDisposition BOOLEAN NOT NULL DEFAULT 0,
    DisposalNote TEXT,
    CurrStatusNo INTEGER,          -- code table 30
    FOREIGN KEY (PropertyNo, CurrTrackSeq) REFERENCES PropertyTracking (PropertyNo, SeqNo)
        DEFERRABLE INITIALLY DEFERRED
);

CREATE TABLE Vehicle (
    VehicleNo INTEGER PRIMARY KEY AUTOINCREMENT,
    RegNumber TEXT COLLATE NOCASE,
    RegStateCode TEXT,
    VehYear TEXT,
    ColorCode TEXT,
    MakeCode TEXT,
    VehModel TEXT,
    CategoryNo INTEGER,            -- code table 46
    RecordTypeInd INTEGER,
    CurrTrackSeq INTEGER,
    CurrImageSeq INTEGER,
    HasFinalDisposition BOOLEAN NOT NULL DEFAULT 0,
    DisposalNote TEXT,
    CurrStatusNo INTEGER,
    FOREIGN KEY (VehicleNo, CurrTrackSeq) REFERENCES VehicleTracking (VehicleNo, SeqNo)
        DEFERRABLE INITIALLY DEFERRED
);

-- A vehicle's columns as they are shown.
CREATE VIEW vwVehicleDisplayInfo AS
SELECT VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle;

-- The chain of custody. The component only adds rows; protect them in your own schema, for example with triggers.
CREATE TABLE PropertyTracking (
    PropertyNo INTEGER NOT NULL REFERENCES Property (PropertyNo),
    SeqNo INTEGER NOT NULL,        -- from 1, without gaps
    ReceivedBy INTEGER,            -- PersonNo
    ReceivedFrom INTEGER,          -- PersonNo
    DateReceived DATETIME,
    CustodyReasonNo INTEGER,       -- code table 38
    StorageLocNo INTEGER REFERENCES StorageLocation (IdNo),
    LastUpdated DATETIME NOT NULL,
    PRIMARY KEY (PropertyNo, SeqNo)
);
CREATE INDEX PropertyTrackingPlace ON PropertyTracking (StorageLocNo);

CREATE TABLE VehicleTracking (
    VehicleNo INTEGER NOT NULL REFERENCES Vehicle (VehicleNo),
    SeqNo INTEGER NOT NULL,
    ReceivedBy INTEGER,
    ReceivedFrom INTEGER,
    DateReceived DATETIME,
    CustodyReasonNo INTEGER,
    StorageLocNo INTEGER REFERENCES StorageLocation (IdNo),
    LastUpdated DATETIME NOT NULL,
    PRIMARY KEY (VehicleNo, SeqNo)
);
CREATE INDEX VehicleTrackingPlace ON VehicleTracking (StorageLocNo);

CREATE TABLE Incident (
    IncidentNo INTEGER PRIMARY KEY,
    IncidentId TEXT COLLATE NOCASE,
    CaseNbr TEXT COLLATE NOCASE,
    IsSecured BOOLEAN NOT NULL DEFAULT 0
);
CREATE TABLE IncdProperty (
    IncidentNo INTEGER NOT NULL REFERENCES Incident (IncidentNo),
    PropertyNo INTEGER NOT NULL REFERENCES Property (PropertyNo)
);
CREATE TABLE IncdVehicle (
    IncidentNo INTEGER NOT NULL REFERENCES Incident (IncidentNo),
    VehicleNo INTEGER NOT NULL REFERENCES Vehicle (VehicleNo)
);

-- The main attachment of an item is the row with its CurrImageSeq.
CREATE TABLE AttachmentFolder (
    FolderNo INTEGER PRIMARY KEY,
    Path TEXT NOT NULL
);
CREATE TABLE AttachmentIndex (
    IdNo INTEGER NOT NULL,         -- PropertyNo or VehicleNo
    ObjTypeInd INTEGER NOT NULL,   -- 6 property, 7 vehicle
    SeqNo INTEGER NOT NULL,
    FolderNo INTEGER REFERENCES AttachmentFolder (FolderNo),
    FileName TEXT,
    PRIMARY KEY (IdNo, ObjTypeInd, SeqNo)
);

CREATE TABLE CodeTable (
    TableNumber INTEGER NOT NULL,  -- 30 final disposition, 31 property, 38 reason, 46 vehicles
    Code INTEGER NOT NULL,
    Name TEXT,
    Description TEXT,              -- shown in lists and chains of custody; give each code both texts
    IsActive BOOLEAN NOT NULL DEFAULT 1,
    PRIMARY KEY (TableNumber, Code)
);
CREATE TABLE Person (
    PersonNo INTEGER PRIMARY KEY,
    Title TEXT,
    FirstName TEXT,
    LastName TEXT NOT NULL,
    IsActive BOOLEAN NOT NULL DEFAULT 1
);
