#include "apps/desk/store/StoreThread.hpp"

#include "apps/desk/store/FileIdentity.hpp"
#include "apps/desk/store/Pause.hpp"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace vemra::desk {

/// The data that the thread shares with its owner. The thread keeps it until its own end, so it may
/// outlive the owner.
struct StoreThread::Work {
  Work(std::string name, Patience wait, StoreUse purpose)
      : file(std::move(name)), patience(wait), use(purpose) {}

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
    if (store) return *store;
    if (use == StoreUse::reading) {
      store = GoalStore::openExisting(file);
      if (!store) throw StoreError(file, "is not there, or is empty");
    } else {
      store.emplace(lastFile ? GoalStore::reopen(file, patience) : GoalStore::open(file, patience));
    }
    // The system may reuse the inode of a removed file for the new one.
    const bool isAnother = hasMoved || lastFile != store->identity();
    if (lastFile && isAnother) ++storeNumber;
    if (isAnother) {
      state.reset();
      noteMark();
    }
    lastFile = store->identity();
    hasMoved = false;
    wasOpenedAnew = true;
    connectionVersion = store->version();
    return *store;
  }

  /// Notes the mark of the store that was just opened.
  void noteMark() {
    std::string mark = fileMarkAt(file);
    if (identityAt(file) != store->identity()) mark.clear();  // it has been replaced already
    const std::lock_guard lock(mutex);
    marks.resize(storeNumber + 1);
    marks.back() = std::move(mark);
  }

  /// Counts a change if the store differs from its state at the last call.
  std::int64_t countChanges() {
    // Read the state first: a change in between is then counted twice rather than missed.
    std::optional<std::string> stateNow = store->state();
    const std::int64_t versionNow = store->version();
    const bool isSameState = state && stateNow == state;
    if (versionNow != connectionVersion || (wasOpenedAnew && !isSameState)) ++changes;
    connectionVersion = versionNow;
    state = std::move(stateNow);
    wasOpenedAnew = false;
    return changes;
  }

  const std::string file;
  const Patience patience;
  const StoreUse use;
  std::atomic<std::uint64_t> storeNumber = 0;

  // Used only by the thread:
  std::optional<GoalStore> store;
  std::optional<FileIdentity> lastFile;  // the last opened file
  bool hasMoved = false;                 // that file has left its path
  Pause pause;                           // after the last failure
  std::exception_ptr versionFailure;     // from the last call of `version`
  std::int64_t changes = 0;              // the last answer of `version`; 0 before the first
  bool wasOpenedAnew = false;            // since the last answer
  std::int64_t connectionVersion = 0;    // at the last answer, or when the store was opened
  std::optional<std::string> state;      // of the file, at the last answer

  std::mutex mutex;
  std::vector<std::string> marks;  // of the stores that were opened, by their numbers
  std::condition_variable changed;
  std::deque<std::coroutine_handle<>> waiters;
  bool ended = false;
  std::thread thread;
};

StoreThread::StoreThread(std::string file, Patience patience, StoreUse use)
    : work_(std::make_shared<Work>(std::move(file), patience, use)) {
  work_->thread = std::thread([work = work_] { work->runTurns(); });
}

StoreThread::~StoreThread() {
  // Move the thread out first: after the lock is released, it may end and release the last `Work`.
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
  // Once `waiter` is in the queue, it may run to its end and destroy this object, together with the
  // last owner of the thread.
  const std::shared_ptr<Work> work = thread_.work_;
  const std::lock_guard lock(work->mutex);
  work->waiters.push_back(waiter);
  work->changed.notify_one();
}

GoalStore& StoreThread::openStore() {
  return work_->openStore();
}

void StoreThread::closeIfReading() {
  if (work_->use == StoreUse::reading) work_->store.reset();
}

void StoreThread::giveUp(Moved moved) {
  work_->store.reset();
  if (moved == Moved::yes) {
    // Checking for a file at the path again costs next to nothing, so do not pause.
    work_->hasMoved = true;
    work_->pause.end();
  } else {
    work_->pause.begin();
  }
}

std::int64_t StoreThread::version() {
  Work& work = *work_;
  const bool hasAnswer = work.changes > 0 || work.versionFailure;
  if (hasAnswer && !work.store && work.pause.isOn()) {
    if (work.versionFailure) std::rethrow_exception(work.versionFailure);
    return work.changes;
  }
  work.versionFailure = nullptr;
  try {
    return use<std::int64_t>([&](GoalStore&) { return work.countChanges(); });
  } catch (...) {
    work.versionFailure = std::current_exception();
    throw;
  }
}

std::uint64_t StoreThread::storeNumber() const {
  return work_->storeNumber;
}

std::string StoreThread::storeMark(std::uint64_t number) const {
  const std::lock_guard lock(work_->mutex);
  return number < work_->marks.size() ? work_->marks[number] : "";
}

StoreUse StoreThread::storeUse() const {
  return work_->use;
}

const std::string& StoreThread::file() const {
  return work_->file;
}

}  // namespace vemra::desk
