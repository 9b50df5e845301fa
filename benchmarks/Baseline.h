#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook::bench {

// What somebody would write by hand for one job: statements prepared once on a connection of their own, the same file,
// schema, triggers and settings as the module's connection, rows read into plain structs.
class Baseline {
public:
    explicit Baseline(const std::string& path);
    ~Baseline();

    struct Item {
        int itemType;
        int32_t id;
        int32_t category;
        int32_t trackSeq;
        int32_t location;
        std::string displayId, description, make, model, serial;
        double quantity, value;
        int recordType;
    };

    std::unique_ptr<Item> Property(int32_t propertyNo);
    std::unique_ptr<Item> Vehicle(int32_t vehicleNo);
    std::vector<std::unique_ptr<Item>> Contents(int32_t location);

    struct Key {
        bool isVehicle;
        int32_t id;
    };
    // One transaction, two statements an item: the custody row and the pointer to it.
    void Transfer(const std::vector<Key>& items, int32_t location, int32_t by, int32_t from, int32_t reason,
                  const std::string& moment);

    std::vector<int32_t> Integers(const std::string& sql);

private:
    struct Statements;
    std::unique_ptr<Statements> m_statements;
};

}  // namespace quellbrook::bench
