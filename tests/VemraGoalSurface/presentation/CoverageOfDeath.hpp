#pragma once

#include <csignal>

// Part of the compiler's coverage runtime. Null in a build without coverage, and in one that is not
// linked with -Wl,--undefined=__gcov_dump.
extern "C" void __gcov_dump() __attribute__((weak));

namespace vemra::testing {

/// Makes a process that aborts write its coverage first.
///
/// A death test runs in a process of its own, and an abort leaves no coverage behind: lines that
/// only stop the process would count as never run. Call it in the statement of the death test.
inline void keepCoverageOnAbort() {
  std::signal(SIGABRT, [](int) {
    if (&__gcov_dump != nullptr) __gcov_dump();
  });
}

}  // namespace vemra::testing
