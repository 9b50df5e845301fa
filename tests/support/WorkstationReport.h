#pragma once

#include <array>
#include <cstdint>

namespace quellbrook::testing {

// What a workstation program reports about one of its batches or changes. Small enough to be written to a pipe at once.
struct WorkstationReport {
    // Written, Refused and Unknown follow a Begins with the same number.
    enum class Kind : int32_t { Begins, Written, Refused, Unknown };

    struct Item {
        int32_t type;  // StoredItemTypes
        int32_t id;
        int32_t trackSeq;  // when it was put into the batch

        auto operator<=>(const Item&) const = default;
    };
    static constexpr size_t MostItems = 20;

    int32_t workstation;
    int32_t number;  // differs for each attempt of each workstation. The custody rows contain it as ReceivedFrom
    Kind kind;
    int32_t itemCount;
    std::array<Item, MostItems> items;
    std::array<char, 400> text;  // the description of a failure, ended by NUL
};

// The pipe's descriptor in a workstation program.
inline constexpr int WorkstationReportPipe = 3;

// What a workstation program does.
inline constexpr const char* TransferTask = "transfers";
inline constexpr const char* LocationTask = "locations";

}  // namespace quellbrook::testing
