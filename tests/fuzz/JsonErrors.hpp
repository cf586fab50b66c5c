#pragma once

#include "VemraPlatform/text/UTF8.hpp"
#include "apps/documents/DocumentError.hpp"
#include "tests/fuzz/Target.hpp"

namespace vemra::fuzz {

/// Checks the error of a document named "case.json": one line of UTF-8 with the file and then a
/// JSON pointer, a line and column, or the document itself, and with the expected and the found
/// value.
inline void requireGoodError(const documents::DocumentError& error) {
  std::string_view message = error.what();
  require(text::isWellFormed(message), "an error is UTF-8", message);
  require(message.find_first_of("\n\r") == std::string_view::npos, "an error is one line", message);
  require(message.size() < 4000, "an error is short", message);
  constexpr std::string_view file = "case.json: ";
  require(message.starts_with(file), "an error names the file", message);
  message.remove_prefix(file.size());
  require(
      message.starts_with('/') || message.starts_with("line ") || message.starts_with("expected "),
      "an error names the place", message);
  require(message.find("expected ") != std::string_view::npos, "an error names the expected value",
          message);
  require(message.find("; found ") != std::string_view::npos, "an error names the found value",
          message);
}

}  // namespace vemra::fuzz
