#include "VemraPlatform/ui/ProgrammerError.hpp"

#include "VemraPlatform/ui/Node.hpp"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace vemra::ui {

void programmerError(const char* what, const Node* view) {
  std::string message = std::string("vemra::ui: ") + what;
  if (view) {
    const std::string_view composite = view->element.compositeName();
    message += " in ";
    message += composite.empty() ? kindName(view->element.kind()) : composite;
    if (const auto identifier = view->element.accessibilityIdentifier(); !identifier.empty()) {
      message += " \"" + std::string(identifier) + '"';
    }
    const Node* row = view;
    while (row && !row->isRow) row = row->parent;
    if (row) message += " of row \"" + row->rowID + '"';
  }
  std::fprintf(stderr, "%s\n", message.c_str());
  std::abort();
}

}  // namespace vemra::ui
