#pragma once

#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/Tag.hpp"

#include <vector>

#include <QString>

namespace vemra::qt {

/// A choice of a picker.
struct Choice {
  QString label;
  ui::Tag tag;
};

/// The tagged rows of a picker, in tree order.
std::vector<Choice> choicesOf(const page::Node& picker);
/// The index of the picker's selection in `choices`; -1 when `choices` does not contain it.
int currentChoice(const page::Node& picker, const std::vector<Choice>& choices);

}  // namespace vemra::qt
