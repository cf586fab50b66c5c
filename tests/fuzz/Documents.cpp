// Any text as a result document. An accepted text is JSON for another reader too, and gives the
// same record, byte for byte, after writing and reading it again; a refused text gives an error
// with its place.

#include "apps/documents/ResultReader.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/fuzz/JsonErrors.hpp"
#include "tests/fuzz/Target.hpp"

#include <nlohmann/json.hpp>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vemra;
  const std::string_view text = fuzz::textOf(data, size);
  GetGoalSnapshotResponse result;
  try {
    result = documents::readResultText(text, "case.json");
  } catch (const documents::DocumentError& error) {
    fuzz::requireGoodError(error);
    return 0;
  }
  fuzz::require(nlohmann::json::accept(text), "what is accepted is JSON", text);
  const std::string once = documents::writeResult(result);
  const GetGoalSnapshotResponse again = documents::readResultText(once, "written.json");
  fuzz::require(again == result, "what is written is the record that was read", once);
  // Equality of records is canonical; the texts show the bytes.
  fuzz::require(documents::writeResult(again) == once, "writing again gives the same bytes", once);
  return 0;
}
