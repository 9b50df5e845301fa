#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook::sample {

struct Code {
    int32_t code;
    std::string text;
    bool active = true;
};

struct Person {
    int32_t no;
    std::string lastName;
    std::string firstName;
    std::string title;
    bool active = true;
};

namespace Reason {
inline constexpr int32_t CollectedAtScene = 1, InitialStorage = 2, Reorganization = 3, CourtPresentation = 4,
                         ReturnedFromCourt = 5, LaboratoryAnalysis = 6, ReturnedFromAnalysis = 7, OfficerReview = 8,
                         ReturnedFromReview = 9, ProsecutorReview = 10, CaseClosed = 11, CourtOrder = 12,
                         MissingPaperwork = 13;
}

namespace Status {
inline constexpr int32_t Destroyed = 1, ReturnedToOwner = 2, SoldAtAuction = 3, ReleasedToAgency = 4;
}

namespace Category {
inline constexpr int32_t Jewelry = 1, Currency = 2, Documents = 3, Electronics = 4, Clothing = 5, Tools = 6, Trace = 7,
                         Accessories = 8, Property = 9, Biological = 10, Metal = 11, Keys = 12, Drugs = 13,
                         Firearms = 14, Ammunition = 15, Media = 16, Bicycles = 17, VehicleParts = 18;
}

namespace Officer {
inline constexpr int32_t Raman = 101, Kowalczyk = 102, Oyelaran = 103, Brandt = 104, Whitfield = 105;
}

const std::vector<Code>& FinalDispositionStatuses();
const std::vector<Code>& PropertyCategories();
const std::vector<Code>& CustodyReasons();
const std::vector<Code>& VehicleCategories();
const std::vector<Person>& Persons();

// Persons in generated departments only, with names that are hard to display or sort. Each replaces another person.
struct StandIn {
    Person person;
    int32_t forPerson;
};
const std::vector<StandIn>& EdgeCaseStandIns();

}  // namespace quellbrook::sample
