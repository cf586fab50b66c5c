#pragma once

#include "VemraPlatform/task/Task.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreError.hpp"

#include <coroutine>
#include <cstdint>
#include <functional>
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
///     co_await turn;
///     thread->use<int>([](GoalStore& store) { … });
///
/// Turns come in the order in which they were asked for.
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
    void await_resume() const noexcept {}

   private:
    friend class StoreThread;
    explicit Turn(StoreThread& thread) : thread_(thread) {}
    StoreThread& thread_;
  };

  /// To be awaited at once, while the thread lives.
  Turn turn() { return Turn(*this); }

  /// \name From inside a turn only.
  /// @{
  /// Does `work` with the store and gives what it gives. Opens the store first if it is not open;
  /// only the very first time does that make a file. What `work` or the opening throws comes out.
  ///
  /// After a failure of the system, after waiting in vain for another process, and when the file
  /// has moved, this closes the store, and the next call opens it anew: SQLite keeps a connection
  /// as a failure has left it, be it read-only or with a lock of its own in its way.
  template <class Answer>
  Answer use(const std::function<Answer(GoalStore&)>& work) {
    try {
      return work(openStore());
    } catch (const StoreMoved&) {
      giveUp(Moved::yes);
      throw;
    } catch (const StoreFailure&) {
      giveUp(Moved::no);
      throw;
    } catch (const StoreBusy&) {
      giveUp(Moved::no);
      throw;
    }
  }

  /// A number that changes when another connection may have changed the store.
  ///
  /// That it was opened anew is no change by itself: the file and its log are compared with what
  /// they were before. A window asks for the number several times a second. So that a store which
  /// keeps failing is not opened as often, this does not open a store that was closed after a
  /// failure before a `Pause` is over; until then it answers as the last time.
  std::int64_t version();
  /// @}

  /// Which store is open: a number that changes when another file has come to its path. For any
  /// thread.
  std::uint64_t storeNumber() const;

  const std::string& file() const;

 private:
  enum class Moved { no, yes };
  void giveUp(Moved moved);
  GoalStore& openStore();

  struct Work;
  std::shared_ptr<Work> work_;
};

}  // namespace vemra::desk
