#pragma once

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// \file
/// Random trees, and an independent account of which places in two of them are the same.

namespace vemra::ui::sample {

/// A tree as data. `View`s are made of it, and places named, without the view layer's own identity.
struct Plan {
  enum class Kind {
    text,
    button,
    picker,
    field,
    vStack,
    hStack,
    group,
    scroll,
    list,
    counter,
    holder,
  };
  struct Key {
    int meaning = 0;   ///< equal for keys that are canonically equal
    int spelling = 0;  ///< which way of writing it
  };

  Kind kind = Kind::text;
  std::vector<int> branches;  ///< of the conditions around it, from the inside out
  std::optional<Key> key;     ///< of a row of a list: its id
  int look = 0;               ///< what is shown, and some modifiers
  bool absent = false;
  std::vector<Plan> children;
};

Plan randomPlan(Random& random, int depth);
/// A few changes away from `plan`.
Plan changedPlan(Plan plan, Random& random);

View makeView(const Plan& plan);

/// Every present place by a name that is equal exactly for equal identities, with its node.
std::map<std::string, const Node*> placesByName(const Plan& plan, const Node& root);

}  // namespace vemra::ui::sample
