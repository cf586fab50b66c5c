#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/Node.hpp"
#include "VemraPlatform/ui/Tag.hpp"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace vemra::page {

/// One thing that can be chosen in a picker. The texts are valid until the tree changes.
struct Choice {
  std::string_view label;       ///< as shown
  std::string_view identifier;  ///< the accessibility identifier of its row, "" without one
  ui::Tag tag;
};

/// What can be chosen in a picker: its tagged rows, in tree order. The second function is for a picker
/// that no patch has reached, because its row was only looked at.
VEMRA_EXPORT std::vector<Choice> choicesOf(const Node& picker);
VEMRA_EXPORT std::vector<Choice> choicesOf(const ui::Node& picker);

/// The place of the picker's selection among them; nil when it is none of them.
VEMRA_EXPORT std::optional<std::size_t> chosenAmong(const std::vector<Choice>& choices,
                                                    const ui::Element& picker);

}  // namespace vemra::page
