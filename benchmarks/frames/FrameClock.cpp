#include "benchmarks/frames/FrameClock.hpp"

#include <utility>

#include <QAbstractEventDispatcher>
#include <QEvent>

namespace vemra::bench {

namespace {

constexpr Milliseconds longest{60'000};

}  // namespace

FrameClock::FrameClock(int& argumentCount, char** arguments)
    : QApplication(argumentCount, arguments) {}

bool FrameClock::notify(QObject* receiver, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool handled = QApplication::notify(receiver, event);
  if (type == QEvent::Paint) {
    painting_ = true;
  } else if (type == QEvent::UpdateRequest || type == QEvent::Expose) {
    if (std::exchange(painting_, false) && !frameDone_ && (!isShown_ || isShown_())) {
      frameDone_ = true;
      lastFrame_ = std::chrono::steady_clock::now();
      if (atFrame) atFrame();
    }
  }
  return handled;
}

void FrameClock::settle() {
  // A timer that is due at once may fire only in the next round.
  for (int quiet = 0; quiet < 3;) {
    const bool worked = QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
    sendPostedEvents(nullptr, QEvent::DeferredDelete);
    quiet = worked ? 0 : quiet + 1;
  }
}

std::optional<Milliseconds> FrameClock::timeToFrame(const std::function<void()>& action,
                                                    std::function<bool()> isShown) {
  settle();
  isShown_ = std::move(isShown);
  painting_ = false;
  frameDone_ = false;
  const auto start = std::chrono::steady_clock::now();
  action();
  while (!frameDone_) {
    processEvents();
    if (std::chrono::steady_clock::now() - start > longest) return std::nullopt;
  }
  return lastFrame_ - start;
}

}  // namespace vemra::bench
