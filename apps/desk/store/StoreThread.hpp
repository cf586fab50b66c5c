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

/// Whether a store is opened for recording and importing too, or for reading only.
enum class StoreUse { readingAndWriting, reading };

/// A thread with its own connection to a store, so that no window waits for a disk.
///
/// A coroutine takes a turn by awaiting it. It then continues on this thread and may use the store
/// until it awaits something else:
///
///     auto turn = thread->turn();
///     co_await turn;
///     thread->use<int>([](GoalStore& store) { … });
///
/// Turns run in the order in which they were requested.
class StoreThread {
 public:
  /// A store for reading only is opened anew for each use, because a store that cannot be locked is
  /// read at rest (`DatabaseFile`); it must exist.
  StoreThread(std::string file, Patience patience, StoreUse use = StoreUse::readingAndWriting);

  /// Ends the thread after all requested turns. May be called on the thread itself, when the last
  /// owner is a coroutine that ran there.
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

  /// Await the turn at once, while the thread lives.
  Turn turn() { return Turn(*this); }

  /// \name Call these only inside a turn.
  /// @{
  /// Runs `work` with the store and returns its result. Opens the store first if it is not open;
  /// only the very first call creates a file. Exceptions of `work` or of the opening are rethrown.
  ///
  /// After a failure of the system, after a timeout while waiting for another process, and when the
  /// file has moved, this closes the store, and the next call opens it again: after a failure, a
  /// connection of SQLite may stay read-only, or be blocked by a lock of its own.
  template <class Answer>
  Answer use(const std::function<Answer(GoalStore&)>& work) {
    const ClosingIfReading closing(*this);
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
  /// Opening the store again is not a change by itself: the file and its log are compared with
  /// their previous states. A window calls this several times a second. So that a failing store is
  /// not opened as often, this does not open a store again after a failure until a `Pause` is over;
  /// until then it gives its last answer.
  std::int64_t version();
  /// @}

  /// The number of the open store; it changes when another file is at its path. May be called from
  /// any thread.
  std::uint64_t storeNumber() const;

  /// `fileMarkAt` of the store that had that number; "" before it was opened. May be called from
  /// any thread.
  std::string storeMark(std::uint64_t number) const;

  const std::string& file() const;
  StoreUse storeUse() const;

 private:
  /// Closes a store for reading only at the end of the scope.
  class ClosingIfReading {
   public:
    explicit ClosingIfReading(StoreThread& thread) : thread_(thread) {}
    ClosingIfReading(const ClosingIfReading&) = delete;
    ClosingIfReading& operator=(const ClosingIfReading&) = delete;
    ~ClosingIfReading() { thread_.closeIfReading(); }

   private:
    StoreThread& thread_;
  };

  enum class Moved { no, yes };
  void giveUp(Moved moved);
  GoalStore& openStore();
  void closeIfReading();

  struct Work;
  std::shared_ptr<Work> work_;
};

}  // namespace vemra::desk
