#include "apps/desk/store/RowInsertion.hpp"

#include <string>

namespace vemra::desk {

void RowInsertion::finish() {
  if (rows_ > 0) insert();
}

void RowInsertion::insert() {
  if (rows_ == rowsAtOnce) {
    if (!full_) full_ = statement();
    full_->runWith(values_);
  } else {
    statement().runWith(values_);
  }
  values_.clear();
  rows_ = 0;
}

/// The statement that inserts as many rows as are missing.
Statement RowInsertion::statement() const {
  std::string row = "(?";
  for (std::size_t i = 1; i < values_.size() / rows_; ++i) row += ",?";
  row += ')';
  std::string sql = std::string("INSERT INTO ").append(table_).append(" VALUES ") + row;
  for (std::size_t i = 1; i < rows_; ++i) sql.append(",").append(row);
  return {database_, sql};
}

}  // namespace vemra::desk
