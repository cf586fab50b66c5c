#pragma once

#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/Tag.hpp"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace vemra::page {

/// One thing that can be chosen in a picker.
struct Choice {
  std::string_view label;  ///< as shown; valid until the tree changes
  ui::Tag tag;
};

/// What can be chosen in a picker: its tagged rows, in tree order.
std::vector<Choice> choicesOf(const Node& picker);

/// The place of the picker's selection among them; nil when it is none of them.
std::optional<std::size_t> chosenAmong(const std::vector<Choice>& choices, const Node& picker);

}  // namespace vemra::page
