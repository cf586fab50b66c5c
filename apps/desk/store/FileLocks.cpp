#include "apps/desk/store/FileLocks.hpp"

#include <cstdio>
#include <fstream>
#include <string>
#include <sys/sysmacros.h>

namespace vemra::desk {

std::optional<std::set<pid_t>> lockHolders(const FileIdentity& file) {
  std::ifstream list("/proc/locks");
  if (!list) return std::nullopt;
  char place[64];
  std::snprintf(place, sizeof place, "%02x:%02x:%llu", major(file.device), minor(file.device),
                static_cast<unsigned long long>(file.inode));
  std::set<pid_t> holders;
  // 3: POSIX  ADVISORY  READ 4711 08:02:133713 128 128, or behind the number -> for one that waits
  for (std::string line; std::getline(list, line);) {
    long holder = 0;
    char inode[64];
    if (std::sscanf(line.c_str(), "%*s POSIX %*s %*s %ld %63s", &holder, inode) == 2 &&
        std::string(inode) == place) {
      holders.insert(static_cast<pid_t>(holder));
    }
  }
  return holders;
}

}  // namespace vemra::desk
