#include "demo/sample/Codes.h"

namespace quellbrook::sample {

const std::vector<Code>& FinalDispositionStatuses() {
    static const std::vector<Code> codes = {
        {Status::Destroyed, "Destroyed"},
        {Status::ReturnedToOwner, "Returned to Owner"},
        {Status::SoldAtAuction, "Sold at Auction"},
        {Status::ReleasedToAgency, "Released to Another Agency"},
        {5, "Retained for Training"},
        {6, "Lost in Transit", false},
    };
    return codes;
}

const std::vector<Code>& PropertyCategories() {
    static const std::vector<Code> codes = {
        {Category::Jewelry, "Jewelry"},
        {Category::Currency, "Currency"},
        {Category::Documents, "Documents"},
        {Category::Electronics, "Electronics"},
        {Category::Clothing, "Clothing"},
        {Category::Tools, "Tools"},
        {Category::Trace, "Trace Evidence"},
        {Category::Accessories, "Accessories"},
        {Category::Property, "Property"},
        {Category::Biological, "Biological"},
        {Category::Metal, "Metal"},
        {Category::Keys, "Keys"},
        {Category::Drugs, "Controlled Substance"},
        {Category::Firearms, "Firearm"},
        {Category::Ammunition, "Ammunition"},
        {Category::Media, "Recorded Media"},
        {Category::Bicycles, "Bicycle"},
        {Category::VehicleParts, "Vehicle Part"},
        {19, "Film Negative", false},
    };
    return codes;
}

const std::vector<Code>& CustodyReasons() {
    static const std::vector<Code> codes = {
        {Reason::CollectedAtScene, "Collected at scene"},
        {Reason::InitialStorage, "Initial storage"},
        {Reason::Reorganization, "Storage reorganization"},
        {Reason::CourtPresentation, "Court presentation"},
        {Reason::ReturnedFromCourt, "Returned from court"},
        {Reason::LaboratoryAnalysis, "Laboratory analysis"},
        {Reason::ReturnedFromAnalysis, "Returned from analysis"},
        {Reason::OfficerReview, "Officer review"},
        {Reason::ReturnedFromReview, "Returned from review"},
        {Reason::ProsecutorReview, "Prosecutor review"},
        {Reason::CaseClosed, "Case closed"},
        {Reason::CourtOrder, "Court order"},
        {Reason::MissingPaperwork, "Missing paperwork"},
        {14, "Paper log transcription", false},
    };
    return codes;
}

const std::vector<Code>& VehicleCategories() {
    static const std::vector<Code> codes = {
        {1, "Passenger Car"}, {2, "Pickup Truck"}, {3, "Van"}, {4, "Motorcycle"}, {5, "Trailer"}, {6, "Moped", false},
    };
    return codes;
}

const std::vector<Person>& Persons() {
    static const std::vector<Person> persons = {
        {Officer::Raman, "Raman", "Priya", "Evidence Technician"},
        {Officer::Kowalczyk, "Kowalczyk", "Lena", "Detective"},
        {Officer::Oyelaran, "Oyelaran", "Marcus", "Sergeant"},
        {Officer::Brandt, "Brandt", "Tomas", "Forensic Analyst"},
        {Officer::Whitfield, "Whitfield", "Dana", "Patrol Officer"},
        {106, "Ferreira", "In\u00EAs", "Detective"},
        {107, "Lindqvist", "Oskar", "Evidence Technician"},
        {108, "Mbeki", "Thandi", "Patrol Officer"},
        {109, "Castellano", "Ruth", "Deputy Prosecutor"},
        {110, "Nakagawa", "Ken", "Forensic Analyst"},
        {111, "O'Dowd", "Fergus", "Patrol Officer"},
        {112, "Petrov", "Mila", "Lieutenant"},
        {113, "Ashworth", "Colin", "Court Liaison"},
        {114, "Haddad", "Samir", "Patrol Officer", false},
    };
    return persons;
}

const std::vector<StandIn>& EdgeCaseStandIns() {
    static const std::vector<StandIn> standIns = {
        {{115, "Łukasiewicz-Žižková", "Żaneta", "Evidence Technician"}, 107},
        {{116, "Nguyễn Thị", "Hồng", "Forensic Analyst"}, 110},
        {{117, "Кузнецова", "Ольга", "Detective"}, 106},
        {{118, "  D'Arcy \"Red\" ", "Niamh", "Court Liaison"}, 113},
        {{119, "Παπαδοπούλου", "Ελένη", "Patrol Officer"}, 108},
    };
    return standIns;
}

}  // namespace quellbrook::sample
