#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace vemra::documents {

/// The error of an unusable document: names the file, the place in it, and the expected value.
///
/// `what()` is the whole line for people: `case.json: /goal/title: expected a string; found 12`.
/// The place is omitted when it is the document itself. Every part is well-formed UTF-8 on one
/// line, except the file name, which is unchanged.
class DocumentError : public std::runtime_error {
 public:
  /// `pointer` is a JSON pointer (RFC 6901), "" for the whole document.
  DocumentError(const std::string& file, const std::string& pointer, const std::string& problem);
};

/// `text` on one line, for a message: as by `text::onOneLine`, but with ill-formed bytes replaced
/// by U+FFFD and cut after 60 characters with "…" in place of the rest.
std::string shortened(std::string_view text);

/// The same between quotation marks, as by `text::quotedOnOneLine`.
std::string inQuotes(std::string_view text);

/// `token` as one step of a JSON pointer: "~" is "~0" and "/" is "~1" (RFC 6901, section 3).
/// Because it goes into a message, it is on one line, as by `text::onOneLine`, and a very long one
/// is cut.
std::string pointerToken(std::string_view token);

}  // namespace vemra::documents
