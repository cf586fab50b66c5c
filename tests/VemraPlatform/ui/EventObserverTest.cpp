#include "VemraPlatform/ui/ViewGraph.hpp"
#include "tests/VemraPlatform/ui/Lending.hpp"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {
namespace {

using namespace sample;

class EventObserverTest : public ::testing::Test {
 protected:
  EventObserverTest() {
    graph.setRoot(Group({
        Button("first", [this] { log.emplace_back("first"); }),
        Button("both",
               [this] {
                 graph.deliver(id("first"), Press{});
                 log.emplace_back("both");
               }),
        Button("off", nullptr).disabled(true),
    }));
    hearing = graph.observeEvents([this](const Node& node, const Event&) {
      log.push_back("observed " + std::string(node.element.shownLabel()));
    });
  }

  NodeID id(const char* title) const { return buttonTitled(graph.root(), title)->id; }

  std::vector<std::string> log;
  ViewGraph graph;
  EventObservation hearing;
};

TEST_F(EventObserverTest, HearsOfEachEventJustBeforeItsElementHandlesIt) {
  graph.deliver(id("both"), Press{});
  EXPECT_EQ(log, (std::vector<std::string>{"observed both", "both", "observed first", "first"}));
}

TEST_F(EventObserverTest, DoesNotHearOfEventsThatNoElementHandles) {
  const NodeID gone = id("first");
  EXPECT_EQ(graph.deliver(id("off"), Press{}), Delivery::disabled);
  EXPECT_EQ(graph.deliver(gone, EditText{"text"}), Delivery::refused);
  graph.setRoot(Text("another"));
  EXPECT_EQ(graph.deliver(gone, Press{}), Delivery::gone);
  EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(EventObserverTest, WhatItThrowsComesOutOfTheCallAndTheElementHandlesTheEvent) {
  hearing = graph.observeEvents(
      [](const Node&, const Event&) { throw std::runtime_error("of the observer"); });
  const EventObservation second =
      graph.observeEvents([this](const Node&, const Event&) { log.emplace_back("second"); });
  EXPECT_THROW(graph.deliver(id("first"), Press{}), std::runtime_error);
  EXPECT_EQ(log, (std::vector<std::string>{"second", "first"}));
}

TEST_F(EventObserverTest, SeveralHearOfAnEventInTheirOrder) {
  const EventObservation second =
      graph.observeEvents([this](const Node&, const Event&) { log.emplace_back("second"); });
  const EventObservation empty = graph.observeEvents(nullptr);
  graph.deliver(id("first"), Press{});
  EXPECT_EQ(log, (std::vector<std::string>{"observed first", "second", "first"}));
}

TEST_F(EventObserverTest, EndsWithTheReturnedObject) {
  {
    const EventObservation second =
        graph.observeEvents([this](const Node&, const Event&) { log.emplace_back("second"); });
  }
  graph.deliver(id("first"), Press{});
  EXPECT_EQ(log, (std::vector<std::string>{"observed first", "first"}));
  hearing = {};
  graph.deliver(id("first"), Press{});
  EXPECT_EQ(log.size(), 3u) << "only the button";
}

TEST_F(EventObserverTest, MayEndItselfAndOthersAndBeginAnotherDuringAnEvent) {
  EventObservation own, later;
  own = graph.observeEvents([&, text = std::string("ends, a text that needs storage of its own")](
                                const Node&, const Event&) {
    own = {};
    hearing = {};
    log.push_back(text.substr(0, 4));
    later = graph.observeEvents([this](const Node&, const Event&) { log.emplace_back("later"); });
  });
  EventObservation third =
      graph.observeEvents([this](const Node&, const Event&) { log.emplace_back("third"); });
  graph.deliver(id("first"), Press{});
  graph.deliver(id("first"), Press{});
  EXPECT_EQ(log, (std::vector<std::string>{"observed first", "ends", "third", "first", "third",
                                           "later", "first"}));
}

TEST(EventObserverLifeTest, TheGraphDestroysItsObserver) {
  auto owned = std::make_shared<int>(0);
  const std::weak_ptr<int> watched = owned;
  auto graph = std::make_unique<ViewGraph>();
  const EventObservation hearing =
      graph->observeEvents([owned = std::move(owned)](const Node&, const Event&) {});
  ASSERT_FALSE(watched.expired());
  graph.reset();
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace vemra::ui
