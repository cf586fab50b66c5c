#pragma once

#include <gtest/gtest.h>

namespace vemra::fuzz {

/// Makes a failed assertion of GoogleTest an exception, which ends the process: the shared stories
/// of the view layer's tests use these assertions, which have no effect outside a test.
inline void stopAtFailedAssertions() {
  GTEST_FLAG_SET(throw_on_failure, true);
}

}  // namespace vemra::fuzz
