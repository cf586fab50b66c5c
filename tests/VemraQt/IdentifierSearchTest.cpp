// Elements by identifier: in rows with and without widgets, before and after changes.

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/atspi/MatchRule.hpp"
#include "VemraQt/atspi/RoleSearch.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include <QScrollBar>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

TEST(IdentifierSearch, FindsAllElementsWithEqualIdentifiers) {
  Result result = resultWith(3);
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  people[2].personRef = "p0";
  result.people = people;
  WindowHost host(result);
  const auto found = identifiersOf(host.widget).find("vemra.goal.person.p0.outcome.start");
  EXPECT_EQ(found.size(), 2);
  EXPECT_EQ(identifiersOf(host.widget).find("nobody").size(), 0);
}

TEST(IdentifierSearch, FindingOneElementAmongManyDescribesFewRows) {
  WindowHost host(resultWith(10'000));
  const auto before = host.widget.graph().work().rows;
  ASSERT_NE(accessible(host, "vemra.goal.person.p9999.outcome.start"), nullptr);
  EXPECT_LE(host.widget.graph().work().rows - before, 5u);
}

TEST(IdentifierSearch, FindingTheFirstButtonsDescribesFewRows) {
  WindowHost host(resultWith(10'000));
  qt::atspi::MatchRule rule;
  rule.roles = {43};  // a button
  const auto before = host.widget.graph().work().rows;
  const auto few = qt::atspi::findByRole(accessiblePage(host), rule, 3);
  ASSERT_TRUE(few);
  EXPECT_EQ(few->size(), 3);
  rule.states = quint64{1} << 8;  // enabled
  EXPECT_EQ(qt::atspi::findByRole(accessiblePage(host), rule, 3), few);
  EXPECT_LE(host.widget.graph().work().rows - before, 10u);
  rule.statesAgree = qt::atspi::Agreement::none;
  EXPECT_TRUE(qt::atspi::findByRole(accessiblePage(host), rule, 3)->isEmpty());
  rule = {};
  rule.roles = {43};
  const auto all = qt::atspi::findByRole(accessiblePage(host), rule, 0);
  EXPECT_GE(all->size(), 10'000);
  EXPECT_EQ(all->first(3), *few);
}

TEST(IdentifierSearch, AMissingIdentifierDescribesNoRowWhereEachOneContainsTheIdOfItsRow) {
  WindowHost host(resultWith(10'000));
  const auto before = host.widget.graph().work().rows;
  EXPECT_EQ(accessible(host, "nobody"), nullptr);
  EXPECT_EQ(accessible(host, ""), nullptr);
  EXPECT_EQ(host.widget.graph().work().rows, before);
  EXPECT_EQ(accessible(host, "vemra.goal.person.p4000.outcome.picker"), nullptr);
  EXPECT_LE(host.widget.graph().work().rows - before, 5u) << "p4, p40, p400, p4000";
}

TEST(IdentifierSearch, EachIdentifierInARowOfAPersonContainsTheReferenceOfThatPerson) {
  WindowHost host(resultWith(10));
  for (const char* person : {"p0", "p1", "p2"}) {
    press(*accessible(host, std::string("vemra.goal.person.") + person + ".outcome.start"));
  }
  std::size_t checked = 0;
  const std::function<void(const ui::Node&, const std::string*)> check =
      [&](const ui::Node& node, const std::string* row) {
        if (node.isRow) row = &node.rowID;
        const std::string identifier(node.element.accessibilityIdentifier());
        if (row != nullptr && !identifier.empty()) {
          EXPECT_NE(identifier.find(*row), std::string::npos) << identifier << " in " << *row;
          ++checked;
        }
        const bool hasChoices = node.element.kind() == ui::ElementKind::picker;
        for (const auto& child : node.children) {
          if (!hasChoices) check(*child, row);
        }
      };
  check(*host.widget.graph().root(), nullptr);
  EXPECT_GT(checked, 10u);
}

namespace {

struct Item {
  std::string id, text;
};

/// A window with 500 rows whose identifiers do not contain the ids of the rows.
struct UnnamedRows {
  UnnamedRows() {
    for (int i = 0; i < 500; ++i) {
      items->push_back({"row " + std::to_string(i), std::to_string(i)});
    }
    widget.resize(320, 400);
    widget.setRoot(ui::ForEach(std::span<const Item>(*items), &Item::id, [](const Item& item) {
      return ui::Text(ui::verbatim(item.text)).accessibilityIdentifier("text " + item.text);
    }));
    widget.show();
  }
  bool has(const char* identifier) {
    return !identifiersOf(widget).find(QString::fromLatin1(identifier)).isEmpty();
  }

  std::shared_ptr<std::vector<Item>> items = std::make_shared<std::vector<Item>>();
  qt::ViewWidget widget;
};

}  // namespace

TEST(IdentifierSearch, AMissingIdentifierIsSearchedInEveryRowOnlyOnce) {
  UnnamedRows page;
  const auto described = [&] {
    return page.widget.graph().work().rows + page.widget.graph().work().bodies;
  };
  const auto atFirst = described();
  EXPECT_FALSE(page.has("nobody"));
  EXPECT_GE(described() - atFirst, 400u) << "any row could have it";
  auto before = described();
  EXPECT_FALSE(page.has("nobody"));
  EXPECT_FALSE(page.has(""));
  EXPECT_EQ(described(), before) << "every row has been searched";
  page.widget.verticalScrollBar()->setValue(1'000);
  before = described();
  EXPECT_FALSE(page.has("nobody else"));
  EXPECT_EQ(described(), before) << "scrolling brings no new rows";
}

TEST(IdentifierSearch, AnIdentifierThatWasMissingIsFoundWhenItAppears) {
  WindowHost host(resultWith(300));
  const std::string near = "vemra.goal.person.p1", away = "vemra.goal.person.p200";
  press(*accessible(host, near + ".outcome.start"));
  EXPECT_EQ(accessible(host, away + ".outcome.picker"), nullptr);
  EXPECT_NE(accessible(host, near + ".outcome.picker"), nullptr);
  EXPECT_EQ(accessible(host, near + ".outcome.start"), nullptr);
  press(*accessible(host, away + ".outcome.start"));
  EXPECT_NE(accessible(host, away + ".outcome.picker"), nullptr);
  EXPECT_EQ(accessible(host, away + ".outcome.start"), nullptr);
  host.widget.verticalScrollBar()->setValue(0);
  EXPECT_NE(accessible(host, away + ".outcome.picker"), nullptr) << "also while its row is away";
  press(*accessible(host, away + ".outcome.cancel"));
  press(*accessible(host, near + ".outcome.cancel"));
  host.widget.verticalScrollBar()->setValue(host.widget.verticalScrollBar()->maximum() / 3);
  for (const std::string& person : {near, away}) {
    EXPECT_EQ(accessible(host, person + ".outcome.picker"), nullptr) << person;
    EXPECT_NE(accessible(host, person + ".outcome.start"), nullptr) << person;
  }
  EXPECT_EQ(accessible(host, "vemra.goal.person.fresh.outcome.start"), nullptr);
  host.changePeople([](People& people) { people[250].personRef = "fresh"; });
  EXPECT_NE(accessible(host, "vemra.goal.person.fresh.outcome.start"), nullptr);
  EXPECT_EQ(accessible(host, "vemra.goal.person.p250.outcome.start"), nullptr);
}

TEST(IdentifierSearch, AnIdentifierNeedNotContainItsRowsId) {
  UnnamedRows page;
  qt::IdentifierSearch& identifiers = identifiersOf(page.widget);
  for (int again = 0; again < 2; ++again) {
    for (const char* text : {"text 499", "text 0"}) {
      const auto found = identifiers.find(QString::fromLatin1(text));
      ASSERT_EQ(found.size(), 1) << text;
      EXPECT_EQ(identifier(*QAccessible::accessibleInterface(found.front())), text);
    }
    EXPECT_TRUE(identifiers.find("text 500").isEmpty());
  }
}
