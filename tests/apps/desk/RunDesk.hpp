#pragma once

#include "tests/apps/Process.hpp"

#include <string>

namespace vemra::desk {

inline const std::string vemraDesk = VEMRA_BINARY_DIR "/bin/vemra-desk";

/// Runs vemra-desk to its end.
inline Ending run(const Invocation& invocation) {
  return Process(vemraDesk, invocation).wait();
}

}  // namespace vemra::desk
