#include "VemraGoalEngine/GoalWhyDTO.hpp"

#include "VemraPlatform/text/Equality.hpp"

#include <utility>

namespace vemra {

bool operator==(const GoalWhyDTO::Evidence& a, const GoalWhyDTO::Evidence& b) {
  return text::equal(a.label, b.label) && text::equal(a.detail, b.detail) &&
         text::equal(a.reference, b.reference);
}

GoalWhyDTO GoalWhyDTO::evidence(std::string label, std::string detail, std::string reference) {
  return {Evidence{std::move(label), std::move(detail), std::move(reference)}};
}

GoalWhyDTO GoalWhyDTO::connection(std::int64_t hopCount) {
  return {Connection{hopCount}};
}

GoalWhyDTO GoalWhyDTO::sharedActivity(std::int64_t threadCount, std::int64_t meetingCount) {
  return {SharedActivity{threadCount, meetingCount}};
}

GoalWhyDTO GoalWhyDTO::nameMatch() {
  return {Plain::nameMatch};
}

GoalWhyDTO GoalWhyDTO::generic() {
  return {Plain::generic};
}

}  // namespace vemra
