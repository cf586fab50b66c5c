#pragma once

struct sqlite3;

namespace vemra::desk {

/// Adds the SQL function `same_text(a, b)` to a connection: 1 when two texts are canonically
/// equivalent, else 0. NULL equals nothing, not even NULL.
void addSameText(sqlite3* connection);

}  // namespace vemra::desk
