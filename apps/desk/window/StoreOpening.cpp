#include "apps/desk/window/StoreOpening.hpp"

#include "apps/desk/store/StoreError.hpp"

#include <chrono>
#include <filesystem>
#include <optional>
#include <system_error>

namespace vemra::desk {
namespace {

/// The time that a call waits for another program. Short, because the window tries again by itself
/// to store an outcome, and other calls, such as loading a goal, run meanwhile.
constexpr Patience patience = std::chrono::seconds(1);

/// Why the store cannot be read; "" when it can.
std::string problemOfReading(const std::string& file) {
  try {
    std::optional<GoalStore> store = GoalStore::openExisting(file);
    if (!store) return StoreError(file, "is not there, or is empty").what();
    store->goals();
    return "";
  } catch (const StoreError& error) {
    return error.what();
  }
}

}  // namespace

bool isSameStore(const std::string& file, const std::string& other) {
  std::error_code error;
  return file == other || (std::filesystem::equivalent(file, other, error) && !error);
}

StoreOpening openStore(const std::string& file, StoreUse use) {
  StoreOpening opening{file, nullptr, {}, false};
  if (use == StoreUse::readingAndWriting) {
    try {
      GoalStore::open(file, patience);
      opening.engine = std::make_shared<StoreEngine>(file, patience);
      return opening;
    } catch (const StoreBusy& busy) {
      opening.problem = busy.what();
      opening.mayBeRead = true;
      return opening;
    } catch (const StoreError& error) {
      opening.problem = error.what();
    }
  }
  const std::string problem = problemOfReading(file);
  if (problem.empty()) {
    opening.engine = std::make_shared<StoreEngine>(file, patience, StoreUse::reading);
  } else if (opening.problem.empty()) {
    opening.problem = problem;
  }
  return opening;
}

}  // namespace vemra::desk
