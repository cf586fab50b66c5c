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
  template <class Other>
  AlignedArrayAllocator(const AlignedArrayAllocator<Other>&) noexcept {}

  Element* allocate(std::size_t count) {
    return static_cast<Element*>(
        ::operator new(count * sizeof(Element), std::align_val_t(Element::arrayAlignment)));
  }
  void deallocate(Element* elements, std::size_t) noexcept {
    ::operator delete(elements, std::align_val_t(Element::arrayAlignment));
  }
  friend bool operator==(AlignedArrayAllocator, AlignedArrayAllocator) { return true; }
};

template <class Element>
using ArrayAllocator = std::conditional_t<WantsAlignedArrays<Element>,
                                          AlignedArrayAllocator<Element>, std::allocator<Element>>;

}  // namespace vemra
