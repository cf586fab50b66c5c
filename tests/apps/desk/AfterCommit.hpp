#pragma once

#include <atomic>
#include <functional>
#include <string_view>
#include <utility>

#include <sqlite3.h>

namespace vemra::desk {

/// Calls a function once, right after the next commit of a store that is opened while this lives:
/// between the commit and the acknowledgement. Use one at a time.
class AfterCommit {
 public:
  explicit AfterCommit(std::function<void()> act) {
    next = std::move(act);
    isDue = true;
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(watch));
  }
  AfterCommit(const AfterCommit&) = delete;
  AfterCommit& operator=(const AfterCommit&) = delete;
  ~AfterCommit() {
    isDue = false;
    sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(watch));
  }

  bool hasHappened() const { return !isDue; }

 private:
  static int watch(sqlite3* connection, const char**, const void*) {
    return sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE, ended, nullptr);
  }
  /// Called when a statement has ended.
  static int ended(unsigned, void*, void* statement, void*) {
    const char* sql = sqlite3_sql(static_cast<sqlite3_stmt*>(statement));
    if (std::string_view(sql) == "COMMIT" && isDue.exchange(false)) next();
    return 0;
  }
  static inline std::function<void()> next;
  static inline std::atomic<bool> isDue = false;
};

}  // namespace vemra::desk
