#pragma once

#include "apps/desk/store/Database.hpp"

#include <cstdint>
#include <optional>

/// \file
/// The tables of a store, and the recognition of a file as a store.
///
/// A store has an application id and a schema version in its header (SQLite's `application_id` and
/// `user_version`), and exactly the tables, indexes and triggers of that version, word for word. A
/// file with any other object in its schema is refused, because a foreign trigger may do anything.
/// A file without tables is a new store. The database itself protects recorded outcomes: triggers
/// refuse to change, replace or remove an outcome, whichever program tries.

namespace vemra::desk {

/// The version of the tables that this program writes. It reads every earlier one too, and a
/// program that opens an earlier one for writing first adds what is missing.
inline constexpr int schemaVersion = 2;

/// Creates the tables in a file without tables, and checks that the file is a store of a known
/// version; one of an earlier version is upgraded (`upgradeSchema`). Several processes may do so at
/// once.
///
/// Throws a `StoreError` for any other file, and leaves that file unchanged.
void prepareSchema(Database& database);

/// Does what `prepareSchema` does, inside a writing transaction, which then includes the new
/// tables.
void prepareSchemaWithin(Database& database);

/// Whether the file is a store; false when it has no tables yet. Throws a `StoreError` when it is
/// something else. Changes nothing.
bool hasSchema(Database& database);

/// Adds to a store of an earlier version what this version has more, all of it or nothing. Several
/// processes may do so at once.
///
/// A store keeps its version when it may be read only, while another program writes it for longer
/// than the connection waits, and when the system fails (a full disk): all code reads and writes
/// earlier versions too, so this throws nothing then. The next opening for writing upgrades the store.
void upgradeSchema(Database& database);

/// Watches the schema of an open store, because another program may change it meanwhile.
class SchemaWatch {
 public:
  /// Call it at the beginning of each transaction: throws a `StoreError` unless the file is still a
  /// store. Reads only the file's header unless the schema has changed.
  void confirm(Database& database);

  /// The version of the tables, since the first check.
  int version() const { return version_; }
  /// SQLite's counter of schema changes at the last check; another number means that a program may
  /// have changed rows while triggers were missing.
  std::int64_t change() const { return confirmed_.value_or(0); }

 private:
  std::optional<std::int64_t> confirmed_;
  int version_ = 0;
};

}  // namespace vemra::desk
