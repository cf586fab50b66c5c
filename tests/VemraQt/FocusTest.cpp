// The keyboard focus: it visits every row in reading order, moves to the control that replaces an
// element, and is never trapped.

#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

std::string focusedName(const QWidget& window) {
  QWidget* widget = window.focusWidget();
  if (!widget) return "nothing";
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    return button->objectName().isEmpty() ? button->text().toStdString()
                                          : button->objectName().toStdString();
  }
  return widget->objectName().toStdString();
}

void key(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QWidget* target = window.focusWidget() ? window.focusWidget() : &window;
  QTest::keyClick(target, key, modifiers);
}

/// Every control of the screen in tree order, as `focusedName` calls it.
std::vector<std::string> controlsInOrder(const Result& result) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < result.people.size(); ++i) {
    const auto& person = result.people[i];
    names.push_back(person.displayName.value_or("Unnamed person"));
    const std::string prefix = "vemra.goal.person." + person.personRef;
    if (!person.evidenceIDs.empty()) names.push_back(prefix + ".show-source");
    names.push_back(prefix + ".outcome.start");
  }
  names.emplace_back("vemra.goal.path.see-in-starfold");
  names.emplace_back("vemra.goal.path.outcome.start");
  return names;
}

bool isInView(const QWidget& page, const QWidget& widget) {
  return !widget.visibleRegion().isEmpty() &&
         page.rect().contains(widget.mapTo(&page, widget.rect().center()));
}

}  // namespace

TEST(Focus, TabVisitsEveryControlOfEveryRowInReadingOrder) {
  WindowHost host(resultWith(60));
  const std::vector<std::string> expected = controlsInOrder(host.result);
  host.widget.setFocus();
  std::vector<std::string> walked;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    key(host.widget, Qt::Key_Tab);
    walked.push_back(focusedName(host.widget));
    ASSERT_TRUE(isInView(host.widget, *host.widget.focusWidget())) << walked.back();
  }
  EXPECT_EQ(walked, expected);
}

TEST(Focus, BacktabVisitsTheSameControlsBackwards) {
  WindowHost host(resultWith(60));
  std::vector<std::string> expected = controlsInOrder(host.result);
  std::ranges::reverse(expected);
  host.widget.setFocus();
  std::vector<std::string> walked;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    key(host.widget, Qt::Key_Backtab, Qt::ShiftModifier);
    walked.push_back(focusedName(host.widget));
    ASSERT_TRUE(isInView(host.widget, *host.widget.focusWidget())) << walked.back();
  }
  EXPECT_EQ(walked, expected);
}

TEST(Focus, ThePageIsOneStopBetweenItsNeighbours) {
  WindowHost host(resultWith(2));
  QWidget window;
  auto* layout = new QHBoxLayout(&window);
  auto* before = new QLineEdit(&window);
  before->setObjectName("before");
  layout->addWidget(before);
  host.widget.setParent(&window);
  layout->addWidget(&host.widget);
  auto* after = new QLineEdit(&window);
  after->setObjectName("after");
  layout->addWidget(after);
  QWidget::setTabOrder(before, &host.widget);
  QWidget::setTabOrder(&host.widget, after);
  window.resize(900, 700);
  window.show();
  host.widget.show();
  activate(window);
  before->setFocus();
  std::vector<std::string> walked;
  for (int i = 0; i < 9; ++i) {
    key(window, Qt::Key_Tab);
    walked.push_back(focusedName(window));
  }
  std::vector<std::string> expected = controlsInOrder(host.result);
  expected.emplace_back("after");
  expected.emplace_back("before");
  EXPECT_EQ(walked, expected);
  walked.clear();
  for (int i = 0; i < 9; ++i) {
    key(window, Qt::Key_Backtab, Qt::ShiftModifier);
    walked.push_back(focusedName(window));
  }
  std::vector<std::string> back = controlsInOrder(host.result);
  back.emplace_back("after");
  std::ranges::reverse(back);
  back.emplace_back("before");
  EXPECT_EQ(walked, back);
  host.widget.setParent(nullptr);
}

TEST(Focus, AnOpenedEditorGetsTheFocusAndClosingPassesItOn) {
  WindowHost host(resultWith(3));
  const std::string p1 = "vemra.goal.person.p1";
  pageOf(host.widget)
      .focusElement(
          dynamic_cast<qt::ElementWidget&>(host.get<QPushButton>(p1 + ".outcome.start")).node(),
          Qt::OtherFocusReason);
  key(host.widget, Qt::Key_Return);
  EXPECT_EQ(focusedName(host.widget), p1 + ".outcome.picker");
  key(host.widget, Qt::Key_Tab);
  EXPECT_EQ(focusedName(host.widget), p1 + ".outcome.note");
  key(host.widget, Qt::Key_Tab);
  EXPECT_EQ(focusedName(host.widget), p1 + ".outcome.save");
  key(host.widget, Qt::Key_Tab);
  EXPECT_EQ(focusedName(host.widget), p1 + ".outcome.cancel");
  key(host.widget, Qt::Key_Space);
  EXPECT_EQ(focusedName(host.widget), p1 + ".outcome.start");
  key(host.widget, Qt::Key_Space);
  key(host.widget, Qt::Key_Tab);
  key(host.widget, Qt::Key_Tab);
  key(host.widget, Qt::Key_Enter);
  EXPECT_EQ(focusedName(host.widget), p1 + ".outcome.correct");
  EXPECT_EQ(host.log.size(), 1u);
}

TEST(Focus, AnEditorOpenedAtTheLowerEdgeIsScrolledIn) {
  WindowHost host(resultWith(30));
  // The last control that is at least partly visible.
  std::string last;
  for (int i = 0; i < 30; ++i) {
    const std::string name = "vemra.goal.person.p" + std::to_string(i) + ".outcome.start";
    QWidget* widget = host.find(name);
    if (widget && !widget->visibleRegion().isEmpty()) last = name;
  }
  host.press(last);
  QWidget* cancel = host.find(last.substr(0, last.size() - 5) + "cancel");
  ASSERT_NE(cancel, nullptr);
  EXPECT_TRUE(isInView(host.widget, *cancel)) << "of " << last;
}

TEST(Focus, ARemovedRowPassesTheFocusToTheRowAtItsPlace) {
  WindowHost host(resultWith(20));
  host.press("vemra.goal.person.p3.outcome.start");
  host.changePeople([](People& people) { people.erase(people.begin() + 3); });
  EXPECT_EQ(focusedName(host.widget), "Person Number 4");
  host.change([](Result& result) { result.people = {}; });
  EXPECT_EQ(focusedName(host.widget), "vemra.goal.path.see-in-starfold");
  host.change([](Result& result) { result.paths = {}; });
  EXPECT_EQ(host.widget.focusWidget(), &host.widget) << "no control is left for the focus";
}

TEST(Focus, KeysScrollThePage) {
  WindowHost host(resultWith(300));
  QScrollBar& bar = *host.widget.verticalScrollBar();
  host.widget.setFocus();
  key(host.widget, Qt::Key_Tab);
  key(host.widget, Qt::Key_End);
  EXPECT_EQ(bar.value(), bar.maximum());
  key(host.widget, Qt::Key_Home);
  EXPECT_EQ(bar.value(), 0);
  key(host.widget, Qt::Key_PageDown);
  EXPECT_NEAR(bar.value(), host.widget.viewport()->height(), 2);
  key(host.widget, Qt::Key_PageUp);
  EXPECT_EQ(bar.value(), 0);
  EXPECT_EQ(focusedName(host.widget), "Person Number 0") << "scrolling moves no focus";
  host.widget.setFocus();
  key(host.widget, Qt::Key_Down);
  EXPECT_GT(bar.value(), 0) << "the page itself has the focus";
}

TEST(Focus, ArrowsMoveFromAButtonToTheNextRow) {
  WindowHost host(resultWith(300));
  const std::string prefix = "vemra.goal.person.p";
  host.get<QWidget>(prefix + "0.outcome.start").setFocus();
  key(host.widget, Qt::Key_Down);
  EXPECT_EQ(focusedName(host.widget), "Person Number 1");
  for (int i = 0; i < 150; ++i) key(host.widget, Qt::Key_Down);
  EXPECT_EQ(focusedName(host.widget), "Person Number 151") << "also to rows without nodes";
  EXPECT_TRUE(isInView(host.widget, *host.widget.focusWidget()));
  key(host.widget, Qt::Key_Tab);
  key(host.widget, Qt::Key_Up);
  EXPECT_EQ(focusedName(host.widget), "Person Number 150") << "the first control of the row before";
}

TEST(Focus, ArrowsScrollAtTheEndsOfAListAndOutsideIt) {
  WindowHost host(resultWith(30));
  QScrollBar& bar = *host.widget.verticalScrollBar();
  host.widget.setFocus();
  key(host.widget, Qt::Key_Tab);
  bar.setValue(200);
  key(host.widget, Qt::Key_Up);
  EXPECT_LT(bar.value(), 200);
  EXPECT_EQ(focusedName(host.widget), "Person Number 0");
  key(host.widget, Qt::Key_Backtab);
  const std::string last = focusedName(host.widget);
  EXPECT_EQ(last, "vemra.goal.path.outcome.start");
  bar.setValue(0);
  key(host.widget, Qt::Key_Down);
  EXPECT_GT(bar.value(), 0);
  EXPECT_EQ(focusedName(host.widget), last);
}

TEST(Focus, ArrowsStayWithAnOpenNote) {
  WindowHost host(resultWith(30));
  host.press("vemra.goal.person.p3.outcome.start");
  auto& note = host.get<QWidget>("vemra.goal.person.p3.outcome.note");
  note.setFocus();
  key(host.widget, Qt::Key_Down);
  EXPECT_TRUE(note.hasFocus());
}

TEST(Focus, PageKeysScrollFromThePickerAndTheNoteToo) {
  WindowHost host(resultWith(300));
  QScrollBar& bar = *host.widget.verticalScrollBar();
  host.press("vemra.goal.person.p0.outcome.start");
  for (const char* part : {".picker", ".note"}) {
    bar.setValue(0);
    auto& control = host.get<QWidget>(std::string("vemra.goal.person.p0.outcome") + part);
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_PageDown);
    EXPECT_GT(bar.value(), 0) << part;
  }
  EXPECT_EQ(host.get<QComboBox>("vemra.goal.person.p0.outcome.picker").currentText(), "Was useful");
}

TEST(Focus, TabComesBackFromAFocusedRowThatWasScrolledAway) {
  WindowHost host(resultWith(3000));
  host.widget.setFocus();
  key(host.widget, Qt::Key_Tab);
  host.widget.verticalScrollBar()->setValue(100'000);
  key(host.widget, Qt::Key_Tab);
  EXPECT_EQ(focusedName(host.widget), "vemra.goal.person.p0.show-source");
  EXPECT_TRUE(isInView(host.widget, *host.widget.focusWidget()));
}
