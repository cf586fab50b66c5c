#pragma once

#include <string>

namespace vemra::documents {

/// Reads a whole file, or standard input when `path` is "-".
///
/// Throws a `DocumentError` that names the file, "-" for standard input, when it is missing, is a
/// directory, cannot be read, or is longer than 1 GiB.
std::string readSource(const std::string& path);

}  // namespace vemra::documents
