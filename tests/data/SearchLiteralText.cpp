#include "tests/data/SearchLiteralText.h"

#include "base/TaggedValue.h"

namespace quellbrook::testing {

namespace {

const char* const propertySelect =
    "SELECT 1 AS ItemType, p.PropertyNo AS ID, p.CategoryNo, p.CurrTrackSeq, pt.StorageLocNo, "
    "p.PropertyID AS DisplayID, p.Description, p.Quantity, p.PropertyValue AS Value, p.ManufacNbr AS Make, "
    "p.ModelNbr AS Model, p.SerialNbr AS Serial, p.RecordTypeInd "
    "FROM Property p LEFT JOIN PropertyTracking pt ON pt.PropertyNo = p.PropertyNo AND p.CurrTrackSeq = pt.SeqNo "
    "LEFT JOIN (IncdProperty ip INNER JOIN Incident i ON i.IncidentNo = ip.IncidentNo) ON ip.PropertyNo = p.PropertyNo";

const char* const vehicleSelect =
    "SELECT 2 AS ItemType, v.VehicleNo AS ID, v.CategoryNo, v.CurrTrackSeq, vt.StorageLocNo, "
    "COALESCE(vd.RegNumber, '[No Tag Number]') || ' (' || vd.RegStateCode || ')' AS DisplayID, "
    "COALESCE(vd.VehYear || ' ', '') || COALESCE(vd.ColorCode || ' ', '') || COALESCE(vd.MakeCode || ' ', '') || "
    "COALESCE(vd.VehModel, '') AS Description, 1 AS Quantity, NULL AS Value, "
    "COALESCE(vd.MakeCode || ' ', '') AS Make, COALESCE(vd.VehModel, '') AS Model, NULL AS Serial, v.RecordTypeInd "
    "FROM Vehicle v INNER JOIN vwVehicleDisplayInfo vd ON v.VehicleNo = vd.VehicleNo "
    "LEFT JOIN VehicleTracking vt ON vt.VehicleNo = v.VehicleNo AND v.CurrTrackSeq = vt.SeqNo "
    "LEFT JOIN (IncdVehicle iv INNER JOIN Incident i ON i.IncidentNo = iv.IncidentNo) ON iv.VehicleNo = v.VehicleNo";

// A pattern for LIKE: only "*" is a wildcard.
std::string Like(const std::string& pattern) {
    std::string text;
    for (const char c : pattern) {
        if (c == '*') {
            text += '%';
        } else if (c == '\'') {
            text += "''";
        } else {
            if (c == '%' || c == '_' || c == '[' || c == '!') text += '!';
            text += c;
        }
    }
    return " LIKE '" + text + "' ESCAPE '!'";
}

void AddCondition(std::string& conditions, const std::string& condition) {
    conditions += (conditions.empty() ? " WHERE " : " AND ") + condition;
}

}  // namespace

std::string LiteralSearchText(const AskedSearch& asked) {
    std::string ofProperty, ofVehicles, ofAll;
    int32_t itemType = asked.itemType;
    if (asked.location) AddCondition(ofAll, "Results.StorageLocNo = " + std::to_string(*asked.location));
    if (!asked.description.empty()) AddCondition(ofAll, "Results.Description" + Like(asked.description));
    switch (asked.numberType) {
    case 1:
        AddCondition(ofVehicles, "i.IncidentId" + Like(asked.number));
        AddCondition(ofProperty, "i.IncidentId" + Like(asked.number));
        break;
    case 2:
        AddCondition(ofVehicles, "i.CaseNbr" + Like(asked.number));
        AddCondition(ofProperty, "i.CaseNbr" + Like(asked.number));
        break;
    case 3:
        AddCondition(ofProperty, "p.PropertyID" + Like(asked.number));
        itemType = 1;
        break;
    case 4:
        AddCondition(ofVehicles, "v.RegNumber" + Like(asked.number));
        itemType = 2;
        break;
    case 5:
        AddCondition(ofProperty, "p.PropertyNo = " + std::to_string(ToInt32(asked.number)));
        itemType = 1;
        break;
    case 6:
        AddCondition(ofVehicles, "v.VehicleNo = " + std::to_string(ToInt32(asked.number)));
        itemType = 2;
        break;
    default: break;
    }
    if (itemType >= 1) AddCondition(ofAll, "Results.ItemType = " + std::to_string(itemType));
    AddCondition(ofAll, asked.untracked ? "Results.StorageLocNo IS NULL AND Results.CurrTrackSeq IS NULL"
                                        : "Results.StorageLocNo IS NOT NULL");
    if (asked.tagged) AddCondition(ofAll, "Results.RecordTypeInd = 1");

    std::string base = vehicleSelect + ofVehicles;
    if (asked.seesProperty) base = propertySelect + ofProperty;
    if (asked.seesProperty && asked.seesVehicles) base += " UNION " + (vehicleSelect + ofVehicles);
    return "SELECT * FROM (" + base + ") AS Results" + ofAll;
}

std::string Describe(const AskedSearch& asked) {
    return "location " + (asked.location ? std::to_string(*asked.location) : "-") + ", type " +
           std::to_string(asked.itemType) + ", number " + std::to_string(asked.numberType) + " '" + asked.number +
           "', description '" + asked.description + "'" + (asked.untracked ? ", untracked" : "") +
           (asked.tagged ? ", tagged" : "") + (asked.seesProperty ? "" : ", no property") +
           (asked.seesVehicles ? "" : ", no vehicles");
}

}  // namespace quellbrook::testing
