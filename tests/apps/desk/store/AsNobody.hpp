#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace vemra::desk {

/// Acts with the rights of nobody for a while, when the tests run with those of root.
class AsNobody {
 public:
  static constexpr uid_t id = 65534;

  AsNobody() {
    if (::geteuid() == 0) wasRoot_ = ::setegid(id) == 0 && ::seteuid(id) == 0;
  }
  ~AsNobody() {
    if (wasRoot_ && (::seteuid(0) != 0 || ::setegid(0) != 0)) {
      ADD_FAILURE() << "the rights were not restored";
    }
  }

 private:
  bool wasRoot_ = false;
};

}  // namespace vemra::desk
