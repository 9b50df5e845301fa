#pragma once

#include "app/records/RecordAddress.h"
#include "base/TaggedValue.h"
#include "component/Items.h"

#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

struct RecordIncident {
    std::string number;
    std::string caseNumber;  // empty without a case
    bool isSecured = false;

    bool operator==(const RecordIncident&) const = default;
};

// One step of a chain of custody. Texts are empty if nothing was entered.
struct CustodyStep {
    int32_t sequence = 0;
    std::optional<DateTime> received;
    std::string reason;
    std::string receivedFrom;
    std::string receivedBy;
    std::string location;  // full path

    bool operator==(const CustodyStep&) const = default;
};

// One piece of property or one vehicle as its record page shows it. Texts are empty if nothing was entered.
struct Record {
    RecordAddress address;
    std::string identifier;  // a vehicle's tag number, with its state
    std::string description;
    std::string category;
    std::string make;
    std::string model;
    // Of property only.
    TaggedValue quantity = Null();
    TaggedValue value = Null();
    std::string serialNumber;
    // Of a vehicle only.
    std::string year;
    std::string color;

    std::optional<Picture> picture;  // of the main attachment
    std::string pictureFailure;      // why the main attachment cannot be shown
    ItemStatus status;
    std::string location;  // full path
    bool hasFinalDisposition = false;
    std::string finalDisposition;
    std::string dispositionNote;
    std::vector<RecordIncident> incidents;            // by number; only those that the user may see
    std::optional<std::vector<CustodyStep>> custody;  // newest first; nothing for a user who may not view it

    bool operator==(const Record&) const = default;
};

}  // namespace quellbrook
