#pragma once

#include "VemraQt/accessibility/ChildSteps.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace vemra::qt {

/// Which elements outside lists belong to which section of a page, as indexes of their slots. The
/// path 0 stands for the page itself.
class PageOutline {
 public:
  PageOutline() = default;
  explicit PageOutline(const std::vector<ElementSlot>& elements);

  /// The slots directly in the section with that path, in order.
  const std::vector<std::size_t>& under(std::uint64_t section) const;
  /// The first slot with that path; nil when there is none.
  std::optional<std::size_t> slotAt(std::uint64_t path) const;
  /// The section that holds a slot.
  std::uint64_t sectionOf(std::size_t slot) const { return places_[slot].section; }
  /// The index of a slot among those of its section.
  std::size_t indexOf(std::size_t slot) const { return places_[slot].index; }
  bool isSection(std::uint64_t path) const { return under_.contains(path); }
  /// The paths of the sections, 0 included, in no particular order.
  std::vector<std::uint64_t> sections() const;

 private:
  struct Place {
    std::uint64_t section;
    std::size_t index;
  };
  std::vector<Place> places_;
  std::unordered_map<std::uint64_t, std::vector<std::size_t>> under_;
  std::unordered_map<std::uint64_t, std::size_t> slots_;  ///< by their paths
};

/// Divides the changes of all slots of a page among the page and its sections, with indexes among
/// the children of each. Leaves out the content of added and removed sections.
std::unordered_map<std::uint64_t, ChildSteps> stepsBySection(const PageOutline& before,
                                                             const PageOutline& after,
                                                             const ChildSteps& ofSlots);

}  // namespace vemra::qt
