#include "apps/desk/store/Schema.hpp"

#include "apps/desk/store/Statement.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/store/Tables.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "apps/documents/DocumentError.hpp"

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <tuple>

namespace vemra::desk {
namespace {

constexpr std::int64_t applicationID = 0x566D446B;  // "VmDk"

/// The objects that SQLite itself adds: for UNIQUE, for AUTOINCREMENT, and when a user runs
/// ANALYZE.
bool isOfSQLite(const std::string& type, const std::string& name,
                const std::optional<std::string>& sql) {
  static const std::set<std::tuple<std::string, std::string, std::optional<std::string>>> objects{
      {"index", "sqlite_autoindex_goals_1", std::nullopt},
      {"table", "sqlite_sequence", "CREATE TABLE sqlite_sequence(name,seq)"},
      {"table", "sqlite_stat1", "CREATE TABLE sqlite_stat1(tbl,idx,stat)"},
      {"table", "sqlite_stat4", "CREATE TABLE sqlite_stat4(tbl,idx,neq,nlt,ndlt,sample)"}};
  return objects.contains({type, name, sql});
}

/// Throws unless the schema has every table, index and trigger of that version of a store and no
/// other object: a foreign trigger could remove recorded outcomes, and a table without checks could
/// contain anything.
void confirmObjects(Database& database, int version) {
  const std::span<const SchemaObject> objects = tablesOfVersion(version);
  std::set<std::string_view> missing{"sqlite_sequence"};
  for (const SchemaObject& object : objects) missing.insert(object.name);
  Statement row(database, "SELECT type, name, sql FROM sqlite_schema", {"sqlite_schema", 2});
  row.query();
  while (row.next()) {
    const std::string type = row.text(0);
    const std::string name = row.text(1);
    const std::optional<std::string> sql = row.optionalText(2);
    if (isOfSQLite(type, name, sql)) {
      missing.erase(name);
      continue;
    }
    const std::string named = "the " + documents::shortened(type) + ' ' + documents::inQuotes(name);
    if (missing.erase(name) == 0) {
      throw StoreError(database.file(), "is damaged: " + named + " is not part of a store");
    }
    for (const SchemaObject& object : objects) {
      if (object.name == name && (object.type != type || object.sql != sql)) {
        throw StoreError(database.file(), "is damaged: " + named + " is not as a store has it");
      }
    }
  }
  for (const SchemaObject& object : objects) {
    if (!missing.contains(object.name)) continue;
    throw StoreError(database.file(), std::string("is damaged: the ") + object.type + ' ' +
                                          documents::inQuotes(object.name) + " is missing");
  }
  if (!missing.empty()) {
    throw StoreError(database.file(), "is damaged: the table \"sqlite_sequence\" is missing");
  }
}

/// The version of the tables, 0 for a file without tables. Reads in several steps; the caller must
/// hold a transaction, so that all steps see one state.
int versionNow(Database& database) {
  const std::int64_t owner = database.number("PRAGMA application_id");
  const std::int64_t version = database.number("PRAGMA user_version");
  const bool isEmpty = database.number("SELECT count(*) FROM sqlite_schema") == 0;
  if (owner == 0 && version == 0 && isEmpty) return 0;
  if (owner != applicationID) {
    throw StoreError(database.file(), "is an SQLite database, but not a store of goals");
  }
  if (version > schemaVersion) {
    throw StoreError(database.file(), "was written by a newer vemra-desk: its version is " +
                                          std::to_string(version) + ", this one knows " +
                                          std::to_string(schemaVersion));
  }
  if (version < 1) throw StoreError(database.file(), "is damaged: it has no version");
  confirmObjects(database, static_cast<int>(version));
  return static_cast<int>(version);
}

void setVersion(Database& database) {
  database.run(("PRAGMA user_version = " + std::to_string(schemaVersion)).c_str());
}

/// Makes a store of version 1 one of version 2, in one transaction.
void addWhatIsMissing(Database& database) {
  Transaction transaction(database, Transaction::Kind::writing);
  if (versionNow(database) != 1) return;  // another process has changed it meanwhile
  for (const SchemaObject& object : addedByVersion2()) database.run(object.sql.c_str());
  database.run("INSERT INTO result_stamps SELECT number, random() FROM goals");
  setVersion(database);
  transaction.commit();
}

}  // namespace

bool hasSchema(Database& database) {
  // Another process may be creating the schema now: the transaction sees all of it, or nothing.
  const Transaction transaction(database, Transaction::Kind::reading);
  return versionNow(database) != 0;
}

void prepareSchema(Database& database) {
  if (hasSchema(database)) {
    upgradeSchema(database);
    return;
  }
  Transaction transaction(database, Transaction::Kind::writing);
  prepareSchemaWithin(database);
  transaction.commit();
}

void prepareSchemaWithin(Database& database) {
  if (versionNow(database) != 0) return;  // another process has created the tables
  for (const SchemaObject& object : tablesOfVersion(schemaVersion)) {
    database.run(object.sql.c_str());
  }
  database.run(("PRAGMA application_id = " + std::to_string(applicationID)).c_str());
  setVersion(database);
}

void upgradeSchema(Database& database) {
  if (database.number("PRAGMA user_version") >= schemaVersion) return;
  try {
    addWhatIsMissing(database);
  } catch (const StoreBusy&) {
    // A store of version 1 can be used too; the next opening upgrades it.
  } catch (const StoreFailure&) {
    // So it is on a full disk, for example.
  }
}

void SchemaWatch::confirm(Database& database) {
  const std::int64_t change = database.number("PRAGMA schema_version");
  if (change == confirmed_) return;
  version_ = versionNow(database);
  if (version_ == 0) throw StoreError(database.file(), "is damaged: it has no tables");
  confirmed_ = change;
}

}  // namespace vemra::desk
