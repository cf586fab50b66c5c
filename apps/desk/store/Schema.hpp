#pragma once

#include "apps/desk/store/Database.hpp"

#include <cstdint>
#include <optional>

/// \file
/// The tables of a store, and how a file is recognised as one.
///
/// A store carries an application id and a schema version in its header (SQLite's `application_id`
/// and `user_version`), and exactly the tables, indexes and triggers of that version, word for
/// word. A file with anything else in its schema is refused: a foreign trigger may do anything. A
/// file without tables is a new store. The database itself keeps what a person recorded: triggers
/// refuse to change, replace or remove an outcome, whichever program asks.

namespace vemra::desk {

/// The version of the tables that this program writes and reads.
inline constexpr int schemaVersion = 1;

/// Makes the tables in a file that has none, and makes sure that the file is a store of a version
/// that is known. Several processes may do so at once.
///
/// Throws a `StoreError` for anything else; the file is then as it was.
void prepareSchema(Database& database);

/// The same inside a writing transaction, of which the tables become a part.
void prepareSchemaWithin(Database& database);

/// Says whether the file is a store, or throws a `StoreError` when it is something else. False
/// means that it has no tables yet. Changes nothing.
bool hasSchema(Database& database);

/// Watches the schema of a store that stays open, because another program may change it meanwhile.
class SchemaWatch {
 public:
  /// To be called inside each transaction, before anything else happens in it: makes sure that the
  /// file is a store still, or throws a `StoreError`. Costs one look into the file's header unless
  /// the schema has changed.
  void confirm(Database& database);

 private:
  std::optional<std::int64_t> confirmed_;  // SQLite's counter of schema changes
};

}  // namespace vemra::desk
