#pragma once

#include "apps/desk/store/StoreEngine.hpp"

#include <memory>
#include <string>

namespace vemra::desk {

/// The result of opening a store for a window.
struct StoreOpening {
  std::string file;
  /// None when the store cannot be opened.
  std::shared_ptr<StoreEngine> engine;
  /// A line that names the file and says why the store cannot be opened, or why it is open for
  /// reading only; "" when it is open for everything.
  std::string problem;
  /// The store was not opened, and could perhaps be opened for reading only.
  bool mayBeRead = false;

  bool isReadOnly() const { return engine && engine->storeUse() == StoreUse::reading; }
};

/// Whether both paths lead to one store, as a relative path and a link do.
bool isSameStore(const std::string& file, const std::string& other);

/// Opens a store as a window does: for everything, or else, because of rights or a file system that
/// is read-only, for reading. Creates a store that is missing, but not its folder.
///
/// A store that another program keeps locked is not opened: it may be free in a moment, so the user
/// decides.
StoreOpening openStore(const std::string& file, StoreUse use = StoreUse::readingAndWriting);

}  // namespace vemra::desk
