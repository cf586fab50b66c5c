#include "apps/desk/window/ShowWindow.hpp"

namespace vemra::desk {

int showWindow(const Request&, std::ostream& diagnostics) {
  diagnostics << "vemra-desk: this build has no window, only the commands (see --help)\n";
  return 2;
}

}  // namespace vemra::desk
