-- What the department of the example has: three locations, two people, and two items that were not checked in yet.

INSERT INTO StorageLocation (Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES
    ('Property Room', 2, '/0/', 1, '2026-01-05T08:00:00.000', '2026-01-05T08:00:00.000'),
    ('Shelf A', 2, '/0/1/', 1, '2026-01-05T08:00:00.000', '2026-01-05T08:00:00.000'),
    ('Crime Laboratory', 4, '/0/', 1, '2026-01-05T08:00:00.000', '2026-01-05T08:00:00.000'),
    ('Destroyed', 8, '/0/', 1, '2026-01-05T08:00:00.000', '2026-01-05T08:00:00.000');

INSERT INTO Property (PropertyID, Description, CategoryNo, Quantity, RecordTypeInd) VALUES
    ('2026-0117-01', 'Brass lantern', 1, 1, 1),
    ('2026-0117-02', 'Rope, 20 ft', 1, 1, 1);
INSERT INTO Vehicle (RegNumber, RegStateCode, VehYear, MakeCode, RecordTypeInd) VALUES
    ('LVN2077', 'OR', '2019', 'FORD', 1);

INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr) VALUES (1, '2026-0117', '26-51');
INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (1, 1), (1, 2);
INSERT INTO IncdVehicle (IncidentNo, VehicleNo) VALUES (1, 1);

INSERT INTO CodeTable (TableNumber, Code, Name, Description) VALUES
    (30, 1, 'Destroyed', 'Destroyed'),
    (31, 1, 'Tools', 'Tools'),
    (38, 1, 'Initial storage', 'Initial storage'),
    (38, 2, 'Court', 'Court'),
    (46, 1, 'Passenger car', 'Passenger car');

INSERT INTO Person (PersonNo, Title, FirstName, LastName) VALUES
    (1, 'Evidence Technician', 'Priya', 'Raman'),
    (2, 'Officer', 'Tom', 'Becker');
