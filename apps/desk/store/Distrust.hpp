#pragma once

struct sqlite3;

namespace vemra::desk {

/// Configures a connection for a file that anyone may have made: its content can neither run code
/// nor make SQLite do more work than a store needs.
///
/// Views are off, and the schema may not call functions. Triggers stay on, because the store's own
/// triggers protect the recorded outcomes; the schema is compared before any trigger can run (see
/// Schema.hpp).
void distrustContents(sqlite3* connection);

}  // namespace vemra::desk
