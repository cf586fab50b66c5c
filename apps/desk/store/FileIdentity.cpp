#include "apps/desk/store/FileIdentity.hpp"

#include <cerrno>
#include <sys/stat.h>

namespace vemra::desk {

std::optional<FileIdentity> identityAt(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

bool isMissing(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

off_t sizeOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_size : 0;
}

}  // namespace vemra::desk
