#pragma once

#include <cstddef>

namespace vemra::bench {

/// What the program around a peer's page is told by presses. It only counts them, as the callbacks
/// that the library's page gets here do nothing.
struct PeerHost {
  std::size_t openedPeople = 0;
  std::size_t shownSources = 0;
  std::size_t focusedPaths = 0;
  std::size_t recordedOutcomes = 0;
};

}  // namespace vemra::bench
