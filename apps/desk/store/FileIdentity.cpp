#include "apps/desk/store/FileIdentity.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace vemra::desk {

std::optional<FileIdentity> identityAt(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

std::string fileMarkAt(const std::string& path) {
  struct statx status {};
  if (::statx(AT_FDCWD, path.c_str(), 0, STATX_INO | STATX_BTIME, &status) != 0) return "";
  const std::string inode = "inode " + std::to_string(status.stx_ino);
  if ((status.stx_mask & STATX_BTIME) == 0) {
    return inode + " of device " + std::to_string(status.stx_dev_major) + ":" +
           std::to_string(status.stx_dev_minor);
  }
  return inode + " made at " + std::to_string(status.stx_btime.tv_sec) + " s " +
         std::to_string(status.stx_btime.tv_nsec) + " ns";
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
