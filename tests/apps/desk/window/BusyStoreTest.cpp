#include "tests/apps/desk/window/OpenDesk.hpp"

#include <atomic>
#include <string_view>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

/// Counts how often the window checks whether its store has changed, and can make a check slow. For
/// stores that are opened while this lives. Use one at a time.
class Looks {
 public:
  Looks() {
    count = 0;
    mayGoOn = true;
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(watch));
  }
  Looks(const Looks&) = delete;
  Looks& operator=(const Looks&) = delete;
  ~Looks() {
    mayGoOn = true;
    sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(watch));
  }

  static inline std::atomic<int> count = 0;
  static inline std::atomic<bool> mayGoOn = true;

 private:
  static int watch(sqlite3* connection, const char**, const void*) {
    return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, begun, nullptr);
  }
  static int begun(unsigned, void*, void*, void* sql) {
    if (std::string_view(static_cast<const char*>(sql)) != "PRAGMA data_version") return 0;
    ++count;
    while (!mayGoOn) QThread::msleep(1);
    return 0;
  }
};

class BusyStoreTest : public OpenDesk {
 protected:
  BusyStoreTest() { GoalStore::open(file).import({goal("g1", "One")}); }
  ~BusyStoreTest() override {
    Looks::mayGoOn = true;
    close();
  }

  Looks looks;
};

TEST_F(BusyStoreTest, TheNextCheckOfAStoreBeginsAfterThePreviousOneHasEnded) {
  open();
  // Loading a goal reads the same number.
  ASSERT_NE(wait<QAbstractButton>("vemra.goal.person.p1.outcome.start"), nullptr);
  Looks::mayGoOn = false;
  const int before = Looks::count;
  ASSERT_TRUE(becomes([&] { return Looks::count > before; }));
  pass(1500);  // more checks are due
  Looks::mayGoOn = true;
  pass(100);
  EXPECT_LE(Looks::count, before + 2) << "one that took long, and the next one";
  EXPECT_TRUE(becomes([&] { return Looks::count > before + 2; })) << "the search continues";
}

}  // namespace
}  // namespace vemra::desk
