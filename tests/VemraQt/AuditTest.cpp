// The findings of an accessibility audit, as rules for the page.

#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/HardScreen.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/Palettes.hpp"

#include <map>
#include <set>

#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAreArray;

namespace {

std::string roleOf(const QAccessibleInterface& element) {
  static const std::map<QAccessible::Role, std::string> names{
      {QAccessible::StaticText, "text"},    {QAccessible::Button, "button"},
      {QAccessible::ComboBox, "picker"},    {QAccessible::ListItem, "choice"},
      {QAccessible::EditableText, "field"}, {QAccessible::Grouping, "group"},
      {QAccessible::Heading, "heading"},    {QAccessible::List, "list"},
  };
  const bool isRow = element.parent() && element.parent()->role() == QAccessible::List;
  if (isRow && element.role() == QAccessible::ListItem) return "row";
  auto found = names.find(element.role());
  return found == names.end() ? "role " + std::to_string(element.role()) : found->second;
}

/// "role: name #identifier", as assistive technology reads an element.
std::vector<std::string> told(QAccessibleInterface& page) {
  std::vector<std::string> lines;
  for (QAccessibleInterface* element : elementsBelow(page)) {
    std::string line = roleOf(*element) + ": " + name(*element);
    if (!identifier(*element).empty()) line += " #" + identifier(*element);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

TEST(Audit, EveryKindOfElementHasItsRole) {
  WindowHost host(resultWith(4));
  host.press("vemra.goal.person.p1.outcome.start");
  host.change([](Result& result) { result.outcomes = {correctedOutcome("p2", "by phone")}; });
  const std::vector<std::string> expected{
      "heading: Find a design lead",
      "group: People worth considering",
      "heading: People worth considering",
      "list: ",
      "row: Person Number 0",
      "button: Person Number 0",
      "text: Email: Asked about design leads in March",
      "button: Show source #vemra.goal.person.p0.show-source",
      "button: Record outcome #vemra.goal.person.p0.outcome.start",
      "row: Person Number 1",
      "button: Person Number 1",
      "text: Connected through 1 shared relationship",
      "picker: Outcome #vemra.goal.person.p1.outcome.picker",
      "choice: Reached out",
      "choice: Invited",
      "choice: Introduced",
      "choice: Helped",
      "choice: Was useful",
      "choice: Not a fit",
      "choice: No action taken",
      "choice: Something else",
      "field: Note (optional) #vemra.goal.person.p1.outcome.note",
      "button: Save #vemra.goal.person.p1.outcome.save",
      "button: Cancel #vemra.goal.person.p1.outcome.cancel",
      "row: Person Number 2",
      "button: Person Number 2",
      "text: 4 shared threads, 2 shared meetings",
      "button: Show source #vemra.goal.person.p2.show-source",
      "text: Reached out",
      "text: \u00b7 corrected #vemra.goal.person.p2.outcome.corrected-marker",
      "button: Correct #vemra.goal.person.p2.outcome.correct",
      "text: by phone",
      "row: Person Number 3",
      "button: Person Number 3",
      "text: Matches on name",
      "button: Record outcome #vemra.goal.person.p3.outcome.start",
      "group: Supported path",
      "heading: Supported path",
      "text: Connected through 1 shared relationship",
      "button: See in Starfold #vemra.goal.path.see-in-starfold",
      "button: Record outcome #vemra.goal.path.outcome.start",
      "text: Based on 12 piece(s) of evidence from Mail, Calendar, through Jan 5, 2025.",
  };
  EXPECT_THAT(told(accessiblePage(host)), ElementsAreArray(expected));
}

TEST(Audit, EveryElementHasANameUnlessTheDataHasNone) {
  WindowHost host(resultWith(30));
  makeItHard(host);
  std::vector<std::string> nameless;
  for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
    if (element->role() == QAccessible::List) continue;  // it has the heading of its section
    if (name(*element).empty()) nameless.push_back(roleOf(*element));
  }
  EXPECT_THAT(nameless, ElementsAreArray({"button"})) << "the row of the person with an empty name";
}

TEST(Audit, TheRowOfAPersonWithoutANameIsNamedAfterItsNextText) {
  Result result = resultWith(4);
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  people[0].displayName = "";
  people[1].displayName = " \t";
  people[2].displayName = std::nullopt;
  result.people = people;
  WindowHost host(result);
  std::vector<std::string> rows;
  std::set<std::string> identifiers;
  for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
    if (roleOf(*element) == "row") rows.push_back(name(*element));
    if (!identifier(*element).empty()) {
      EXPECT_TRUE(identifiers.insert(identifier(*element)).second) << identifier(*element);
    }
  }
  EXPECT_THAT(rows, ElementsAreArray({"Email: Asked about design leads in March",
                                      "Connected through 1 shared relationship", "Unnamed person",
                                      "Person Number 3"}));
}

TEST(Audit, IdentifiersAreUniqueWhenReferencesAre) {
  WindowHost host(resultWith(30));
  makeItHard(host);
  std::map<std::string, int> count;
  for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
    if (!identifier(*element).empty()) ++count[identifier(*element)];
  }
  EXPECT_GT(count.size(), 40u);
  for (const auto& [identifier, times] : count) EXPECT_EQ(times, 1) << identifier;
}

TEST(Audit, TargetsAreLargeEnoughInEveryLook) {
  AsBefore asBefore;
  std::map<std::string, int> audited;
  const auto audit = [&](const WindowHost& host, const std::string& look) {
    forEachPlaced(host, [&](const page::Node& leaf) {
      if (leaf.element.kind() == ui::ElementKind::text) return;
      ++audited[look];
      for (const QSize& size : {pageOf(host.widget).frameOnPage(leaf).size(),
                                pageOf(host.widget).shown(leaf).widget->widget().size()}) {
        EXPECT_GE(size.width(), 24) << look << ": " << called(leaf);
        EXPECT_GE(size.height(), 24) << look << ": " << called(leaf);
      }
    });
  };
  for (const Look& look : looks()) {
    WindowHost host(resultWith(8));
    dress(host, look);
    makeItHard(host);
    audit(host, look.name);
  }
  for (const Colours& each : colours()) {
    WindowHost host(resultWith(8));
    dress(host, each);
    makeItHard(host);
    audit(host, each.name);
  }
  for (const auto& [look, count] : audited) EXPECT_GE(count, 8 * 2) << look;
}

TEST(Audit, ChoicesInAMenuAreLargeEnoughAndHaveTheColoursOfThePage) {
  for (const double scale : {1.0, 2.0}) {
    WindowHost host(resultWith(1));
    ui::Environment environment;
    environment.textScale = scale;
    environment.colorScheme = ui::ColorScheme::dark;
    host.widget.setEnvironment(environment);
    host.press("vemra.goal.person.p0.outcome.start");
    host.get<QComboBox>("vemra.goal.person.p0.outcome.picker").showPopup();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 8);
    for (QAction* action : menu->actions()) {
      EXPECT_GE(menu->actionGeometry(action).height(), 24) << qPrintable(action->text());
    }
    EXPECT_EQ(menu->palette().color(QPalette::Base), pageOf(host.widget).theme().background());
    menu->close();
  }
}

TEST(Audit, NothingIsOutsideThePageOrCoveredInAnyLook) {
  for (const Look& look : looks()) {
    WindowHost host(resultWith(8));
    dress(host, look);
    makeItHard(host);
    const int width = host.widget.viewport()->width();
    forEachPlaced(host, [&](const page::Node& leaf) {
      const qt::ShownLeaf& shown = pageOf(host.widget).shown(leaf);
      const QWidget& widget = shown.widget->widget();
      const std::string what = look.name + ": " + called(leaf);
      const QRect frame = pageOf(host.widget).frameOnPage(leaf);
      EXPECT_GE(frame.left(), 24) << what;
      EXPECT_LE(frame.right() + 1, width - 24) << what;
      EXPECT_LE(shown.shape.size().width(), widget.width()) << what;
      EXPECT_LE(shown.shape.size().height(), widget.height()) << what;
      page::forEachLeaf(*pageOf(host.widget).tree().root(), [&](const page::Node& other) {
        if (&other == &leaf || !pageOf(host.widget).shown(other).widget) return;
        EXPECT_FALSE(frame.intersects(pageOf(host.widget).frameOnPage(other)))
            << what << " and " << called(other);
      });
    });
    EXPECT_FALSE(host.widget.horizontalScrollBar()->isVisible()) << look.name;
  }
}

TEST(Audit, RightToLeftIsTheMirrorImage) {
  WindowHost left(resultWith(8), QSize(640, 700));
  WindowHost right(resultWith(8), QSize(640, 700));
  ui::Environment environment;
  environment.layoutDirection = ui::LayoutDirection::rightToLeft;
  right.widget.setEnvironment(environment);
  makeItHard(left);
  makeItHard(right);
  std::vector<QRect> frames, mirrored;
  const int width = left.widget.viewport()->width();
  page::forEachLeaf(*pageOf(left.widget).tree().root(), [&](const page::Node& leaf) {
    const QRect frame = pageOf(left.widget).frameOnPage(leaf);
    frames.push_back(QRect(width - frame.right() - 1, frame.y(), frame.width(), frame.height()));
  });
  page::forEachLeaf(*pageOf(right.widget).tree().root(), [&](const page::Node& leaf) {
    mirrored.push_back(pageOf(right.widget).frameOnPage(leaf));
  });
  EXPECT_EQ(frames, mirrored);
}

TEST(Audit, AccessibleOrderIsReadingOrder) {
  WindowHost host(resultWith(8));
  makeItHard(host);
  int y = -1'000'000;
  for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
    if (roleOf(*element) != "row" && element->parent()->role() == QAccessible::ListItem) continue;
    if (roleOf(*element) == "choice") continue;
    EXPECT_GE(element->rect().y(), y) << name(*element);
    y = element->rect().y();
  }
}
