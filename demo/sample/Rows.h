#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook::sample {

// The rows of a department that DepartmentWriter writes. An empty text becomes NULL, except for a property's identifier
// that is present.

inline constexpr int32_t Unassigned = 1, Internal = 2, External = 4, Disposal = 8, Other = 16;

struct Location {
    int32_t id = 0;
    std::string name;
    int32_t type = Internal;
    std::string path;     // of the container
    std::string ownPath;  // of its contents
    std::optional<bool> active = true;
};

struct Custody {
    std::optional<int32_t> receivedBy;
    std::optional<int32_t> receivedFrom;
    DateTime received;
    DateTime written;
    std::optional<int32_t> reason;
    std::optional<int32_t> location;
};

struct Disposition {
    int32_t status = 0;
    std::string note;
};

struct Attachment {
    std::optional<int32_t> folder;
    std::string fileName;
};

// Files are numbered from 1 in their order; the image is the number of the main one.
struct Attachments {
    std::vector<Attachment> files;
    std::optional<int32_t> image;
};

struct Property {
    int32_t no = 0;
    std::optional<std::string> id;
    std::string description;
    std::optional<int32_t> category;
    std::optional<double> quantity = 1;
    std::optional<int32_t> cents;
    std::string make;
    std::string model;
    std::string serial;
    bool tagged = true;
    std::optional<Disposition> disposition;
    Attachments attachments;
};

struct Vehicle {
    int32_t no = 0;
    std::string tag;
    std::string state;
    int32_t year = 0;  // 0 if unknown
    std::string color;
    std::string make;
    std::string model;
    std::optional<int32_t> category;
    bool tagged = true;
    std::optional<Disposition> disposition;
    Attachments attachments;
};

struct Incident {
    int32_t no = 0;
    std::string id;
    std::string caseNumber;
    bool secured = false;
};

}  // namespace quellbrook::sample
