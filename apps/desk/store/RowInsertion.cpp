#include "apps/desk/store/RowInsertion.hpp"

#include <string>

namespace vemra::desk {

void RowInsertion::finish() {
  if (rows_ > 0) insert();
}

void RowInsertion::insert() {
  // Drops the rows also when they are refused, and keeps the memory for the next ones.
  struct Dropping {
    RowInsertion& insertion;
    ~Dropping() {
      insertion.values_.clear();
      insertion.rows_ = 0;
    }
  } const dropping{*this};
  if (rows_ == rowsAtOnce) {
    if (!full_) full_ = statement();
    full_->runWith(values_);
  } else {
    statement().runWith(values_);
  }
}

/// The statement that inserts as many rows as are pending.
Statement RowInsertion::statement() const {
  std::string row = "(?";
  for (std::size_t i = 1; i < values_.size() / rows_; ++i) row += ",?";
  row += ')';
  std::string sql = std::string("INSERT INTO ").append(table_).append(" VALUES ") + row;
  for (std::size_t i = 1; i < rows_; ++i) sql.append(",").append(row);
  return {database_, sql};
}

}  // namespace vemra::desk
