#include "tests/VemraPlatform/ui/RandomTree.hpp"

#include <array>

#include <gtest/gtest.h>

namespace vemra::ui::sample {

namespace {

// Each line: spellings of one key.
const std::array<std::vector<std::string>, 5> spellings = {{
    {"a"},
    {"b"},
    {"\u00E9", "e\u0301"},
    {"\u1EC7", "e\u0323\u0302", "\u1EB9\u0302"},
    {""},
}};

std::string written(const Plan::Key& key) {
  const auto& ways = spellings[static_cast<std::size_t>(key.meaning)];
  return ways[static_cast<std::size_t>(key.spelling) % ways.size()];
}

enum class Fruit { apple, pear };
std::string_view caseName(Fruit fruit) {
  return fruit == Fruit::apple ? "apple" : "pear";
}

/// A composite that contains other views, with a number as its state.
struct Holder {
  static constexpr std::string_view name = "Holder";
  using State = Counter::State;
  View inside;
  View body(const LocalState<State>&) const { return inside; }
};

bool holdsOthers(Plan::Kind kind) {
  return kind != Plan::Kind::text && kind != Plan::Kind::button && kind != Plan::Kind::field &&
         kind != Plan::Kind::picker && kind != Plan::Kind::counter;
}

Plan::Key randomKey(Random& random) {
  return {static_cast<int>(random.below(spellings.size())), static_cast<int>(random.below(3))};
}

void addChild(Plan& parent, Plan child, Random& random) {
  if (parent.kind == Plan::Kind::holder && !parent.children.empty()) return;
  if (parent.kind == Plan::Kind::list) {
    child.key = randomKey(random);
  } else if (random.oneIn(4)) {
    child.key = randomKey(random);
  }
  const auto at = static_cast<std::ptrdiff_t>(random.below(parent.children.size() + 1));
  parent.children.insert(parent.children.begin() + at, std::move(child));
}

View inBranches(View view, const std::vector<int>& branches) {
  for (const int taken : branches) {
    view = If(taken == 0, [&] {
             return view;
           }).elseIf(taken == 1, [&] {
               return view;
             }).otherwise([&] { return view; });
  }
  return view;
}

View content(const Plan& plan) {
  const std::string shown = "look" + std::to_string(plan.look % 3);
  Children children;
  if (plan.kind != Plan::Kind::list) {
    for (const Plan& child : plan.children) children.push_back(makeView(child));
  }
  switch (plan.kind) {
    case Plan::Kind::text:
      return Text(verbatim(shown));
    case Plan::Kind::button:
      return Button(verbatim(shown), [] {});
    case Plan::Kind::picker:
      return Picker(
          "fruit",
          Binding<Fruit>([look = plan.look] { return look % 2 ? Fruit::apple : Fruit::pear; },
                         [](Fruit) {}),
          {Text("Apple").tag(Fruit::apple), Text("Pear").tag(Fruit::pear)});
    case Plan::Kind::field:
      return TextField("field",
                       Binding<std::string>([shown] { return shown; }, [](const std::string&) {}));
    case Plan::Kind::vStack:
      return VStack(HorizontalAlignment::leading, plan.look % 2, std::move(children));
    case Plan::Kind::hStack:
      return HStack(VerticalAlignment::center, plan.look % 2, std::move(children));
    case Plan::Kind::group:
      return Group(std::move(children));
    case Plan::Kind::scroll:
      return ScrollView(std::move(children));
    case Plan::Kind::list: {
      std::vector<std::pair<std::string, Plan>> rows;
      for (const Plan& child : plan.children) rows.emplace_back(written(*child.key), child);
      return ForEach(std::move(rows), &std::pair<std::string, Plan>::first, [](const auto& row) {
        Plan inside = row.second;
        inside.key.reset();
        return makeView(inside);
      });
    }
    case Plan::Kind::counter:
      return Counter{shown};
    case Plan::Kind::holder:
      return Holder{children.empty() ? View() : children.front()};
  }
  return View();
}

using Names = std::map<std::string, const Node*>;

std::string kindAndBranch(const Plan& plan) {
  std::string name = std::to_string(static_cast<int>(plan.kind));
  for (const int branch : plan.branches) name += "?" + std::to_string(branch);
  return name;
}

void addNames(const Plan& plan, const Node& node, const std::string& name, Names& names) {
  EXPECT_TRUE(names.emplace(name, &node).second) << "two places of one name: " << name;
  std::map<std::string, int> seen;
  std::size_t next = 0;
  for (std::size_t slot = 0; slot < plan.children.size(); ++slot) {
    const Plan& child = plan.children[slot];
    const bool isRow = plan.kind == Plan::Kind::list;
    if (child.absent && !isRow) continue;
    // An absent row is shown as an empty group outside any branch.
    const std::string what =
        child.absent ? std::to_string(static_cast<int>(Plan::Kind::group)) : kindAndBranch(child);
    std::string place = "slot" + std::to_string(slot);
    if (child.key) {
      const std::string key = "key" + std::to_string(child.key->meaning);
      // Only ids distinguish rows; the content of a row must also stay of one kind.
      const int occurrence = seen[isRow ? key : key + what]++;
      place = key + "#" + std::to_string(occurrence);
    }
    ASSERT_LT(next, node.children.size()) << name;
    addNames(child.absent
                 ? Plan{.kind = Plan::Kind::group, .branches = {}, .key = {}, .children = {}}
                 : child,
             *node.children[next++], name + "/" + place + ":" + what, names);
  }
  if (plan.kind != Plan::Kind::counter && plan.kind != Plan::Kind::picker) {
    EXPECT_EQ(next, node.children.size()) << name;
  }
}

}  // namespace

Plan randomPlan(Random& random, int depth) {
  Plan plan;
  plan.kind = static_cast<Plan::Kind>(random.below(11));
  plan.look = static_cast<int>(random.below(6));
  plan.absent = random.oneIn(8);
  while (random.oneIn(4)) plan.branches.push_back(static_cast<int>(random.below(3)));
  if (!holdsOthers(plan.kind)) return plan;
  const std::size_t count = depth > 0 ? random.below(5) : 0;
  for (std::size_t i = 0; i < count; ++i) addChild(plan, randomPlan(random, depth - 1), random);
  return plan;
}

Plan changedPlan(Plan plan, Random& random) {
  for (Plan& child : plan.children) child = changedPlan(std::move(child), random);
  if (random.oneIn(6)) plan.look = static_cast<int>(random.below(6));
  if (random.oneIn(12)) plan.absent = !plan.absent;
  if (random.oneIn(16)) plan.branches.assign(1, static_cast<int>(random.below(3)));
  if (plan.key && random.oneIn(6)) plan.key->spelling = static_cast<int>(random.below(3));
  if (plan.children.size() > 1 && random.oneIn(4)) {
    std::swap(plan.children.front(), plan.children[random.below(plan.children.size())]);
  }
  if (!plan.children.empty() && random.oneIn(6)) plan.children.pop_back();
  if (holdsOthers(plan.kind) && random.oneIn(5)) addChild(plan, randomPlan(random, 1), random);
  return plan;
}

View makeView(const Plan& plan) {
  if (plan.absent) return View();
  View view = content(plan);
  if (plan.look % 3 == 1) view = view.font(Font::caption).disabled(plan.look % 2 == 0);
  if (plan.look % 3 == 2) view = view.padding(plan.look);
  view = inBranches(std::move(view), plan.branches);
  return plan.key ? view.id(written(*plan.key)) : view;
}

std::map<std::string, const Node*> placesByName(const Plan& plan, const Node& root) {
  Names names;
  addNames(plan, root, kindAndBranch(plan), names);
  return names;
}

}  // namespace vemra::ui::sample
