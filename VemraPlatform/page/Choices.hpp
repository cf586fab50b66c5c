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

/// A choice of a picker. The texts are valid until the tree changes.
struct Choice {
  std::string_view label;       ///< as shown
  std::string_view identifier;  ///< the accessibility identifier of its row, "" without one
  ui::Tag tag;                  ///< the value that the choice stands for
};

/// The choices of a picker: its tagged rows, in tree order. The second function is for a picker in
/// a row that the graph has described without showing it (`ui::ViewGraph::peekRow`), which no
/// patch has inserted.
VEMRA_EXPORT std::vector<Choice> choicesOf(const Node& picker);
VEMRA_EXPORT std::vector<Choice> choicesOf(const ui::Node& picker);

/// The index of the picker's selection in `choices`; nil when `choices` does not contain it.
VEMRA_EXPORT std::optional<std::size_t> chosenAmong(const std::vector<Choice>& choices,
                                                    const ui::Element& picker);

}  // namespace vemra::page
