#include "apps/documents/JsonReader.hpp"

#include <cassert>
#include <charconv>
#include <utility>

namespace vemra::documents {
namespace {

template <class Names>
std::string listed(std::string_view what, const Names& names) {
  std::string out(what);
  std::string_view separator = " ";
  for (const auto& name : names) {
    if constexpr (std::is_same_v<std::decay_t<decltype(name)>, Field>) {
      out.append(separator).append(name.key);
    } else {
      out.append(separator).append(name);
    }
    separator = ", ";
  }
  return out;
}

}  // namespace

JsonReader::JsonReader(std::string_view text, std::string file)
    : place_(std::move(file)), tokens_(text, place_) {}

JsonKind JsonReader::next() {
  return tokens_.kind("a value");
}

void JsonReader::object(std::initializer_list<Field> fields) {
  assert(fields.size() <= 64);
  std::uint64_t seen = 0;
  const Field* next = fields.begin();  // most documents have the keys in this order
  expectKind(JsonKind::object, "an object");
  members([&](std::string_view key) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (next == fields.end()) next = fields.begin();
      const Field& field = *next++;
      if (field.key != key) continue;
      const std::uint64_t bit = std::uint64_t{1} << (&field - fields.begin());
      if ((seen & bit) != 0) failAt(key, "each key once", inQuotes(key) + " again");
      seen |= bit;
      const JsonPlace::Step step(place_, field.key);
      field.read();
      return;
    }
    failAt(key, listed("one of the keys", fields), inQuotes(key));
  });
  std::uint64_t bit = 1;
  for (const Field& field : fields) {
    if (field.presence == Presence::required && (seen & bit) == 0) {
      fail("the key " + inQuotes(field.key), "none");
    }
    bit <<= 1;
  }
}

void JsonReader::dictionary(FunctionReference<void(const std::string& key)> readValue) {
  expectKind(JsonKind::object, "an object");
  members([&](std::string_view key) {
    const std::string own(key);
    const JsonPlace::Step step(place_, own);
    readValue(own);
  });
}

/// Reads the braces, keys, colons and commas of an object; a key is valid until its value is read.
void JsonReader::members(FunctionReference<void(std::string_view key)> readMember) {
  tokens_.expect('{', "an object");
  if (tokens_.take('}')) return;
  std::string unescaped;
  do {
    if (tokens_.kind("a key") != JsonKind::string) tokens_.expect('"', "a key");
    const std::string_view key = tokens_.string(unescaped);
    tokens_.expect(':', "\":\"");
    readMember(key);
  } while (tokens_.take(','));
  tokens_.expect('}', "\",\" or \"}\"");
}

void JsonReader::array(FunctionReference<void()> readElement) {
  expectKind(JsonKind::array, "an array");
  tokens_.expect('[', "an array");
  if (tokens_.take(']')) return;
  {
    JsonPlace::Step step(place_);
    do {
      readElement();
      step.next();
    } while (tokens_.take(','));
  }
  tokens_.expect(']', "\",\" or \"]\"");
}

std::string JsonReader::string() {
  expectKind(JsonKind::string, "a string");
  std::string unescaped;
  return std::string(tokens_.string(unescaped));
}

std::optional<std::string> JsonReader::stringOrNull() {
  constexpr std::string_view expected = "a string or null";
  if (tokens_.kind(expected) == JsonKind::null) {
    tokens_.literal("null");
    return std::nullopt;
  }
  expectKind(JsonKind::string, expected);
  std::string unescaped;
  return std::string(tokens_.string(unescaped));
}

std::int64_t JsonReader::integer() {
  constexpr std::string_view expected =
      "an integer from -9223372036854775808 to 9223372036854775807, without fraction or exponent";
  expectKind(JsonKind::number, expected);
  const std::string_view token = tokens_.number();
  const char* const end = token.data() + token.size();
  std::int64_t value = 0;
  const auto [stop, error] = std::from_chars(token.data(), end, value);
  if (error != std::errc() || stop != end) fail(expected, shortened(token));
  return value;
}

std::size_t JsonReader::name(std::span<const std::string_view> names) {
  if (next() != JsonKind::string) failNext(listed("one of", names));
  std::string unescaped;
  const std::string_view found = tokens_.string(unescaped);
  std::size_t index = 0;
  for (std::string_view candidate : names) {
    if (candidate == found) return index;
    ++index;
  }
  fail(listed("one of", names), inQuotes(found));
}

void JsonReader::finish() {
  tokens_.end();
}

void JsonReader::fail(std::string_view expected, std::string_view found) const {
  place_.fail(expected, found);
}

void JsonReader::failAt(std::string_view key, std::string_view expected,
                        std::string_view found) const {
  place_.failAt(key, expected, found);
}

void JsonReader::failNext(std::string_view expected) {
  tokens_.kind(expected);
  fail(expected, tokens_.describeValue());
}

void JsonReader::expectKind(JsonKind kind, std::string_view expected) {
  if (tokens_.kind(expected) != kind) failNext(expected);
}

}  // namespace vemra::documents
