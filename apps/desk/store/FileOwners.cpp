#include "apps/desk/store/FileOwners.hpp"

#include "apps/desk/store/FileIdentity.hpp"
#include "apps/desk/store/ForeignFile.hpp"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace vemra::desk {
namespace {

bool isForeign(uid_t owner) {
  return owner != ::geteuid() && owner != 0;
}

struct stat statusOf(const std::string& name, const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    throw StoreError(name, std::string("cannot be opened: ") + std::strerror(errno));
  }
  return status;
}

std::string another(uid_t owner) {
  return "another user (user id " + std::to_string(owner) + ")";
}

void checkCompanion(const std::string& name, const std::string& file, uid_t ownerOfStore) {
  struct stat status {};
  if (::lstat(file.c_str(), &status) != 0) {
    if (errno == ENOENT) return;
    throw StoreError(name, "cannot be opened: " + file + ": " + std::strerror(errno));
  }
  const auto refuse = [&](const std::string& problem) {
    throw ForeignFile(name, "cannot be used with the file " + file + " beside it, which " +
                                problem + "; find out who put it there, and remove it");
  };
  if (S_ISLNK(status.st_mode)) refuse("is a symbolic link");
  if (!S_ISREG(status.st_mode)) refuse("is not a regular file");
  if (isForeign(status.st_uid) && status.st_uid != ownerOfStore) {
    refuse("belongs to " + another(status.st_uid));
  }
}

}  // namespace

bool belongsToAnotherUser(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && isForeign(status.st_uid);
}

void checkOwners(const std::string& name, const std::string& path, Access access) {
  const struct stat store = statusOf(name, path);
  if (isForeign(store.st_uid)) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const mode_t anyMode = store.st_mode | statusOf(name, folder).st_mode;
    if ((anyMode & S_IWOTH) != 0) {
      throw StoreError(name, "belongs to " + another(store.st_uid) +
                                 ", and everybody may write it or its folder, so its content may "
                                 "be anybody's; use a copy in a folder of your own");
    }
    if (access == Access::writing && (store.st_mode & S_IWGRP) != 0) {
      throw StoreError(name, "belongs to " + another(store.st_uid) +
                                 ", and a whole group may write it; it can be read, and for "
                                 "recording use a store of your own");
    }
  }
  for (const char* suffix : companionSuffixes) checkCompanion(name, path + suffix, store.st_uid);
}

}  // namespace vemra::desk
