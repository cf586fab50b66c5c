#include "VemraRecording/CaseFile.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vemra::recording {
namespace {

/// What ends the steps and the document.
constexpr std::string_view tail = "\n  ]\n}\n";

/// Writes the text at an offset. Returns 0, or the error of the system.
int write(int descriptor, std::string_view text, std::size_t offset) {
  while (!text.empty()) {
    const ssize_t count =
        ::pwrite(descriptor, text.data(), text.size(), static_cast<off_t>(offset));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count < 0 ? errno : ENOSPC;
    text.remove_prefix(static_cast<std::size_t>(count));
    offset += static_cast<std::size_t>(count);
  }
  return 0;
}

}  // namespace

CaseFile::CaseFile(const std::string& path, std::string_view head)
    : descriptor_(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR)),
      end_(head.size()),
      last_(head.size()) {
  if (descriptor_ < 0) throw std::system_error(errno, std::generic_category());
  int error = write(descriptor_, head, 0);
  if (error == 0) error = write(descriptor_, tail, end_);
  if (error == 0) return;
  ::close(descriptor_);
  ::unlink(path.c_str());  // half a head is no case
  throw std::system_error(error, std::generic_category());
}

CaseFile::~CaseFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

void CaseFile::add(std::string_view step) {
  last_ = end_;
  append(step);
}

void CaseFile::addToLast(std::string_view step) {
  append(step);
}

void CaseFile::append(std::string_view step) {
  if (descriptor_ < 0) throw std::system_error(EBADF, std::generic_category());
  std::string text = isFirst_ ? "\n    " : ",\n    ";
  text += step;
  text += tail;
  const std::string_view whole = text;
  int error = write(descriptor_, whole.substr(tail.size()), end_ + tail.size());
  if (error == 0) error = write(descriptor_, whole.substr(0, tail.size()), end_);
  if (error != 0) restore(error);
  end_ += text.size() - tail.size();
  isFirst_ = false;
}

/// Makes the file what it was before a step and what followed from it, and gives the file up.
void CaseFile::restore(int error) {
  write(descriptor_, tail, last_);
  // Where this fails too, no more can be done.
  [[maybe_unused]] const int cut =
      ::ftruncate(descriptor_, static_cast<off_t>(last_ + tail.size()));
  ::close(descriptor_);
  descriptor_ = -1;
  throw std::system_error(error, std::generic_category());
}

}  // namespace vemra::recording
