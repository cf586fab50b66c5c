#pragma once

#include <string>
#include <vector>

namespace vemra::commandline {

/// The words of a command line behind the program's name, in their order.
std::vector<std::string> wordsOf(int argumentCount, const char* const* arguments);

/// Replaces `--x=` by the two words `--x` and "", for each of `options`, up to the word `--`.
///
/// The parser would take `--x=` for an option whose value comes next; to the user it is an empty
/// value.
std::vector<std::string> withEmptyValues(const std::vector<std::string>& words,
                                         const std::vector<std::string>& options);

}  // namespace vemra::commandline
