#include "apps/desk/store/StoreLocation.hpp"

#include "apps/desk/store/StoreError.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vemra::desk {
namespace {

/// The value of a variable that contains an absolute path; the XDG specification ignores relative
/// paths.
std::string absoluteFolder(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] == '/' ? value : "";
}

std::string homeFolder() {
  if (std::string home = absoluteFolder("HOME"); !home.empty()) return home;
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

/// Writes a folder's entries to the disk: a power cut loses a file in a new folder until the
/// folder's own entry is on the disk. It is not an error if the file system cannot do this.
void sync(const std::filesystem::path& folder) {
  const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return;
  ::fsync(opened);
  ::close(opened);
}

}  // namespace

std::string userStoreFile() {
  std::string data = absoluteFolder("XDG_DATA_HOME");
  if (data.empty()) {
    data = homeFolder();
    if (data.empty()) throw StoreError("goals.sqlite", "has no place: there is no home folder");
    data += "/.local/share";
  }
  return data + "/vemra-desk/goals.sqlite";
}

void makeFolderOf(const std::string& file) {
  const std::filesystem::path folder = std::filesystem::path(file).parent_path();
  std::filesystem::path made;
  for (const auto& part : folder) {
    made /= part;
    if (::mkdir(made.c_str(), 0700) == 0) {
      sync(made.parent_path());
      continue;
    }
    const int error = errno;
    struct stat status {};
    if (::stat(made.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) continue;
    throw StoreError(made.string(), std::string("cannot be made: ") + std::strerror(error));
  }
}

}  // namespace vemra::desk
