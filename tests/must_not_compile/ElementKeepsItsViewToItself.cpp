#include "VemraPlatform/ui/Element.hpp"

void tryToReadTheView(const vemra::ui::Element& element) {
  element.kind();
#ifdef MUST_NOT_COMPILE
  element.view();
#endif
}
