#include "VemraPlatform/text/KeyedHash.hpp"

#include <chrono>
#include <exception>
#include <random>

namespace vemra::text {

HashKey randomHashKey() noexcept {
  try {
    std::random_device random;
    const auto word = [&] { return std::uint64_t{random()} << 32 | random(); };
    const std::uint64_t first = word();
    return {first, word()};
  } catch (const std::exception&) {
    // The system gives no random numbers, for example when the process may open no more files. The
    // time and the address of a variable are better than a key that everybody knows.
    const auto time = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    static const char place = 0;
    return {static_cast<std::uint64_t>(time), reinterpret_cast<std::uintptr_t>(&place)};
  }
}

const HashKey& processHashKey() noexcept {
  static const HashKey key = randomHashKey();
  return key;
}

}  // namespace vemra::text
