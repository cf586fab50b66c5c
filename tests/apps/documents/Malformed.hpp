#pragma once

#include <ostream>

namespace vemra::documents {

/// One change of the sample document that makes it unusable, and the expected message.
struct Malformed {
  const char* what;
  const char* by;
  const char* message;
};

inline std::ostream& operator<<(std::ostream& out, const Malformed& malformed) {
  return out << malformed.what << " -> " << malformed.by;
}

}  // namespace vemra::documents
