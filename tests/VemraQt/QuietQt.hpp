#pragma once

#include <QString>
#include <gtest/gtest.h>

namespace vemra::qttest {

/// From now on every message that Qt writes (a warning, say) is kept for `QuietQt`.
void watchQtMessages();

/// How many there have been so far.
int messageCount();

/// Fails every test in which Qt had something to say.
class QuietQt : public ::testing::EmptyTestEventListener {
  void OnTestEnd(const ::testing::TestInfo& test) override;
};

}  // namespace vemra::qttest
