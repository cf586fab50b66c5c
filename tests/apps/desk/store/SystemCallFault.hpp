#pragma once

#include <string>

namespace vemra::desk {

/// Lets a system call of SQLite fail for a while, in this process.
///
/// SQLite makes its calls through a table that a program may change; so SQLite and the project's
/// code behave as on a machine where the call fails. Use one at a time.
class SystemCallFault {
 public:
  enum class Call { openForWriting, open, read, write, lock, unlock };

  /// - Parameter error: the errno of the call that fails.
  /// - Parameter nameEnding: only files whose names end so.
  /// - Parameter times: how many calls fail, from now on.
  SystemCallFault(Call call, int error, std::string nameEnding, int times);
  SystemCallFault(const SystemCallFault&) = delete;
  SystemCallFault& operator=(const SystemCallFault&) = delete;
  ~SystemCallFault();

  static constexpr int always = 1 << 30;

  /// How many calls have failed so far.
  int count() const;
};

}  // namespace vemra::desk
