#include "VemraQt/StartOnMainThread.hpp"

#include <coroutine>
#include <memory>
#include <semaphore>
#include <stdexcept>
#include <string>
#include <thread>

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

/// Awaited, it continues the coroutine on that thread when the semaphore lets it.
struct OnThread {
  std::thread& thread;
  std::binary_semaphore& mayGoOn;

  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiting) const {
    thread = std::thread([&mayGoOn = mayGoOn, waiting] {
      mayGoOn.acquire();
      waiting.resume();
    });
  }
  void await_resume() const noexcept {}
};

task::Task<std::string> endsOn(OnThread elsewhere, std::shared_ptr<bool> hasEnded) {
  co_await elsewhere;
  *hasEnded = true;
  co_return "late";
}

TEST_F(StartOnMainThread, AReceiverThatIsDestroyedWhileTheTaskIsUnderWayGetsNoCall) {
  std::thread thread;
  std::binary_semaphore mayGoOn(0);
  const auto hasEnded = std::make_shared<bool>(false);
  QThread* freedOn = nullptr;
  auto held = std::shared_ptr<QObject>(new QObject, [&](QObject* object) {
    freedOn = QThread::currentThread();
    delete object;
  });
  bool isCalled = false;
  startOnMainThread(*receiver, endsOn(OnThread{thread, mayGoOn}, hasEnded),
                    [&, held = std::move(held)](task::Result<std::string>) { isCalled = true; });
  receiver.reset();
  mayGoOn.release();
  thread.join();
  EXPECT_TRUE(*hasEnded) << "the task runs to its end";
  EXPECT_EQ(freedOn, nullptr);
  QApplication::processEvents();
  EXPECT_FALSE(isCalled);
  EXPECT_EQ(freedOn, QApplication::instance()->thread()) << "with what the callback holds";
}

TEST_F(StartOnMainThread, ATaskThatEndsOnAnotherThreadCallsBackOnTheMainThread) {
  std::thread thread;
  std::binary_semaphore mayGoOn(1);
  start(endsOn(OnThread{thread, mayGoOn}, std::make_shared<bool>(false)));
  thread.join();
  EXPECT_EQ(heard, "");
  QApplication::processEvents();
  EXPECT_EQ(heard, "late ");
}

/// Runs the event loop's waiting work, and returns the text of the exception that leaves it.
std::string exceptionOfTheEventLoop() {
  try {
    QApplication::processEvents();
  } catch (const std::exception& error) {
    return error.what();
  }
  return "";
}

TEST_F(StartOnMainThread, AnExceptionThatLeavesTheCallbackIsLoggedWithAdviceAndLeavesTheEventLoop) {
  static QStringList log;
  log.clear();
  const auto former = qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString& text) { log << text; });
  startOnMainThread(*receiver, fails(),
                    [](task::Result<std::string> result) { std::move(result).take(); });
  EXPECT_EQ(exceptionOfTheEventLoop(), "it failed");
  qInstallMessageHandler(former);
  ASSERT_EQ(log.size(), 1);
  EXPECT_EQ(log.front(),
            "The callback of qt::startOnMainThread threw: it failed. Catch it in the callback: "
            "Result::take rethrows the exception of the task.");
}

using StartOnMainThreadDeathTest = StartOnMainThread;

TEST_F(StartOnMainThreadDeathTest, AnotherThreadIsRefused) {
  EXPECT_DEATH(std::thread([this] { start(ends("done")); }).join(),
               "startOnMainThread was called off the main thread. Call it on the thread of the");
}

TEST_F(StartOnMainThread, ADestroyedReceiverGetsNoCall) {
  start(ends("done"));
  receiver.reset();
  QApplication::processEvents();
  EXPECT_EQ(heard, "");
}

}  // namespace
}  // namespace vemra::qt
