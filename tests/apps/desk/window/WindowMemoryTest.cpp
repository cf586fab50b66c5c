// What the window has again at its next start.

#include "apps/desk/window/MenuBar.hpp"
#include "apps/desk/window/Panes.hpp"
#include "apps/desk/window/UserSettings.hpp"
#include "apps/desk/window/WindowMemory.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <filesystem>

#include <QAction>
#include <QMouseEvent>
#include <QScreen>
#include <QSplitter>

namespace vemra::desk {
namespace {

class WindowMemoryTest : public OpenDesk {
 protected:
  WindowMemoryTest() {
    GoalStore::open(file).import({goal("a", "First"), goal("b", "Second"), goal("c", "Third")});
  }
  ~WindowMemoryTest() override { close(); }

  /// The window as the program opens it: with its own size.
  void start(std::optional<std::string> goalID = std::nullopt) {
    engine = std::make_shared<StoreEngine>(file, patience);
    window = makeWindow(std::move(goalID));
    window->show();
    wait<QAbstractButton>("vemra.goal.person.p1.outcome.start");
  }
  void startAgain(std::optional<std::string> goalID = std::nullopt) {
    window->close();
    close();
    start(std::move(goalID));
  }

  QString title() const { return window->windowTitle(); }
  bool opens(const QString& goal) const {
    return becomes([&] { return title().startsWith(goal); });
  }
  Panes& panes() const { return *window->findChild<Panes*>(); }
  QSplitterHandle& grip() const { return *panes().handle(1); }
  /// Drags the grip between the goals and the page, as a mouse does.
  void drag(int by) {
    const QPoint from = grip().rect().center();
    const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
      QMouseEvent event(type, at, grip().mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
      QApplication::sendEvent(&grip(), &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    send(QEvent::MouseMove, from + QPoint(by, 0), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, from, Qt::NoButton);
  }

  const QFont font = QApplication::font();
};

TEST_F(WindowMemoryTest, TheSizeAndThePlaceOfTheWindow) {
  start();
  window->setGeometry(40, 60, 700, 500);
  startAgain();
  EXPECT_EQ(window->geometry(), QRect(40, 60, 700, 500));
}

TEST_F(WindowMemoryTest, AWindowThatFillsTheScreenFillsItAgain) {
  start();
  window->showMaximized();
  startAgain();
  EXPECT_TRUE(window->isMaximized());
}

TEST_F(WindowMemoryTest, AWindowThatWasLargerThanTheScreenOrBesideItIsOnTheScreenWhole) {
  start();
  for (const QRect& place :
       {QRect(0, 0, 5000, 4000), QRect(3000, 2500, 700, 500), QRect(-900, -700, 700, 500)}) {
    window->setGeometry(place);
    startAgain();
    EXPECT_TRUE(window->QWidget::screen()->availableGeometry().contains(window->geometry()))
        << window->x() << " " << window->y() << " " << window->width() << " " << window->height();
  }
}

TEST_F(WindowMemoryTest, TheWidthsOfThePanes) {
  start();
  window->resize(1000, 600);
  const int before = panes().sizes().front();
  drag(70);
  ASSERT_EQ(panes().sizes().front(), before + 70);
  startAgain();
  EXPECT_EQ(panes().sizes().front(), before + 70);
}

TEST_F(WindowMemoryTest, ANarrowWindowKeepsTheWidthsOfAWideOne) {
  start();
  window->resize(1000, 600);
  drag(70);
  const int wide = panes().sizes().front();
  window->resize(400, 600);
  startAgain();
  window->resize(1000, 600);
  EXPECT_TRUE(becomes([&] { return panes().sizes().front() == wide; })) << panes().sizes().front();
}

TEST_F(WindowMemoryTest, TheGoalsThatWereInFrontOfANarrowWindow) {
  start();
  window->resize(360, 600);
  panes().bringToFront(Panes::Pane::goals);
  window->close();
  close();
  engine = std::make_shared<StoreEngine>(file, patience);
  window = makeWindow(std::nullopt);
  window->show();
  EXPECT_TRUE(becomes([&] { return panes().areGoalsInFront(); }));
  EXPECT_TRUE(panes().widget(Panes::Pane::page).isHidden());
}

TEST_F(WindowMemoryTest, TheGoalThatWasOpen) {
  start("b");
  ASSERT_TRUE(opens("Second"));
  startAgain();
  EXPECT_TRUE(opens("Second")) << title().toStdString();
}

TEST_F(WindowMemoryTest, AGoalThatIsAskedForIsOpenedInstead) {
  start("b");
  ASSERT_TRUE(opens("Second"));
  startAgain("c");
  EXPECT_TRUE(opens("Third")) << title().toStdString();
}

TEST_F(WindowMemoryTest, AGoalThatIsAskedForIsShownInANarrowWindowToo) {
  start();
  window->resize(360, 600);
  panes().bringToFront(Panes::Pane::goals);
  startAgain("b");
  EXPECT_TRUE(opens("Second"));
  EXPECT_TRUE(window->screen().isVisible());
}

TEST_F(WindowMemoryTest, AGoalThatIsNotInTheStoreAnyMoreGivesWayToTheFirst) {
  memory::rememberGoal(file, "gone");
  start();
  EXPECT_TRUE(opens("First")) << title().toStdString();
}

TEST_F(WindowMemoryTest, EachStoreHasItsOwnGoalUnderAnyOfItsPaths) {
  const std::string other = folder.file("other.sqlite");
  const std::string link = folder.file("link.sqlite");
  std::filesystem::create_symlink(file, link);
  memory::rememberGoal(file, "b");
  memory::rememberGoal(other, "z");
  EXPECT_EQ(memory::goalOf(link), "b");
  EXPECT_EQ(memory::goalOf(other), "z");
  EXPECT_EQ(memory::goalOf(folder.file("third.sqlite")), std::nullopt);
}

TEST_F(WindowMemoryTest, TwentyStoresAreRemembered) {
  for (int i = 0; i <= 20; ++i) {
    memory::rememberGoal(folder.file(std::to_string(i)), "goal " + std::to_string(i));
  }
  EXPECT_EQ(memory::goalOf(folder.file("0")), std::nullopt);
  EXPECT_EQ(memory::goalOf(folder.file("1")), "goal 1");
  EXPECT_EQ(memory::goalOf(folder.file("20")), "goal 20");
}

TEST_F(WindowMemoryTest, TheSizeOfTheText) {
  start();
  for (QAction* action : window->findChild<MenuBar*>()->findChildren<QAction*>()) {
    if (action->text() == "&Larger Text") action->trigger();
  }
  const double larger = QApplication::font().pointSizeF();
  ASSERT_GT(larger, font.pointSizeF());
  for (int i = 0; i < 2; ++i) {
    startAgain();
    EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), larger);
  }
  close();
  EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), font.pointSizeF());
}

TEST_F(WindowMemoryTest, DamagedSettingsCountAsAbsent) {
  userSettings().setValue("window", "nonsense");
  userSettings().setValue("goalsWidth", "wide");
  userSettings().setValue("detailsWidth", -5);
  userSettings().setValue("textSize", 99);
  userSettings().setValue("goals", QStringList{"one", "two", "three"});
  start();
  EXPECT_TRUE(opens("First"));
  EXPECT_EQ(window->size(),
            QSize(1080, 760).boundedTo(window->QWidget::screen()->availableSize() - QSize(24, 48)));
  EXPECT_LT(QApplication::font().pointSizeF(), 3 * font.pointSizeF());
}

TEST_F(WindowMemoryTest, TheWindowHasTheProgramsIcon) {
  start();
  for (const int size : {16, 64}) {
    const QImage picture = window->windowIcon().pixmap(size, size).toImage();
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() / 2).alpha(), 255);
  }
}

}  // namespace
}  // namespace vemra::desk
