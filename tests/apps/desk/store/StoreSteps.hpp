#pragma once

#include <string>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vemra::desk {

/// Counts the work of SQLite in the connections that are opened while it lives: the steps of its
/// virtual machine, which grow with the rows read, and the rows that statements return.
class StoreSteps {
 public:
  StoreSteps() {
    start();
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(watch));
  }
  StoreSteps(const StoreSteps&) = delete;
  StoreSteps& operator=(const StoreSteps&) = delete;
  ~StoreSteps() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(watch)); }

  /// Counts from 0 again.
  static void start() { steps_ = rows_ = 0; }
  static int steps() { return steps_; }
  static int rows() { return rows_; }

 private:
  static int watch(sqlite3* connection, const char**, const void*) {
    return sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE | SQLITE_TRACE_ROW, happened, nullptr);
  }
  static int happened(unsigned event, void*, void* statement, void*) {
    if (event == SQLITE_TRACE_ROW) {
      ++rows_;
    } else {
      steps_ +=
          sqlite3_stmt_status(static_cast<sqlite3_stmt*>(statement), SQLITE_STMTSTATUS_VM_STEP, 1);
    }
    return 0;
  }
  static inline int steps_ = 0;
  static inline int rows_ = 0;
};

}  // namespace vemra::desk
