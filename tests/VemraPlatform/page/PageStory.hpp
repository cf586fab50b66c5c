#pragma once

#include "tests/Random.hpp"
#include "tests/VemraPlatform/page/CellHost.hpp"
#include "tests/VemraPlatform/page/Laid.hpp"

#include <optional>
#include <string>
#include <vector>

/// \file
/// Random steps on a page, and the laws that hold after each step.

namespace vemra::page::sample {

/// A screen to show: a head, a list and a foot.
struct Story {
  struct Row {
    std::string id;
    int lines = 1;  ///< how high it is
    bool hasField = false;
    bool isEnabled = true;
    friend bool operator==(const Row&, const Row&) = default;
  };
  std::vector<Row> rows;
  int headLines = 1;
  bool hasFoot = true;
  int spacing = 0;

  ui::View view() const;
};

/// Carries out random steps on a windowed page, and finds the law that it breaks.
class PageStory {
 public:
  explicit PageStory(testing::Random& random);
  PageStory(const PageStory&) = delete;
  PageStory& operator=(const PageStory&) = delete;

  /// Carries out a random step and returns its description.
  std::string step();
  /// The first law that is broken; "" when all hold.
  std::string broken();

 private:
  /// An element in the viewport and its position there.
  struct Seen {
    ui::NodeID node;
    int top = 0, height = 0;
  };

  void show();
  std::string change();
  std::string press();
  std::vector<Seen> seen() const;
  std::string brokenAnchor() const;
  std::string brokenRows() const;
  std::string brokenDrawing() const;
  std::string brokenLikeness();
  std::string brokenFocus() const;

  testing::Random& random_;
  Story story_;
  std::size_t newID_ = 0;
  ui::ViewGraph graph_;
  CellHost host_{graph_};
  /// The elements in view before the last step, the focused element first; none after a step that
  /// may move them.
  std::optional<std::vector<Seen>> anchored_;
};

}  // namespace vemra::page::sample
