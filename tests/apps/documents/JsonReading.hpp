#pragma once

#include "apps/documents/JsonReader.hpp"

#include <string>
#include <string_view>

/// \file
/// Reading one value from a whole text, for the tests of the reader.

namespace vemra::documents {

/// Runs `read` on a reader of the whole of `text`; the error's message, or "".
template <class Read>
std::string errorOf(std::string_view text, Read read) {
  try {
    JsonReader reader(text, "t");
    read(reader);
    reader.finish();
  } catch (const DocumentError& error) {
    return error.what();
  }
  return "";
}

/// Reads the whole of `text` as one string.
inline std::string string(std::string_view text) {
  JsonReader reader(text, "t");
  std::string value = reader.string();
  reader.finish();
  return value;
}

/// The error of reading `text` as a string; "" when it is one.
inline std::string stringError(std::string_view text) {
  return errorOf(text, [](JsonReader& reader) { reader.string(); });
}

}  // namespace vemra::documents
