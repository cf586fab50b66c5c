#pragma once

#include "apps/desk/store/StoreError.hpp"

namespace vemra::desk {

/// There is a file of another user, or one that is not a regular file, at the place where SQLite
/// keeps its log, its journal or its shared memory.
class ForeignFile : public StoreError {
 public:
  using StoreError::StoreError;
};

}  // namespace vemra::desk
