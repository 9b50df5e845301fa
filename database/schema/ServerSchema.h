#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook {

// The reference schema of the host's tables for database servers: the same tables, columns and rules as in
// SqliteSchema.h, in each server's own SQL. Differences:
//
// - Dates have the server's own type and milliseconds; SQL Server rounds them to its steps of 1/300 of a second.
// - On PostgreSQL booleans are small integers, since statements compare and set them as numbers. Unique texts and
//   indexes use LOWER(column COLLATE "C"), as the rewritten statements do: they fold ASCII letters on every server.
//   SQL Server compares by the collation of the database.
// - A trigger locks the container of a new or moved location until the end of the transaction, so that no other
//   workstation moves or deletes it meanwhile.
// - Custody rows cannot be truncated either.
// - The search for descriptions uses a trigram index on PostgreSQL if the extension pg_trgm can be installed.
// - SQL Server has no generated columns that refer to rows: a trigger checks at the end of each statement that no
//   location lost its container.
//
// BatchMark has a row for each batch, written in its transaction, so that a failed commit can be checked.
// SchemaVersion has one row, the version of the schema.

inline constexpr int32_t ServerSchemaVersion = 2;

// Creates everything in an empty database, in order, in one transaction.
const std::vector<std::string>& PostgreSqlSchemaStatements();
const std::vector<std::string>& SqlServerSchemaStatements();

// What an older version lacks, in order. The versions of SQL Server's schema have the same objects.
std::vector<std::string> PostgreSqlUpgradeStatements(int32_t fromVersion);

// The names of the triggers that maintain CurrentPlace.
const std::vector<std::string>& ServerPlaceTriggers();

}  // namespace quellbrook
