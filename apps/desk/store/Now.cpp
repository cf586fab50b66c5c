#include "apps/desk/store/Now.hpp"

#include <cstddef>
#include <ctime>

namespace vemra::desk {

std::string now() {
  const std::time_t time = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&time, &parts);
  char text[32];
  const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return {text, length};
}

}  // namespace vemra::desk
