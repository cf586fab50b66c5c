#pragma once

#include "VemraPlatform/base/ArrayAllocator.hpp"
#include "VemraPlatform/text/Equality.hpp"

#include <algorithm>
#include <atomic>
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
/// The lists of a result are copied from the engine to the host, to the screen and into the actions
/// of every button; with shared storage each copy costs one reference count, however long the list
/// is. Nothing ever changes the elements, so the array may be read from any thread.
///
/// Arrays of an element type that declares `static constexpr std::size_t arrayAlignment` begin at a
/// multiple of that many bytes; making such an array moves each element once. Other arrays take
/// over the vector that they are made from.
///
/// A longer array may share the storage of a shorter one (`appending`), so a list that grows by one
/// element copies none.
///
/// Two arrays with the same storage are equal without a comparison of their elements. Strings are
/// compared under canonical equivalence, other elements by their own `==`.
template <class Element>
class SharedArray {
 public:
  using value_type = Element;
  using const_iterator = const Element*;

  SharedArray() = default;
  /// An array of copies of these elements; no elements need no storage.
  SharedArray(std::initializer_list<Element> elements)
      : SharedArray(std::vector<Element>(elements)) {}
  /// An array that takes over the elements.
  SharedArray(std::vector<Element> elements) : SharedArray(std::move(elements), 0) {}

  /// Reserves storage for `room` more elements, which `appending` then adds without copying these.
  SharedArray(std::vector<Element> elements, std::size_t room) {
    if (elements.empty()) return;
    size_ = elements.size();
    storage_ = std::make_shared<Storage>(stored(std::move(elements), room), size_);
  }

  /// The number of elements.
  std::size_t size() const { return storage_ ? size_ : 0; }
  /// Whether the array is empty.
  bool empty() const { return storage_ == nullptr; }
  /// The first of the elements, which are contiguous; nullptr when there are none.
  const Element* data() const { return storage_ ? storage_->first : nullptr; }
  /// The first element. Iterators stay valid as long as any array shares the storage.
  const Element* begin() const { return data(); }
  /// The place behind the last element.
  const Element* end() const { return data() + size(); }

  /// The element at `index`, which must be below `size()`.
  const Element& operator[](std::size_t index) const { return storage_->first[index]; }
  /// The first element; the array must not be empty.
  const Element& front() const { return *storage_->first; }
  /// The last element; the array must not be empty.
  const Element& back() const { return storage_->first[size_ - 1]; }

  /// Whether both arrays are the same elements of the same storage (two empty arrays always are).
  bool sharesStorage(const SharedArray& other) const {
    return storage_ == other.storage_ && size() == other.size();
  }

  /// Returns the elements of this array followed by `more`. This array does not change.
  ///
  /// The new array shares this array's storage if that has enough room after this array's elements
  /// and no other call has used that room. Otherwise the elements are copied into a storage of
  /// twice the size, so that appending one at a time copies each element about once. May be called
  /// from any thread.
  SharedArray appending(std::vector<Element> more) const {
    if (more.empty()) return *this;
    if (empty()) return SharedArray(std::move(more));
    SharedArray longer;
    longer.size_ = size_ + more.size();
    longer.storage_ = storage_;
    if (!storage_->take(size_, longer.size_)) {
      Elements copies;
      copies.reserve(std::max(2 * size_, longer.size_));
      copies.insert(copies.end(), begin(), end());
      longer.storage_ = std::make_shared<Storage>(std::move(copies), longer.size_);
    }
    Elements& elements = longer.storage_->elements;
    elements.insert(elements.end(), std::make_move_iterator(more.begin()),
                    std::make_move_iterator(more.end()));
    return longer;
  }

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
  using Elements = std::vector<Element, ArrayAllocator<Element>>;

  /// The elements of all arrays that share them; the longest array has the first `taken`.
  struct Storage {
    Storage(Elements own, std::size_t count)
        : elements(std::move(own)), first(elements.data()), taken(count) {}

    /// Reserves the places from `from` to `to` for the caller. Returns false when the storage is
    /// too small, or when another array has taken them.
    bool take(std::size_t from, std::size_t to) {
      return to <= elements.capacity() && taken.compare_exchange_strong(from, to);
    }

    // Grows within its capacity only, so that its elements stay where they are while they are read.
    // Only the call that took the last places adds elements.
    Elements elements;
    const Element* first;
    std::atomic<std::size_t> taken;
  };

  static Elements stored(std::vector<Element> elements, std::size_t room) {
    if constexpr (std::is_same_v<Elements, std::vector<Element>>) {
      if (room > 0) elements.reserve(elements.size() + room);
      return elements;
    } else {
      Elements aligned;
      aligned.reserve(elements.size() + room);
      aligned.insert(aligned.end(), std::make_move_iterator(elements.begin()),
                     std::make_move_iterator(elements.end()));
      return aligned;
    }
  }

  std::shared_ptr<Storage> storage_;
  std::size_t size_ = 0;  // ignored without a storage, as after a move
};

}  // namespace vemra
