#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/CanonicalText.hpp"
#include "VemraPlatform/ui/RowIDs.hpp"

#include <concepts>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace vemra::ui {

class View;

/// The rows of a `ForEach`; each row is made only on request.
class VEMRA_EXPORT RowSource : public RowIDs {
 public:
  /// Describes the row at `index`, which is below `count()`. An exception leaves the row empty.
  virtual View row(std::size_t index) const = 0;
};

/// A function from an element to its id: a member pointer or a callable. It may return anything
/// with a canonical text (`HasCanonicalText`), by reference or made on the spot.
template <class ID, class Elements>
concept RowIDOf = requires(const ID& id, const Elements& elements) {
  requires HasCanonicalText<std::remove_cvref_t<decltype(std::invoke(id, elements[0]))>>;
};

/// An id that is a text in the element: a reference to a text, or a string_view, which is taken to
/// point into the element. Lists read it there, without a copy.
template <class ID, class Elements>
concept StoredRowIDOf = requires(const ID& id, const Elements& elements) {
  { std::invoke(id, elements[0]) } -> std::convertible_to<std::string_view>;
  requires std::is_lvalue_reference_v<decltype(std::invoke(id, elements[0]))> ||
      std::is_same_v<decltype(std::invoke(id, elements[0])), std::string_view>;
};

/// A range whose elements are stored in it: a row may refer to its element.
template <class Elements>
concept StoresElements = requires(const Elements& elements) {
  requires std::is_lvalue_reference_v<decltype(elements[0])>;
};

/// A function that makes the view of a row.
template <class Row, class Elements>
concept RowViewOf = requires(const Row& row, const Elements& elements) {
  { std::invoke(row, elements[0]) } -> std::convertible_to<View>;
};

/// Whether a list takes the range over without copying an element: a copy shares or refers to the
/// elements, or the range is moved.
template <class Elements>
concept CopiesNoElement = (!std::is_lvalue_reference_v<Elements> && !std::is_const_v<Elements>) ||
                          (std::is_nothrow_copy_constructible_v<std::remove_cvref_t<Elements>> &&
                           !requires { std::tuple_size<std::remove_cvref_t<Elements>>::value; });

/// The rows of a range.
template <class Elements, class ID, class Row>
class RowsOf final : public RowSource {
 public:
  /// Takes over the elements, the function that gives an element's id, and the function that makes
  /// its row; `identifiers` is what the host promises about the identifiers in the rows.
  RowsOf(Elements elements, ID id, Row row, IdentifiersInRows identifiers = IdentifiersInRows::any)
      : elements_(std::move(elements)),
        id_(std::move(id)),
        row_(std::move(row)),
        identifiers_(identifiers) {}

  /// The number of elements.
  std::size_t count() const override { return elements_.size(); }

  std::string_view key(std::size_t index) const override {
    if constexpr (StoredRowIDOf<ID, Elements>) {
      return std::invoke(id_, elements_[index]);
    } else {
      const auto known = made_.find(index);
      if (known != made_.end()) return known->second;
      return made_.emplace(index, canonicalText(std::invoke(id_, elements_[index]))).first->second;
    }
  }

  /// As given to the constructor.
  IdentifiersInRows identifiers() const override { return identifiers_; }

  /// Calls the function that makes a row.
  View row(std::size_t index) const override;

 private:
  struct Nothing {};
  /// The ids that were made on the spot, by index: only those that were needed.
  using Made = std::conditional_t<StoredRowIDOf<ID, Elements>, Nothing,
                                  std::unordered_map<std::size_t, std::string>>;

  Elements elements_;
  ID id_;
  Row row_;
  IdentifiersInRows identifiers_;
  [[no_unique_address]] mutable Made made_;
};

}  // namespace vemra::ui
