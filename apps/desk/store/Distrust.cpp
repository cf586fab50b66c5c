#include "apps/desk/store/Distrust.hpp"

#include <utility>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

constexpr std::pair<int, int> switches[] = {
    {SQLITE_DBCONFIG_DEFENSIVE, 1},       // no SQL writes the schema or the log's mode
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},  // no functions in checks, indexes and triggers
    {SQLITE_DBCONFIG_ENABLE_VIEW, 0},     // a store contains no views
};

/// Slightly above what the store's own statements and tables need.
constexpr std::pair<int, int> limits[] = {
    {SQLITE_LIMIT_SQL_LENGTH, 20'000}, {SQLITE_LIMIT_EXPR_DEPTH, 50},
    {SQLITE_LIMIT_COLUMN, 50},         {SQLITE_LIMIT_COMPOUND_SELECT, 20},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 10},  {SQLITE_LIMIT_ATTACHED, 0},
    {SQLITE_LIMIT_WORKER_THREADS, 0},
};

}  // namespace

void distrustContents(sqlite3* connection) {
  for (const auto& [option, value] : switches) {
    sqlite3_db_config(connection, option, value, static_cast<int*>(nullptr));
  }
  for (const auto& [limit, value] : limits) sqlite3_limit(connection, limit, value);
}

}  // namespace vemra::desk
