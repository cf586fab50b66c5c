#pragma once

#include "apps/documents/FunctionReference.hpp"
#include "apps/documents/JsonPlace.hpp"
#include "apps/documents/JsonTokens.hpp"
#include "apps/documents/SourceFile.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::documents {

/// Whether an object must have a key.
enum class Presence { required, optional };

/// One key that an object may have, and a function that reads its value.
struct Field {
  std::string_view key;  ///< must outlive the reading of the object
  Presence presence = Presence::required;
  FunctionReference<void()> read;  ///< reads exactly one value from the reader
};

class JsonReader;

/// One key of the objects that become a `Record`, and a function that reads its value into the
/// record: exactly one value.
///
/// A table of them is a constant, so an object costs no more than its members. Make it with
/// `std::to_array`, in the order in which most documents have the keys.
template <class Record>
struct RecordField {
  std::string_view key;
  Presence presence = Presence::required;
  void (*read)(JsonReader& reader, Record& record) = nullptr;
};

/// Reads a JSON text strictly (RFC 8259, UTF-8), as values of the types that the caller expects.
///
/// The caller requests the value that its document has at each place; the first unexpected value
/// ends the reading with a `DocumentError` that names the place. There is no tree: nesting that no
/// document has is refused at its first bracket, so a hostile text, however deep or long, costs no
/// more than reading up to the first error.
///
///     reader.object({
///         {"id", Presence::required, [&] { goal.id = reader.string(); }},
///         {"note", Presence::optional, [&] { goal.note = reader.stringOrNull(); }},
///     });
///     reader.finish();
///
/// Stricter than many readers: a byte-order mark, ill-formed UTF-8, an escape that is half a
/// surrogate pair, a duplicate or unknown key, and text behind the document are errors.
class JsonReader {
 public:
  /// `text` must outlive the reader; `file` is only the name in errors.
  JsonReader(std::string_view text, std::string file);

  /// Reads the text of a file and releases its pieces when they have been read. `source` must outlive
  /// the reader.
  JsonReader(SourceFile& source, std::string file);
  JsonReader(const JsonReader&) = delete;
  JsonReader& operator=(const JsonReader&) = delete;

  /// The kind of the next value; an error when none comes. Reads nothing.
  JsonKind next();

  /// Reads an object with these keys and no others, in any order.
  void object(std::initializer_list<Field> fields);

  /// The same into a record. `fields` is a constant table.
  template <class Record, std::size_t count>
  void object(const std::array<RecordField<Record>, count>& fields, Record& record) {
    static_assert(count <= mostFields);
    readObject(fields, [&](const RecordField<Record>& field) { field.read(*this, record); });
  }

  /// Reads an object whose keys are data. `readValue` reads the value of its key; it is called
  /// twice for a duplicate key, which the caller may refuse.
  void dictionary(FunctionReference<void(const std::string& key)> readValue);

  /// Reads an array; `readElement` reads one element.
  void array(FunctionReference<void()> readElement);

  /// Reads a string. Nothing is normalised: its bytes are those of the text, escapes resolved.
  std::string string();
  /// The same into an existing text, which is faster.
  void string(std::string& text);

  /// Reads a string, or null as nil.
  std::optional<std::string> stringOrNull();
  /// The same into an existing text.
  void stringOrNull(std::optional<std::string>& text);

  /// Reads a signed 64-bit integer. `-0` is 0; a fraction or an exponent is an error, whatever its
  /// value (`1.0`, `1e2`).
  std::int64_t integer();

  /// Reads a string that must be one of `names`; its index.
  std::size_t name(std::span<const std::string_view> names);

  /// The number of unread bytes of the text.
  std::size_t unread() const { return tokens_.unread(); }

  /// Ends the reading: nothing but white space may follow.
  void finish();

  /// An error at the value that is being read, or at `key` of the object that is being read.
  ///
  /// For rules between several values, which can only be tested after they have been read.
  [[noreturn]] void fail(std::string_view expected, std::string_view found) const;
  [[noreturn]] void failAt(std::string_view key, std::string_view expected,
                           std::string_view found) const;

  /// Throws an error at the next value, because it is not `expected`, and names what it is.
  [[noreturn]] void failNext(std::string_view expected);

 private:
  static constexpr std::size_t mostFields = 64;

  template <class Fields, class Read>
  void readObject(const Fields& fields, const Read& read);
  template <class Fields>
  std::size_t fieldOfOtherKey(const Fields& fields);
  [[noreturn]] void failUnknownKey(std::string_view found,
                                   std::span<const std::string_view> keys) const;
  [[noreturn]] void failDuplicateKey(std::string_view key) const;
  [[noreturn]] void failMissingKey(std::string_view key) const;
  template <class ReadMember>
  void members(const ReadMember& readMember);
  std::string_view key(std::string& unescaped);

  void releaseWhatWasRead();

  JsonPlace place_;
  JsonTokens tokens_;
  std::string unescaped_;  // of the string that is being read
  SourceFile* source_ = nullptr;
  // With fewer unread bytes than this, release what was read; 0: never.
  std::size_t releaseBelow_ = 0;
};

/// Reads an object; `read` reads the value of a field. The functions that throw are elsewhere, so
/// that little code is left for the members of millions of objects.
template <class Fields, class Read>
void JsonReader::readObject(const Fields& fields, const Read& read) {
  const std::size_t count = fields.size();
  const auto* const table = fields.data();
  std::uint64_t seen = 0;
  std::size_t expected = 0;  // most documents have the keys in the order of the table
  if (!tokens_.take('{')) failNext("an object");
  if (!tokens_.take('}')) {
    do {
      std::size_t index = count;
      if (tokens_.comes('"')) {
        for (std::size_t tries = 0; tries < count; ++tries) {
          if (expected == count) expected = 0;
          const std::size_t candidate = expected++;
          if (tokens_.takeString(table[candidate].key)) {
            index = candidate;
            break;
          }
        }
      }
      if (index != count) {
        tokens_.expect(':', "\":\"");
      } else {  // a key with escapes, or an error
        index = fieldOfOtherKey(fields);
        expected = index + 1;
      }
      const std::string_view key = table[index].key;
      const std::uint64_t bit = std::uint64_t{1} << index;
      if ((seen & bit) != 0) failDuplicateKey(key);
      seen |= bit;
      const JsonPlace::Step step(place_, key);
      read(table[index]);
    } while (tokens_.take(','));
    tokens_.expect('}', "\",\" or \"}\"");
  }
  for (std::size_t i = 0; i < count; ++i) {
    const bool isThere = ((seen >> i) & 1) != 0;
    if (!isThere && table[i].presence == Presence::required) failMissingKey(table[i].key);
  }
}

/// Reads a key and its colon; the index of its field.
template <class Fields>
std::size_t JsonReader::fieldOfOtherKey(const Fields& fields) {
  std::string unescaped;
  const std::string_view found = key(unescaped);
  std::vector<std::string_view> keys;
  for (const auto& field : fields) {
    if (field.key == found) return keys.size();
    keys.push_back(field.key);
  }
  failUnknownKey(found, keys);
}

}  // namespace vemra::documents
