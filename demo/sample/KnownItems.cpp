#include "demo/sample/KnownItems.h"

#include "demo/sample/Codes.h"

namespace quellbrook::sample {

namespace {

const char* const shelfA1 = "Property Room > Aisle 1 > Shelf A";
const char* const shelfC1 = "Property Room > Aisle 1 > Shelf C";
const char* const shelfD2 = "Property Room > Aisle 2 > Shelf D";
const char* const shelfB3 = "Property Room > Aisle 3 > Shelf B";
const char* const shelfC3 = "Property Room > Aisle 3 > Shelf C";
const char* const row2 = "Impound Lot > Row 2";

}  // namespace

const std::vector<Incident>& KnownIncidents() {
    static const std::vector<Incident> incidents = {
        {0, "2026-0388", "C-26-1090", true}, {0, "2026-0398", "C-26-1121", false}, {0, "2026-0402", "C-26-1133", false},
        {0, "2026-0405", "", false},         {0, "2026-0411", "C-26-1160", false}, {0, "2026-0417", "C-26-1182", false},
        {0, "2026-0422", "", false},         {0, "2026-0426", "C-26-1204", false}, {0, "2026-0431", "", true},
        {0, "2026-0440", "", false},
    };
    return incidents;
}

const std::vector<KnownItem>& KnownProperty() {
    static const std::vector<KnownItem> items = {
        {"2026-0398-01", Category::Jewelry, "Gold chain necklace with heart pendant, sealed bag", shelfB3},
        {"2026-0398-02", Category::Jewelry, "Wristwatch, steel band, engraved \"R.T.\"", shelfB3},
        {"2026-0402-01", Category::Currency, "$1,240.00 in mixed bills, counted and sealed", shelfB3},
        {"2026-0402-04", Category::Documents, "Ledger, green cloth cover, 48 pages", shelfB3},
        {"2026-0405-02", Category::Electronics, "Mobile phone, black, cracked screen, in shielded bag", shelfB3},
        {"2026-0411-01", Category::Clothing, "Dark blue hooded jacket, size L, in paper bag", shelfB3},
        {"2026-0411-03", Category::Clothing, "Pair of work boots, size 10, soil on soles", shelfB3},
        {"2026-0417-01", Category::Tools, "Bolt cutter, 24 in., red handles", shelfB3},
        {"2026-0417-02", Category::Tools, "Pry bar, 18 in., yellow paint transfer", shelfB3},
        {LaptopId, Category::Electronics, "Laptop computer, silver, with charger", shelfB3},
        {"2026-0417-05", Category::Trace, "Glass fragments from rear window, in tin", shelfB3},
        {"2026-0422-01", Category::Accessories, "Leather holster, right hand, brown", shelfB3},
        {"2026-0422-02", Category::Documents, "Handwritten note, one page, in clear sleeve", shelfB3},
        {"2026-0426-01", Category::Property, "Backpack, gray, contents listed on seal", shelfB3},
        {"2026-0417-04", Category::Biological, "Swab kit, 2 swabs, sealed box", "Crime Lab > Biology"},
        {"2026-0417-06", Category::Metal, "Copper wire, three coils, approx. 40 lb", "Returned to Owner"},
        {"2026-0417-07", Category::Tools, "Cordless drill, two batteries", shelfC3},
        {"2026-0417-08", Category::Keys, "Padlock, shackle cut, with key", shelfC3},
        {"2026-0417-09", Category::Documents, "Delivery notes, eleven pages, in clear sleeve", shelfA1},
        {"2026-0417-10", Category::Clothing, "Leather gloves, one pair, yellow paint on palms", shelfC3},
        {"2026-0417-11", Category::Electronics, "Video recorder from office, front plate missing",
         "Crime Lab > Digital Forensics"},
        {"2026-0417-12", Category::Metal, "Brass fittings, in two bundles", shelfC3},
        {"2026-0417-13", Category::Trace, "Paint chips, yellow, in glass vial", "Crime Lab > Latent Prints"},
        {"2026-0417-14", Category::Media, "Memory stick, camera recording, copy 1 of 2", "Prosecutor's Office"},
        {"2026-0388-07", Category::Keys, "Key ring with three keys and a blue tag", shelfD2},
        {"2026-0388-08", Category::VehicleParts, "Spare wheel, from trunk", row2},
        {"2026-0388-09", Category::Property, "Suitcase, gray, locked, from trunk", row2},
        {"2026-0388-10", Category::Documents, "Rental agreement, from glove compartment", row2},
        {"2026-0350-02", Category::Documents, "Paper receipts, envelope of eleven", shelfA1},
        {"2026-0431-01", Category::Clothing, "Wool scarf, gray, found on rear seat", ""},
        {"2026-0431-02", Category::Tools, "Pocket knife, wooden handle, 3 in. blade", ""},
        {"2026-0431-03", Category::Electronics, "Mobile phone, blue case, powered off", ""},
        {"2026-0431-04", Category::Drugs, "Paper bag with four wrapped packages", ""},
        {"2026-0431-05", Category::Property, "Prepaid card, unsigned, in clear sleeve", ""},
        {"2026-0431-06", Category::Currency, "Cash, $312.00, counted and sealed", ""},
        {"2026-0431-07", Category::Electronics, "Two-way radio with spare battery", ""},
    };
    return items;
}

const std::vector<KnownLink>& KnownLinks() {
    static const std::vector<KnownLink> links = {
        {"2026-0388", "2026-0417-01"}, {"2026-0388", "2026-0417-02"}, {"2026-0431", "2026-0417-05"},
        {"2026-0440", "2026-0417-05"}, {"2026-0417", "2026-0431-03"}, {"2026-0388", "KTR4821"},
        {"2026-0431", "LVN2077"},      {"2026-0388", "LVN2077"},
    };
    return links;
}

const std::vector<KnownRow>& LaptopChain() {
    using namespace Officer;
    static const std::vector<KnownRow> rows = {
        {{2026, 9, 14, 23, 52, 0, 0}, Whitfield, Whitfield, Reason::CollectedAtScene, "Pending Review"},
        {{2026, 9, 15, 10, 26, 0, 0}, Whitfield, Oyelaran, Reason::InitialStorage, "Intake Lockers > Locker 12"},
        {{2026, 9, 16, 13, 7, 0, 0}, Oyelaran, 0, Reason::Reorganization, shelfC1},
        {{2026, 9, 21, 8, 15, 0, 0}, Oyelaran, Kowalczyk, Reason::CourtPresentation, "Circuit Court"},
        {{2026, 9, 23, 11, 30, 0, 0}, Kowalczyk, Oyelaran, Reason::ReturnedFromCourt, shelfC1},
        {{2026, 10, 2, 16, 18, 0, 0}, Raman, Raman, Reason::Reorganization, shelfB3},
        {{2026, 10, 30, 9, 5, 0, 0}, Raman, Brandt, Reason::LaboratoryAnalysis, "Crime Lab > Digital Forensics"},
        {{2026, 11, 18, 14, 42, 0, 0}, Brandt, Raman, Reason::ReturnedFromAnalysis, shelfB3},
    };
    return rows;
}

}  // namespace quellbrook::sample
