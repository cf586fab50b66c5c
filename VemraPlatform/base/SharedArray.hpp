#pragma once

#include "VemraPlatform/base/ArrayAllocator.hpp"
#include "VemraPlatform/text/Equality.hpp"

#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace vemra {

/// An immutable array whose copies share one storage.
///
/// A goal result is handed from the engine to the host, to the screen and into the actions of every
/// button; sharing makes each of those copies one reference count, however long the list. Nothing
/// ever changes the elements, so the array may be read from any thread.
///
/// An element type that declares `static constexpr std::size_t arrayAlignment` gets arrays that begin
/// at a multiple of that many bytes; making one then moves each element once. Other arrays take over
/// the vector that they are made of.
///
/// Two arrays over the same storage are equal without a look at the elements. Strings are compared
/// under canonical equivalence, other elements by their own `==`.
template <class Element>
class SharedArray {
 public:
  using value_type = Element;
  using const_iterator = const Element*;

  SharedArray() = default;
  SharedArray(std::initializer_list<Element> elements)
      : SharedArray(std::vector<Element>(elements)) {}
  SharedArray(std::vector<Element> elements)
      : storage_(elements.empty() ? nullptr : stored(std::move(elements))) {}

  std::size_t size() const { return storage_ ? storage_->size() : 0; }
  bool empty() const { return storage_ == nullptr; }
  const Element* data() const { return storage_ ? storage_->data() : nullptr; }
  const Element* begin() const { return data(); }
  const Element* end() const { return data() + size(); }

  /// The element at `index`, which must be below `size()`.
  const Element& operator[](std::size_t index) const { return (*storage_)[index]; }
  const Element& front() const { return storage_->front(); }
  const Element& back() const { return storage_->back(); }

  /// Whether both arrays are views of the same storage (two empty arrays always are).
  bool sharesStorage(const SharedArray& other) const { return storage_ == other.storage_; }

  friend bool operator==(const SharedArray& a, const SharedArray& b) {
    if (a.sharesStorage(b)) return true;
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
      if constexpr (std::is_same_v<Element, std::string>) {
        if (!text::equal(a[i], b[i])) return false;
      } else {
        if (!(a[i] == b[i])) return false;
      }
    }
    return true;
  }

 private:
  using Storage = std::vector<Element, ArrayAllocator<Element>>;

  static std::shared_ptr<const Storage> stored(std::vector<Element> elements) {
    if constexpr (std::is_same_v<Storage, std::vector<Element>>) {
      return std::make_shared<const Storage>(std::move(elements));
    } else {
      return std::make_shared<const Storage>(std::make_move_iterator(elements.begin()),
                                             std::make_move_iterator(elements.end()));
    }
  }

  std::shared_ptr<const Storage> storage_;
};

}  // namespace vemra
