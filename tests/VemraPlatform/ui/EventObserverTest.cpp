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
    graph.observeEvents([this](const Node& node, const Event&) {
      log.push_back("observed " + std::string(node.element.shownLabel()));
    });
  }

  NodeID id(const char* title) const { return buttonTitled(graph.root(), title)->id; }

  std::vector<std::string> log;
  ViewGraph graph;
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
  graph.observeEvents(
      [](const Node&, const Event&) { throw std::runtime_error("of the observer"); });
  EXPECT_THROW(graph.deliver(id("first"), Press{}), std::runtime_error);
  EXPECT_EQ(log, std::vector<std::string>{"first"});
}

TEST_F(EventObserverTest, AnEmptyOneEndsThePreviousOne) {
  graph.observeEvents(nullptr);
  graph.deliver(id("first"), Press{});
  EXPECT_EQ(log, std::vector<std::string>{"first"});
}

TEST(EventObserverLifeTest, TheGraphDestroysItsObserver) {
  auto owned = std::make_shared<int>(0);
  const std::weak_ptr<int> watched = owned;
  auto graph = std::make_unique<ViewGraph>();
  graph->observeEvents([owned = std::move(owned)](const Node&, const Event&) {});
  ASSERT_FALSE(watched.expired());
  graph.reset();
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace vemra::ui
