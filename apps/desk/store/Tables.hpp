#pragma once

#include <string>
#include <vector>

namespace vemra::desk {

/// A table, an index or a trigger of a store.
struct SchemaObject {
  const char* type;  ///< "table", "index" or "trigger"
  const char* name;
  std::string sql;  ///< the statement that makes it, which SQLite keeps as it is
};

/// All of them, in the order in which they can be made.
const std::vector<SchemaObject>& tablesOfVersion1();

}  // namespace vemra::desk
