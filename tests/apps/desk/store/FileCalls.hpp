#pragma once

namespace vemra::desk {

/// Counts this process's system calls and lets them fail, outside of SQLite's own table
/// (`SystemCallFault`): the program of these tests replaces these functions of the C library.
struct FileCalls {
  enum class Call { fsync, stat };

  /// Lets each such call fail with this error of the system until `succeed`.
  static void fail(Call call, int error);
  static void succeed();

  /// The number of calls of `fsync` so far.
  static int syncs();
  /// The number of calls of `fdatasync` so far, which SQLite makes for a durable transaction.
  static int dataSyncs();
};

}  // namespace vemra::desk
