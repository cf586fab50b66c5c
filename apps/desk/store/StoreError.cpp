#include "apps/desk/store/StoreError.hpp"

#include "apps/documents/DocumentError.hpp"

namespace vemra::desk {

StoreError::StoreError(const std::string& file, const std::string& problem)
    : std::runtime_error(file + ": " + problem) {}

StoreBusy::StoreBusy(const std::string& file)
    : StoreError(file, "is in use by another program that does not let go of it") {}

UnknownGoal::UnknownGoal(const std::string& file, const std::string& goalID)
    : StoreError(file, "has no goal with the id " + documents::inQuotes(goalID)) {}

}  // namespace vemra::desk
