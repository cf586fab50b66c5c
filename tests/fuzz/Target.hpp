#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// The entry of a fuzz target; the fuzzer, or the replay of a corpus, calls it with one input after
/// the other. Always returns 0: an input that breaks a rule ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vemra::fuzz {

/// Ends the process by a signal unless the rule holds. `rule` says what should be; `found`, and
/// `other` if there is a second text, is what breaks it, and is printed as it is and as bytes.
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

/// The input as text, whatever its bytes are.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Takes the text up to the separator, and the separator, off the front of `text`; all of it when no
/// separator is there.
inline std::string_view takeUpTo(char separator, std::string_view& text) {
  const std::size_t end = text.find(separator);
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return taken;
}

}  // namespace vemra::fuzz
