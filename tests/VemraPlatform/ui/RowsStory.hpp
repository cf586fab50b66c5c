#pragma once

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// \file
/// A renderer of every row and a renderer of windows, with the same random events: they must end
/// with the same states. Rows out of the window may sleep, which must have no other effect. Both
/// are compared with a model in which a row is "an id, and the number of equal ids before it".

namespace vemra::ui::sample {

/// A row: which of a few ids, in which canonically equal spelling.
struct ListRow {
  std::size_t meaning = 0;
  std::size_t spelling = 0;
};
using RowList = std::vector<ListRow>;

/// The counters of one row: its own, then those of its inner list.
using Counts = std::vector<int>;

/// The expected counts by id and occurrence.
class RowsModel {
 public:
  void setRows(RowList rows);
  void press(std::size_t row, std::size_t counter) { ++counts_[identities(rows_)[row]][counter]; }
  const RowList& rows() const { return rows_; }
  const Counts& counts(std::size_t row) const { return counts_.at(identities(rows_)[row]); }

 private:
  using Identity = std::pair<std::size_t, std::size_t>;
  static std::vector<Identity> identities(const RowList& rows);

  RowList rows_;
  std::map<Identity, Counts> counts_;
};

/// One story of a list, shown by both renderers; compares with GoogleTest's assertions.
class RowsStory {
 public:
  /// `random` chooses the events and must outlive the story.
  explicit RowsStory(Random& random);
  RowsStory(const RowsStory&) = delete;
  RowsStory& operator=(const RowsStory&) = delete;

  /// One event: other rows, another window, or a press. Compares what the renderers got.
  void step();

  /// Compares the state of every counter with the model's.
  void compareStates();

  /// The number of compared counters that were not 0 while out of the window.
  int slept() const { return slept_; }

 private:
  void setRows(RowList rows);
  void moveWindow(NodeID list, std::size_t count);
  void moveInnerWindow();
  void pressOne();

  Random& random_;
  RowsModel model_;
  testing::RenderedTree tree_;
  ViewGraph whole_;
  Window window_;
  ViewGraph windowed_;
  std::string story_;
  int slept_ = 0;
};

}  // namespace vemra::ui::sample
