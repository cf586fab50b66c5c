#include "apps/desk/store/SampleGoals.hpp"

#include "apps/desk/store/SampleDocuments.hpp"
#include "apps/documents/ResultReader.hpp"

#include <string>

namespace vemra::desk {

std::vector<GetGoalSnapshotResponse> sampleGoals() {
  std::vector<GetGoalSnapshotResponse> goals;
  for (const SampleDocument& document : sampleDocuments) {
    goals.push_back(documents::readResultText(document.text, std::string(document.name)));
  }
  return goals;
}

}  // namespace vemra::desk
