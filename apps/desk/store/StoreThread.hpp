#pragma once

#include "VemraPlatform/task/Task.hpp"
#include "apps/desk/store/GoalStore.hpp"

#include <coroutine>
#include <cstdint>
#include <memory>
#include <string>

namespace vemra::desk {

/// A thread of its own with a connection of its own: where a store is read and written, so that no
/// window waits for a disk.
///
/// A coroutine takes a turn by awaiting one, goes on over there, and may use the store until it
/// next awaits something else:
///
///     auto turn = thread->turn();
///     GoalStore& store = co_await turn;
///
/// Turns come in the order in which they were asked for. The store is opened at the first one; when
/// that fails the turn throws the `StoreError`, and the next one tries again. So does the next turn
/// after `giveUp`, but it makes no file: a store that was there and is gone is not a new one.
class StoreThread {
 public:
  StoreThread(std::string file, Patience patience);

  /// Ends the thread after the turns that were asked for. May happen on the thread itself, when the
  /// last owner is a coroutine that ran there.
  ~StoreThread();

  StoreThread(const StoreThread&) = delete;
  StoreThread& operator=(const StoreThread&) = delete;

  class Turn {
   public:
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiter);
    GoalStore& await_resume();

   private:
    friend class StoreThread;
    explicit Turn(StoreThread& thread) : thread_(thread) {}
    StoreThread& thread_;
  };

  /// To be awaited at once, while the thread lives.
  Turn turn() { return Turn(*this); }

  /// Closes the store after a failure, so that the next turn opens it anew: SQLite keeps a
  /// connection as a failure has left it, be it read-only or with a lock of its own in its way.
  /// From inside a turn only.
  ///
  /// - Parameter moved: whether the failure was that the store is no longer at its path.
  enum class Moved { no, yes };
  void giveUp(Moved moved);

  /// How often the store has been opened. From inside a turn only.
  std::int64_t openings() const;

  /// Which store is open: a number that changes when another file has come to its path. For any
  /// thread.
  std::uint64_t storeNumber() const;

  const std::string& file() const;

 private:
  struct Work;
  std::shared_ptr<Work> work_;
};

}  // namespace vemra::desk
