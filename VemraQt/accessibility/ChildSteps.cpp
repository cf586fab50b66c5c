#include "VemraQt/accessibility/ChildSteps.hpp"

#include "VemraQt/accessibility/AccessibleObject.hpp"
#include "VemraQt/accessibility/LeavingObjects.hpp"

#include <utility>

namespace vemra::qt {

ChildSteps adopt(std::vector<ElementSlot>& elements, std::vector<ElementSlot> fresh,
                 LeavingObjects& leaving) {
  ChildSteps steps;
  std::vector<bool> isOld(fresh.size(), false);
  std::size_t next = 0;  // try the next place first: most elements keep their neighbours
  for (std::size_t index = 0; index < elements.size(); ++index) {
    const ElementSlot& old = elements[index];
    std::size_t place = fresh.size();
    for (std::size_t i = 0; i < fresh.size() && place == fresh.size(); ++i) {
      const std::size_t candidate = (next + i) % fresh.size();
      const bool same = fresh[candidate].path == old.path && fresh[candidate].kind == old.kind;
      if (same && !isOld[candidate]) place = candidate;
    }
    if (place < fresh.size()) {
      isOld[place] = true;
      fresh[place].object = old.object;
      fresh[place].enabled = old.enabled;
      fresh[place].shown = old.shown;
      if (place < next) steps.areComplete = false;  // an element has moved ahead of another
      next = place + 1;
    } else {
      steps.removed.push_back({index, old.object ? old.object->id() : 0});
    }
  }
  const std::vector<ElementSlot> before = std::exchange(elements, std::move(fresh));
  for (const ChildSteps::Removed& removed : steps.removed) {
    if (AccessibleObject* gone = before[removed.index].object) leaving.add(*gone);
  }
  for (std::size_t place = 0; place < isOld.size(); ++place) {
    if (!isOld[place]) steps.inserted.push_back(place);
  }
  return steps;
}

}  // namespace vemra::qt
