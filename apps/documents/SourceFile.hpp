#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vemra::documents {

/// The content of a file, in memory that can be given back while it is read.
///
/// A reader makes records of a text, which together take several times the memory of the text; so
/// it gives back each piece that it has read (`release`).
class SourceFile {
 public:
  /// Reads a whole file, or standard input when `path` is "-".
  ///
  /// Throws a `DocumentError` that names the file, "-" for standard input, when it is missing, is a
  /// directory, cannot be read, or is longer than 1 GiB.
  explicit SourceFile(const std::string& path);
  SourceFile(const SourceFile&) = delete;
  SourceFile& operator=(const SourceFile&) = delete;
  ~SourceFile();

  /// The content, byte for byte. It must not outlive the object.
  std::string_view text() const { return {bytes_, length_}; }

  /// Gives the memory of the first `count` bytes back to the system, or that of the whole text if
  /// `count` is larger. The text keeps its length; the values of these bytes are unspecified from
  /// now on.
  void release(std::size_t count);

 private:
  void read(int file, const std::string& path);
  void resize(std::size_t capacity);

  char* bytes_ = nullptr;
  std::size_t length_ = 0;
  std::size_t capacity_ = 0;
  std::size_t released_ = 0;
};

}  // namespace vemra::documents
