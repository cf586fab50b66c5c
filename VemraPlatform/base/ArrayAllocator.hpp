#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>

/// \file
/// The memory of a `SharedArray`'s elements.

namespace vemra {

/// An element type whose arrays, rather than each object, must begin at a multiple of
/// `arrayAlignment` bytes.
template <class Element>
concept WantsAlignedArrays = requires {
  Element::arrayAlignment;
};

/// Allocates arrays that begin at a multiple of `Element::arrayAlignment` bytes.
template <class Element>
struct AlignedArrayAllocator {
  using value_type = Element;

  AlignedArrayAllocator() = default;
  /// Allocators of this kind have no state, so one converts into another.
  template <class Other>
  AlignedArrayAllocator(const AlignedArrayAllocator<Other>&) noexcept {}

  /// Storage for `count` elements. Throws `std::bad_alloc` when memory runs out.
  Element* allocate(std::size_t count) {
    return static_cast<Element*>(
        ::operator new(count * sizeof(Element), std::align_val_t(Element::arrayAlignment)));
  }
  /// Frees what `allocate` has returned.
  void deallocate(Element* elements, std::size_t) noexcept {
    ::operator delete(elements, std::align_val_t(Element::arrayAlignment));
  }
  friend bool operator==(AlignedArrayAllocator, AlignedArrayAllocator) { return true; }
};

/// The allocator of a `SharedArray`: aligned where `Element` asks for it, otherwise the standard
/// one.
template <class Element>
using ArrayAllocator = std::conditional_t<WantsAlignedArrays<Element>,
                                          AlignedArrayAllocator<Element>, std::allocator<Element>>;

}  // namespace vemra
