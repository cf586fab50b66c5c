#include "apps/documents/SourceFile.hpp"

#include "apps/documents/DocumentError.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vemra::documents {
namespace {

constexpr std::size_t longest = std::size_t{1} << 30;
constexpr std::size_t chunk = std::size_t{1} << 20;

/// An open file, closed at the end of the scope unless it is standard input.
struct Descriptor {
  int number;
  ~Descriptor() {
    if (number > STDIN_FILENO) ::close(number);
  }
};

[[noreturn]] void failAsTooLong(const std::string& path) {
  throw DocumentError(path, "", "expected a file of at most 1 GiB; found a longer one");
}

[[noreturn]] void failToRead(const std::string& path, int error) {
  throw DocumentError(
      path, "",
      std::string("expected a file that can be read; found an error: ") + std::strerror(error));
}

}  // namespace

SourceFile::SourceFile(const std::string& path) {
  const Descriptor file{path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
  if (file.number < 0) failToRead(path, errno);
  try {
    read(file.number, path);
  } catch (...) {
    // The destructor does not run when the constructor throws.
    resize(0);
    throw;
  }
}

SourceFile::~SourceFile() {
  resize(0);
}

void SourceFile::read(int file, const std::string& path) {
  struct stat status {};
  const bool sizeKnown = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
  if (sizeKnown && status.st_size > static_cast<off_t>(longest)) failAsTooLong(path);
  while (true) {
    if (length_ == capacity_) {
      const auto rest = sizeKnown ? static_cast<std::size_t>(status.st_size) + 1 : chunk;
      resize(std::min(longest + 1, length_ == 0 ? rest : length_ + std::max(length_, chunk)));
    }
    const ssize_t count = ::read(file, bytes_ + length_, capacity_ - length_);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failToRead(path, errno);
    if (count == 0) break;
    length_ += static_cast<std::size_t>(count);
    if (length_ > longest) failAsTooLong(path);
  }
}

void SourceFile::release(std::size_t count) {
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  const std::size_t end = std::min(count, length_) / page * page;
  if (end <= released_) return;
  ::madvise(bytes_ + released_, end - released_, MADV_DONTNEED);
  released_ = end;
}

/// Keeps the content. Without memory for it, throws `std::bad_alloc` and changes nothing.
void SourceFile::resize(std::size_t capacity) {
  if (capacity == capacity_) return;
  void* bytes = nullptr;
  if (capacity == 0) {
    ::munmap(bytes_, capacity_);
  } else if (capacity_ == 0) {
    bytes = ::mmap(nullptr, capacity, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  } else {
    bytes = ::mremap(bytes_, capacity_, capacity, MREMAP_MAYMOVE);
  }
  if (bytes == MAP_FAILED) throw std::bad_alloc();
  bytes_ = static_cast<char*>(bytes);
  capacity_ = capacity;
}

}  // namespace vemra::documents
