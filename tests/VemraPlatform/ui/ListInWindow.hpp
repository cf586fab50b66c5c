#pragma once

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui::sample {

inline View counterRow(const Line& line) {
  return Counter{line.id};
}

/// A list in a window that shows some of its rows.
class ListInWindow : public ::testing::Test {
 protected:
  ListInWindow() { graph.attach(window); }
  ~ListInWindow() override { graph.detach(); }

  void show(std::vector<Line> lines, std::function<View(const Line&)> row = counterRow) {
    graph.setRoot(list(std::move(lines), std::move(row)));
    EXPECT_EQ(difference(graph, window.tree), "");
  }
  void showRows(std::size_t first, std::size_t last) {
    graph.showRows(forEach().id, {{first, last}});
    EXPECT_EQ(difference(graph, window.tree), "");
  }
  const Node& forEach() { return *firstOf(graph.root(), ElementKind::forEach); }
  std::vector<std::string> shown() { return texts(graph.root()); }
  /// Presses "+" in a row; looks at the row when it is not shown.
  void pressRow(std::size_t index) {
    const Node* row = graph.find(graph.peekRow(forEach().id, index));
    ASSERT_TRUE(row);
    graph.deliver(buttonTitled(row, "+")->id, Press{});
    EXPECT_EQ(difference(graph, window.tree), "");
  }
  std::vector<std::string> peeked(std::size_t index) {
    return texts(graph.find(graph.peekRow(forEach().id, index)));
  }

  Window window;
  ViewGraph graph;
};

}  // namespace vemra::ui::sample
