#pragma once

#include "apps/documents/JsonPlace.hpp"
#include "apps/documents/PlainLength.hpp"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace vemra::documents {

/// The kinds of JSON values.
enum class JsonKind { null, boolean, number, string, array, object };

/// The tokens of a JSON text (RFC 8259), read strictly and from left to right.
///
/// Text that is not JSON or not UTF-8 is a `DocumentError` with line and column (in characters).
class JsonTokens {
 public:
  /// Both must outlive the object. A byte-order mark is an error at once.
  JsonTokens(std::string_view text, const JsonPlace& place);
  JsonTokens(const JsonTokens&) = delete;
  JsonTokens& operator=(const JsonTokens&) = delete;
  ~JsonTokens();

  /// The number of bytes that objects of this thread have read, those of each object when it is
  /// destroyed: tests count how often a document is parsed.
  static std::uint64_t bytesParsed();

  /// The kind of the next value, without reading it. Without a next value, the error says that
  /// `expected` was expected.
  JsonKind kind(std::string_view expected) {
    skipWhiteSpace();
    const char c = at_ < text_.size() ? text_[at_] : '\0';
    switch (c) {
      case '{':
        return JsonKind::object;
      case '[':
        return JsonKind::array;
      case '"':
        return JsonKind::string;
      case 't':
      case 'f':
        return JsonKind::boolean;
      case 'n':
        return JsonKind::null;
      default:
        if (c == '-' || isDigit(c)) return JsonKind::number;
        failHere(expected);
    }
  }

  /// Reads white space and, if it comes next, the character. Returns whether it came.
  [[gnu::always_inline]] bool take(char c) {
    skipWhiteSpace();
    return takeHere(c);
  }

  /// Reads white space and the character; an error when another one comes.
  [[gnu::always_inline]] void expect(char c, std::string_view expected) {
    if (!take(c)) failHere(expected);
  }

  /// Whether the character comes next, behind white space.
  [[gnu::always_inline]] bool comes(char c) {
    skipWhiteSpace();
    return at_ < text_.size() && text_[at_] == c;
  }

  /// Reads a string. The result points into the text, or into `unescaped` if it has escapes.
  [[gnu::always_inline]] std::string_view string(std::string& unescaped) {
    const std::size_t start = at_ + 1;
    const std::string_view rest(text_.data() + start, text_.size() - start);
    const std::size_t length = plainLength(rest);
    if (length == rest.size() || rest[length] != '"') return stringWithMore(unescaped);
    at_ = start + length + 1;
    return {rest.data(), length};
  }

  /// Reads the string `plain`, written without escapes, if it comes at once, without white space.
  /// Returns whether it came. `plain` is ASCII, not empty, and needs no escapes.
  [[gnu::always_inline]] bool takeString(std::string_view plain) {
    const std::size_t length = plain.size() + 2;
    if (text_.size() - at_ < length) return false;
    const char* const here = text_.data() + at_;
    const bool comes = here[0] == '"' && here[1] == plain.front() && here[length - 1] == '"' &&
                       areSame(here + 1, plain.data(), plain.size());
    if (comes) at_ += length;
    return comes;
  }

  /// Reads a number and returns its text unchanged.
  std::string_view number();

  /// Reads `null`, `true` or `false`.
  void literal(std::string_view literal);

  /// The number of unread bytes.
  std::size_t unread() const { return text_.size() - at_; }

  /// Notes the line and the column of the next character, and returns its offset: from now on the
  /// bytes before it may change, but none of the unread ones.
  std::size_t markRead();

  /// An error unless nothing but white space is left.
  void end();

  /// Reads the next value as far as a message about it needs, and describes it: a scalar unchanged,
  /// "an array", "an object". Long ones are cut.
  std::string describeValue();

 private:
  // In the header, as `kind` and `take` are, because each value calls these several times.
  static bool isDigit(char c) { return c >= '0' && c <= '9'; }
  [[gnu::always_inline]] void skipWhiteSpace() {
    const auto isWhite = [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; };
    while (at_ < text_.size() && isWhite(text_[at_])) ++at_;
  }
  bool takeHere(char c) {
    if (at_ == text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  /// Whether both texts of `length` bytes, at least one, are the same. Faster than a call of
  /// `memcmp`, since keys are short.
  [[gnu::always_inline]] static bool areSame(const char* a, const char* b, std::size_t length) {
    if (length >= sizeof(std::uint64_t)) return areSameWords<std::uint64_t>(a, b, length);
    if (length >= sizeof(std::uint32_t)) return areSameWords<std::uint32_t>(a, b, length);
    return areSameWords<char>(a, b, length);
  }
  /// The same for at least one word. The last word may overlap the one before.
  template <class Word>
  [[gnu::always_inline]] static bool areSameWords(const char* a, const char* b,
                                                  std::size_t length) {
    const auto areSameAt = [a, b](std::size_t at) {
      Word wordOfA = 0;
      Word wordOfB = 0;
      std::memcpy(&wordOfA, a + at, sizeof(Word));
      std::memcpy(&wordOfB, b + at, sizeof(Word));
      return wordOfA == wordOfB;
    };
    for (std::size_t at = 0; at + sizeof(Word) < length; at += sizeof(Word)) {
      if (!areSameAt(at)) return false;
    }
    return areSameAt(length - sizeof(Word));
  }

  /// A position between two characters.
  struct Position {
    std::size_t offset = 0;
    std::size_t line = 1;
    std::size_t column = 1;  ///< in characters
  };
  Position positionOf(std::size_t offset) const;

  std::string_view stringWithMore(std::string& unescaped);
  void readEscape(std::string& unescaped);
  char32_t readHexDigits();
  std::string describeHere() const;
  [[noreturn]] void failHere(std::string_view expected) const;
  [[noreturn]] void fail(std::size_t offset, std::string_view expected,
                         std::string_view found) const;

  std::string_view text_;
  const JsonPlace& place_;
  std::size_t at_ = 0;
  Position releasable_;  // the bytes before it may have changed
};

}  // namespace vemra::documents
