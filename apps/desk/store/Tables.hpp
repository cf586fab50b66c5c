#pragma once

#include <span>
#include <string>
#include <vector>

namespace vemra::desk {

/// A table, an index or a trigger of a store.
struct SchemaObject {
  const char* type;  ///< "table", "index" or "trigger"
  std::string name;
  std::string sql;  ///< the statement that creates it; SQLite stores it unchanged
};

/// \name The objects of a version of the tables, in an order in which they can be created @{
const std::vector<SchemaObject>& tablesOfVersion1();
std::span<const SchemaObject> addedByVersion2();
std::span<const SchemaObject> tablesOfVersion(int version);
/// @}

}  // namespace vemra::desk
