#include "VemraPlatform/ui/Element.hpp"

void tryToPress(const vemra::ui::Element& button) {
  button.shownLabel();
#ifdef MUST_NOT_COMPILE
  std::get<vemra::ui::ButtonContent>(button.description().content).action();
#endif
}
