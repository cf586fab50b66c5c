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

/// The version of the tables that this program reads and writes.
inline constexpr int schemaVersion = 1;

/// Creates the tables in a file without tables, and checks that the file is a store of a known
/// version. Several processes may do so at once.
///
/// Throws a `StoreError` for any other file, and leaves that file unchanged.
void prepareSchema(Database& database);

/// Does what `prepareSchema` does, inside a writing transaction, which then includes the new tables.
void prepareSchemaWithin(Database& database);

/// Whether the file is a store; false when it has no tables yet. Throws a `StoreError` when it is
/// something else. Changes nothing.
bool hasSchema(Database& database);

/// Watches the schema of an open store, because another program may change it meanwhile.
class SchemaWatch {
 public:
  /// Call it at the beginning of each transaction: throws a `StoreError` unless the file is still a
  /// store. Reads only the file's header unless the schema has changed.
  void confirm(Database& database);

 private:
  std::optional<std::int64_t> confirmed_;  // SQLite's counter of schema changes, at the last check
};

}  // namespace vemra::desk
