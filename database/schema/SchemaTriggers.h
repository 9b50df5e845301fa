#pragma once

#include <string>
#include <vector>

namespace SQLite {
class Database;
}

namespace quellbrook {

struct SchemaTrigger {
    std::string name;
    std::string sql;  // its CREATE TRIGGER statement
};

// All triggers of the reference schema. Each upgrade replaces all of them.
const std::vector<SchemaTrigger>& SchemaTriggers();
// Creates all of them again, in a transaction of the caller.
void RestoreTriggers(SQLite::Database& database);

// The names of the triggers that maintain CurrentPlace, and of those that maintain PropertyDescription.
const std::vector<std::string>& CurrentPlaceTriggers();
const std::vector<std::string>& DescriptionIndexTriggers();

// The conditions, on the columns of the table, under which the triggers refuse the values of a custody row and of a
// location. "{0}" is Property or Vehicle.
std::string WrongCustodyValues();
std::string WrongLocationValues();

// The error of an inserted custody row that exists. It violates the primary key, although a trigger refuses it first.
inline constexpr const char* CustodyRowExistsText = "This custody row already exists. Custody rows cannot be replaced.";

}  // namespace quellbrook
