#include "VemraQt/StartOnMainThread.hpp"

#include <memory>
#include <stdexcept>
#include <string>

#include <QApplication>
#include <QThread>
#include <gtest/gtest.h>

namespace vemra::qt {
namespace {

task::Task<std::string> ends(std::string with) {
  co_return with;
}

task::Task<std::string> fails() {
  throw std::runtime_error("it failed");
  co_return "";
}

class StartOnMainThread : public ::testing::Test {
 protected:
  /// Starts a task and records its end.
  void start(task::Task<std::string> task) {
    startOnMainThread(*receiver, std::move(task), [this](task::Result<std::string> result) {
      EXPECT_EQ(QThread::currentThread(), QApplication::instance()->thread());
      try {
        heard += std::move(result).take() + " ";
      } catch (const std::runtime_error& error) {
        heard += std::string("failed: ") + error.what() + " ";
      }
    });
  }

  std::unique_ptr<QObject> receiver = std::make_unique<QObject>();
  std::string heard;
};

TEST_F(StartOnMainThread, TheCallbackComesFromTheEventLoopAndNeverAtOnce) {
  start(ends("done"));
  EXPECT_EQ(heard, "") << "the task has ended, but its caller continues first";
  QApplication::processEvents();
  EXPECT_EQ(heard, "done ");
  QApplication::processEvents();
  EXPECT_EQ(heard, "done ") << "once";
}

TEST_F(StartOnMainThread, AFailureIsPassedOn) {
  start(fails());
  QApplication::processEvents();
  EXPECT_EQ(heard, "failed: it failed ");
}

TEST_F(StartOnMainThread, SeveralEndInTheirOrder) {
  start(ends("one"));
  start(ends("two"));
  QApplication::processEvents();
  EXPECT_EQ(heard, "one two ");
}

TEST_F(StartOnMainThread, ADestroyedReceiverGetsNoCall) {
  start(ends("done"));
  receiver.reset();
  QApplication::processEvents();
  EXPECT_EQ(heard, "");
}

}  // namespace
}  // namespace vemra::qt
