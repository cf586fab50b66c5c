// A window in which nothing happens paints nothing.

#include "apps/desk/window/MenuBar.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <utility>

#include <QEvent>
#include <QLineEdit>

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

  /// Waits until the window has painted what is due and nothing for a second; false when that never
  /// happens.
  bool comesToRest() {
    painted.taken();
    for (int i = 0; i < 50; ++i) {
      pass(100);
      if (painted.taken() > 0) continue;
      pass(1000);  // the window looks at the store meanwhile
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

TEST_F(IdleTest, AnOpenEditorAndTheFindBarComeToRest) {
  open();
  press("vemra.goal.person.tomas-lindqvist.outcome.start");
  ASSERT_NE(wait<QAbstractButton>("vemra.goal.person.tomas-lindqvist.outcome.save"), nullptr);
  EXPECT_TRUE(comesToRest());
  Q_EMIT window->findChild<MenuBar*>()->findWanted();
  auto* field = wait<QLineEdit>("desk.find.text");
  ASSERT_NE(field, nullptr);
  field->setText("a");
  ASSERT_TRUE(becomes([&] { return find<QWidget>("desk.find.mark") != nullptr; }));
  EXPECT_TRUE(comesToRest());
}

}  // namespace
}  // namespace vemra::desk
