#pragma once

#include "VemraPlatform/task/Task.hpp"

#include <memory>
#include <vector>

/// Records as an engine holds them while it waits: in a coroutine's frame.
namespace vemra::testing {

/// A task whose end the compiler cannot see, so that a record kept over it lives in the frame.
inline task::Task<> pause() {
  co_return;
}

/// Keeps a record in a local variable over a `co_await` and returns it.
template <class Record>
task::Task<Record> keepOverAnAwait(Record given) {
  Record kept = std::move(given);
  task::Task<> pausing = pause();
  co_await std::move(pausing);
  co_return kept;
}

/// Coroutines that will each keep a copy of `record`, with frames at every multiple of 16 bytes:
/// operator new guarantees no more, but an allocator may by chance align some of them better.
template <class Record>
class ManyKeeping {
 public:
  explicit ManyKeeping(const Record& record) {
    constexpr int count = 32;
    for (int i = 0; i < count; ++i) {
      tasks.push_back(keepOverAnAwait(record));
      // Blocks between the frames shift the ones that follow by 32 bytes or by 48.
      between_.push_back(std::make_unique<char[]>(i % 2 == 0 ? 24 : 40));
    }
  }
  std::vector<task::Task<Record>> tasks;

 private:
  std::vector<std::unique_ptr<char[]>> between_;
};

}  // namespace vemra::testing
