#pragma once

#include <QString>
#include <gtest/gtest.h>

namespace vemra::qttest {

/// From now on, stores every message of Qt (for example a warning) for `QuietQt`.
void watchQtMessages();

/// The number of messages so far.
int messageCount();

/// Fails every test in which Qt writes a message.
class QuietQt : public ::testing::EmptyTestEventListener {
  void OnTestEnd(const ::testing::TestInfo& test) override;
};

}  // namespace vemra::qttest
