#pragma once

#include <string>

namespace vemra::desk {

/// A goal in a list of goals.
struct GoalListing {
  std::string id;
  std::string title;
  friend bool operator==(const GoalListing&, const GoalListing&) = default;  // byte for byte
};

}  // namespace vemra::desk
