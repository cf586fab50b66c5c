#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// The entry of a fuzz target; the fuzzer, or the replay of a corpus, calls it with one input after
/// another. Always returns 0: an input that breaks a rule ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vemra::fuzz {

/// Ends the process by a signal unless the rule holds. `rule` describes the expectation; `found`,
/// and `other` if there is a second text, breaks it and is printed as text and as bytes.
inline void require(bool holds, const char* rule, std::string_view found = {},
                    std::string_view other = {}) {
  if (holds) return;
  std::fprintf(stderr, "The rule is broken: %s\n", rule);
  for (const std::string_view text : {found, other}) {
    if (text.empty()) continue;
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fputc('\n', stderr);
    for (const char byte : text) std::fprintf(stderr, "%02X ", static_cast<unsigned char>(byte));
    std::fputc('\n', stderr);
  }
  std::abort();
}

/// The input as text, which may be ill-formed.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Removes the text up to and including the separator from the front of `text`, and returns it
/// without the separator; all of `text` when it has no separator.
inline std::string_view takeUpTo(char separator, std::string_view& text) {
  const std::size_t end = text.find(separator);
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return taken;
}

}  // namespace vemra::fuzz
