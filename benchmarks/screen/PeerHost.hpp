#pragma once

#include <cstddef>

namespace vemra::bench {

/// The program around a peer's page: counts the presses, because the callbacks of the library's
/// page do nothing here either.
struct PeerHost {
  std::size_t openedPeople = 0;
  std::size_t shownSources = 0;
  std::size_t focusedPaths = 0;
  std::size_t recordedOutcomes = 0;
};

}  // namespace vemra::bench
