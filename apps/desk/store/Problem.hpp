#pragma once

#include <string>

struct sqlite3;

namespace vemra::desk {

/// The failure of an SQLite call in words: what cannot be done with the store, and the cause as the
/// system names it.
///
/// - Parameter code: the extended result code.
/// - Parameter connection: the connection that the call was made with, or null.
std::string problem(int code, sqlite3* connection);

}  // namespace vemra::desk
