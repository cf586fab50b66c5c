#pragma once

#include <cstdio>

namespace vemra::testing {

/// Runs `work` in a process whose standard error is buffered, as a host may have it. For the child
/// process of a death test: the buffer stays.
template <class Work>
void withBufferedStandardError(const Work& work) {
  static char buffer[BUFSIZ];
  std::setvbuf(stderr, buffer, _IOFBF, sizeof buffer);
  work();
}

}  // namespace vemra::testing
