#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vemra::recording {

/// A case document on the disk that grows step by step and is whole after each of them.
///
/// A step is written behind the end of the file first. Only when all of it is there do a few bytes
/// in the place of the old end make it part of the document. A disk that is full is noticed in the
/// first part, which is then cut off again. Writing costs as much as the step, however long the
/// case is already; to write the whole case anew under another name would cost more with each key.
/// A process that is killed between the two parts leaves bytes behind the end of the document.
class CaseFile {
 public:
  /// \name Errors
  /// Each of these throws `std::system_error` when the disk does not take it. The file then holds
  /// what it held before, as far as the disk lets it, and takes no further steps.
  /// @{

  /// Creates the file, which only its owner can read. There must be none of this name.
  ///
  /// - Parameter head: the document up to and including the bracket that begins its steps.
  CaseFile(const std::string& path, std::string_view head);

  /// Adds a step, a JSON text.
  void add(std::string_view step);
  /// Adds a step that follows from the last one of `add`. When it cannot be written, the file loses
  /// that one, too: a replay would else do what the case does not have.
  void addToLast(std::string_view step);
  /// @}

  CaseFile(const CaseFile&) = delete;
  CaseFile& operator=(const CaseFile&) = delete;
  ~CaseFile();

 private:
  void append(std::string_view step);
  [[noreturn]] void restore(int error);

  int descriptor_ = -1;
  std::size_t end_ = 0;   ///< where the document's last brackets begin
  std::size_t last_ = 0;  ///< where they began before the last step of `add`
  bool isFirst_ = true;
};

}  // namespace vemra::recording
