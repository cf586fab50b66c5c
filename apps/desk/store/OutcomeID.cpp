#include "apps/desk/store/OutcomeID.hpp"

#include <cstdint>
#include <random>

namespace vemra::desk {

std::string newOutcomeID() {
  std::random_device random;
  std::string id = "outcome-";
  for (int word = 0; word < 4; ++word) {
    const std::uint32_t bits = random();
    for (int shift = 28; shift >= 0; shift -= 4) id += "0123456789abcdef"[(bits >> shift) & 15];
  }
  return id;
}

}  // namespace vemra::desk
