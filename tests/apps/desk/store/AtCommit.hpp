#pragma once

#include <functional>
#include <utility>

#include <sqlite3.h>

namespace vemra::desk {

/// Calls a function right before each commit of the connections that are opened while it lives.
class AtCommit {
 public:
  explicit AtCommit(std::function<int()> act) {
    atCommit = std::move(act);
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(watch));
  }
  AtCommit(const AtCommit&) = delete;
  AtCommit& operator=(const AtCommit&) = delete;
  ~AtCommit() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(watch)); }

 private:
  static int watch(sqlite3* connection, const char**, const void*) {
    sqlite3_commit_hook(
        connection, [](void*) { return atCommit(); }, nullptr);
    return SQLITE_OK;
  }
  static inline std::function<int()> atCommit;
};

}  // namespace vemra::desk
