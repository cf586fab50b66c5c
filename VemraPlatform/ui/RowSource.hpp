#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace vemra::ui {

class View;

/// The rows of a `ForEach`, each made only when something asks for it.
class RowSource {
 public:
  virtual ~RowSource() = default;
  virtual std::size_t count() const = 0;
  /// The id of the row at `index`; valid as long as the source is.
  virtual std::string_view key(std::size_t index) const = 0;
  virtual View row(std::size_t index) const = 0;
};

/// Rows over a range that is cheap to copy (a shared array, a span over constants).
template <class Elements, class ID, class Row>
class RowsOf final : public RowSource {
 public:
  RowsOf(Elements elements, ID id, Row row)
      : elements_(std::move(elements)), id_(std::move(id)), row_(std::move(row)) {}

  std::size_t count() const override { return elements_.size(); }

  std::string_view key(std::size_t index) const override {
    using Key = decltype(std::invoke(id_, elements_[index]));
    static_assert(std::is_reference_v<Key> || std::is_same_v<Key, std::string_view>,
                  "a row's id must live in the element: return a reference or a string_view");
    return std::invoke(id_, elements_[index]);
  }

  View row(std::size_t index) const override;

 private:
  Elements elements_;
  ID id_;
  Row row_;
};

}  // namespace vemra::ui
