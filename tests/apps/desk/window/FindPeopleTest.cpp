// Finding people in the window.

#include "VemraQt/PageRows.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/WholeOutline.hpp"
#include "tests/apps/desk/window/HeardAlerts.hpp"
#include "tests/apps/desk/window/Keys.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <QLineEdit>
#include <QLocale>
#include <QScrollBar>
#include <QShortcut>

namespace vemra::desk {
namespace {

/// A window on a goal with 300 people, every tenth of which is called Zoë.
class FindPeopleTest : public OpenDesk {
 protected:
  FindPeopleTest() {
    GoalStore::open(file).import({goalWith(300), goal("g2", "Zwei")});
    open("g1");
    window->resize(900, 600);
    wait<QAbstractButton>("vemra.goal.person.p1.outcome.start");
    qttest::activate(*window);
  }

  static GetGoalSnapshotResponse goalWith(int count, const std::string& id = "g1") {
    GetGoalSnapshotResponse result = goal(id, "Ziel");
    std::vector<GoalPersonCandidateDTO> people;
    for (int i = 0; i < count; ++i) {
      people.push_back(build::person("p" + std::to_string(i),
                                     (i % 10 == 5 ? "Zo\u00eb " : "Ada ") + std::to_string(i), {},
                                     GoalWhyDTO::connection(2)));
    }
    result.people = people;
    return result;
  }
  void type(const QString& text) const {
    Q_EMIT window->findChild<MenuBar*>()->findWanted();
    if (auto* field = wait<QLineEdit>("desk.find.text")) field->setText(text);
  }
  bool results(const QString& text) const {
    return becomes([&] {
      auto* label = find<QLabel>("desk.find.result");
      return label && label->text() == text;
    });
  }
  QLineEdit& field() const { return *window->findChild<QLineEdit*>("desk.find.text"); }
  /// Whether the name of that person is in view, with the mark around it.
  bool isShown(const QString& name) const {
    const QWidget* mark = find<QWidget>("desk.find.mark");
    if (!mark) return false;
    for (auto* button : window->findChildren<QAbstractButton*>()) {
      if (button->isVisible() && button->text() == name) {
        const QRect frame(button->mapTo(window.get(), QPoint()), button->size());
        return QRect(mark->mapTo(window.get(), QPoint()), mark->size()).contains(frame);
      }
    }
    return false;
  }
  /// The key is a shortcut of the window.
  void pressEscape() const {
    for (auto* shortcut : window->findChildren<QShortcut*>()) {
      if (shortcut->key() == QKeySequence(QKeySequence::Cancel)) Q_EMIT shortcut->activated();
    }
  }
  int scroll() const { return window->screen().verticalScrollBar()->value(); }
};

TEST_F(FindPeopleTest, AnnouncesTheHitWhenThePersonHasTypedOrMovesOn) {
  HeardAlerts alerts;
  const auto hears = [&](const std::string& news) {
    const bool isHeard = becomes([&] { return !alerts.heard.empty(); });
    return isHeard && alerts.take() == std::vector<std::string>{news};
  };
  type("Zo");
  field().setText("Zo\u00eb 29");
  EXPECT_TRUE(hears("1 of 1: Zo\u00eb 295"));
  field().setText("Zo\u00eb");
  EXPECT_TRUE(hears("30 of 30: Zo\u00eb 295")) << "the search goes on from the hit";
  pressKey(field(), Qt::Key_Return);
  EXPECT_TRUE(hears("1 of 30: Zo\u00eb 5"));
  field().setText("nobody");
  EXPECT_TRUE(hears("Not found"));
  field().clear();
  pass(900);
  EXPECT_TRUE(alerts.take().empty());
}

TEST_F(FindPeopleTest, AHitIsAnnouncedAgainOnlyWhenTheNewsDifferOrThePersonAsks) {
  HeardAlerts alerts;
  const auto hears = [&](const std::string& news) {
    const bool isHeard = becomes([&] { return !alerts.heard.empty(); });
    return isHeard && alerts.take() == std::vector<std::string>{news};
  };
  type("zo\u00eb 29");
  ASSERT_TRUE(hears("1 of 1: Zo\u00eb 295"));
  GoalStore::open(file).import({goal("g3", "Drei")});
  ASSERT_NE(wait<QAbstractButton>("desk.goal.g3"), nullptr);
  pass(1500);
  EXPECT_TRUE(alerts.take().empty()) << "another program has changed something else";
  pressKey(field(), Qt::Key_Return);
  EXPECT_TRUE(hears("1 of 1: Zo\u00eb 295")) << "the person asks for the next one";
  GoalStore::open(file).record("g1", {GoalOutcomeSubjectKind::person, "p200",
                                      GoalOutcomeValue::helped, "as Zoe 29 asked", std::nullopt});
  ASSERT_TRUE(results("2 of 2"));
  EXPECT_TRUE(hears("2 of 2: Zo\u00eb 295"));
}

TEST_F(FindPeopleTest, WithoutAHitThereIsNothingToGoTo) {
  const auto areEnabled = [&](bool expected) {
    return becomes([&] {
      for (const char* name : {"desk.find.previous", "desk.find.next", "desk.find.go"}) {
        if (window->findChild<QPushButton*>(name)->isEnabled() != expected) return false;
      }
      return true;
    });
  };
  type("");
  EXPECT_TRUE(areEnabled(false));
  field().setText("zoe");
  EXPECT_TRUE(areEnabled(true));
  auto* next = find<QPushButton>("desk.find.next");
  next->setFocus();
  field().setText("nobody");
  EXPECT_TRUE(areEnabled(false));
  EXPECT_TRUE(field().hasFocus()) << "a button without a use gives it back";
  field().setText("zoe");
  EXPECT_TRUE(areEnabled(true));
  next->setFocus();
  const qttest::OtherWindow elsewhere;
  field().setText("nobody");
  EXPECT_TRUE(areEnabled(false));
  EXPECT_EQ(window->focusWidget(), &field()) << "also while another window is active";
  EXPECT_TRUE(find<QPushButton>("desk.find.close")->isEnabled());
}

TEST_F(FindPeopleTest, AnotherTextEndsTheAnswerOfThePreviousTextAtOnce) {
  GoalStore::open(file).import({goalWith(30'000, "many")});
  press("desk.goal.many");
  ASSERT_TRUE(becomes([&] { return window->screen().contentHeight() > 1'000'000; }));
  type("ada 19");
  ASSERT_TRUE(
      becomes([&] { return find<QLabel>("desk.find.result")->text().startsWith("1 of "); }));
  for (const char* text : {"nobody", "zo\u00eb 15"}) {
    field().setText("ada 2999");
    ASSERT_TRUE(
        becomes([&] { return find<QLabel>("desk.find.result")->text().startsWith("1 of "); }));
    field().setText(QString::fromUtf8(text));
    EXPECT_EQ(find<QLabel>("desk.find.result")->text(), "Searching…") << text;
    EXPECT_EQ(field().accessibleDescription(), "Searching…") << text;
    EXPECT_FALSE(find<QPushButton>("desk.find.next")->isEnabled()) << text;
    EXPECT_EQ(find<QWidget>("desk.find.mark"), nullptr) << text;
  }
  EXPECT_TRUE(becomes([&] { return find<QLabel>("desk.find.result")->text().contains(" of "); }))
      << "the end of the search has its own answer";
}

TEST_F(FindPeopleTest, TheNumbersHaveTheDigitsOfTheUsersLocale) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
  type("ZOE");
  EXPECT_TRUE(results(QStringLiteral("١ of ٣٠")));
  QLocale::setDefault(before);
}

TEST_F(FindPeopleTest, ALetterShowsTheFirstHitAndItsNumber) {
  type("ZOE");
  EXPECT_TRUE(results("1 of 30"));
  EXPECT_TRUE(isShown("Zo\u00eb 5"));
  field().setText("zo\u00eb 29");
  EXPECT_TRUE(results("1 of 1"));
  EXPECT_TRUE(isShown("Zo\u00eb 295"));
  EXPECT_EQ(field().accessibleDescription(), "1 of 1");
  field().setText("nobody");
  EXPECT_TRUE(results("Not found"));
  EXPECT_EQ(find<QWidget>("desk.find.mark"), nullptr);
}

TEST_F(FindPeopleTest, EnterAndTheCommandsGoOnAndAround) {
  type("zoe");
  ASSERT_TRUE(results("1 of 30"));
  pressKey(field(), Qt::Key_Return);
  EXPECT_TRUE(results("2 of 30"));
  EXPECT_TRUE(isShown("Zo\u00eb 15"));
  Q_EMIT window->findChild<MenuBar*>()->findNextWanted();
  EXPECT_TRUE(results("3 of 30"));
  for (int i = 0; i < 3; ++i) Q_EMIT window->findChild<MenuBar*>()->findPreviousWanted();
  EXPECT_TRUE(results("30 of 30"));
  EXPECT_TRUE(isShown("Zo\u00eb 295"));
  pressKey(field(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_TRUE(results("29 of 30"));
  EXPECT_TRUE(field().hasFocus());
}

TEST_F(FindPeopleTest, EscapeReturnsToThePlaceAndTheFocus) {
  auto* start = find<QAbstractButton>("vemra.goal.person.p1.outcome.start");
  start->setFocus();
  window->screen().verticalScrollBar()->setValue(40);
  type("zo\u00eb 29");
  ASSERT_TRUE(results("1 of 1"));
  EXPECT_GT(scroll(), 1000);
  pressEscape();
  EXPECT_EQ(find<QWidget>("desk.find"), nullptr);
  EXPECT_EQ(find<QWidget>("desk.find.mark"), nullptr);
  EXPECT_EQ(scroll(), 40);
  ASSERT_NE(window->focusWidget(), nullptr);
  EXPECT_EQ(window->focusWidget()->objectName(), "vemra.goal.person.p1.outcome.start");
}

TEST_F(FindPeopleTest, TheFocusGoesToTheHitOnRequest) {
  type("zo\u00eb 29");
  ASSERT_TRUE(results("1 of 1"));
  press("desk.find.go");
  EXPECT_EQ(find<QWidget>("desk.find"), nullptr);
  auto* button = qobject_cast<QAbstractButton*>(window->focusWidget());
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->text(), "Zo\u00eb 295");
}

TEST_F(FindPeopleTest, TheScreenStaysAsItIs) {
  ui::ViewGraph& graph = window->screen().graph();
  const std::string before = testing::outlineOf(graph);
  type("zo\u00eb 29");
  ASSERT_TRUE(results("1 of 1"));
  EXPECT_EQ(testing::outlineOf(graph), before);
}

TEST_F(FindPeopleTest, ANewResultIsSearchedAndDoesNotScroll) {
  type("zoe");
  ASSERT_TRUE(results("1 of 30"));
  const int before = scroll();
  GoalStore::open(file).record("g1", {GoalOutcomeSubjectKind::person, "p200",
                                      GoalOutcomeValue::helped, "as Zoe asked", std::nullopt});
  EXPECT_TRUE(results("1 of 31"));
  EXPECT_EQ(scroll(), before);
}

TEST_F(FindPeopleTest, AnotherGoalClosesTheBar) {
  type("zoe");
  ASSERT_TRUE(results("1 of 30"));
  press("desk.goal.g2");
  EXPECT_TRUE(becomes([&] { return find<QWidget>("desk.find") == nullptr; }));
  EXPECT_EQ(find<QWidget>("desk.find.mark"), nullptr);
}

TEST_F(FindPeopleTest, TheMarkStaysWithItsRowWhileTheScreenScrolls) {
  type("zo\u00eb 15");
  ASSERT_TRUE(isShown("Zo\u00eb 15"));
  QScrollBar& bar = *window->screen().verticalScrollBar();
  bar.setValue(bar.value() + 30);
  EXPECT_TRUE(isShown("Zo\u00eb 15"));
  bar.setValue(bar.maximum());
  EXPECT_EQ(find<QWidget>("desk.find.mark"), nullptr) << "out of view";
}

}  // namespace
}  // namespace vemra::desk
