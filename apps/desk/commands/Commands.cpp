#include "apps/desk/commands/Commands.hpp"

#include "apps/desk/commands/Documents.hpp"
#include "apps/desk/commands/GoalLine.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/store/StoreLocation.hpp"
#include "apps/documents/DocumentError.hpp"
#include "apps/documents/ResultWriter.hpp"

#include <filesystem>
#include <new>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

namespace vemra::desk {
namespace {

void importDocuments(const Request& request, std::ostream& diagnostics) {
  // Read to the last one before the store is touched.
  std::vector<GetGoalSnapshotResponse> results;
  results.reserve(request.documents.size());
  for (const std::string& document : request.documents) {
    results.push_back(readDocument(document));
  }
  for (const LeftOutOutcome& leftOut : GoalStore::importInto(storeFileToWrite(request), results)) {
    diagnostics << lineOf(leftOut, request.documents[leftOut.document], results[leftOut.document])
                << '\n';
  }
}

std::string listGoals(const Request& request) {
  std::optional<GoalStore> store = existingStore(request);
  std::string lines;
  if (!store) return lines;
  for (const GoalListing& goal : store->goals()) lines += goalLine(goal);
  return lines;
}

GoalStore storeWithGoals(const Request& request) {
  std::optional<GoalStore> store = existingStore(request);
  if (!store) throw UnknownGoal(storeFile(request), *request.goal);
  return std::move(*store);
}

std::string answer(const Request& request, std::ostream& diagnostics) {
  switch (request.command) {
    case Request::Command::importDocuments:
      importDocuments(request, diagnostics);
      return "";
    case Request::Command::listGoals:
      return listGoals(request);
    case Request::Command::showOutcomes:
      return documents::writeOutcomes(storeWithGoals(request).outcomes(*request.goal));
    case Request::Command::exportGoal:
      return documentText(storeWithGoals(request).result(*request.goal));
    case Request::Command::showWindow:
      break;
  }
  throw std::logic_error("The window is not a command.");
}

}  // namespace

std::string storeFile(const Request& request) {
  return request.store ? *request.store : userStoreFile();
}

std::string storeFileToWrite(const Request& request) {
  std::string file = storeFile(request);
  if (!request.store) makeFolderOf(file);
  return file;
}

std::optional<GoalStore> existingStore(const Request& request) {
  const std::string file = storeFile(request);
  std::error_code error;
  const auto status = std::filesystem::symlink_status(file, error);
  const bool missing = status.type() == std::filesystem::file_type::not_found;
  if (!request.store && missing) return std::nullopt;
  return GoalStore::openExisting(file);
}

int runCommand(const Request& request, std::ostream& output, std::ostream& diagnostics) {
  std::string text;
  try {
    text = answer(request, diagnostics);
  } catch (const documents::DocumentError& error) {
    diagnostics << error.what() << '\n';
    return 2;
  } catch (const StoreError& error) {
    diagnostics << error.what() << '\n';
    return 2;
  } catch (const std::bad_alloc&) {
    diagnostics << "vemra-desk: there is not enough memory\n";
    return 2;
  }
  output << text << std::flush;
  if (output) return 0;
  diagnostics << "vemra-desk: the result could not be written to standard output\n";
  return 1;
}

}  // namespace vemra::desk
