// Sometimes changes an input by whole JSON values: changing single bytes mostly gives texts that
// are not JSON and are refused at the first tokens. Linked into the targets that read JSON, with
// the fuzzer.

#include "tests/Random.hpp"
#include "tests/fuzz/Target.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace vemra::fuzz {
namespace {

struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// The end of the string that begins at `begin`.
std::size_t endOfString(std::string_view text, std::size_t begin) {
  std::size_t at = begin + 1;
  while (at < text.size() && text[at] != '"') at += text[at] == '\\' ? 2 : 1;
  return std::min(at + 1, text.size());
}

/// The places of the values of a text, as far as it is JSON; without the keys.
std::vector<Span> valuesIn(std::string_view text) {
  constexpr std::string_view ends = " \n\r\t,:]}[{\"";
  std::vector<Span> values;
  std::vector<std::size_t> open;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    if (text[at] == '{' || text[at] == '[') {
      open.push_back(at);
    } else if (text[at] == '}' || text[at] == ']') {
      if (!open.empty()) {
        values.push_back({open.back(), end});
        open.pop_back();
      }
    } else if (text[at] == '"') {
      end = endOfString(text, at);
      if (!text.substr(end).starts_with(':')) values.push_back({at, end});
    } else if (ends.find(text[at]) == std::string_view::npos) {
      end = std::min(text.find_first_of(ends, at), text.size());
      values.push_back({at, end});
    }
    at = end;
  }
  return values;
}

std::string changed(std::string_view text, const std::vector<Span>& values,
                    vemra::testing::Random& random) {
  static constexpr std::array<std::string_view, 14> others{
      "null", "\"\"", "0",  "1",  "-1",   "9223372036854775807", "9223372036854775808",
      "1.0",  "[]",   "{}", "[[", "true", "\"\\u0000\"",         "\"e\\u0301\""};
  const Span to = values[random.below(values.size())];
  const Span from = values[random.below(values.size())];
  const std::string_view copy = text.substr(from.begin, from.end - from.begin);
  std::string result(text);
  switch (random.below(4)) {
    case 0:
      result.replace(to.begin, to.end - to.begin, copy);
      break;
    case 1:
      result.insert(to.end, "," + std::string(copy));
      break;
    case 2:
      result.replace(to.begin, to.end - to.begin, others[random.below(others.size())]);
      break;
    default: {
      const bool isFollowed = to.end < text.size() && text[to.end] == ',';
      result.erase(to.begin, to.end - to.begin + (isFollowed ? 1 : 0));
    }
  }
  return result;
}

}  // namespace
}  // namespace vemra::fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed) {
  vemra::testing::Random random(std::uint64_t{seed});
  if (!random.oneIn(3)) {
    const std::string_view text = vemra::fuzz::textOf(data, size);
    if (const auto values = vemra::fuzz::valuesIn(text); !values.empty()) {
      const std::string result = vemra::fuzz::changed(text, values, random);
      if (!result.empty() && result.size() <= maxSize) {
        std::memcpy(data, result.data(), result.size());
        return result.size();
      }
    }
  }
  return LLVMFuzzerMutate(data, size, maxSize);
}
