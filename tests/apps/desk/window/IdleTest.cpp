// A window in which nothing happens paints nothing.

#include "tests/apps/desk/window/OpenDesk.hpp"

#include <utility>

#include <QEvent>

namespace vemra::desk {
namespace {

/// Counts how often a widget is painted.
class PaintCount : public QObject {
 public:
  PaintCount() { qApp->installEventFilter(this); }

  int taken() { return std::exchange(count_, 0); }

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return false;
  }

 private:
  int count_ = 0;
};

class IdleTest : public OpenDesk {
 protected:
  IdleTest() {
    QApplication::setCursorFlashTime(0);  // a caret that does not blink
    GoalStore::open(file).import(sampleGoals());
  }
  ~IdleTest() override { QApplication::setCursorFlashTime(flashTime_); }

  /// Waits until the window has painted what is due; false when it never ends.
  bool comesToRest() {
    painted.taken();
    for (int i = 0; i < 50; ++i) {
      pass(100);
      if (painted.taken() == 0) return true;
    }
    return false;
  }

  PaintCount painted;

 private:
  int flashTime_ = QApplication::cursorFlashTime();
};

TEST_F(IdleTest, TheGoalsAndThePageComeToRest) {
  open();
  ASSERT_NE(wait<QAbstractButton>("vemra.goal.person.amara-okafor.show-source"), nullptr);
  EXPECT_TRUE(comesToRest());
}

TEST_F(IdleTest, TheDetailsComeToRestAlsoAfterTheyHaveGotAnotherWidth) {
  open();
  press("vemra.goal.person.amara-okafor.show-source");
  ASSERT_TRUE(becomes([&] { return shows("What it says", "desk.side"); }));
  EXPECT_TRUE(comesToRest());
  window->resize(1000, 900);
  EXPECT_TRUE(comesToRest());
}

}  // namespace
}  // namespace vemra::desk
