#pragma once

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// \file
/// Random trees, and an independent model of which places in two of them are the same.

namespace vemra::ui::sample {

/// A tree as data. The tests make `View`s from it, and name its places without the view layer's
/// identity.
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
    int spelling = 0;  ///< which spelling of it
  };

  Kind kind = Kind::text;
  std::vector<int> branches;  ///< of the conditions around it, from the inside out
  std::optional<Key> key;     ///< of a row of a list: its id
  int look = 0;               ///< the content, and some modifiers
  bool absent = false;
  std::vector<Plan> children;
};

Plan randomPlan(Random& random, int depth);
/// `plan` after a few changes.
Plan changedPlan(Plan plan, Random& random);

View makeView(const Plan& plan);

/// Maps each present place to its node; the places' names are equal exactly for equal identities.
std::map<std::string, const Node*> placesByName(const Plan& plan, const Node& root);

}  // namespace vemra::ui::sample
