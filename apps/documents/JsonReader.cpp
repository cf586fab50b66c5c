#include "apps/documents/JsonReader.hpp"

#include <algorithm>
#include <cassert>
#include <charconv>
#include <utility>

namespace vemra::documents {
namespace {

/// The file is given back in pieces of about this many bytes.
constexpr std::size_t pieceLength = std::size_t{4} << 20;

std::string listed(std::string_view what, std::span<const std::string_view> names) {
  std::string out(what);
  std::string_view separator = " ";
  for (std::string_view name : names) {
    out.append(separator).append(name);
    separator = ", ";
  }
  return out;
}

}  // namespace

JsonReader::JsonReader(std::string_view text, std::string file)
    : place_(std::move(file)), tokens_(text, place_) {}

JsonReader::JsonReader(SourceFile& source, std::string file)
    : JsonReader(source.text(), std::move(file)) {
  source_ = &source;
  releaseBelow_ = unread() - std::min(unread(), pieceLength);
}

JsonKind JsonReader::next() {
  return tokens_.kind("a value");
}

void JsonReader::object(std::initializer_list<Field> fields) {
  assert(fields.size() <= mostFields);
  readObject(std::span(fields.begin(), fields.size()), [](const Field& field) { field.read(); });
}

void JsonReader::failUnknownKey(std::string_view found,
                                std::span<const std::string_view> keys) const {
  failAt(found, listed("one of the keys", keys), inQuotes(found));
}

void JsonReader::failDuplicateKey(std::string_view key) const {
  failAt(key, "each key once", inQuotes(key) + " again");
}

void JsonReader::failMissingKey(std::string_view key) const {
  fail("the key " + inQuotes(key), "none");
}

void JsonReader::dictionary(FunctionReference<void(const std::string& key)> readValue) {
  std::string unescaped;
  members([&] {
    const std::string own(key(unescaped));
    const JsonPlace::Step step(place_, own);
    readValue(own);
  });
}

/// Reads the braces and commas of an object; `readMember` reads a key, its colon and its value.
template <class ReadMember>
void JsonReader::members(const ReadMember& readMember) {
  if (!tokens_.take('{')) failNext("an object");
  if (tokens_.take('}')) return;
  do {
    readMember();
  } while (tokens_.take(','));
  tokens_.expect('}', "\",\" or \"}\"");
}

/// Reads a key and its colon. The key is valid as long as `unescaped` stays.
std::string_view JsonReader::key(std::string& unescaped) {
  if (!tokens_.comes('"')) {
    tokens_.kind("a key");
    tokens_.expect('"', "a key");
  }
  const std::string_view key = tokens_.string(unescaped);
  tokens_.expect(':', "\":\"");
  return key;
}

void JsonReader::array(FunctionReference<void()> readElement) {
  if (!tokens_.take('[')) failNext("an array");
  if (tokens_.take(']')) return;
  {
    JsonPlace::Step step(place_);
    do {
      readElement();
      step.next();
      if (unread() < releaseBelow_) releaseWhatWasRead();
    } while (tokens_.take(','));
  }
  tokens_.expect(']', "\",\" or \"]\"");
}

void JsonReader::releaseWhatWasRead() {
  source_->release(tokens_.markRead());
  releaseBelow_ = unread() - std::min(unread(), pieceLength);
}

std::string JsonReader::string() {
  std::string text;
  string(text);
  return text;
}

void JsonReader::string(std::string& text) {
  if (!tokens_.comes('"')) failNext("a string");
  const std::string_view found = tokens_.string(unescaped_);
  // An assignment would let a text of 16 to 29 bytes grow to 30.
  if (found.size() > text.capacity()) {
    text = std::string(found);
  } else {
    text.assign(found);
  }
}

std::optional<std::string> JsonReader::stringOrNull() {
  std::optional<std::string> text;
  stringOrNull(text);
  return text;
}

void JsonReader::stringOrNull(std::optional<std::string>& text) {
  if (tokens_.comes('n')) {
    tokens_.literal("null");
    text.reset();
    return;
  }
  if (!tokens_.comes('"')) failNext("a string or null");
  text.emplace(tokens_.string(unescaped_));
}

std::int64_t JsonReader::integer() {
  constexpr std::string_view expected =
      "an integer from -9223372036854775808 to 9223372036854775807, without fraction or exponent";
  if (tokens_.kind(expected) != JsonKind::number) failNext(expected);
  const std::string_view token = tokens_.number();
  const char* const end = token.data() + token.size();
  std::int64_t value = 0;
  const auto [stop, error] = std::from_chars(token.data(), end, value);
  if (error != std::errc() || stop != end) fail(expected, shortened(token));
  return value;
}

std::size_t JsonReader::name(std::span<const std::string_view> names) {
  if (!tokens_.comes('"')) failNext(listed("one of", names));
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

}  // namespace vemra::documents
