#include "tests/VemraPlatform/ui/RowsStory.hpp"

#include <algorithm>

#include <gtest/gtest.h>

namespace vemra::ui::sample {

namespace {

std::string idOf(const ListRow& row) {
  static const std::vector<std::vector<std::string>> ids = {
      {"a"}, {"\u00E9", "e\u0301"}, {"\u1EC7", "e\u0323\u0302", "\u1EB9\u0302"}, {"b"}, {"c"}};
  const auto& spellings = ids[row.meaning];
  return spellings[row.spelling % spellings.size()];
}

/// The number of rows of the list inside a row, for each id.
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

NodeID listOf(const Node* node) {
  const Node* found = firstOf(node, ElementKind::forEach);
  return found ? found->id : NodeID{};
}

/// The node of a counter; looks at the row when it is not shown.
const Node* counterAt(ViewGraph& graph, std::size_t row, std::size_t counter) {
  const Node* outer = graph.find(graph.peekRow(listOf(graph.root()), row));
  if (!outer || counter == 0) return outer ? outer->children[0] : nullptr;
  return graph.find(graph.peekRow(listOf(outer), counter - 1));
}

int countAt(ViewGraph& graph, std::size_t row, std::size_t counter) {
  const Node* node = counterAt(graph, row, counter);
  if (!node) return -1;
  return static_cast<const StateCellOf<Counter::State>&>(*memoryOf(*node).state).value().count;
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

void RowsModel::setRows(RowList rows) {
  std::map<Identity, Counts> kept;
  for (const Identity& identity : identities(rows)) {
    const auto known = counts_.find(identity);
    kept[identity] =
        known == counts_.end() ? Counts(1 + innerCount(identity.first)) : known->second;
  }
  counts_ = std::move(kept);
  rows_ = std::move(rows);
}

std::vector<RowsModel::Identity> RowsModel::identities(const RowList& rows) {
  std::vector<Identity> identities;
  std::map<std::size_t, std::size_t> seen;
  for (const ListRow& row : rows) identities.emplace_back(row.meaning, seen[row.meaning]++);
  return identities;
}

RowsStory::RowsStory(Random& random) : random_(random) {
  whole_.attach(tree_);
  windowed_.attach(window_);
  setRows({{0, 0}, {1, 0}, {1, 1}, {2, 0}});
}

void RowsStory::setRows(RowList rows) {
  model_.setRows(std::move(rows));
  whole_.setRoot(screen(model_.rows()));
  windowed_.setRoot(screen(model_.rows()));
  story_ += " rows";
  for (const ListRow& row : model_.rows()) story_ += ' ' + std::to_string(row.meaning);
}

void RowsStory::moveWindow(NodeID list, std::size_t count) {
  const std::size_t first = random_.below(count + 1);
  const std::size_t last = first + random_.below(4);
  windowed_.showRows(list, {{first, last}});
  story_ += " window " + std::to_string(first) + '-' + std::to_string(last);
}

void RowsStory::moveInnerWindow() {
  const Node* list = windowed_.find(listOf(windowed_.root()));
  if (list->children.empty()) return;
  const NodeID inner = listOf(list->children[random_.below(list->children.size())]);
  moveWindow(inner, windowed_.find(inner)->element.rowCount());
}

void RowsStory::pressOne() {
  if (model_.rows().empty()) return;
  const std::size_t row = random_.below(model_.rows().size());
  const std::size_t counter = random_.below(model_.counts(row).size());
  model_.press(row, counter);
  pressAt(whole_, row, counter);
  pressAt(windowed_, row, counter);
  story_ += " press " + std::to_string(row) + '.' + std::to_string(counter);
}

void RowsStory::step() {
  switch (random_.below(5)) {
    case 0:
      setRows(changed(model_.rows(), random_));
      break;
    case 1:
    case 2:
      moveWindow(listOf(windowed_.root()), model_.rows().size());
      break;
    case 3:
      moveInnerWindow();
      break;
    default:
      pressOne();
  }
  ASSERT_EQ(difference(whole_, tree_), "") << story_;
  ASSERT_EQ(difference(windowed_, window_.tree), "") << story_;
}

void RowsStory::compareStates() {
  for (std::size_t row = 0; row < model_.rows().size(); ++row) {
    for (std::size_t counter = 0; counter < model_.counts(row).size(); ++counter) {
      const int expected = model_.counts(row)[counter];
      ASSERT_EQ(countAt(whole_, row, counter), expected)
          << "whole, row " << row << " counter " << counter << ":" << story_;
      if (!windowed_.find(listOf(windowed_.root()))->children.empty() && expected > 0) ++slept_;
      ASSERT_EQ(countAt(windowed_, row, counter), expected)
          << "windowed, row " << row << " counter " << counter << ":" << story_;
    }
  }
}

}  // namespace vemra::ui::sample
