#pragma once

#include "app/records/RecordAddress.h"
#include "base/TaggedValue.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

struct RecordIncident {
    std::string number;
    std::string caseNumber;  // the empty text without a case
    bool isSecured = false;

    bool operator==(const RecordIncident&) const = default;
};

// One row of a chain of custody. Texts are empty where nothing was entered.
struct CustodyStep {
    std::optional<DateTime> received;
    std::string reason;
    std::string receivedFrom;
    std::string receivedBy;
    std::string location;  // full path

    bool operator==(const CustodyStep&) const = default;
};

// The picture of a main attachment: its file, or why there is none to be shown.
struct RecordPicture {
    std::string fileName;                       // empty where there is none
    std::filesystem::file_time_type written{};  // when the file was last changed
    std::string refusal;                        // one sentence

    bool operator==(const RecordPicture&) const = default;
};

enum class RecordStatus { NotInStorage, Uncategorized, InStorage, SignedOut, Disposed, NeedsReview };

// One piece of property or one vehicle as its record shows it. Texts are empty where nothing was entered.
struct Record {
    RecordAddress address;
    std::string identifier;  // a vehicle's tag number, with its state
    std::string description;
    std::string category;
    std::string make;
    std::string model;
    // Of property alone.
    TaggedValue quantity = Null();
    TaggedValue value = Null();
    std::string serialNumber;
    // Of a vehicle alone.
    std::string year;
    std::string color;

    std::optional<RecordPicture> picture;  // nothing without a main attachment
    RecordStatus status = RecordStatus::NotInStorage;
    std::string location;  // full path of where it is
    bool hasFinalDisposition = false;
    std::string finalDisposition;
    std::string dispositionNote;
    std::vector<RecordIncident> incidents;            // by number; those that the user may see
    std::optional<std::vector<CustodyStep>> custody;  // newest first; nothing for a user who may not view it

    bool operator==(const Record&) const = default;
};

}  // namespace quellbrook
