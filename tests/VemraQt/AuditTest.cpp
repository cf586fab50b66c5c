// What a person who audits the page for accessibility would hold against it.

#include "VemraQt/Page.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/Strings.hpp"

#include <map>
#include <set>

#include <QApplication>
#include <QScrollBar>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

/// Every face of the screen in one: open editors, outcomes, corrections with notes, long names.
void makeItHard(WindowHost& host) {
  host.change([](Result& result) {
    std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
    people[1].displayName = "Maximiliane-Friederike Rosenbaum-Oberhuber von und zu Tannenwald";
    people[2].displayName = std::string(150, 'W');
    people[3].why = GoalWhyDTO::evidence("Email", "Weitergeleitet <b>& besprochen</b>", "x");
    result.people = people;
    GoalOutcomeDTO first, second;
    first.id = "a";
    first.subjectRef = "p4";
    first.value = GoalOutcomeValue::noActionTaken;
    first.note =
        "A note that is long enough to go on in another line, even on a wide page, which "
        "it has to do without being cut.\nAnd a second paragraph.";
    second = first;
    second.id = "b";
    second.subjectRef = "p5";
    second.correctsOutcomeID = "a";
    result.outcomes = {first, second};
  });
  for (const char* ref : {"person.p0", "person.p5", "path"}) {
    const std::string prefix = std::string("vemra.goal.") + ref + ".outcome.";
    QAccessibleInterface* button = accessible(host, prefix + "start");
    if (!button) button = accessible(host, prefix + "correct");
    press(*button);
  }
  QApplication::processEvents();
}

struct Look {
  const char* name;
  int width;
  double scale;
  ui::LayoutDirection direction;
  std::shared_ptr<const ui::StringsTable> strings;
};

std::vector<Look> looks() {
  const auto left = ui::LayoutDirection::leftToRight;
  const auto right = ui::LayoutDirection::rightToLeft;
  const auto pseudo = std::make_shared<PseudoStrings>();
  const auto hebrew = std::make_shared<HebrewStrings>();
  return {
      {"wide", 900, 1, left, nullptr},
      {"narrow", 320, 1, left, nullptr},
      {"at 200 %", 640, 2, left, nullptr},
      {"narrow at 200 %", 320, 2, left, nullptr},
      {"at 300 %", 700, 3, left, nullptr},
      {"narrow at 300 %", 320, 3, left, pseudo},
      {"longer words", 420, 1.5, left, pseudo},
      {"right to left", 500, 1, right, hebrew},
      {"narrow, right to left, at 200 %", 320, 2, right, hebrew},
  };
}

void dress(WindowHost& host, const Look& look) {
  ui::Environment environment;
  environment.textScale = look.scale;
  environment.layoutDirection = look.direction;
  environment.strings = look.strings;
  host.widget.setEnvironment(environment);
  host.widget.resize(look.width, 700);
}

template <class Visit>
void forEachPlaced(const WindowHost& host, Visit visit) {
  qt::Page& page = host.widget.page();
  QScrollBar& bar = *host.widget.verticalScrollBar();
  for (int position = 0;; position += 500) {
    bar.setValue(position);
    qt::forEachLeaf(*page.tree().root(), [&](qt::RenderNode& leaf) {
      if (leaf.widget) visit(leaf);
    });
    if (position >= bar.maximum()) break;
  }
}

}  // namespace

TEST(Audit, EveryControlHasARoleAndAName) {
  WindowHost host(resultWith(30));
  makeItHard(host);
  for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
    EXPECT_NE(element->role(), QAccessible::NoRole);
    EXPECT_FALSE(name(*element).empty()) << identifier(*element);
  }
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

TEST(Audit, TargetsAreLargeEnoughToHit) {
  WindowHost host(resultWith(30));
  makeItHard(host);
  forEachPlaced(host, [](qt::RenderNode& leaf) {
    if (leaf.element.kind() == ui::ElementKind::text) return;
    EXPECT_GE(leaf.frame.width(), 24) << leaf.element.shownLabel();
    EXPECT_GE(leaf.frame.height(), 24) << leaf.element.shownLabel();
  });
}

TEST(Audit, NothingIsCutOrCoveredInAnyLook) {
  for (const Look& look : looks()) {
    WindowHost host(resultWith(12));
    dress(host, look);
    makeItHard(host);
    const int width = host.widget.viewport()->width();
    forEachPlaced(host, [&](qt::RenderNode& leaf) {
      const QWidget& widget = leaf.widget->widget();
      const std::string what =
          std::string(look.name) + ": " + std::string(leaf.element.shownLabel());
      const QRect frame = host.widget.page().frameOnPage(leaf);
      EXPECT_GE(frame.left(), 24) << what;
      EXPECT_LE(frame.right() + 1, width - 24) << what;
      EXPECT_LE(leaf.shape.size().width(), widget.width()) << what;
      EXPECT_LE(leaf.shape.size().height(), widget.height()) << what;
      qt::forEachLeaf(*host.widget.page().tree().root(), [&](qt::RenderNode& other) {
        if (&other == &leaf || !other.widget) return;
        EXPECT_FALSE(frame.intersects(host.widget.page().frameOnPage(other)))
            << what << " and " << other.element.shownLabel();
      });
    });
    EXPECT_FALSE(host.widget.horizontalScrollBar()->isVisible()) << look.name;
  }
}

TEST(Audit, RightToLeftIsTheMirrorImage) {
  WindowHost left(resultWith(6), QSize(640, 700));
  WindowHost right(resultWith(6), QSize(640, 700));
  ui::Environment environment;
  environment.layoutDirection = ui::LayoutDirection::rightToLeft;
  right.widget.setEnvironment(environment);
  makeItHard(left);
  makeItHard(right);
  std::vector<QRect> frames, mirrored;
  const int width = left.widget.viewport()->width();
  qt::forEachLeaf(*left.widget.page().tree().root(), [&](qt::RenderNode& leaf) {
    const QRect frame = left.widget.page().frameOnPage(leaf);
    frames.push_back(QRect(width - frame.right() - 1, frame.y(), frame.width(), frame.height()));
  });
  qt::forEachLeaf(*right.widget.page().tree().root(), [&](qt::RenderNode& leaf) {
    mirrored.push_back(right.widget.page().frameOnPage(leaf));
  });
  EXPECT_EQ(frames, mirrored);
}

TEST(Audit, AccessibleOrderIsReadingOrder) {
  WindowHost host(resultWith(8));
  makeItHard(host);
  int y = -1'000'000;
  QAccessibleInterface& page = accessiblePage(host);
  for (int i = 0; i < page.childCount(); ++i) {
    EXPECT_GE(page.child(i)->rect().y(), y) << name(*page.child(i));
    y = page.child(i)->rect().y();
  }
}
