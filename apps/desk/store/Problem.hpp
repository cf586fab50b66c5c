#pragma once

#include <string>

struct sqlite3;

namespace vemra::desk {

/// The failure of an SQLite call.
struct Problem {
  std::string text;  ///< what cannot be done with the store, and the system's name of the cause
  /// Whether the file's content, or the request, is the cause. Then another connection would fail
  /// in the same way; after any other failure it may succeed.
  bool isOfContent = false;
};

/// Describes the failure of an SQLite call.
///
/// - Parameter code: the extended result code.
/// - Parameter connection: the connection that the call was made with, or null.
Problem problemOf(int code, sqlite3* connection);

}  // namespace vemra::desk
