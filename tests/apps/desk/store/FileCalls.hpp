#pragma once

namespace vemra::desk {

/// Counts and refuses calls that this process makes of the system, outside of SQLite's own table
/// (`SystemCallFault`): the program of these tests has these functions of its own.
struct FileCalls {
  enum class Call { fsync, stat };

  /// Lets each such call fail with this error of the system until `succeed`.
  static void fail(Call call, int error);
  static void succeed();

  /// How often `fsync` was called so far.
  static int syncs();
};

}  // namespace vemra::desk
