#pragma once

#include <gtest/gtest.h>

namespace vemra::fuzz {

/// Makes a failed assertion of GoogleTest an exception, which ends the process: the stories that
/// the tests of the view layer share assert in this way, and outside a test nobody would notice.
inline void stopAtFailedAssertions() {
  GTEST_FLAG_SET(throw_on_failure, true);
}

}  // namespace vemra::fuzz
