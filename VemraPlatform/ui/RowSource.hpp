#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/RowIDs.hpp"

#include <concepts>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace vemra::ui {

class View;

/// The rows of a `ForEach`; each row is made only on request.
class VEMRA_EXPORT RowSource : public RowIDs {
 public:
  /// Describes the row at `index`, which is below `count()`. An exception leaves the row empty.
  virtual View row(std::size_t index) const = 0;
};

/// A function from an element to its id: a member pointer or a callable. The id must be stored in
/// the element, so that the result is a reference or a string_view, never a temporary string; and
/// the element must be stored in the range, never a temporary either.
template <class ID, class Elements>
concept RowIDOf = requires(const ID& id, const Elements& elements) {
  { std::invoke(id, elements[0]) } -> std::convertible_to<std::string_view>;
  requires std::is_lvalue_reference_v<decltype(elements[0])>;
  requires std::is_lvalue_reference_v<decltype(std::invoke(id, elements[0]))> ||
      std::is_same_v<decltype(std::invoke(id, elements[0])), std::string_view>;
};

/// Rows over a range that is cheap to copy (a shared array, a span over constants).
template <class Elements, class ID, class Row>
class RowsOf final : public RowSource {
 public:
  /// Copies the elements, the function that gives an element's id, and the function that makes its
  /// row.
  RowsOf(Elements elements, ID id, Row row)
      : elements_(std::move(elements)), id_(std::move(id)), row_(std::move(row)) {}

  /// The number of elements.
  std::size_t count() const override { return elements_.size(); }

  std::string_view key(std::size_t index) const override {
    return std::invoke(id_, elements_[index]);
  }

  /// Calls the function that makes a row.
  View row(std::size_t index) const override;

 private:
  Elements elements_;
  ID id_;
  Row row_;
};

}  // namespace vemra::ui
