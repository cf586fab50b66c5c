#pragma once

#include <string>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vemra::desk {

/// A connection without the store's code, like another program that has the same file open.
class RawDatabase {
 public:
  explicit RawDatabase(const std::string& file) {
    EXPECT_EQ(sqlite3_open(file.c_str(), &connection_), SQLITE_OK) << file;
    sqlite3_busy_timeout(connection_, 5000);  // the store may be busy
  }
  RawDatabase(const RawDatabase&) = delete;
  RawDatabase& operator=(const RawDatabase&) = delete;
  ~RawDatabase() { sqlite3_close(connection_); }

  /// The error message, "" after a success.
  std::string run(const std::string& sql) {
    char* message = nullptr;
    sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, &message);
    const std::string text = message != nullptr ? message : "";
    sqlite3_free(message);
    return text;
  }

  /// The first column of the first row, as text.
  std::string value(const std::string& sql) {
    std::string value;
    const auto keep = [](void* context, int, char** columns, char**) {
      *static_cast<std::string*>(context) = columns[0] != nullptr ? columns[0] : "NULL";
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(connection_, sql.c_str(), keep, &value, nullptr), SQLITE_OK) << sql;
    return value;
  }

 private:
  sqlite3* connection_ = nullptr;
};

}  // namespace vemra::desk
