#include "apps/documents/SourceFile.hpp"

#include "apps/documents/DocumentError.hpp"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
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

std::string readSource(const std::string& path) {
  const Descriptor file{path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
  if (file.number < 0) failToRead(path, errno);

  struct stat status {};
  const bool sizeKnown = ::fstat(file.number, &status) == 0 && S_ISREG(status.st_mode);
  if (sizeKnown && status.st_size > static_cast<off_t>(longest)) failAsTooLong(path);
  std::string text;
  std::size_t length = 0;
  while (true) {
    if (length == text.size()) {
      const auto rest = sizeKnown ? static_cast<std::size_t>(status.st_size) + 1 : chunk;
      text.resize(std::min(longest + 1, length == 0 ? rest : length + std::max(length, chunk)));
    }
    const ssize_t count = ::read(file.number, text.data() + length, text.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failToRead(path, errno);
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
    if (length > longest) failAsTooLong(path);
  }
  text.resize(length);
  return text;
}

}  // namespace vemra::documents
