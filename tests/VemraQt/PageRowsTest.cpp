#include "VemraPlatform/page/Node.hpp"
#include "VemraQt/PageRows.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <string>

#include <QScrollBar>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

ui::NodeID listUnder(const ui::Node& node) {
  if (node.element.kind() == ui::ElementKind::forEach) return node.id;
  for (const ui::Node* child : node.children) {
    if (const ui::NodeID list = listUnder(*child)) return list;
  }
  return {};
}

ui::NodeID people(const WindowHost& host) {
  return listUnder(*host.widget.graph().root());
}

bool isInView(const WindowHost& host, std::size_t row) {
  return host.widget.viewport()->rect().contains(qt::rowFrame(host.widget, people(host), row));
}

std::string focused(const WindowHost& host) {
  const page::Node* node = pageOf(host.widget).focusedNode();
  return node ? std::string(node->element.accessibilityIdentifier()) : "nothing";
}

}  // namespace

TEST(PageRows, ARowWithoutElementsIsScrolledIntoView) {
  WindowHost host(resultWith(1000));
  for (const std::size_t row : {700U, 3U, 999U, 0U, 500U}) {
    EXPECT_TRUE(qt::revealRow(host.widget, people(host), row));
    EXPECT_TRUE(isInView(host, row)) << row;
  }
}

TEST(PageRows, ARowInViewDoesNotMove) {
  WindowHost host(resultWith(1000));
  qt::revealRow(host.widget, people(host), 500);
  const int before = host.widget.verticalScrollBar()->value();
  EXPECT_TRUE(qt::revealRow(host.widget, people(host), 500));
  EXPECT_EQ(host.widget.verticalScrollBar()->value(), before);
}

TEST(PageRows, ARowThatIsNotThereIsRefused) {
  WindowHost host(resultWith(10));
  EXPECT_FALSE(qt::revealRow(host.widget, people(host), 10));
  EXPECT_FALSE(qt::focusRow(host.widget, {}, 0));
  EXPECT_TRUE(qt::rowFrame(host.widget, people(host), 10).isEmpty());
  EXPECT_EQ(qt::rowAtTop(host.widget, {}), std::nullopt);
}

TEST(PageRows, TheFocusGoesToTheFirstControlOfARow) {
  WindowHost host(resultWith(1000));
  EXPECT_TRUE(qt::focusRow(host.widget, people(host), 500));
  const page::Node* node = pageOf(host.widget).focusedNode();
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(page::rowOf(node)->rowIndex, 500U);
  EXPECT_TRUE(isInView(host, 500));
}

TEST(PageRows, AReaderReturnsToThePlaceAndTheFocus) {
  WindowHost host(resultWith(1000));
  QScrollBar& bar = *host.widget.verticalScrollBar();
  qt::revealRow(host.widget, people(host), 300);
  const std::size_t top = qt::rowAtTop(host.widget, people(host)).value();
  accessible(host, "vemra.goal.person.p300.outcome.start")
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::setFocusAction());
  ASSERT_EQ(focused(host), "vemra.goal.person.p300.outcome.start");
  bar.setValue(bar.value() + 7);
  const QRect frame = qt::rowFrame(host.widget, people(host), 300);
  const qt::ReadingPlace place = qt::readingPlace(host.widget);
  for (const std::size_t far : {20U, 900U}) {
    qt::focusRow(host.widget, people(host), far);
    ASSERT_NE(focused(host), "vemra.goal.person.p300.outcome.start");
    qt::returnTo(host.widget, place);
    EXPECT_EQ(qt::rowAtTop(host.widget, people(host)), top);
    EXPECT_EQ(qt::rowFrame(host.widget, people(host), 300), frame);
    EXPECT_EQ(focused(host), "vemra.goal.person.p300.outcome.start");
  }
}
