// The links of the side pane, what a screen reader hears of it, and the sizes of its texts.

#include "apps/desk/window/AlertFrame.hpp"
#include "apps/desk/window/LinkLabel.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/SidePane.hpp"
#include "tests/apps/desk/window/Keys.hpp"

#include <string>
#include <vector>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMouseEvent>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;

/// A pane that shows a person, and notes what the user wants.
class SidePaneLinksTest : public ::testing::Test {
 protected:
  SidePaneLinksTest() {
    person.personRef = "p1";
    person.name = "Ada";
    person.goalsTowards = {{"g1", "First"}, {"g2", " "}};
    QObject::connect(&pane, &SidePane::goalWanted,
                     [this](const std::string& id) { wanted.push_back("goal " + id); });
    QObject::connect(&pane, &SidePane::personWanted,
                     [this](const std::string& ref) { wanted.push_back("person " + ref); });
    pane.resize(290, 500);
  }

  LinkLabel& link(const QString& text) const {
    for (auto* each : pane.findChildren<LinkLabel*>()) {
      if (each->text() == text) return *each;
    }
    throw std::runtime_error("no link " + text.toStdString());
  }
  QLabel& label(const QString& text) const {
    for (auto* each : pane.findChildren<QLabel*>()) {
      if (each->text() == text) return *each;
    }
    throw std::runtime_error("no text " + text.toStdString());
  }
  static void mouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button) {
    const bool isDown = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget.mapToGlobal(at), button,
                      isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }

  SidePane pane;
  PersonKnowledge person;
  std::vector<std::string> wanted;
};

TEST_F(SidePaneLinksTest, AClickReturnSpaceAndAnActionPressAGoal) {
  pane.showPerson(person);
  LinkLabel& first = link("First");
  mouse(first, QEvent::MouseButtonPress, {6, 6}, Qt::LeftButton);
  EXPECT_THAT(wanted, ElementsAre());
  mouse(first, QEvent::MouseButtonRelease, {6, 6}, Qt::LeftButton);
  EXPECT_THAT(wanted, ElementsAre("goal g1"));
  pressKey(link("(no title)"), Qt::Key_Return);
  pressKey(first, Qt::Key_Space);
  pressKey(first, Qt::Key_A);
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&first);
  EXPECT_EQ(accessible->role(), QAccessible::Link);
  EXPECT_EQ(accessible->text(QAccessible::Name), "First");
  accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(wanted, ElementsAre("goal g1", "goal g2", "goal g1", "goal g1"));
}

TEST_F(SidePaneLinksTest, ADoubleClickPressesOnce) {
  pane.showPerson(person);
  LinkLabel& first = link("First");
  const QPoint at(6, 6);
  mouse(first, QEvent::MouseButtonPress, at, Qt::LeftButton);
  mouse(first, QEvent::MouseButtonRelease, at, Qt::LeftButton);
  mouse(first, QEvent::MouseButtonDblClick, at, Qt::LeftButton);
  mouse(first, QEvent::MouseButtonRelease, at, Qt::LeftButton);
  EXPECT_THAT(wanted, ElementsAre("goal g1"));
}

TEST_F(SidePaneLinksTest, KeysWithControlAndOtherMouseButtonsPressNothing) {
  pane.showPerson(person);
  LinkLabel& first = link("First");
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    pressKey(first, key, Qt::ControlModifier);
    pressKey(first, key, Qt::AltModifier);
  }
  mouse(first, QEvent::MouseButtonPress, {6, 6}, Qt::RightButton);
  mouse(first, QEvent::MouseButtonRelease, {6, 6}, Qt::LeftButton);
  EXPECT_THAT(wanted, ElementsAre());
  pressKey(first, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_THAT(wanted, ElementsAre("goal g1"));
}

TEST_F(SidePaneLinksTest, TheNumberOfSourcesIsWrittenAsInTheLocale) {
  person.suggestions = {
      {{"g1", "First"}, {}, GoalWhyDTO::nameMatch(), std::vector<std::string>(1234, "e")}};
  ui::Environment environment;
  environment.locale = "de_DE@calendar=buddhist";
  pane.setEnvironment(environment);
  pane.showPerson(person);
  EXPECT_NO_THROW(label("Sources: 1.234"));
  environment.locale = "en_US";
  pane.setEnvironment(environment);
  pane.showPerson(person);
  EXPECT_NO_THROW(label("Sources: 1,234"));
}

TEST_F(SidePaneLinksTest, ADragSelectsTheTextOfAGoalAndPressesNothing) {
  pane.showPerson(person);
  pane.show();
  LinkLabel& first = link("First");
  mouse(first, QEvent::MouseButtonPress, {0, first.height() / 2}, Qt::LeftButton);
  mouse(first, QEvent::MouseMove, {first.width() - 1, first.height() / 2}, Qt::NoButton);
  mouse(first, QEvent::MouseButtonRelease, {first.width() - 1, first.height() / 2}, Qt::LeftButton);
  EXPECT_EQ(first.selectedText(), "First");
  EXPECT_THAT(wanted, ElementsAre());
  pressKey(first, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "First");
}

TEST_F(SidePaneLinksTest, ThePeopleOfASourceAreLinksToo) {
  EvidenceKnowledge evidence;
  evidence.people = {{{"g1", "First"}, "p7", "Bo", 0, GoalWhyDTO::nameMatch()}};
  pane.showEvidence(evidence);
  pressKey(link("Bo"), Qt::Key_Return);
  pressKey(link("First"), Qt::Key_Return);
  EXPECT_THAT(wanted, ElementsAre("person p7", "goal g1"));
}

TEST_F(SidePaneLinksTest, AGoalWithTheFocusKeepsItWhenTheSamePersonIsShownAgain) {
  pane.showPerson(person);
  pane.show();
  link("First").setFocus();
  person.goalsTowards.insert(person.goalsTowards.begin(), {"g0", "New"});
  pane.showPerson(person);
  EXPECT_EQ(pane.focusWidget(), &link("First"));
}

TEST_F(SidePaneLinksTest, NoTextShowsAnID) {
  EvidenceKnowledge evidence;
  evidence.evidenceID = "id-of-source";
  evidence.people = {{{"id-of-goal", ""}, "id-of-person", std::nullopt, 0, GoalWhyDTO::generic()}};
  GoalPathCandidateDTO path;
  path.personRefs = std::vector<std::string>{"id-of-person"};
  person.personRef = "id-of-person";
  person.suggestions = {{{"id-of-goal", "t"}, {}, GoalWhyDTO::nameMatch(), {"id-of-source"}}};
  const auto expectNoID = [this] {
    for (const auto* each : pane.findChildren<QLabel*>()) {
      EXPECT_FALSE(each->text().contains("id-of")) << each->text().toStdString();
    }
    for (const auto* each : pane.findChildren<QWidget*>()) {
      EXPECT_FALSE((each->accessibleName() + each->accessibleDescription()).contains("id-of"));
    }
  };
  pane.showEvidence(evidence);
  expectNoID();
  pane.showPerson(person);
  expectNoID();
  pane.showPath(path, {std::nullopt});
  expectNoID();
}

// What a client hears is tested on the bus: without one, Qt sends no events.
TEST_F(SidePaneLinksTest, WhatThePaneShowsIsANotificationWithoutASizeOfItsOwn) {
  pane.showPerson(person);
  auto* announcement = pane.findChild<Announcement*>();
  ASSERT_TRUE(announcement);
  EXPECT_EQ(announcement->accessibleName(), "Person: Ada");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(announcement)->role(), QAccessible::Notification);
  EXPECT_FALSE(announcement->isHidden());
  EXPECT_EQ(announcement->size(), QSize(1, 1));
  pane.showEvidence({});
  EXPECT_EQ(announcement->accessibleName(), "Source: Unnamed source");
}

TEST_F(SidePaneLinksTest, EveryTextFollowsTheSizeOfTexts) {
  person.outcomes = {{{"g1", "First"}, GoalOutcomeDTO()}};
  pane.showPerson(person);
  pane.show();
  std::vector<double> before;
  for (const auto* each : pane.findChildren<QLabel*>()) before.push_back(each->font().pointSizeF());
  const QFont usual = QApplication::font();
  QFont large = usual;
  large.setPointSizeF(usual.pointSizeF() * 2);
  QApplication::setFont(large);
  QApplication::processEvents();
  std::vector<double> after;
  for (const auto* each : pane.findChildren<QLabel*>()) after.push_back(each->font().pointSizeF());
  const bool isBold = label("Ada").font().weight() == QFont::DemiBold;
  QApplication::setFont(usual);
  QApplication::processEvents();
  ASSERT_EQ(before.size(), after.size());
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_DOUBLE_EQ(after[i], 2 * before[i]) << i;
  EXPECT_TRUE(isBold);
}

TEST_F(SidePaneLinksTest, ADateOfTheOtherDirectionIsIsolated) {
  GoalOutcomeDTO outcome;
  outcome.recordedAt = "2025-01-05T23:30:00Z";
  person.outcomes = {{{"g1", "First"}, outcome}};
  ui::Environment environment;
  environment.locale = "he_IL";
  pane.setEnvironment(environment);
  pane.showPerson(person);
  bool isFound = false;
  for (const auto* each : pane.findChildren<QLabel*>()) {
    isFound = isFound || (each->text().contains(u'\u2068') && each->text().endsWith(u'\u2069'));
  }
  EXPECT_TRUE(isFound) << "a date in Hebrew";
}

}  // namespace
}  // namespace vemra::desk
