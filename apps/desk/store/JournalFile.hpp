#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vemra::desk {

/// The open file of an `OutcomeJournal`, locked against other programs until the end of the scope.
///
/// Every failure is a `StoreError` that names the file.
class JournalFile {
 public:
  enum class Missing { stays, isCreated };

  /// Opens and locks the file; none when it is missing and stays so. A created file can be read and
  /// written by its owner only.
  ///
  /// Refuses a file that is not a regular one, that belongs to another user, or that other users
  /// may write: they could have outcomes recorded in this user's name.
  static std::optional<JournalFile> open(const std::string& path, Missing missing);

  JournalFile(JournalFile&& other) noexcept;
  JournalFile& operator=(JournalFile&&) = delete;
  ~JournalFile();

  /// The whole content; refuses more than 64 MiB.
  std::string read() const;
  /// Replaces the content from `offset` on and brings it to the disk. After a failure, the file is
  /// as long as before.
  void replaceFrom(std::size_t offset, std::string_view text) const;
  /// Removes the file.
  void remove() const;

 private:
  JournalFile(std::string path, int descriptor) : path_(std::move(path)), descriptor_(descriptor) {}

  bool isAtItsPath() const;
  void lock() const;
  void checkOwner() const;
  void syncFolder() const;
  [[noreturn]] void fail(const char* what, int error) const;

  std::string path_;
  int descriptor_;
};

}  // namespace vemra::desk
