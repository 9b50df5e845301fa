#include "demo/sample/Words.h"

#include "demo/sample/Codes.h"

#include <string_view>

namespace quellbrook::sample {

namespace {

struct Kind {
    int32_t category;
    std::vector<const char*> things;
    std::vector<const char*> details;
    int32_t highestValue;  // dollars; 0 if there is no value
    bool hasMaker = false;
};

const std::vector<Kind>& Kinds() {
    static const std::vector<Kind> kinds = {
        {Category::Jewelry,
         {"Gold ring", "Silver bracelet", "Pearl earrings", "Wristwatch", "Pendant", "Brooch"},
         {"in clear sleeve", "sealed bag", "in presentation box", "clasp broken", "engraved inside"},
         2400},
        {Category::Currency,
         {"Mixed bills", "Coins in roll", "Foreign notes", "Bills in envelope"},
         {"counted and sealed", "counted twice", "in tamper-evident bag"},
         3000},
        {Category::Documents,
         {"Ledger", "Paper receipts", "Rental agreement", "Bank statements", "Letter", "Passport"},
         {"in clear sleeve", "creased", "water damage", "three pages", "with envelope"},
         0},
        {Category::Electronics,
         {"Laptop computer", "Mobile phone", "Tablet", "Memory card", "Camera", "Two-way radio", "Router"},
         {"black", "silver", "cracked screen", "with charger", "powered off", "in shielded bag"},
         1200,
         true},
        {Category::Clothing,
         {"Hooded jacket", "Work boots", "Wool scarf", "Denim trousers", "Leather gloves", "Cap"},
         {"dark blue", "gray", "size M", "size L", "in paper bag", "soil on hem"},
         80},
        {Category::Tools,
         {"Bolt cutter", "Pry bar", "Screwdriver", "Claw hammer", "Cordless drill", "Hacksaw"},
         {"red handles", "18 in.", "yellow paint transfer", "worn grip", "bent tip"},
         160,
         true},
        {Category::Trace,
         {"Glass fragments", "Paint chips", "Fibers", "Soil sample", "Tire impression cast"},
         {"in tin", "in glass vial", "on tape lift", "in folded paper"},
         0},
        {Category::Accessories,
         {"Leather holster", "Belt", "Handbag", "Sunglasses", "Wallet"},
         {"brown", "black", "contents listed on seal", "scuffed"},
         120},
        {Category::Property,
         {"Backpack", "Suitcase", "Cardboard box", "Toolbox", "Umbrella"},
         {"gray", "contents listed on seal", "locked", "green, torn strap"},
         90},
        {Category::Biological,
         {"Swab kit", "Blood sample", "Hair sample"},
         {"2 swabs, sealed box", "keep refrigerated", "in sealed tube"},
         0},
        {Category::Metal,
         {"Copper wire", "Brass fittings", "Steel pipe", "Catalytic converter"},
         {"approx. 40 lb", "cut ends", "in two bundles"},
         400},
        {Category::Keys, {"Key ring", "Padlock with key", "Vehicle key"}, {"three keys", "blue tag", "no marking"}, 0},
        {Category::Drugs,
         {"White powder", "Green plant material", "Assorted pills", "Amber vial"},
         {"weighed and sealed", "in wrapped package", "field test positive"},
         0},
        {Category::Firearms,
         {"Handgun", "Shotgun", "Hunting rifle", "Air pistol"},
         {"unloaded, in lock box", "with empty magazine", "stock damaged"},
         700,
         true},
        {Category::Ammunition,
         {"Box of cartridges", "Spent casings", "Loose rounds"},
         {"9 mm", "counted and sealed", "in plastic jar"},
         60},
        {Category::Media,
         {"Video disc", "Memory stick", "Audio recording", "Printed photographs"},
         {"labeled by officer", "in clear sleeve", "copy 1 of 2"},
         0},
        {Category::Bicycles,
         {"Blue bicycle", "Red bicycle", "Black mountain bicycle", "Child's bicycle"},
         {"front wheel missing", "with basket", "21 speed", "flat tires"},
         600,
         true},
        {Category::VehicleParts,
         {"License plate", "Wheel", "Car stereo", "Side mirror", "Tail light"},
         {"scratched", "bolts attached", "driver side", "wiring cut"},
         250,
         true},
    };
    return kinds;
}

const std::vector<const char*> makers = {"Brandtmoor", "Ostravel", "Kelwin", "Norrstad", "Pellworth", "Tamiro"};
const std::vector<const char*> states = {"OR", "OR", "OR", "OR", "WA", "WA", "ID", "CA", "NV"};
const std::vector<const char*> colors = {"Silver", "White", "Black", "Blue", "Red", "Green", "Gray", "Tan"};

struct Line {
    const char* make;
    const char* model;
    int32_t category;
};
const std::vector<Line> lines = {
    {"Veldra", "Tarn", 1},  {"Veldra", "Mistral", 1}, {"Halden", "Courier", 3}, {"Halden", "Solace", 1},
    {"Orvane", "Pico", 1},  {"Orvane", "Grande", 2},  {"Tessmer", "Hauler", 2}, {"Tessmer", "Crossing", 1},
    {"Kaito", "Breeze", 4}, {"Rudmark", "Box 12", 5},
};

// Generates a text from a pattern: "A" gives a letter, "9" a digit, any other character itself.
std::string Draw(Random& random, std::string_view picture) {
    std::string text;
    for (const char c : picture) {
        if (c == 'A') {
            text += "ABCDEFGHJKLMNPRSTUVWXYZ"[random.Below(23)];
        } else if (c == '9') {
            text += static_cast<char>('0' + random.Below(10));
        } else {
            text += c;
        }
    }
    return text;
}

}  // namespace

void DescribeProperty(Random& random, Property& property) {
    const Kind& kind = random.Pick(Kinds());
    property.category = kind.category;
    property.description = random.Pick(kind.things);
    property.description += ", ";
    property.description += random.Pick(kind.details);
    property.quantity = random.Chance(12) ? random.Between(2, 12) : 1;
    if (kind.highestValue > 0 && random.Chance(70)) property.cents = random.Between(5, kind.highestValue) * 100;
    if (!kind.hasMaker) return;
    property.make = random.Pick(makers);
    property.model = Draw(random, "AA-99");
    if (random.Chance(80)) property.serial = Draw(random, "9A99-999999");
}

void DescribeVehicle(Random& random, Vehicle& vehicle) {
    const Line& line = random.Pick(lines);
    vehicle.make = line.make;
    vehicle.model = line.model;
    vehicle.category = line.category;
    vehicle.tag = Draw(random, "AAA9999");
    vehicle.state = random.Pick(states);
    vehicle.year = random.Between(2004, 2025);
    vehicle.color = random.Pick(colors);
}

}  // namespace quellbrook::sample
