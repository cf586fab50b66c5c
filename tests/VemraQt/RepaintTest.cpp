// Repainting: every change is painted, and of the scroll bar only the changed part.

#include "tests/VemraQt/LongList.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <algorithm>
#include <memory>
#include <random>

#include <QApplication>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyleFactory>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

/// Counts how often a widget is painted, and how many lines of pixels of it.
class PaintCount final : public QObject {
 public:
  explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      ++count;
      for (const QRect& rect : static_cast<QPaintEvent*>(event)->region()) lines += rect.height();
    }
    return false;
  }
  int count = 0;
  int lines = 0;
};

/// The flushed pixels of the window.
QImage shown(const WindowHost& host) {
  QTest::qWait(0);
  QCoreApplication::processEvents();
  QWindow& window = *host.widget.windowHandle();
  return window.screen()
      ->grabWindow(window.winId())
      .toImage()
      .convertToFormat(QImage::Format_RGB32);
}

/// The same window, painted completely.
QImage painted(WindowHost& host) {
  QImage image(host.widget.size(), QImage::Format_RGB32);
  host.widget.render(&image);
  return image;
}

std::string recording(int person) {
  return "vemra.goal.person.p" + std::to_string(person) + ".outcome.";
}

}  // namespace

TEST(Repaint, NoOldPixelsStayOnTheScreen) {
  QApplication::setCursorFlashTime(0);
  WindowHost host(resultWith(60), QSize(480, 600));
  std::mt19937 random(7);
  for (int step = 0; step < 120; ++step) {
    const int person = static_cast<int>(random() % 4);
    const auto press = [&](const std::string& control) {
      const std::string identifier = recording(person) + control;
      if (host.find(identifier)) host.press(identifier);
    };
    switch (random() % 8) {
      case 0:
        press("start");
        break;
      case 1:
        press("cancel");
        break;
      case 2:
        press("save");
        break;
      case 3:
        wheel(host.widget, random() % 2 == 0 ? 1 : -1);
        break;
      case 4:
        bar(host).setValue(static_cast<int>(random() % 900));
        break;
      case 5:
        bar(host).setValue(bar(host).maximum());
        break;
      case 6:
        host.widget.resize(440 + static_cast<int>(random() % 60), 600);
        break;
      default:
        host.changePeople([&](People& people) { std::ranges::rotate(people, people.begin() + 1); });
    }
    ASSERT_EQ(shown(host), painted(host)) << "after step " << step;
  }
}

TEST(Repaint, NoOldPixelsOfTheScrollBarStayInOtherStyles) {
  const std::unique_ptr<QStyle> style(QStyleFactory::create("windows"));
  ASSERT_TRUE(style);
  WindowHost host(resultWith(60), QSize(480, 600));
  bar(host).setStyle(style.get());
  host.widget.resize(500, 600);  // lays out the scroll bar, whose width is another one
  shown(host);
  std::mt19937 random(3);
  for (int step = 0; step < 30; ++step) {
    const int maximum = bar(host).maximum();
    bar(host).setValue(step % 9 == 0 ? (step % 2) * maximum
                                     : static_cast<int>(random() % static_cast<unsigned>(maximum)));
    ASSERT_EQ(shown(host), painted(host)) << "after step " << step;
  }
  bar(host).setStyle(nullptr);
}

TEST(Repaint, OfAMovedHandleOnlyItsOldAndItsNewPlaceArePainted) {
  WindowHost host(resultWith(100));
  bar(host).setValue(200);
  shown(host);
  PaintCount paints(bar(host));
  bar(host).setValue(260);
  shown(host);
  EXPECT_EQ(paints.count, 1);
  EXPECT_GT(paints.lines, 20);
  EXPECT_LT(paints.lines, 100) << "of 800";
  paints.lines = 0;
  bar(host).setValue(bar(host).maximum());
  shown(host);
  EXPECT_GT(paints.lines, 40);
  EXPECT_LT(paints.lines, 200) << "of 800";
}

TEST(Repaint, TheScrollBarIsRepaintedOnlyWhereItsHandleMoves) {
  WindowHost host(resultWith(10'000));
  host.press(recording(0) + "start");  // the first focus paints the whole window
  bar(host).setValue(40);              // away from the top, where its upper end is disabled
  shown(host);
  PaintCount paints(bar(host));
  bar(host).setValue(42);  // of a million pixels
  shown(host);
  EXPECT_EQ(paints.count, 0);
  host.press(recording(1) + "start");
  shown(host);
  EXPECT_EQ(paints.count, 0);
  bar(host).setValue(bar(host).maximum() / 2);
  shown(host);
  EXPECT_EQ(paints.count, 1);
  host.widget.resize(720, 500);
  shown(host);
  EXPECT_GT(paints.count, 1);
}
