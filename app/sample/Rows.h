#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook::sample {

// The rows of a department, as the makers hand them to the writer.

inline constexpr int32_t Internal = 2, External = 4, Disposal = 8, Other = 16;

struct Location {
    int32_t id = 0;
    std::string name;
    int32_t type = Internal;
    std::string path;  // of the container
    std::string ownPath;  // of what lies in it
    bool active = true;
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

struct Property {
    int32_t no = 0;
    std::string id;
    std::string description;
    int32_t category = 0;
    int32_t quantity = 1;
    std::optional<int32_t> cents;
    std::string make;  // an empty text is written as NULL
    std::string model;
    std::string serial;
    bool tagged = true;
    std::optional<Disposition> disposition;
};

struct Vehicle {
    int32_t no = 0;
    std::string tag;
    std::string state;
    int32_t year = 0;
    std::string color;
    std::string make;
    std::string model;
    int32_t category = 0;
    bool tagged = true;
    std::optional<Disposition> disposition;
};

struct Incident {
    int32_t no = 0;
    std::string id;
    std::string caseNumber;  // an empty text is written as NULL
    bool secured = false;
};

}  // namespace quellbrook::sample
