#include "VemraQt/accessibility/PageOutline.hpp"

namespace vemra::qt {

PageOutline::PageOutline(const std::vector<ElementSlot>& elements) {
  under_[0];
  places_.reserve(elements.size());
  slots_.reserve(elements.size());
  for (std::size_t slot = 0; slot < elements.size(); ++slot) {
    std::vector<std::size_t>& siblings = under_[elements[slot].section];
    places_.push_back({elements[slot].section, siblings.size()});
    siblings.push_back(slot);
    slots_.try_emplace(elements[slot].path, slot);
  }
}

const std::vector<std::size_t>& PageOutline::under(std::uint64_t section) const {
  static const std::vector<std::size_t> none;
  const auto found = under_.find(section);
  return found == under_.end() ? none : found->second;
}

std::optional<std::size_t> PageOutline::slotAt(std::uint64_t path) const {
  const auto found = slots_.find(path);
  return found == slots_.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::uint64_t> PageOutline::sections() const {
  std::vector<std::uint64_t> paths;
  paths.reserve(under_.size());
  for (const auto& [path, elements] : under_) paths.push_back(path);
  return paths;
}

std::unordered_map<std::uint64_t, ChildSteps> stepsBySection(const PageOutline& before,
                                                             const PageOutline& after,
                                                             const ChildSteps& ofSlots) {
  std::unordered_map<std::uint64_t, ChildSteps> steps;
  if (!ofSlots.areComplete) {
    for (const std::uint64_t section : after.sections()) {
      if (section == 0 || before.isSection(section)) steps[section].areComplete = false;
    }
    return steps;
  }
  for (const auto& [slot, child] : ofSlots.removed) {
    const std::uint64_t section = before.sectionOf(slot);
    if (section == 0 || after.isSection(section)) {
      steps[section].removed.push_back({before.indexOf(slot), child});
    }
  }
  for (const std::size_t slot : ofSlots.inserted) {
    const std::uint64_t section = after.sectionOf(slot);
    if (section == 0 || before.isSection(section)) {
      steps[section].inserted.push_back(after.indexOf(slot));
    }
  }
  return steps;
}

}  // namespace vemra::qt
