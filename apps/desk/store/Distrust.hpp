#pragma once

struct sqlite3;

namespace vemra::desk {

/// Sets up a connection for a file that anyone may have made: what stands in it can neither run code
/// of its own nor ask SQLite for more work than a store does.
///
/// Views are off and functions are closed to the schema. Triggers stay on, because the store's own
/// guard what was recorded; the schema is compared before any of them can run (see Schema.hpp).
void distrustContents(sqlite3* connection);

}  // namespace vemra::desk
