#include "tests/VemraPlatform/ui/Sample.hpp"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

// A renderer of every row and a renderer of windows, driven by the same random life, must come to
// the same states: what is not looked at may sleep, and nothing else may come of it. Both are held
// against a model that knows only "an id, and how many of it stand before".

namespace vemra::ui {

namespace {

using namespace sample;

/// A row: which of a few ids, in which canonically equal spelling.
struct ListRow {
  std::size_t meaning = 0;
  std::size_t spelling = 0;
};
using RowList = std::vector<ListRow>;

std::string idOf(const ListRow& row) {
  static const std::vector<std::vector<std::string>> ids = {
      {"a"}, {"\u00E9", "e\u0301"}, {"\u1EC7", "e\u0323\u0302", "\u1EB9\u0302"}, {"b"}, {"c"}};
  const auto& spellings = ids[row.meaning];
  return spellings[row.spelling % spellings.size()];
}

/// How many rows the list inside a row has, for each meaning.
std::size_t innerCount(std::size_t meaning) {
  return meaning % 3;
}

View screen(const RowList& rows) {
  std::vector<Line> lines;
  for (const ListRow& row : rows) lines.push_back({idOf(row), std::to_string(row.meaning)});
  return Group({Text("title"), list(std::move(lines), [](const Line& line) -> View {
                  std::vector<Line> inner = numbered(innerCount(std::stoul(line.text)));
                  return Group({Counter{"outer"}, list(std::move(inner), [](const Line& innerLine) {
                                  return View(Counter{innerLine.id});
                                })});
                })});
}

/// The counters of one row: its own, then those of its inner list.
using Counts = std::vector<int>;

/// What should be: counts by id and occurrence.
class Model {
 public:
  void setRows(RowList rows) {
    std::map<Identity, Counts> kept;
    for (const Identity& identity : identities(rows)) {
      const auto known = counts_.find(identity);
      kept[identity] =
          known == counts_.end() ? Counts(1 + innerCount(identity.first)) : known->second;
    }
    counts_ = std::move(kept);
    rows_ = std::move(rows);
  }
  void press(std::size_t row, std::size_t counter) { ++counts_[identities(rows_)[row]][counter]; }
  const RowList& rows() const { return rows_; }
  const Counts& counts(std::size_t row) const { return counts_.at(identities(rows_)[row]); }

 private:
  using Identity = std::pair<std::size_t, std::size_t>;
  static std::vector<Identity> identities(const RowList& rows) {
    std::vector<Identity> identities;
    std::map<std::size_t, std::size_t> seen;
    for (const ListRow& row : rows) identities.emplace_back(row.meaning, seen[row.meaning]++);
    return identities;
  }

  RowList rows_;
  std::map<Identity, Counts> counts_;
};

NodeID listOf(const Node* node) {
  const Node* found = firstOf(node, ElementKind::forEach);
  return found ? found->id : NodeID{};
}

/// The node of a counter, by looking where it is not shown.
const Node* counterAt(ViewGraph& graph, std::size_t row, std::size_t counter) {
  const Node* outer = graph.find(graph.lookAtRow(listOf(graph.root()), row));
  if (!outer || counter == 0) return outer ? outer->children[0] : nullptr;
  return graph.find(graph.lookAtRow(listOf(outer), counter - 1));
}

int countAt(ViewGraph& graph, std::size_t row, std::size_t counter) {
  const Node* node = counterAt(graph, row, counter);
  if (!node) return -1;
  return static_cast<const StateCellOf<Counter::State>&>(*node->state).value().count;
}

void pressAt(ViewGraph& graph, std::size_t row, std::size_t counter) {
  graph.deliver(buttonTitled(counterAt(graph, row, counter), "+")->id, Press{});
}

RowList changed(RowList rows, Random& random) {
  const auto place = [&](std::size_t size) {
    return static_cast<std::ptrdiff_t>(random.below(size));
  };
  for (std::size_t changes = 1 + random.below(2); changes > 0; --changes) {
    switch (random.below(6)) {
      case 0:
      case 1:
        if (rows.size() < 9) {
          rows.insert(rows.begin() + place(rows.size() + 1), {random.below(5), random.below(3)});
        }
        break;
      case 2:
        if (!rows.empty()) rows.erase(rows.begin() + place(rows.size()));
        break;
      case 3:
        if (!rows.empty()) std::swap(rows.front(), rows[random.below(rows.size())]);
        break;
      case 4:
        if (!rows.empty()) rows[random.below(rows.size())].spelling = random.below(3);
        break;
      default:
        std::ranges::reverse(rows);
    }
  }
  return rows;
}

}  // namespace

TEST(RowsAgreementTest, WindowsAndWholeListsComeToTheSameStates) {
  constexpr int sequences = rounds(5'000);
  constexpr int steps = 12;
  Random random(99);
  int slept = 0;
  for (int sequence = 0; sequence < sequences; ++sequence) {
    Model model;
    ViewGraph whole;
    testing::RenderedTree tree;
    whole.attach(tree);
    ViewGraph windowed;
    Window window;
    windowed.attach(window);
    std::string story;
    const auto setRows = [&](RowList rows) {
      model.setRows(std::move(rows));
      whole.setRoot(screen(model.rows()));
      windowed.setRoot(screen(model.rows()));
      story += " rows";
      for (const ListRow& row : model.rows()) story += ' ' + std::to_string(row.meaning);
    };
    const auto moveWindow = [&](NodeID list, std::size_t count) {
      const std::size_t first = random.below(count + 1);
      const std::size_t last = first + random.below(4);
      windowed.showRows(list, {{first, last}});
      story += " window " + std::to_string(first) + '-' + std::to_string(last);
    };
    setRows({{0, 0}, {1, 0}, {1, 1}, {2, 0}});
    for (int step = 0; step < steps; ++step) {
      const std::size_t count = model.rows().size();
      const std::size_t row = count > 0 ? random.below(count) : 0;
      switch (random.below(5)) {
        case 0:
          setRows(changed(model.rows(), random));
          break;
        case 1:
        case 2:
          moveWindow(listOf(windowed.root()), count);
          break;
        case 3:
          if (const Node* list = windowed.find(listOf(windowed.root())); !list->children.empty()) {
            const NodeID inner = listOf(list->children[random.below(list->children.size())]);
            moveWindow(inner, windowed.find(inner)->element.rowCount());
          }
          break;
        default:
          if (count > 0) {
            const std::size_t counter = random.below(model.counts(row).size());
            model.press(row, counter);
            pressAt(whole, row, counter);
            pressAt(windowed, row, counter);
            story += " press " + std::to_string(row) + '.' + std::to_string(counter);
          }
      }
      ASSERT_EQ(difference(whole, tree), "") << story;
      ASSERT_EQ(difference(windowed, window.tree), "") << story;
    }
    for (std::size_t row = 0; row < model.rows().size(); ++row) {
      for (std::size_t counter = 0; counter < model.counts(row).size(); ++counter) {
        const int expected = model.counts(row)[counter];
        ASSERT_EQ(countAt(whole, row, counter), expected)
            << "whole, row " << row << " counter " << counter << ":" << story;
        if (!windowed.find(listOf(windowed.root()))->children.empty() && expected > 0) ++slept;
        ASSERT_EQ(countAt(windowed, row, counter), expected)
            << "windowed, row " << row << " counter " << counter << ":" << story;
      }
    }
  }
  EXPECT_GT(slept, rounds(1'000)) << "or nothing was at stake";
}

}  // namespace vemra::ui
