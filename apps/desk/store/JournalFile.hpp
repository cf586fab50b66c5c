#pragma once

#include <chrono>
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
  /// Whether a change is on the disk when the call returns, or as soon as the system writes it.
  enum class Sync { later, now };

  /// The largest content in bytes.
  static constexpr std::size_t most = std::size_t{64} << 20;

  /// Opens and locks the file; none when it is missing and stays so. A created file can be read and
  /// written by its owner only.
  ///
  /// Refuses a file that is not a regular one, that belongs to another user, or that other users
  /// may write: they could have outcomes recorded in this user's name.
  /// - Parameter patience: how long to wait for another program before throwing a `StoreBusy`.
  static std::optional<JournalFile> open(const std::string& path, Missing missing,
                                         std::chrono::milliseconds patience);

  JournalFile(JournalFile&& other) noexcept;
  JournalFile& operator=(JournalFile&&) = delete;
  ~JournalFile();

  /// The whole content; refuses more than `most`.
  std::string read() const;
  /// Replaces the content from `offset` on. After a failure, the content before `offset` is as it
  /// was, and the file is not longer than before.
  void replaceFrom(std::size_t offset, std::string_view text, Sync sync) const;
  /// Replaces the whole content at once, by a new file on the disk: a program or a system that
  /// ends meanwhile leaves one of the two contents. This object must not be used afterwards.
  void replaceBy(std::string_view text) const;
  /// Puts the content and the name of the file onto the disk.
  void sync() const;
  /// Removes the file.
  void remove(Sync sync) const;

 private:
  using Deadline = std::chrono::steady_clock::time_point;

  JournalFile(std::string path, int descriptor) : path_(std::move(path)), descriptor_(descriptor) {}

  bool isAtItsPath() const;
  void lock(Deadline deadline) const;
  void checkOwner() const;
  std::size_t size() const;
  void syncFolder() const;
  [[noreturn]] void fail(const char* what, int error) const;

  std::string path_;
  int descriptor_;
};

}  // namespace vemra::desk
