#pragma once

#include <string>
#include <vector>

namespace vemra::desk {

/// A table, an index or a trigger of a store.
struct SchemaObject {
  const char* type;  ///< "table", "index" or "trigger"
  const char* name;
  std::string sql;  ///< the statement that creates it; SQLite stores it unchanged
};

/// All objects, in an order in which they can be created.
const std::vector<SchemaObject>& tablesOfVersion1();

}  // namespace vemra::desk
