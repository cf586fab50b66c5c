#include "VemraQt/widgets/Choices.hpp"

#include "VemraPlatform/page/Choices.hpp"
#include "VemraQt/widgets/ElementWidget.hpp"
#include "VemraQt/widgets/TextShape.hpp"

#include <algorithm>
#include <utility>

namespace vemra::qt {

std::vector<Choice> choicesOf(const page::Node& picker) {
  std::vector<Choice> choices;
  for (page::Choice& choice : page::choicesOf(picker)) {
    choices.push_back({toQString(choice.label), std::move(choice.tag)});
  }
  return choices;
}

int currentChoice(const page::Node& picker, const std::vector<Choice>& choices) {
  const auto& selection = picker.element.selection();
  if (!selection) return -1;
  auto found = std::ranges::find(choices, *selection, &Choice::tag);
  return found == choices.end() ? -1 : static_cast<int>(found - choices.begin());
}

}  // namespace vemra::qt
