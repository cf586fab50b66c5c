#pragma once

#include "apps/desk/store/StoreError.hpp"

namespace vemra::desk {

/// A file of another user, or one that is no regular file, is where SQLite keeps its log, its
/// journal or its shared memory.
class ForeignFile : public StoreError {
 public:
  using StoreError::StoreError;
};

}  // namespace vemra::desk
