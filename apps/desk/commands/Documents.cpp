#include "apps/desk/commands/Documents.hpp"

#include "apps/commandline/Version.hpp"
#include "apps/desk/store/ResultFault.hpp"
#include "apps/documents/DocumentError.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/documents/ResultWriter.hpp"

namespace vemra::desk {

GetGoalSnapshotResponse readDocument(const std::string& file) {
  GetGoalSnapshotResponse result = documents::readResultFile(file);
  if (const auto fault = faultOfImport(result)) {
    throw documents::DocumentError(file, fault->pointer, fault->problem);
  }
  return result;
}

std::string documentText(const GetGoalSnapshotResponse& result) {
  return documents::writeResult(result);
}

std::string lineOf(const LeftOutOutcome& leftOut, const std::string& file,
                   const GetGoalSnapshotResponse& result) {
  return file + ": /outcomes/" + std::to_string(leftOut.outcome) + ": the outcome " +
         documents::inQuotes(result.outcomes[leftOut.outcome].id) +
         " is recorded with another content, which stays";
}

std::string programVersion() {
  return commandline::version();
}

}  // namespace vemra::desk
