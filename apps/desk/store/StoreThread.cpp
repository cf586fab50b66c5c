#include "apps/desk/store/StoreThread.hpp"

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

  const std::string file;
  const Patience patience;
  std::optional<GoalStore> store;  // touched by the thread alone

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
  Work& work = *thread_.work_;
  if (!work.store) work.store.emplace(GoalStore::open(work.file, work.patience));
  return *work.store;
}

}  // namespace vemra::desk
