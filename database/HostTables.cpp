#include "database/HostTables.h"

namespace quellbrook {

const std::vector<HostTable>& HostTables() {
    static const std::vector<HostTable> tables = {
        {"StorageLocation", {"IdNo", "Name", "Type", "Path", "ActiveFlag", "DateEntered", "LastUpdated"}},
        {"Property",
         {"PropertyNo", "PropertyID", "Description", "CategoryNo", "Quantity", "PropertyValue", "ManufacNbr",
          "ModelNbr", "SerialNbr", "RecordTypeInd", "CurrTrackSeq", "CurrImageSeq", "HasFinalDisposition",
          "DisposalNote", "CurrStatusNo"}},
        {"Vehicle",
         {"VehicleNo", "CategoryNo", "RegNumber", "RecordTypeInd", "CurrTrackSeq", "CurrImageSeq",
          "HasFinalDisposition", "DisposalNote", "CurrStatusNo"}},
        {"vwVehicleDisplayInfo",
         {"VehicleNo", "RegNumber", "RegStateCode", "VehYear", "ColorCode", "MakeCode", "VehModel"}},
        {"PropertyTracking",
         {"PropertyNo", "SeqNo", "ReceivedBy", "ReceivedFrom", "DateReceived", "CustodyReasonNo", "StorageLocNo",
          "LastUpdated"}},
        {"VehicleTracking",
         {"VehicleNo", "SeqNo", "ReceivedBy", "ReceivedFrom", "DateReceived", "CustodyReasonNo", "StorageLocNo",
          "LastUpdated"}},
        {"Incident", {"IncidentNo", "IncidentId", "CaseNbr", "IsSecured"}},
        {"IncdProperty", {"IncidentNo", "PropertyNo"}},
        {"IncdVehicle", {"IncidentNo", "VehicleNo"}},
        {"AttachmentFolder", {"FolderNo", "Path"}},
        {"AttachmentIndex", {"IdNo", "ObjTypeInd", "SeqNo", "FolderNo", "FileName"}},
        {"CodeTable", {"TableNumber", "Code", "Name", "Description", "IsActive"}},
        {"Person", {"PersonNo", "Title", "FirstName", "LastName", "IsActive"}},
    };
    return tables;
}

}  // namespace quellbrook
