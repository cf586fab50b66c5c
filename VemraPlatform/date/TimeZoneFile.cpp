#include "VemraPlatform/date/TimeZoneFile.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace vemra::date {
namespace {

constexpr std::string_view magic = "TZif";

/// Reads fields from left to right. A field that is cut off is empty or 0, and so are all fields
/// after it.
class FieldReader {
 public:
  explicit FieldReader(std::string_view content) noexcept : rest_(content) {}

  std::string_view rest() const noexcept { return rest_; }

  std::string_view bytes(std::uint64_t count) noexcept {
    if (count > rest_.size()) {
      rest_ = {};
      return {};
    }
    const std::string_view field = rest_.substr(0, static_cast<std::size_t>(count));
    rest_.remove_prefix(field.size());
    return field;
  }

  /// A signed number of 1, 4 or 8 bytes, the most significant one first.
  std::int64_t number(std::size_t size) noexcept {
    const std::string_view field = bytes(size);
    std::uint64_t value = !field.empty() && (field.front() & 0x80) != 0 ? ~std::uint64_t{0} : 0;
    for (const char byte : field) value = value << 8 | static_cast<unsigned char>(byte);
    return static_cast<std::int64_t>(value);
  }

  std::uint32_t count() noexcept { return static_cast<std::uint32_t>(number(4)); }

 private:
  std::string_view rest_;
};

/// Sizes of blocks have 64 bits, so that the sum of six products of 32-bit counts cannot overflow.
struct Header {
  bool isThere = false;
  char version = '\0';
  std::uint64_t isUTCount = 0;
  std::uint64_t isStandardCount = 0;
  std::uint64_t leapCount = 0;
  std::uint64_t changeCount = 0;
  std::uint64_t typeCount = 0;
  std::uint64_t characterCount = 0;

  static Header read(FieldReader& reader) noexcept {
    Header header;
    header.isThere = reader.bytes(magic.size()) == magic;
    const std::string_view version = reader.bytes(1);
    if (!version.empty()) header.version = version.front();
    constexpr std::size_t reserved = 15;
    reader.bytes(reserved);
    header.isUTCount = reader.count();
    header.isStandardCount = reader.count();
    header.leapCount = reader.count();
    header.changeCount = reader.count();
    header.typeCount = reader.count();
    header.characterCount = reader.count();
    return header;
  }

  /// The bytes behind the local time types.
  std::uint64_t sizeOfTail(std::uint64_t timeSize) const noexcept {
    return characterCount + leapCount * (timeSize + 4) + isStandardCount + isUTCount;
  }

  std::uint64_t sizeOfBlock(std::uint64_t timeSize) const noexcept {
    constexpr std::uint64_t typeSize = 6;
    return changeCount * (timeSize + 1) + typeCount * typeSize + sizeOfTail(timeSize);
  }
};

}  // namespace

std::optional<std::string> TimeZoneFile::contentOf(const std::string& path) {
  // Opening a device or an idle pipe could wait for ever.
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  // Do not trust the size of a file: files that the kernel generates have size 0, and may be
  // endless.
  constexpr std::size_t largest = 1 << 20;
  std::string content;
  std::ifstream file(path, std::ios::binary);
  std::array<char, 16384> piece;
  while (file && content.size() <= largest) {
    file.read(piece.data(), piece.size());
    content.append(piece.data(), static_cast<std::size_t>(file.gcount()));
  }
  if (content.size() > largest || !content.starts_with(magic)) return std::nullopt;
  return content;
}

std::optional<TimeZoneFile> TimeZoneFile::parse(std::string_view content) {
  FieldReader reader(content);
  Header header = Header::read(reader);
  std::size_t timeSize = 4;
  if (!header.isThere) return std::nullopt;
  const bool isOfVersion1 = header.version == '\0';
  if (!isOfVersion1) {
    // The block for readers of version 1 has the same data; skip it.
    reader.bytes(header.sizeOfBlock(timeSize));
    header = Header::read(reader);
    timeSize = 8;
  }
  if (!header.isThere || header.sizeOfBlock(timeSize) > reader.rest().size()) return std::nullopt;

  TimeZoneFile zone;
  for (std::uint64_t index = 0; index < header.changeCount; ++index) {
    zone.changes_.push_back({reader.number(timeSize), 0});
  }
  const std::string_view types = reader.bytes(header.changeCount);
  std::vector<int> offsets;
  for (std::uint64_t index = 0; index < header.typeCount; ++index) {
    const std::int64_t offset = reader.number(4);
    reader.bytes(2);  // whether it is summer time, and the index of its abbreviation
    constexpr int mostWest = -25 * 3600;
    constexpr int mostEast = 26 * 3600;
    if (offset <= mostWest || offset >= mostEast) return std::nullopt;
    offsets.push_back(static_cast<int>(offset));
  }
  if (offsets.empty()) return std::nullopt;
  zone.secondsAheadBefore_ = offsets.front();
  for (std::size_t index = 0; index < types.size(); ++index) {
    const auto type = static_cast<unsigned char>(types[index]);
    if (type >= offsets.size()) return std::nullopt;
    zone.changes_[index].secondsAhead = offsets[type];
  }
  const auto isNotBefore = [](const Change& first, const Change& second) {
    return first.secondsSinceEpoch >= second.secondsSinceEpoch;
  };
  if (std::adjacent_find(zone.changes_.begin(), zone.changes_.end(), isNotBefore) !=
      zone.changes_.end()) {
    return std::nullopt;
  }
  reader.bytes(header.sizeOfTail(timeSize));
  if (!isOfVersion1) {
    if (reader.bytes(1) != "\n") return std::nullopt;
    const std::size_t end = reader.rest().find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    zone.footer_ = reader.bytes(end);
    zone.rule_ = TimeZoneRule::parse(zone.footer_);
    if (!zone.footer_.empty() && !zone.rule_) return std::nullopt;
  }
  return zone;
}

int TimeZoneFile::secondsAheadOfUTC(Instant instant) const noexcept {
  const auto next = std::upper_bound(changes_.begin(), changes_.end(), instant.secondsSinceEpoch,
                                     [](std::int64_t seconds, const Change& change) {
                                       return seconds < change.secondsSinceEpoch;
                                     });
  if (next == changes_.end() && rule_) return rule_->secondsAheadOfUTC(instant);
  return next == changes_.begin() ? secondsAheadBefore_ : std::prev(next)->secondsAhead;
}

}  // namespace vemra::date
