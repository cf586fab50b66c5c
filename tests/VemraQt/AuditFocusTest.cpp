// Tab visits the controls in reading order.

#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/HardScreen.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAreArray;

namespace {

/// The focused control's identifier or title, and its position on the page.
struct Stop {
  std::string name;
  QRect place;
};

/// The stops of Tab from the page's first control to its last one.
std::vector<Stop> tabStops(WindowHost& host) {
  std::vector<Stop> stops;
  host.widget.setFocus();
  for (int i = 0; i < 200; ++i) {
    QWidget* from = host.widget.focusWidget();
    QTest::keyClick(from ? from : &host.widget, Qt::Key_Tab);
    const page::Node* focused = pageOf(host.widget).focusedNode();
    if (!focused) break;
    const QRect place = pageOf(host.widget).frameOnPage(*focused);
    if (!stops.empty() && place == stops.front().place) break;
    stops.push_back({called(*focused), place});
  }
  return stops;
}

}  // namespace

TEST(Audit, FocusOrderIsReadingOrderInARowAndInAnOpenEditor) {
  WindowHost host(resultWith(3));
  host.press("vemra.goal.person.p0.outcome.start");
  host.press("vemra.goal.person.p1.outcome.start");
  host.press("vemra.goal.person.p1.outcome.save");
  std::vector<std::string> names;
  for (const Stop& stop : tabStops(host)) names.push_back(stop.name);
  const std::string p0 = "vemra.goal.person.p0", p2 = "vemra.goal.person.p2";
  const std::vector<std::string> expected{
      "Person Number 0",
      p0 + ".show-source",
      p0 + ".outcome.picker",
      p0 + ".outcome.note",
      p0 + ".outcome.save",
      p0 + ".outcome.cancel",
      "Person Number 1",
      "vemra.goal.person.p1.outcome.correct",
      "Person Number 2",
      p2 + ".show-source",
      p2 + ".outcome.start",
      "vemra.goal.path.see-in-starfold",
      "vemra.goal.path.outcome.start",
  };
  EXPECT_THAT(names, ElementsAreArray(expected));
}

TEST(Audit, FocusGoesDownThePageAndAlongTheLineInEveryLook) {
  for (const Look& look : looks()) {
    WindowHost host(resultWith(8));
    dress(host, look);
    makeItHard(host);
    const std::vector<Stop> stops = tabStops(host);
    std::vector<std::string> walked, inTreeOrder;
    for (const Stop& stop : stops) walked.push_back(stop.name);
    for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
      if (!element->state().focusable) continue;
      const std::string id = identifier(*element);
      inTreeOrder.push_back(id.empty() ? name(*element) : id);
    }
    EXPECT_THAT(walked, ElementsAreArray(inTreeOrder)) << look.name;
    const bool rightToLeft = look.direction == ui::LayoutDirection::rightToLeft;
    for (std::size_t i = 1; i < stops.size(); ++i) {
      const QRect before = stops[i - 1].place, now = stops[i].place;
      const bool isBelow = now.top() > before.bottom();
      const bool isNext = now.bottom() >= before.top() && now.top() <= before.bottom() &&
                          (rightToLeft ? now.right() < before.left() : now.left() > before.right());
      EXPECT_TRUE(isBelow || isNext)
          << look.name << ": " << stops[i].name << " after " << stops[i - 1].name;
    }
  }
}
