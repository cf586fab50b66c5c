#include "tests/VemraQt/LongList.hpp"

#include "VemraPlatform/page/Layout.hpp"
#include "VemraQt/widgets/ElementWidget.hpp"
#include "tests/VemraQt/HardScreen.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <gtest/gtest.h>

namespace vemra::qttest {

namespace {

constexpr std::string_view personPrefix = "Person Number ";

/// A frame on the page.
struct Occupant {
  std::string name;
  QRect frame;
  const page::Node* row;  ///< the row itself, or the row around it; none outside the list
};

std::string written(const QRect& frame) {
  return std::to_string(frame.width()) + " x " + std::to_string(frame.height()) + " at " +
         std::to_string(frame.x()) + ", " + std::to_string(frame.y());
}

void expectApart(const Occupant& one, const Occupant& other) {
  EXPECT_FALSE(one.frame.intersects(other.frame))
      << one.name << " (" << written(one.frame) << ") and " << other.name << " ("
      << written(other.frame) << ")";
}

}  // namespace

Result numbered(std::size_t count) {
  Result result = resultWith(count);
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  for (std::size_t i = 0; i < people.size(); ++i) {
    people[i].displayName = std::string(personPrefix) + std::to_string(i);
  }
  result.people = people;
  return result;
}

Result numberedUnevenly(std::size_t count) {
  Result result = numbered(count);
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  for (std::size_t i = 0; i < people.size(); i += 3) {
    *people[i].displayName += " " + std::string(150, 'W');
  }
  result.people = people;
  return result;
}

std::vector<int> peopleInView(const WindowHost& host) {
  std::vector<int> people;
  for (const std::string& text : host.visibleTexts()) {
    if (text.starts_with(personPrefix))
      people.push_back(std::stoi(text.substr(personPrefix.size())));
  }
  return people;
}

void expectNothingOverlaps(const WindowHost& host) {
  qt::Page& page = pageOf(host.widget);
  std::vector<Occupant> leaves, rows;
  // The page places a widget at its element's frame, so an outdated widget is elsewhere.
  page::forEachLeaf(*page.tree().root(), [&](const page::Node& leaf) {
    const qt::ShownLeaf& shown = page.shown(leaf);
    if (!shown.widget) return;
    const QRect frame =
        shown.widget->widget().geometry().marginsRemoved(qt::overhang(leaf.element, shown.shape));
    EXPECT_EQ(frame, page.frameOnPage(leaf).translated(0, -page.scrollPosition()));
    leaves.push_back({called(leaf), frame, page::rowOf(&leaf)});
  });
  for (const page::Node* list : page.tree().lists()) {
    for (const page::Node& row : list->children()) {
      const QRect frame =
          page.rowFrameOnPage(*list, row.rowIndex).translated(0, -page.scrollPosition());
      rows.push_back({"row " + std::to_string(row.rowIndex), frame, &row});
    }
  }
  ASSERT_FALSE(leaves.empty());
  for (std::size_t i = 0; i < leaves.size(); ++i) {
    for (std::size_t k = i + 1; k < leaves.size(); ++k) expectApart(leaves[i], leaves[k]);
    for (const Occupant& row : rows) {
      if (row.row != leaves[i].row) {
        expectApart(leaves[i], row);
      } else {
        EXPECT_TRUE(row.frame.contains(leaves[i].frame))
            << leaves[i].name << " (" << written(leaves[i].frame) << ") reaches out of " << row.name
            << " (" << written(row.frame) << ")";
      }
    }
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t k = i + 1; k < rows.size(); ++k) expectApart(rows[i], rows[k]);
  }
}

QScrollBar& bar(const WindowHost& host) {
  return *host.widget.verticalScrollBar();
}

}  // namespace vemra::qttest
