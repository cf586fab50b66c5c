// Elements by identifier, for a host: scrolled into view and focused, drawn or not; and the signals
// of what a person does with them.

#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/View.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;

namespace {

std::string startOf(int person) {
  return "vemra.goal.person.p" + std::to_string(person) + ".outcome.start";
}

bool isSeen(const qt::ViewWidget& widget, const std::string& identifier) {
  const auto* shown = widget.findChild<QWidget*>(QString::fromStdString(identifier));
  return shown && shown->isVisible() && widget.viewport()->rect().contains(shown->geometry());
}

std::string focusedIdentifier(const qt::ViewWidget& widget) {
  const page::Node* node = pageOf(widget).focusedNode();
  return node ? std::string(node->element.accessibilityIdentifier()) : "nothing";
}

/// A text, a disabled button and a button, each far below the one before it.
ui::View farApart() {
  ui::Children children;
  const auto space = [&](const std::string& which) {
    for (int i = 0; i < 100; ++i) {
      children.push_back(ui::Text(ui::verbatim(which + " " + std::to_string(i))));
    }
  };
  space("first");
  children.push_back(ui::Text("text").accessibilityIdentifier("text"));
  space("second");
  children.push_back(ui::Button("off", [] {}).disabled(true).accessibilityIdentifier("off"));
  space("third");
  children.push_back(ui::Button("on", [] {}).accessibilityIdentifier("on"));
  return ui::VStack(ui::HorizontalAlignment::leading, 4, std::move(children));
}

}  // namespace

TEST(Reveal, ScrollsToAnElementWhereverItsRowIsAndLeavesTheFocus) {
  WindowHost host(resultWith(1000));
  ASSERT_TRUE(host.widget.focus(startOf(2)));
  for (const int person : {700, 3, 999, 0, 500}) {
    EXPECT_TRUE(host.widget.reveal(startOf(person)));
    EXPECT_TRUE(isSeen(host.widget, startOf(person))) << person;
    EXPECT_EQ(focusedIdentifier(host.widget), startOf(2));
  }
}

TEST(Reveal, AnElementInViewDoesNotMove) {
  WindowHost host(resultWith(1000));
  host.widget.reveal(startOf(500));
  const int before = host.widget.verticalScrollBar()->value();
  EXPECT_TRUE(host.widget.reveal(startOf(500)));
  EXPECT_EQ(host.widget.verticalScrollBar()->value(), before);
}

TEST(Reveal, AMissingElementIsRefusedAndNothingMoves) {
  WindowHost host(resultWith(300));
  host.widget.verticalScrollBar()->setValue(5000);
  const int before = host.widget.verticalScrollBar()->value();
  for (const char* missing : {"vemra.goal.person.p300.outcome.start", "no.such.element", ""}) {
    EXPECT_FALSE(host.widget.reveal(missing)) << missing;
    EXPECT_FALSE(host.widget.focus(missing)) << missing;
  }
  EXPECT_EQ(host.widget.verticalScrollBar()->value(), before);
}

TEST(Reveal, DescribesFewRowsAndMakesNoAccessibleObjects) {
  WindowHost host(resultWith(10'000));
  const auto before = host.widget.graph().work().rows;
  EXPECT_TRUE(host.widget.reveal(startOf(9000)));
  EXPECT_LE(host.widget.graph().work().rows - before, 60u) << "the rows around it";
  EXPECT_FALSE(accessiblePageOf(host.widget).tree().isWatched());
}

TEST(Focus, GoesToAControlWhereverItsRowIs) {
  WindowHost host(resultWith(1000));
  for (const int person : {700, 3, 999}) {
    EXPECT_TRUE(host.widget.focus(startOf(person)));
    EXPECT_EQ(focusedIdentifier(host.widget), startOf(person));
    EXPECT_TRUE(isSeen(host.widget, startOf(person))) << person;
  }
}

TEST(Focus, AnElementThatCannotHaveItIsOnlyScrolledIntoView) {
  qt::ViewWidget widget;
  widget.setEnvironment({});
  widget.resize(300, 400);
  widget.setRoot(farApart());
  widget.show();
  ASSERT_TRUE(widget.focus("on"));
  for (const char* identifier : {"text", "off"}) {
    EXPECT_FALSE(widget.focus(identifier)) << identifier;
    EXPECT_TRUE(isSeen(widget, identifier)) << identifier;
    EXPECT_EQ(focusedIdentifier(widget), "on");
    EXPECT_TRUE(widget.reveal(identifier)) << identifier;
  }
}

TEST(Reveal, AStackIsNotFound) {
  qt::ViewWidget widget;
  widget.setEnvironment({});
  widget.resize(300, 400);
  widget.setRoot(ui::VStack(ui::HorizontalAlignment::leading, 4,
                            {
                                ui::VStack(ui::HorizontalAlignment::leading, 4, {ui::Text("in it")})
                                    .accessibilityIdentifier("stack"),
                                ui::Button("on", [] {}).accessibilityIdentifier("on"),
                            }));
  EXPECT_FALSE(widget.reveal("stack"));
  widget.show();
  EXPECT_FALSE(widget.reveal("stack"));
  EXPECT_FALSE(widget.focus("stack"));
  EXPECT_TRUE(widget.reveal("on"));
}

TEST(Focus, AHiddenWidgetDoesTheLastVisitWhenItIsShown) {
  qt::ViewWidget widget;
  widget.setEnvironment({});
  widget.resize(300, 400);
  widget.setRoot(farApart());
  EXPECT_FALSE(widget.focus("off"));
  EXPECT_TRUE(widget.reveal("text"));
  EXPECT_TRUE(widget.focus("on"));
  EXPECT_FALSE(widget.reveal("no.such.element")) << "and so nothing waits";
  widget.show();
  EXPECT_EQ(widget.verticalScrollBar()->value(), 0);
  widget.hide();
  EXPECT_TRUE(widget.reveal("text"));
  EXPECT_TRUE(widget.focus("on"));
  widget.show();
  EXPECT_TRUE(isSeen(widget, "on"));
  EXPECT_EQ(focusedIdentifier(widget), "on");
  widget.verticalScrollBar()->setValue(0);
  widget.hide();
  widget.show();
  EXPECT_EQ(widget.verticalScrollBar()->value(), 0) << "once";
}

TEST(Focus, RethrowsWhatADescriptionThrows) {
  qt::ViewWidget widget;
  widget.setEnvironment({});
  widget.resize(300, 100);
  struct Item {
    std::string id;
  };
  const auto items = std::make_shared<std::vector<Item>>();
  for (int i = 0; i < 200; ++i) items->push_back({"row" + std::to_string(i)});
  widget.setRoot(ui::ForEach(std::span<const Item>(*items), &Item::id, [items](const Item& item) {
    if (item.id == "row150") throw std::runtime_error("no such row");
    return ui::Button(ui::verbatim(item.id), [] {}).accessibilityIdentifier(item.id);
  }));
  widget.show();
  EXPECT_THROW(widget.focus("row150"), std::runtime_error);
  EXPECT_TRUE(widget.focus("row151"));
}

TEST(Pressed, IsSentRightBeforeTheActionOfAButton) {
  WindowHost host(resultWith(300));
  QObject::connect(&host.widget, &qt::ViewWidget::pressed, &host.widget,
                   [&](const std::string& identifier) { host.log.push_back(identifier); });
  host.press("vemra.goal.person.p0.show-source");
  EXPECT_THAT(host.log, ElementsAre("vemra.goal.person.p0.show-source", "evidence ev0"));
}

TEST(Pressed, ComesWithTheOtherEventsOfTheElements) {
  WindowHost host(resultWith(3));
  std::vector<std::string> heard;
  const auto note = [&](const std::string& identifier, const ui::Event& event) {
    heard.push_back(identifier.substr(identifier.rfind('.') + 1) + " " +
                    std::to_string(event.index()));
  };
  QObject::connect(&host.widget, &qt::ViewWidget::acted, &host.widget, note);
  host.press(startOf(1));
  QTest::keyClick(&host.get<QComboBox>("vemra.goal.person.p1.outcome.picker"), Qt::Key_Down);
  host.get<QLineEdit>("vemra.goal.person.p1.outcome.note").insert("a");
  host.press("vemra.goal.person.p1.outcome.save");
  EXPECT_THAT(heard, ElementsAre("start 0", "picker 1", "note 2", "save 0"));
}

TEST(Pressed, AQueuedSlotReachesRowsWithoutWidgets) {
  WindowHost host(resultWith(1000));
  bool duringTheEvent = true;
  QObject::connect(&host.widget, &qt::ViewWidget::pressed, &host.widget,
                   [&] { duringTheEvent = host.widget.focus(startOf(900)); });
  std::string queued;
  QObject::connect(
      &host.widget, &qt::ViewWidget::acted, &host.widget,
      [&](const std::string& identifier, const ui::Event& event) {
        queued = std::holds_alternative<ui::Press>(event) ? identifier : "";
        EXPECT_TRUE(host.widget.focus(startOf(900)));
      },
      Qt::QueuedConnection);
  host.press("vemra.goal.person.p0.show-source");
  EXPECT_FALSE(duringTheEvent) << "rows are described when the event has been handled";
  EXPECT_EQ(queued, "");
  QApplication::processEvents();
  EXPECT_EQ(queued, "vemra.goal.person.p0.show-source");
  EXPECT_EQ(focusedIdentifier(host.widget), startOf(900));
}
