#include "apps/commandline/Version.hpp"

namespace vemra::commandline {

std::string version() {
  return VEMRA_VERSION;
}

}  // namespace vemra::commandline
