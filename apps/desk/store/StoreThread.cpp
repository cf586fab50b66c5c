#include "apps/desk/store/StoreThread.hpp"

#include "apps/desk/store/StoreError.hpp"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace vemra::desk {

/// What the thread and its owner share. The thread keeps it to its own end, and so may outlive the
/// owner.
struct StoreThread::Work {
  Work(std::string name, Patience wait) : file(std::move(name)), patience(wait) {}

  void runTurns() {
    while (true) {
      std::unique_lock lock(mutex);
      changed.wait(lock, [&] { return ended || !waiters.empty(); });
      if (waiters.empty()) break;
      const std::coroutine_handle<> waiter = waiters.front();
      waiters.pop_front();
      lock.unlock();
      waiter.resume();
    }
    store.reset();
  }

  GoalStore& openStore() {
    if (!store) {
      try {
        store.emplace(lastFile ? GoalStore::reopen(file, patience)
                               : GoalStore::open(file, patience));
      } catch (const StoreMoved&) {
        hasMoved = true;
        throw;
      }
      ++openings;
      // A number of its own also when the system gives the new file the inode of the one removed.
      if (lastFile && (hasMoved || lastFile != store->identity())) ++storeNumber;
      lastFile = store->identity();
      hasMoved = false;
    }
    return *store;
  }

  const std::string file;
  const Patience patience;
  std::atomic<std::uint64_t> storeNumber = 0;

  // Touched by the thread alone:
  std::optional<GoalStore> store;
  std::int64_t openings = 0;
  std::optional<FileIdentity> lastFile;  // the last one that was opened
  bool hasMoved = false;                 // it has left its path

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::coroutine_handle<>> waiters;
  bool ended = false;
  std::thread thread;
};

StoreThread::StoreThread(std::string file, Patience patience)
    : work_(std::make_shared<Work>(std::move(file), patience)) {
  work_->thread = std::thread([work = work_] { work->runTurns(); });
}

StoreThread::~StoreThread() {
  // Taken out first: behind the lock the thread may end, and with it the last of `Work`.
  std::thread thread = std::move(work_->thread);
  {
    const std::lock_guard lock(work_->mutex);
    work_->ended = true;
    work_->changed.notify_one();
  }
  if (thread.get_id() == std::this_thread::get_id()) {
    thread.detach();
  } else {
    thread.join();
  }
}

void StoreThread::Turn::await_suspend(std::coroutine_handle<> waiter) {
  // As soon as it is in the queue the waiter may run to its end and take this object, and the last
  // owner of the thread, with it.
  const std::shared_ptr<Work> work = thread_.work_;
  const std::lock_guard lock(work->mutex);
  work->waiters.push_back(waiter);
  work->changed.notify_one();
}

GoalStore& StoreThread::Turn::await_resume() {
  return thread_.work_->openStore();
}

void StoreThread::giveUp(Moved moved) {
  work_->store.reset();
  if (moved == Moved::yes) work_->hasMoved = true;
}

std::int64_t StoreThread::openings() const {
  return work_->openings;
}

std::uint64_t StoreThread::storeNumber() const {
  return work_->storeNumber;
}

const std::string& StoreThread::file() const {
  return work_->file;
}

}  // namespace vemra::desk
