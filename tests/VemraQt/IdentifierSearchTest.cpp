// Elements by identifier: in rows with and without widgets, before and after changes.

#include "VemraPlatform/ui/View.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/PageBehind.hpp"

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

TEST(IdentifierSearch, AMissingIdentifierIsSearchedInEveryRowOnlyOnce) {
  WindowHost host(resultWith(10'000));
  const auto described = [&] {
    return host.widget.graph().work().rows + host.widget.graph().work().bodies;
  };
  EXPECT_EQ(accessible(host, "nobody"), nullptr);
  auto before = described();
  EXPECT_EQ(accessible(host, "nobody"), nullptr);
  EXPECT_EQ(accessible(host, "vemra.goal.person.p4000.outcome.picker"), nullptr);
  EXPECT_EQ(accessible(host, ""), nullptr);
  EXPECT_EQ(described(), before) << "every kind has been checked";
  host.widget.verticalScrollBar()->setValue(100'000);
  before = described();
  EXPECT_EQ(accessible(host, "nobody else"), nullptr);
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
  struct Item {
    std::string id, text;
  };
  const auto items = std::make_shared<std::vector<Item>>();
  for (int i = 0; i < 500; ++i) {
    items->push_back({"row " + std::to_string(i), std::to_string(i)});
  }
  qt::ViewWidget widget;
  widget.resize(320, 400);
  widget.setRoot(ui::ForEach(std::span<const Item>(*items), &Item::id, [](const Item& item) {
    return ui::Text(ui::verbatim(item.text)).accessibilityIdentifier("text " + item.text);
  }));
  widget.show();
  qt::IdentifierSearch& identifiers = identifiersOf(widget);
  for (int again = 0; again < 2; ++again) {
    for (const char* text : {"text 499", "text 0"}) {
      const auto found = identifiers.find(QString::fromLatin1(text));
      ASSERT_EQ(found.size(), 1) << text;
      EXPECT_EQ(identifier(*QAccessible::accessibleInterface(found.front())), text);
    }
    EXPECT_TRUE(identifiers.find("text 500").isEmpty());
  }
}
