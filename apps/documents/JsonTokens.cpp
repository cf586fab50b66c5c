#include "apps/documents/JsonTokens.hpp"

#include "VemraPlatform/text/UTF8.hpp"

#include <algorithm>
#include <utility>

namespace vemra::documents {
namespace {

thread_local std::uint64_t parsedInThisThread = 0;

bool isWord(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

JsonTokens::JsonTokens(std::string_view text, const JsonPlace& place) : text_(text), place_(place) {
  if (text_.starts_with("\xEF\xBB\xBF")) fail(0, "UTF-8 without a byte-order mark", "U+FEFF");
}

JsonTokens::~JsonTokens() {
  parsedInThisThread += at_;
}

std::uint64_t JsonTokens::bytesParsed() {
  return parsedInThisThread;
}

/// Reads a string that may have escapes, other characters than ASCII, or a fault.
std::string_view JsonTokens::stringWithMore(std::string& unescaped) {
  const std::size_t start = ++at_;
  std::size_t copied = start;
  bool hasEscapes = false;
  while (true) {
    at_ += plainLength(text_.substr(at_));
    if (at_ == text_.size()) break;
    const auto c = static_cast<unsigned char>(text_[at_]);
    if (c == '"') {
      const std::size_t end = at_++;
      if (!hasEscapes) return text_.substr(start, end - start);
      return unescaped.append(text_, copied, end - copied);
    }
    if (c == '\\') {
      if (!std::exchange(hasEscapes, true)) unescaped.clear();
      unescaped.append(text_, copied, at_ - copied);
      readEscape(unescaped);
      copied = at_;
    } else if (c < 0x20) {
      failHere("a control character to be written as an escape");
    } else {
      const text::Step step = text::firstStep(text_.substr(at_));
      if (!step.scalar) failHere("UTF-8");
      at_ += step.length;
    }
  }
  failHere("the end of the string");
}

void JsonTokens::readEscape(std::string& unescaped) {
  const std::size_t start = at_++;
  const char c = at_ < text_.size() ? text_[at_] : '\0';
  switch (c) {
    case '"':
    case '\\':
    case '/':
      unescaped += c;
      break;
    case 'b':
      unescaped += '\b';
      break;
    case 'f':
      unescaped += '\f';
      break;
    case 'n':
      unescaped += '\n';
      break;
    case 'r':
      unescaped += '\r';
      break;
    case 't':
      unescaped += '\t';
      break;
    case 'u': {
      ++at_;
      char32_t scalar = readHexDigits();
      if (scalar >= 0xD800 && scalar < 0xE000) {
        const std::string_view first = text_.substr(start, at_ - start);
        char32_t low = 0;
        if (scalar < 0xDC00 && text_.substr(at_, 2) == "\\u") {
          at_ += 2;
          low = readHexDigits();
        }
        if (low < 0xDC00 || low >= 0xE000) fail(start, "both halves of a surrogate pair", first);
        scalar = 0x10000 + ((scalar - 0xD800) << 10) + (low - 0xDC00);
      }
      text::append(unescaped, scalar);
      return;
    }
    default:
      failHere(R"(one of the escapes \" \\ \/ \b \f \n \r \t \u)");
  }
  ++at_;
}

char32_t JsonTokens::readHexDigits() {
  char32_t scalar = 0;
  for (int i = 0; i < 4; ++i, ++at_) {
    const char c = at_ < text_.size() ? text_[at_] : '\0';
    int digit = 0;
    if (isDigit(c)) {
      digit = c - '0';
    } else if (c >= 'a' && c <= 'f') {
      digit = c - 'a' + 10;
    } else if (c >= 'A' && c <= 'F') {
      digit = c - 'A' + 10;
    } else {
      failHere("four hexadecimal digits after \\u");
    }
    scalar = scalar * 16 + static_cast<char32_t>(digit);
  }
  return scalar;
}

std::string_view JsonTokens::number() {
  const std::size_t start = at_;
  const auto digits = [&] {
    if (at_ == text_.size() || !isDigit(text_[at_])) failHere("a digit");
    while (at_ < text_.size() && isDigit(text_[at_])) ++at_;
  };
  takeHere('-');
  if (!takeHere('0')) {
    digits();
  } else if (at_ < text_.size() && isDigit(text_[at_])) {
    failHere("a number without leading zeros");
  }
  if (takeHere('.')) digits();
  if (takeHere('e') || takeHere('E')) {
    if (!takeHere('+')) takeHere('-');
    digits();
  }
  return text_.substr(start, at_ - start);
}

void JsonTokens::literal(std::string_view literal) {
  if (text_.substr(at_, literal.size()) != literal) failHere(literal);
  at_ += literal.size();
}

void JsonTokens::end() {
  skipWhiteSpace();
  if (at_ != text_.size()) failHere("the end of the document");
}

std::string JsonTokens::describeValue() {
  switch (kind("a value")) {
    case JsonKind::array:
      return "an array";
    case JsonKind::object:
      return "an object";
    case JsonKind::null:
      literal("null");
      return "null";
    case JsonKind::boolean: {
      const std::string_view word = text_[at_] == 't' ? "true" : "false";
      literal(word);
      return std::string(word);
    }
    case JsonKind::number:
      return shortened(number());
    case JsonKind::string: {
      std::string unescaped;
      return inQuotes(string(unescaped));
    }
  }
  return {};
}

/// Describes the text at the current place: a word, a character, an ill-formed byte, or the end.
std::string JsonTokens::describeHere() const {
  if (at_ == text_.size()) return "the end of the file";
  const text::Step step = text::firstStep(text_.substr(at_));
  if (!step.scalar) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(text_[at_]);
    return std::string("the byte 0x") + digits[byte >> 4] + digits[byte & 15];
  }
  std::size_t end = at_ + step.length;
  if (isWord(text_[at_])) {
    while (end < text_.size() && end - at_ < 100 && isWord(text_[end])) ++end;
  }
  return inQuotes(text_.substr(at_, end - at_));
}

void JsonTokens::failHere(std::string_view expected) const {
  const std::string_view rest = text_.substr(at_);
  const bool wellFormed = rest.empty() || text::firstStep(rest).scalar.has_value();
  fail(at_, wellFormed ? expected : "UTF-8", describeHere());
}

void JsonTokens::fail(std::size_t offset, std::string_view expected, std::string_view found) const {
  const Position position = positionOf(offset);
  place_.failSyntax(position.line, position.column, expected, found);
}

std::size_t JsonTokens::markRead() {
  releasable_ = positionOf(at_);
  return at_;
}

/// The position at an offset that is not before `releasable_`.
JsonTokens::Position JsonTokens::positionOf(std::size_t offset) const {
  Position position = releasable_;
  std::string_view passed = text_.substr(position.offset, offset - position.offset);
  if (const std::size_t lineEnd = passed.rfind('\n'); lineEnd != std::string_view::npos) {
    position.line +=
        static_cast<std::size_t>(std::ranges::count(passed.substr(0, lineEnd + 1), '\n'));
    position.column = 1;
    passed.remove_prefix(lineEnd + 1);
  }
  // Everything before the offset has been read and is UTF-8: each byte that continues no character
  // begins one.
  const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
  position.column += static_cast<std::size_t>(std::ranges::count_if(passed, begins));
  position.offset = offset;
  return position;
}

}  // namespace vemra::documents
