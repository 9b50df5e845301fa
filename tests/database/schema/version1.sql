-- A small department, made by the program when its schema had version 1.
PRAGMA application_id = 1363299121;
BEGIN;
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
);
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (1,
    'Property Room', 2, '/0/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (11, 'Aisle 3', 2,
    '/0/1/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (12, 'Shelf A', 2,
    '/0/1/11/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (13, 'Shelf B', 2,
    '/0/1/11/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (14, 'Bin B-1', 2,
    '/0/1/11/13/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (15, 'Tray 1', 2,
    '/0/1/11/13/14/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (25, 'Impound Lot',
    2, '/0/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (26, 'Row 1', 2,
    '/0/25/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (27, 'Row 2', 2,
    '/0/25/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (30,
    'Intake Lockers', 2, '/0/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (31, 'Locker 11',
    2, '/0/30/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (32, 'Locker 12',
    2, '/0/30/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (33, 'Locker 13',
    2, '/0/30/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (34,
    'Locker 14 "Oversize"', 2, '/0/30/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (40, 'Crime Lab',
    4, '/0/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (44,
    'Latent Prints', 4, '/0/40/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (47,
    'Officer Custody', 4, '/0/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (48,
    'Prosecutor''s Office', 4, '/0/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
INSERT INTO StorageLocation (IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (55,
    'Returned to Owner', 8, '/0/', 1, '2023-11-01T08:00:00.000', '2023-11-01T08:00:00.000');
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
);
INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr,
    SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (1,
    '2026-0398-01', 'Gold chain necklace with heart pendant, sealed bag', 1, 1, NULL, NULL, NULL, NULL, 1, 4, 1, 0,
    NULL, NULL);
INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr,
    SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (2,
    '2026-0398-02', 'Wristwatch, steel band, engraved "R.T."', 1, 1, NULL, NULL, NULL, NULL, 1, 2, 1, 0, NULL, NULL);
INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr,
    SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (3,
    '2026-0402-01', '$1,240.00 in mixed bills, counted and sealed', 2, 1, NULL, NULL, NULL, NULL, 1, 4, 1, 0, NULL,
    NULL);
INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr,
    SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (4,
    '2026-0402-04', 'Ledger, green cloth cover, 48 pages', 3, 1, NULL, NULL, NULL, NULL, 1, 4, 1, 0, NULL, NULL);
INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr,
    SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (5,
    '2026-0405-02', 'Mobile phone, black, cracked screen, in shielded bag', 4, 1, NULL, NULL, NULL, NULL, 1, 4, 1, 0,
    NULL, NULL);
INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr,
    SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (6,
    '2026-0411-01', 'Dark blue hooded jacket, size L, in paper bag', 5, 1, NULL, NULL, NULL, NULL, 1, 2, 1, 0, NULL,
    NULL);
INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr,
    SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (
    16, '2026-0417-06', 'Copper wire, three coils, approx. 40 lb', 11, 1, NULL, NULL, NULL, NULL, 1, 3, 1, 1,
    'Receipt signed by owner.', 2);
INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr,
    SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (
    30, '2026-0431-01', 'Wool scarf, gray, found on rear seat', 5, 1, NULL, NULL, NULL, NULL, 1, NULL, 1, 0, NULL,
    NULL);
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
);
INSERT INTO Vehicle (VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel, CategoryNo,
    RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (5000001,
    'KTR4821', 'OR', '2018', 'Silver', 'Veldra', 'Tarn', 1, 1, 2, 1, 0, NULL, NULL);
INSERT INTO Vehicle (VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel, CategoryNo,
    RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo) VALUES (5000004,
    'HVC8137', 'ID', '2010', 'White', 'Halden', 'Solace', 1, 1, 1, NULL, 0, NULL, NULL);
CREATE VIEW vwVehicleDisplayInfo AS
SELECT VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle;
CREATE TABLE CurrentPlace (
    StorageLocNo INTEGER NOT NULL,
    ItemType INTEGER NOT NULL,
    ItemNo INTEGER NOT NULL,
    PRIMARY KEY (StorageLocNo, ItemType, ItemNo)
) WITHOUT ROWID;
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (13, 1, 1);
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (13, 1, 2);
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (13, 1, 3);
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (13, 1, 4);
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (13, 1, 5);
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (13, 1, 6);
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (26, 2, 5000004);
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (27, 2, 5000001);
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (55, 1, 16);
CREATE TABLE SchemaFact (Name TEXT NOT NULL PRIMARY KEY) WITHOUT ROWID;
INSERT INTO SchemaFact (Name) VALUES ('ItemsAreDistinct');
CREATE TABLE PropertyTracking (
    PropertyNo INTEGER NOT NULL REFERENCES Property (PropertyNo),
    SeqNo INTEGER NOT NULL CHECK (SeqNo BETWEEN 1 AND 2147483647),
    ReceivedBy INTEGER,
    ReceivedFrom INTEGER,
    DateReceived DATETIME,
    CustodyReasonNo INTEGER,
    StorageLocNo INTEGER REFERENCES StorageLocation (IdNo),
    LastUpdated DATETIME NOT NULL,
    PRIMARY KEY (PropertyNo, SeqNo)
) WITHOUT ROWID;
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (1, 1, 103, 108, '2026-09-24T11:24:00.000', 2, 31, '2026-09-24T11:36:07.268');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (1, 2, 101, 103, '2026-09-25T14:54:00.000', 3, 13, '2026-09-25T15:06:17.085');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (1, 3, 110, NULL, '2026-10-14T09:39:00.000', 6, 44, '2026-10-14T09:44:21.978');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (1, 4, 101, 110, '2026-10-19T09:30:00.000', 7, 13, '2026-10-19T09:39:17.399');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (2, 1, 101, 108, '2026-09-28T17:10:00.000', 2, 34, '2026-09-28T17:11:36.947');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (2, 2, 101, NULL, '2026-10-01T17:46:00.000', 3, 13, '2026-10-01T17:56:04.426');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (3, 1, 101, 105, '2026-10-06T12:15:00.000', 2, 34, '2026-10-06T12:24:04.273');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (3, 2, 107, 101, '2026-10-09T13:01:00.000', 3, 13, '2026-10-09T13:16:53.383');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (3, 3, 102, 107, '2026-10-22T07:10:00.000', 8, 47, '2026-10-22T07:24:07.124');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (3, 4, 107, 102, '2026-10-24T12:11:00.000', 9, 13, '2026-10-24T12:12:14.759');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (4, 1, 107, 111, '2026-10-19T07:59:00.000', 2, 31, '2026-10-19T08:02:37.869');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (4, 2, 101, 107, '2026-10-20T17:17:00.000', 3, 13, '2026-10-20T17:33:47.482');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (4, 3, 109, 101, '2026-10-23T10:37:00.000', 10, 48, '2026-10-23T10:52:21.894');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (4, 4, 101, 109, '2026-11-10T07:49:00.000', 9, 13, '2026-11-10T07:50:58.656');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (5, 1, 107, 105, '2026-09-11T07:19:00.000', 2, 34, '2026-09-11T07:29:28.261');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (5, 2, 101, 107, '2026-09-12T08:55:00.000', 3, 13, '2026-09-12T09:11:25.284');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (5, 3, 109, 101, '2026-10-06T09:11:00.000', 10, 48, '2026-10-06T09:20:50.270');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (5, 4, 103, 109, '2026-11-05T08:22:00.000', 9, 13, '2026-11-05T08:36:36.220');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (6, 1, 103, 105, '2026-10-11T08:00:00.000', 2, 32, '2026-10-11T08:15:17.738');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (6, 2, 103, 103, '2026-10-12T15:29:00.000', 3, 13, '2026-10-12T15:34:38.768');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (16, 1, 101, 108, '2026-10-10T07:27:00.000', 2, 33, '2026-10-10T07:29:32.539');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (16, 2, 101, 101, '2026-10-13T16:37:00.000', 3, 12, '2026-10-13T16:48:29.654');
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo,
    StorageLocNo, LastUpdated) VALUES (16, 3, 101, 101, '2026-10-15T09:58:00.000', 12, 55,
    '2026-10-15T10:07:41.329');
CREATE TABLE VehicleTracking (
    VehicleNo INTEGER NOT NULL REFERENCES Vehicle (VehicleNo),
    SeqNo INTEGER NOT NULL CHECK (SeqNo BETWEEN 1 AND 2147483647),
    ReceivedBy INTEGER,
    ReceivedFrom INTEGER,
    DateReceived DATETIME,
    CustodyReasonNo INTEGER,
    StorageLocNo INTEGER REFERENCES StorageLocation (IdNo),
    LastUpdated DATETIME NOT NULL,
    PRIMARY KEY (VehicleNo, SeqNo)
) WITHOUT ROWID;
INSERT INTO VehicleTracking (VehicleNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo, StorageLocNo,
    LastUpdated) VALUES (5000001, 1, 103, 105, '2026-08-31T17:47:00.000', 2, 32, '2026-08-31T18:06:45.080');
INSERT INTO VehicleTracking (VehicleNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo, StorageLocNo,
    LastUpdated) VALUES (5000001, 2, 101, 103, '2026-09-01T12:33:00.000', 3, 27, '2026-09-01T12:40:17.311');
INSERT INTO VehicleTracking (VehicleNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo, StorageLocNo,
    LastUpdated) VALUES (5000004, 1, 101, 105, '2024-08-30T17:48:00.000', 2, 26, '2024-08-30T17:51:58.202');
CREATE VIRTUAL TABLE PropertyDescription USING fts5(Description, content='Property', content_rowid='PropertyNo',
    tokenize='trigram', detail='none', columnsize=0);
CREATE TABLE Incident (
    IncidentNo INTEGER PRIMARY KEY AUTOINCREMENT CHECK (IncidentNo BETWEEN 1 AND 2147483647),
    IncidentId TEXT COLLATE NOCASE,
    CaseNbr TEXT COLLATE NOCASE,
    IsSecured BOOLEAN NOT NULL DEFAULT 0
);
INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (1, '2026-0388', 'C-26-1090', 1);
INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (2, '2026-0398', 'C-26-1121', 0);
INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (3, '2026-0402', 'C-26-1133', 0);
INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (4, '2026-0405', NULL, 0);
INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (5, '2026-0411', 'C-26-1160', 0);
INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (6, '2026-0417', 'C-26-1182', 0);
INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (9, '2026-0431', NULL, 1);
INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr, IsSecured) VALUES (35, '2024-0388', 'C-24-1905', 0);
CREATE TABLE IncdProperty (
    IncidentNo INTEGER NOT NULL REFERENCES Incident (IncidentNo),
    PropertyNo INTEGER NOT NULL REFERENCES Property (PropertyNo)
);
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (2, 1);
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (2, 2);
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (3, 3);
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (3, 4);
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (4, 5);
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (5, 6);
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (6, 16);
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (9, 30);
CREATE TABLE IncdVehicle (
    IncidentNo INTEGER NOT NULL REFERENCES Incident (IncidentNo),
    VehicleNo INTEGER NOT NULL REFERENCES Vehicle (VehicleNo)
);
INSERT INTO IncdVehicle (IncidentNo, VehicleNo) VALUES (1, 5000001);
INSERT INTO IncdVehicle (IncidentNo, VehicleNo) VALUES (35, 5000004);
CREATE TABLE AttachmentFolder (
    FolderNo INTEGER PRIMARY KEY,
    Path TEXT NOT NULL
);
INSERT INTO AttachmentFolder (FolderNo, Path) VALUES (1, 'Pictures/Property');
INSERT INTO AttachmentFolder (FolderNo, Path) VALUES (2, 'Pictures/Vehicles');
CREATE TABLE AttachmentIndex (
    IdNo INTEGER NOT NULL,
    ObjTypeInd INTEGER NOT NULL,
    SeqNo INTEGER NOT NULL,
    FolderNo INTEGER REFERENCES AttachmentFolder (FolderNo),
    FileName TEXT,
    PRIMARY KEY (IdNo, ObjTypeInd, SeqNo)
) WITHOUT ROWID;
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (1, 6, 1, 1, 'Jewelry 1.png');
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (2, 6, 1, 1, 'Jewelry 1.png');
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (3, 6, 1, 1, 'Currency 2.png');
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (4, 6, 1, 1, 'Documents 2.png');
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (5, 6, 1, 1, 'Electronics 2.png');
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (6, 6, 1, 1, 'Clothing 3.png');
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (16, 6, 1, 1, 'Metal 3.png');
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (30, 6, 1, 1, 'Clothing 2.png');
INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (5000001, 7, 1, 2,
    'Passenger Car, Silver.png');
CREATE TABLE CodeTable (
    TableNumber INTEGER NOT NULL,
    Code INTEGER NOT NULL,
    Name TEXT COLLATE NOCASE,
    Description TEXT COLLATE NOCASE,
    IsActive BOOLEAN NOT NULL DEFAULT 1,
    PRIMARY KEY (TableNumber, Code)
) WITHOUT ROWID;
INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (30, 1, 'Destroyed', 'Destroyed', 1);
INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (30, 2, 'Returned to Owner',
    'Returned to Owner', 1);
INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (30, 3, 'Sold at Auction',
    'Sold at Auction', 1);
INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (30, 4, 'Released to Another Agency',
    'Released to Another Agency', 1);
INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (38, 1, 'Collected at scene',
    'Collected at scene', 1);
INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (38, 2, 'Initial storage',
    'Initial storage', 1);
INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (38, 3, 'Storage reorganization',
    'Storage reorganization', 1);
INSERT INTO CodeTable (TableNumber, Code, Name, Description, IsActive) VALUES (38, 4, 'Court presentation',
    'Court presentation', 1);
CREATE TABLE Person (
    PersonNo INTEGER PRIMARY KEY CHECK (PersonNo BETWEEN -2147483648 AND 2147483647),
    Title TEXT COLLATE NOCASE,
    FirstName TEXT COLLATE NOCASE,
    LastName TEXT NOT NULL COLLATE NOCASE,
    DisplayName TEXT COLLATE NOCASE GENERATED ALWAYS AS (
        COALESCE(Title || ' ', '') || COALESCE(FirstName || ' ', '') || LastName) VIRTUAL,
    IsActive BOOLEAN NOT NULL DEFAULT 1
);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (101, 'Evidence Technician', 'Priya',
    'Raman', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (102, 'Detective', 'Lena', 'Kowalczyk',
    1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (103, 'Sergeant', 'Marcus', 'Oyelaran',
    1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (104, 'Forensic Analyst', 'Tomas',
    'Brandt', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (105, 'Patrol Officer', 'Dana',
    'Whitfield', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (106, 'Detective', 'Inês', 'Ferreira', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (107, 'Evidence Technician', 'Oskar',
    'Lindqvist', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (108, 'Patrol Officer', 'Thandi', 'Mbeki',
    1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (109, 'Deputy Prosecutor', 'Ruth',
    'Castellano', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (110, 'Forensic Analyst', 'Ken',
    'Nakagawa', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (111, 'Patrol Officer', 'Fergus',
    'O''Dowd', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (112, 'Lieutenant', 'Mila', 'Petrov', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (113, 'Court Liaison', 'Colin',
    'Ashworth', 1);
INSERT INTO Person (PersonNo, Title, FirstName, LastName, IsActive) VALUES (114, 'Patrol Officer', 'Samir', 'Haddad',
    0);
CREATE TABLE Account (
    Username TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    PasswordHash TEXT NOT NULL,
    PersonNo INTEGER REFERENCES Person (PersonNo),
    IsActive BOOLEAN NOT NULL DEFAULT 1
) WITHOUT ROWID;
INSERT INTO Account (Username, PasswordHash, PersonNo, IsActive) VALUES ('auditor',
    '$argon2id$v=19$m=65536,t=2,p=1$ekMbqPCQ7/sxsAOO3akrBg$8QyPF2Osy2oGs5O8dBYVLRSchBRyC6SPCVAzn9/A60k', 112, 1);
INSERT INTO Account (Username, PasswordHash, PersonNo, IsActive) VALUES ('clerk',
    '$argon2id$v=19$m=65536,t=2,p=1$J26td9SQllRdelDjN54R8w$eXWxR1klWfw/b7L0ZXP7GBvhMXh1k6Y26zSfAwMt9Jw', 107, 1);
INSERT INTO Account (Username, PasswordHash, PersonNo, IsActive) VALUES ('custodian',
    '$argon2id$v=19$m=65536,t=2,p=1$pqg9unbUBlZ+3Dytj4ZT4g$0xpz6jGpnAL0/idbk8upDQ9lRPhJq8H4EfKrR7WMW0Q', 101, 1);
CREATE TABLE AccountRight (
    Username TEXT NOT NULL COLLATE NOCASE REFERENCES Account (Username) ON UPDATE CASCADE ON DELETE CASCADE,
    ModuleKey TEXT NOT NULL COLLATE NOCASE,
    Value INTEGER NOT NULL,
    PRIMARY KEY (Username, ModuleKey, Value)
) WITHOUT ROWID;
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('auditor', 'Incident', 5);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('auditor', 'MIProperty', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('auditor', 'MIVehicle', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('auditor', 'Storage', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('clerk', 'MIProperty', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('clerk', 'MIVehicle', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('clerk', 'Storage', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('clerk', 'Storage', 1);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'EvidenceManagement', 11);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Incident', 5);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Incident', 6);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'MIProperty', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'MIVehicle', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Storage', 0);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Storage', 1);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Storage', 2);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Storage', 11);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Storage', 12);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Storage', 13);
INSERT INTO AccountRight (Username, ModuleKey, Value) VALUES ('custodian', 'Storage', 15);
CREATE TABLE Setting (
    Name TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    Value TEXT
) WITHOUT ROWID;
INSERT INTO Setting (Name, Value) VALUES ('AgencyName', 'Harlow Bay Police Department');
INSERT INTO Setting (Name, Value) VALUES ('SampleDepartment', '1');
UPDATE sqlite_sequence SET seq = 60 WHERE name = 'StorageLocation';
UPDATE sqlite_sequence SET seq = 128 WHERE name = 'Incident';
UPDATE sqlite_sequence SET seq = 300 WHERE name = 'Property';
UPDATE sqlite_sequence SET seq = 5000040 WHERE name = 'Vehicle';
INSERT INTO PropertyDescription (PropertyDescription) VALUES ('rebuild');
CREATE TRIGGER StorageLocationInsertGuard BEFORE INSERT ON StorageLocation
WHEN NEW.Path <> '/0/' AND NOT EXISTS (
    SELECT 1 FROM StorageLocation c
    WHERE c.IdNo = CAST(SUBSTR(RTRIM(NEW.Path, '/'), LENGTH(RTRIM(RTRIM(NEW.Path, '/'), '0123456789')) + 1) AS INTEGER)
        AND c.Path || c.IdNo || '/' = NEW.Path AND c.Type = NEW.Type)
BEGIN
    SELECT RAISE(ABORT, 'Its container has been moved or deleted in the meantime. Refresh the locations and try again.');
END;
CREATE TRIGGER StorageLocationUpdateGuard BEFORE UPDATE OF Path, Type ON StorageLocation
WHEN (NEW.Path <> OLD.Path OR NEW.Type <> OLD.Type) AND NEW.Path <> '/0/' AND NOT EXISTS (
    SELECT 1 FROM StorageLocation c
    WHERE c.IdNo = CAST(SUBSTR(RTRIM(NEW.Path, '/'), LENGTH(RTRIM(RTRIM(NEW.Path, '/'), '0123456789')) + 1) AS INTEGER)
        AND ((c.Path || c.IdNo || '/' = NEW.Path AND c.Type = NEW.Type)
            OR (c.Path || c.IdNo || '/' = OLD.Path AND c.Type = OLD.Type)))
BEGIN
    SELECT RAISE(ABORT, 'Its container has been moved or deleted in the meantime. Refresh the locations and try again.');
END;
CREATE TRIGGER StorageLocationMoveGuard BEFORE UPDATE OF Path, Type ON StorageLocation
WHEN (NEW.ContainerNo IS NOT OLD.ContainerNo OR (NEW.Path = '/0/' AND NEW.Type <> OLD.Type)) AND EXISTS (
    SELECT 1 FROM StorageLocation d
    WHERE d.Path >= OLD.Path || OLD.IdNo || '/' AND d.Path < OLD.Path || OLD.IdNo || '0'
        AND (NEW.Path <> OLD.Path OR d.Type <> NEW.Type))
BEGIN
    SELECT RAISE(ABORT, 'This location has been changed in the meantime, and sublocations would be left behind. Refresh the locations and try again.');
END;
CREATE TRIGGER PropertyTrackingUpdateGuard BEFORE UPDATE ON PropertyTracking
BEGIN
    SELECT RAISE(ABORT, 'A custody row cannot be changed.');
END;
CREATE TRIGGER PropertyTrackingDeleteGuard BEFORE DELETE ON PropertyTracking
BEGIN
    SELECT RAISE(ABORT, 'A custody row cannot be deleted.');
END;
CREATE TRIGGER VehicleTrackingUpdateGuard BEFORE UPDATE ON VehicleTracking
BEGIN
    SELECT RAISE(ABORT, 'A custody row cannot be changed.');
END;
CREATE TRIGGER VehicleTrackingDeleteGuard BEFORE DELETE ON VehicleTracking
BEGIN
    SELECT RAISE(ABORT, 'A custody row cannot be deleted.');
END;
CREATE INDEX StorageLocationContainer ON StorageLocation (ContainerNo);
CREATE INDEX PropertyByPropertyID ON Property (PropertyID);
CREATE INDEX VehicleByRegNumber ON Vehicle (RegNumber);
CREATE INDEX PropertyTrackingPlace ON PropertyTracking (StorageLocNo);
CREATE TRIGGER PropertyPlaceAfterInsert AFTER INSERT ON Property WHEN NEW.CurrTrackSeq IS NOT NULL
BEGIN
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT StorageLocNo, 1, PropertyNo FROM PropertyTracking
    WHERE PropertyNo = NEW.PropertyNo AND SeqNo = NEW.CurrTrackSeq AND StorageLocNo IS NOT NULL;
END;
CREATE TRIGGER PropertyPlaceAfterUpdate AFTER UPDATE OF PropertyNo, CurrTrackSeq ON Property
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = 1 AND ItemNo = OLD.PropertyNo AND StorageLocNo =
        (SELECT StorageLocNo FROM PropertyTracking WHERE PropertyNo = OLD.PropertyNo AND SeqNo = OLD.CurrTrackSeq);
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT StorageLocNo, 1, PropertyNo FROM PropertyTracking
    WHERE PropertyNo = NEW.PropertyNo AND SeqNo = NEW.CurrTrackSeq AND StorageLocNo IS NOT NULL;
END;
CREATE TRIGGER PropertyPlaceAfterDelete AFTER DELETE ON Property WHEN OLD.CurrTrackSeq IS NOT NULL
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = 1 AND ItemNo = OLD.PropertyNo AND StorageLocNo =
        (SELECT StorageLocNo FROM PropertyTracking WHERE PropertyNo = OLD.PropertyNo AND SeqNo = OLD.CurrTrackSeq);
END;
CREATE TRIGGER PropertyTrackingPlaceAfterInsert AFTER INSERT ON PropertyTracking WHEN NEW.StorageLocNo IS NOT NULL
BEGIN
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT NEW.StorageLocNo, 1, PropertyNo FROM Property WHERE PropertyNo = NEW.PropertyNo AND CurrTrackSeq = NEW.SeqNo;
END;
CREATE TRIGGER PropertyTrackingPlaceAfterUpdate AFTER UPDATE OF PropertyNo, SeqNo, StorageLocNo ON PropertyTracking
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = 1 AND ItemNo = OLD.PropertyNo AND StorageLocNo = OLD.StorageLocNo
        AND EXISTS (SELECT 1 FROM Property WHERE PropertyNo = OLD.PropertyNo AND CurrTrackSeq = OLD.SeqNo);
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT NEW.StorageLocNo, 1, PropertyNo FROM Property
    WHERE PropertyNo = NEW.PropertyNo AND CurrTrackSeq = NEW.SeqNo AND NEW.StorageLocNo IS NOT NULL;
END;
CREATE TRIGGER PropertyTrackingPlaceAfterDelete AFTER DELETE ON PropertyTracking
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = 1 AND ItemNo = OLD.PropertyNo AND StorageLocNo = OLD.StorageLocNo
        AND EXISTS (SELECT 1 FROM Property WHERE PropertyNo = OLD.PropertyNo AND CurrTrackSeq = OLD.SeqNo);
END;
CREATE INDEX VehicleTrackingPlace ON VehicleTracking (StorageLocNo);
CREATE TRIGGER VehiclePlaceAfterInsert AFTER INSERT ON Vehicle WHEN NEW.CurrTrackSeq IS NOT NULL
BEGIN
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT StorageLocNo, 2, VehicleNo FROM VehicleTracking
    WHERE VehicleNo = NEW.VehicleNo AND SeqNo = NEW.CurrTrackSeq AND StorageLocNo IS NOT NULL;
END;
CREATE TRIGGER VehiclePlaceAfterUpdate AFTER UPDATE OF VehicleNo, CurrTrackSeq ON Vehicle
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = 2 AND ItemNo = OLD.VehicleNo AND StorageLocNo =
        (SELECT StorageLocNo FROM VehicleTracking WHERE VehicleNo = OLD.VehicleNo AND SeqNo = OLD.CurrTrackSeq);
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT StorageLocNo, 2, VehicleNo FROM VehicleTracking
    WHERE VehicleNo = NEW.VehicleNo AND SeqNo = NEW.CurrTrackSeq AND StorageLocNo IS NOT NULL;
END;
CREATE TRIGGER VehiclePlaceAfterDelete AFTER DELETE ON Vehicle WHEN OLD.CurrTrackSeq IS NOT NULL
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = 2 AND ItemNo = OLD.VehicleNo AND StorageLocNo =
        (SELECT StorageLocNo FROM VehicleTracking WHERE VehicleNo = OLD.VehicleNo AND SeqNo = OLD.CurrTrackSeq);
END;
CREATE TRIGGER VehicleTrackingPlaceAfterInsert AFTER INSERT ON VehicleTracking WHEN NEW.StorageLocNo IS NOT NULL
BEGIN
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT NEW.StorageLocNo, 2, VehicleNo FROM Vehicle WHERE VehicleNo = NEW.VehicleNo AND CurrTrackSeq = NEW.SeqNo;
END;
CREATE TRIGGER VehicleTrackingPlaceAfterUpdate AFTER UPDATE OF VehicleNo, SeqNo, StorageLocNo ON VehicleTracking
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = 2 AND ItemNo = OLD.VehicleNo AND StorageLocNo = OLD.StorageLocNo
        AND EXISTS (SELECT 1 FROM Vehicle WHERE VehicleNo = OLD.VehicleNo AND CurrTrackSeq = OLD.SeqNo);
    INSERT OR IGNORE INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT NEW.StorageLocNo, 2, VehicleNo FROM Vehicle
    WHERE VehicleNo = NEW.VehicleNo AND CurrTrackSeq = NEW.SeqNo AND NEW.StorageLocNo IS NOT NULL;
END;
CREATE TRIGGER VehicleTrackingPlaceAfterDelete AFTER DELETE ON VehicleTracking
BEGIN
    DELETE FROM CurrentPlace WHERE ItemType = 2 AND ItemNo = OLD.VehicleNo AND StorageLocNo = OLD.StorageLocNo
        AND EXISTS (SELECT 1 FROM Vehicle WHERE VehicleNo = OLD.VehicleNo AND CurrTrackSeq = OLD.SeqNo);
END;
CREATE TRIGGER PropertyDescriptionAfterInsert AFTER INSERT ON Property
BEGIN
    INSERT INTO PropertyDescription (rowid, Description) VALUES (NEW.PropertyNo, NEW.Description);
END;
CREATE TRIGGER PropertyDescriptionAfterUpdate AFTER UPDATE OF PropertyNo, Description ON Property
BEGIN
    INSERT INTO PropertyDescription (PropertyDescription, rowid, Description)
    VALUES ('delete', OLD.PropertyNo, OLD.Description);
    INSERT INTO PropertyDescription (rowid, Description) VALUES (NEW.PropertyNo, NEW.Description);
END;
CREATE TRIGGER PropertyDescriptionAfterDelete AFTER DELETE ON Property
BEGIN
    INSERT INTO PropertyDescription (PropertyDescription, rowid, Description)
    VALUES ('delete', OLD.PropertyNo, OLD.Description);
END;
CREATE INDEX IncidentByIncidentId ON Incident (IncidentId);
CREATE INDEX IncidentByCaseNbr ON Incident (CaseNbr) WHERE CaseNbr IS NOT NULL;
CREATE INDEX IncdPropertyByPropertyNo ON IncdProperty (PropertyNo);
CREATE INDEX IncdPropertyByIncidentNo ON IncdProperty (IncidentNo);
CREATE INDEX IncdVehicleByVehicleNo ON IncdVehicle (VehicleNo);
CREATE INDEX IncdVehicleByIncidentNo ON IncdVehicle (IncidentNo);
PRAGMA user_version = 1;
COMMIT;
